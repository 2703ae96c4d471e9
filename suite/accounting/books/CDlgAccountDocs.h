// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/books/AccountLedger.h"
#include "suite/utility/frame/KDialog.h"

class KDateEdit;
class KExtListCtrl;
class QLabel;

// The sheet of one account ("گردش حساب"): its document rows within a range of dates with the running balance. Activating a
// row shows its document.
class TZACCOUNTING_EXPORT CDlgAccountDocs : public KDialog
{
    Q_OBJECT

public:
    // An invalid date leaves that end of the range open; the user can change both.
    CDlgAccountDocs(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, QWidget *parent = nullptr);

    // Shows the sheet to a user who may read documents; says why to a user who may not.
    static void Show(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, QWidget *parent);

    KExtListCtrl *list() const { return m_list; }
    QString totalsText() const;

public Q_SLOTS:
    // Reads the rows of the range as it stands; an entry that is no date is reported and keeps the rows.
    void refill();
    void print();

private:
    void build();
    QWidget *buildFilter();
    void showDocument(int key);

    AccountLevel m_level;
    int m_code;
    AccountLedger::Sheet m_sheet;
    KDateEdit *m_from;
    KDateEdit *m_to;
    KExtListCtrl *m_list;
    QLabel *m_totals;
};
