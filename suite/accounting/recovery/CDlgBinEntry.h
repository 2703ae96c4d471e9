// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/bin/Bin.h"
#include "suite/utility/frame/KDialog.h"

class KExtListCtrl;

// What a deleted record held, with all that went along with it, in words.
class TZACCOUNTING_EXPORT CDlgBinEntry : public KDialog
{
    Q_OBJECT

public:
    explicit CDlgBinEntry(const Bin::Entry &entry, QWidget *parent = nullptr);

private:
    void fill(const Bin::Entry &entry);

    KExtListCtrl *m_list;
};
