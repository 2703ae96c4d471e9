// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListPage.h"
#include "suite/crm/messages/MessageKinds.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/lists/KListModel.h"

#include <functional>
#include <optional>

class KEmptyState;
class ListReport;

// What one window of matches lists.
struct MatchTable
{
    struct Contents
    {
        QString subject; // what the rows are matched with, in one line
        QVector<KListModel::Row> rows;
    };

    QString title;
    QString form;    // whose access rights apply to what is listed
    QString section; // in the user's settings
    QString nothing; // shown when no row fits
    QVector<KListModel::Column> columns;
    KListReport report;
    // Returns none when what the rows are matched with is gone.
    std::function<std::optional<Contents>()> read;
    // Shows the record of a row. True when the list has to be read again.
    std::function<bool(int key, QWidget *parent)> show;
    // What a message about the row says (MessageKinds). Empty: none is offered.
    std::function<MessageAbout(int key)> message = {};
};

// What fits something, best first: cars for a demand, demands for a car. A row is opened read-only; the list can be printed.
class CDlgMatches final : public KDialog, private KSecurity
{
    Q_OBJECT

public:
    explicit CDlgMatches(MatchTable table, QWidget *parent = nullptr);
    ~CDlgMatches() override;

    // Fills a window over the table and runs it. Does nothing when read returns nothing; a user without access to the form
    // sees a message.
    static void Run(MatchTable table, QWidget *parent);

    // False when read returns nothing; the window must not be shown then.
    [[nodiscard]] bool load();

    KExtListCtrl *list() const { return m_list; }
    QString subject() const;
    QString countText() const;
    // The commands behind the buttons.
    void showSelected();
    void print();
    // Of the marked rows.
    void writeMessages();
    ListReport report() const;

private:
    void build();
    void addCommands();
    void updateButtons();

    MatchTable m_table;
    QLabel *m_subject;
    KExtListCtrl *m_list;
    QLabel *m_count;
    KEmptyState *m_empty = nullptr;
    QPushButton *m_show = nullptr;
    QPushButton *m_message = nullptr; // null: none is offered
};

// Texts that both windows of matches show.
namespace MatchTexts {

// "100%", to be drawn left to right.
KListModel::Cell percent(int percent);
// The name, "-" for an empty one.
KListModel::Cell name(const QString &name);
// Empty for 0.
KListModel::Cell number(int number);
KListModel::Cell money(double amount);
// Until when a car is needed; empty for an invalid date.
KListModel::Cell latestDate(const QDateTime &date);
// Whether the car is sold.
KListModel::Cell sold(bool sold);

}
