// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"

// The services that stand on invoices.
class CDlgServices : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgServices(QWidget *parent = nullptr);

protected:
    QVector<KListModel::Column> listColumns() const override;
    std::vector<KListCommand> commands() override;
    void buildFilters(QGridLayout *grid) override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    QString filterClauses() const override;
    KListModel::Row makeRow(KMySQL &record, int number) override;
    QString defaultSort() const override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    KListReport reportSpec() const override;
    QWidget *firstFilterControl() const override;

private:
    void addService();
    void editService();
    void deleteService();

    KEdit *m_name = nullptr;
};
