// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/waiting/LongTask.h"

class QWidget;

// Waits for a long work while the windows go on being painted: after a second with its progress and a button to stop it.
namespace LongWaiting {

// Throws what the work threw, Stopped among it.
TZACCOUNTING_EXPORT void run(const QString &text, QWidget *window, const LongTask::Work &work);

}
