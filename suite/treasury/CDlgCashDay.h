// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/AccountLedger.h"
#include "suite/accounting/reports/ListReport.h"
#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

class KDateEdit;
class KEdit;
class KExtListCtrl;
class QComboBox;
class QHBoxLayout;
class QLabel;

// The closing sheet of a cash box or bank account for one day ("برگه روزانه صندوق"): what was brought forward, each amount received
// and paid, what must be there at the end, and the difference to what the cashier has counted. The count is not kept: it is for the
// paper that is signed.
class TZTREASURY_EXPORT CDlgCashDay : public KDialog
{
    Q_OBJECT

public:
    // account: a subsidiary account of the cash boxes or banks.
    CDlgCashDay(int account, const QDate &day, QWidget *parent = nullptr);
    ~CDlgCashDay() override;

    KExtListCtrl *list() const { return m_list; }
    QString totalsText() const;
    QString differenceText() const;
    ListReport report() const;

public Q_SLOTS:
    // Reads the day as it stands; an entry that is no date keeps the rows.
    void refill();
    void print();

private:
    void build(int account);
    QWidget *buildHead(int account);
    void addStep(QHBoxLayout *line, const QString &caption, int key, int days);
    void showTotals();
    void showDifference();
    void step(int days);

    AccountLedger::Sheet m_sheet;
    QComboBox *m_account;
    KDateEdit *m_day;
    KExtListCtrl *m_list;
    QLabel *m_totals;
    KEdit *m_counted;
    QLabel *m_difference;
};
