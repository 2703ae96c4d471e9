// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/chart/AccountBalance.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/treasury/TzTreasuryExport.h"

#include <QHash>

// The cash boxes and bank accounts of the office with what each holds today ("صندوق و بانک"); from here the sheet of an account and
// the closing sheet of its day.
class TZTREASURY_EXPORT CDlgCashAccounts : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgCashAccounts(QWidget *parent = nullptr);
    ~CDlgCashAccounts() override;

    // The sum of what the accounts hold, as the foot of the list shows it.
    QString totalText() const;

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    KListTraits traits() const override;
    std::vector<KListCommand> commands() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    void beginRows(KMySQL &) override;
    void showTotals(const QVector<KListModel::Row> &rows) override;
    QString defaultSort() const override { return u"iCode"_s; }
    void activated(int key) override;
    KListReport reportSpec() const override;

private:
    int selectedCode() const;
    void showSheet();
    void showDay();

    QHash<int, AccountBalance> m_balances; // by code, of the rows that are being made
    QLabel *m_total;
};
