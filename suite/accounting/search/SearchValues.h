// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>
#include <QStringList>

// The pieces of a hit's texts, out of what a statement returns.
namespace SearchValues {

// A stored date as people say it, "24 آذر 1405"; empty for none.
TZACCOUNTINGDATA_EXPORT QString day(const QString &stored);
// An amount with the office's unit left out; empty for nothing.
TZACCOUNTINGDATA_EXPORT QString money(const QString &stored);
// Those that are not empty, with a comma between.
TZACCOUNTINGDATA_EXPORT QString joined(QStringList parts);
// The label and the text; empty where the text is.
TZACCOUNTINGDATA_EXPORT QString labelled(const QString &label, const QString &text);

}
