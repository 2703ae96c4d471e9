// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/history/HistoryEntry.h"
#include "suite/accounting/lists/KListPage.h"

// What was changed, by whom and when: of everything, for administrators, or of one record with what belongs to it. Below the list stand the
// columns of the selected entry with their values before and after.
class TZACCOUNTING_EXPORT CDlgHistory : public KListPage
{
    Q_OBJECT

public:
    // Everything.
    explicit CDlgHistory(QWidget *parent = nullptr);
    // One record.
    CDlgHistory(const QString &table, qint32 key, QWidget *parent = nullptr);
    ~CDlgHistory() override;

    // The history of one record in a modal window, for RecordHistory.
    static void Show(const QString &table, qint32 key, QWidget *parent);

    bool OnAccess() override;
    // The columns of the selected entry.
    KExtListCtrl *details() const { return m_details; }

protected:
    QList<KListColumn> columnTable() const override;
    QList<KListFilter> filterTable() const override;
    std::vector<KListCommand> commands() override;
    KListTraits traits() const override;
    std::unique_ptr<KMySQL> makeRecords() const override;
    KListReport reportSpec() const override;
    QString defaultSort() const override;
    // Takes each note while its row is made.
    bool isWarning(KMySQL &record) const override;
    void beginRows(KMySQL &) override;
    bool completesRows() const override { return true; }
    void completeRows(QVector<KListModel::Row> &rows) override;
    void activated(int key) override;

private:
    void buildDetails();
    void showDetails(int key);
    void showWhole();

    QString m_table; // of the record; empty: everything
    qint32 m_key = 0;
    mutable QList<HistoryEntry> m_read; // while the rows are made
    QHash<int, HistoryEntry> m_entries;
    KExtListCtrl *m_details = nullptr;
};
