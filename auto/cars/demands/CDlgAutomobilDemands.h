// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"

using namespace Qt::StringLiterals;

// The list of customers' demands, and the commands on a demand, including the search for cars that fit it.
class CDlgAutomobilDemands final : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgAutomobilDemands(QWidget *parent = nullptr);
    ~CDlgAutomobilDemands() override;

    // Restores the filter of a new window and empties the list.
    void resetFilter() override;

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    std::vector<KListCommand> commands() override;
    KListTraits traits() const override;
    void opening() override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    std::unique_ptr<KMySQL> makeRecord() const override;
    bool completesRows() const override;
    void completeRows(QVector<KListModel::Row> &rows) override;
    QString defaultSort() const override { return u"ad.iCode"_s; }
    void recordDeleted(int key) override;
    void activated(int key) override;
    void emptyAreaActivated() override;
    KListReport reportSpec() const override;

private:
    void addDemand();
    // Demands out of a spreadsheet.
    void importFile();
    void editDemand();
    void showDemand(int key);
    void archiveDemand();
};
