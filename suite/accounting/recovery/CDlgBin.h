// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/bin/Bin.h"
#include "suite/accounting/lists/KListPage.h"

// What was deleted and can be taken back: everything for administrators, his own deletions for whoever may delete anything.
class TZACCOUNTING_EXPORT CDlgBin : public KListPage
{
    Q_OBJECT

public:
    explicit CDlgBin(QWidget *parent = nullptr);
    ~CDlgBin() override;

    // Whether the current user may open the page. Quietly.
    static bool mayOpen();

    bool OnAccess() override;

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    KListTraits traits() const override;
    std::vector<KListCommand> commands() override;
    KListReport reportSpec() const override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    KSql filterClauses() const override;
    QString defaultSort() const override;
    void beginRows(KMySQL &) override;
    bool completesRows() const override { return true; }
    void completeRows(QVector<KListModel::Row> &rows) override;
    void activated(int key) override;

private:
    std::optional<Bin::Entry> selectedEntry() const;
    int daysLeft(const QDateTime &deleted) const;
    void restoreSelected();
    void showSelected();
    void removeSelected();
    void removeAll();

    QDateTime m_now;
    int m_days = 0;
};
