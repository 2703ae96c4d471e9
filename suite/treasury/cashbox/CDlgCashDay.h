// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/AccountLedger.h"
#include "suite/accounting/reports/ListReport.h"
#include "suite/treasury/TzTreasuryExport.h"
#include "suite/utility/frame/KDialog.h"

#include <QDate>
#include <QHash>

#include <utility>

class KDateEdit;
class KEdit;
class KExtListCtrl;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QPushButton;

// The closing sheet of a cash box or bank account for one day ("برگه روزانه صندوق"): what was brought forward, each amount received
// and paid, what must be there at the end, and the difference to what the cashier has counted. The count belongs to its account and
// day while the window is open, and is kept no longer: it is for the paper that is signed.
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
    // An entry that is no date is told instead.
    void print();

private:
    void build(int account);
    QWidget *buildHead(int account);
    QPushButton *addStep(QHBoxLayout *line, const QString &caption, int key, int days);
    // False, once the user has been told, while the line holds no day.
    bool requireDay();
    void dayLeft();
    void showCount(int account, const QDate &day);
    void showTotals();
    void showDifference();
    void step(int days);

    AccountLedger::Sheet m_sheet;
    std::pair<int, QDate> m_shown;                  // account and day of the sheet
    QHash<std::pair<int, QDate>, QString> m_counts; // as typed, of the sheets shown before
    bool m_dayCheckPending = false;
    QComboBox *m_account;
    KDateEdit *m_day;
    KExtListCtrl *m_list;
    QLabel *m_totals;
    KEdit *m_counted;
    QLabel *m_difference;
    QPushButton *m_nextDay = nullptr;
    QPushButton *m_back = nullptr;
};
