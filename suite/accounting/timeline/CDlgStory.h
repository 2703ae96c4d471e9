// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/Story.h"
#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/frame/KDialogTabPage.h"

class KEmptyState;
class QLabel;
class QListView;
class QPushButton;
class StoryCard;
class StoryModel;
class ListReport;

// The story of one record ("سرگذشت"): at the right who or what it is, beside it all that happened, the newest first. A line opens the record
// that it tells of. Switches narrow it to some sorts of events; the choice is kept for the user.
class TZACCOUNTING_EXPORT CDlgStory : public KDialogTabPage
{
    Q_OBJECT

public:
    CDlgStory(const QString &table, qint32 key, QWidget *parent = nullptr);
    ~CDlgStory() override;

    // A page of the work area; from within a modal window, or without a work area, a modal window of its own. A record that is gone is told.
    static void Show(const QString &table, qint32 key, QWidget *parent);
    // Puts the story among the actions of the records of the table, and into its list. form: of KSecurity.
    static void offer(const QString &table, const QString &form);
    static void withdraw(const QString &table);

    bool OnAccess() override;
    void refresh() override;
    void OnClosing() override;

    QListView *list() const { return m_list; }
    const StoryModel *model() const { return m_model; }
    // The switch of a sort of events; null where there are none of it.
    QPushButton *kindSwitch(StoryEvent::Kind kind) const;
    // Without any, all of them.
    void setKinds(const QList<StoryEvent::Kind> &kinds);
    // What is shown, as it is printed.
    ListReport report() const;

public Q_SLOTS:
    // Older events too.
    void readMore();
    void print();
    void openCurrent();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *buildList();
    void buildSwitches();
    void load();
    void showEvents();
    void showCommands();
    void openRecord(bool edits);
    QList<StoryEvent> shownEvents() const;

    const QString m_table;
    const qint32 m_key;
    int m_limit = Story::step;
    Story m_story;
    QList<StoryEvent::Kind> m_kinds; // empty: all
    StoryCard *m_card;
    QWidget *m_side;
    StoryModel *m_model;
    QListView *m_list;
    KEmptyState *m_empty;
    QWidget *m_switches;
    QLabel *m_count;
    QPushButton *m_more;
};
