// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/books/AccountLedger.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/lists/KListModel.h"

class KDateEdit;
class KEmptyState;
class KExtListCtrl;
class QLabel;

// The sheet of one account ("گردش حساب") or the statement of one person ("صورتحساب"): the document rows within a range of dates
// with the running balance. Activating a row shows its document.
class TZACCOUNTING_EXPORT CDlgAccountDocs : public KDialog
{
    Q_OBJECT

public:
    // An invalid date leaves that end of the range open; the user can change both.
    CDlgAccountDocs(const AccountLedger::Scope &scope, const QDateTime &from, const QDateTime &to, QWidget *parent = nullptr);
    CDlgAccountDocs(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, QWidget *parent = nullptr);

    // Shows the sheet to a user who may read documents; says why to a user who may not.
    static void Show(AccountLevel level, int code, const QDateTime &from, const QDateTime &to, QWidget *parent);
    // The statement of a person over all dates, to a user who may read documents, or receipts: whoever takes money says what is
    // owed. Nothing for key 0.
    static void ShowPerson(int personID, QWidget *parent);

    KExtListCtrl *list() const { return m_list; }
    // What the window says in place of rows; hidden while it has some.
    KEmptyState *emptyState() const { return m_empty; }
    QString totalsText() const;

public Q_SLOTS:
    // Reads the rows of the range as it stands; an entry that is no date is reported and keeps the rows.
    void refill();
    void print();

private:
    void build();
    QWidget *buildFilter();
    QVector<KListModel::Column> columns() const;
    KListModel::Row ledgerRow(const AccountLedger::Row &row, int number) const;
    KListModel::Row closingRow() const;
    QString totals(int number) const;
    void sayWhyEmpty();
    void showDocument(int key);
    void showPaper();

    const AccountLedger::Scope m_scope;
    AccountLedger::Sheet m_sheet;
    QDate m_shownFrom; // that it was read for
    QDate m_shownTo;
    KDateEdit *m_from;
    KDateEdit *m_to;
    KExtListCtrl *m_list;
    KEmptyState *m_empty = nullptr;
    QLabel *m_totals;
};
