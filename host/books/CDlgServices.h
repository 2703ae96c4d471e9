// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"

// The services that appear on invoices.
class CDlgServices : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgServices(QWidget *parent = nullptr);

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    KListTraits traits() const override;
    std::vector<KListCommand> commands() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    QString defaultSort() const override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    KListReport reportSpec() const override;

private:
    void addService();
    void editService();
    void deleteService();
};
