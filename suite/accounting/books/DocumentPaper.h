// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

class QWidget;

// Shows a document as paper to a user who may print documents.
namespace DocumentPaper {

TZACCOUNTING_EXPORT void show(int num, int fiscalYear, QWidget *parent);

}
