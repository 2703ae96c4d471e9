// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/changes/RowEdit.h"
#include "suite/accounting/reports/CTblReportLayouts.h"
#include "suite/utility/values/TextStandard.h"

#include <algorithm>

// Keeps a layout as the window does, in place of the one of that name.
inline void storeLayout(const QString &group, const QString &report, const QString &name, const ReportLayout &layout, bool isDefault)
{
    const QVector<CTblReportLayouts::Entry> entries = CTblReportLayouts::entries(group, report);
    const auto found = std::ranges::find(entries, ConvertToStandard(name), &CTblReportLayouts::Entry::name);
    const CTblReportLayouts::Entry entry = found == entries.cend() ? CTblReportLayouts::Entry() : *found;
    CTblReportLayouts set;
    RowEdit edit(set, entry.key);
    edit.save(
        [&] {
            set.begin(group, report, name, entry);
            set.setLayout(layout, isDefault);
        },
        [&] { set.settle(edit.key()); });
}
