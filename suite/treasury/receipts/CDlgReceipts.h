// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/treasury/TzTreasuryExport.h"

class QLabel;

// The receipts and payments ("دریافت‌ها و پرداخت‌ها").
class TZTREASURY_EXPORT CDlgReceipts : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgReceipts(QWidget *parent = nullptr);

    QString sumsText() const;

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    KListTraits traits() const override;
    std::vector<KListCommand> commands() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    bool isWarning(KMySQL &record) const override;
    void showTotals(const QVector<KListModel::Row> &rows) override;
    QString defaultSort() const override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    KListReport reportSpec() const override;

private:
    void add(CTblReceipts::Kind kind);
    void showReceipt();
    void printReceipt();
    void showDocument();
    void showStatement();
    void voidReceipt();

    QLabel *m_sums; // received and paid, of the valid rows that are listed
};
