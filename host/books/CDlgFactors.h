// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"

// The invoices of services, sold and bought.
class CDlgFactors : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgFactors(QWidget *parent = nullptr);

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    KListTraits traits() const override;
    std::vector<KListCommand> commands() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    bool isWarning(KMySQL &record) const override;
    QString defaultSort() const override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    KListReport reportSpec() const override;

private:
    void addInvoice(int type);
    void editInvoice();
    void showInvoice();
    void voidInvoice();
    void showDocument();
};
