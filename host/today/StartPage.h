// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/keeping/BackupStanding.h"
#include "suite/accounting/today/TodayReader.h"

#include <QTimer>
#include <QWidget>

#include <array>

class BackupCard;
class ElidedLabel;
class FirstSteps;
class KChip;
class LauncherRow;
class MonthFigures;
class QAction;
class QHBoxLayout;
class TodayBoard;
class TodayCardView;

// The first page of the work area: a greeting, the commands that a day begins with, and what is due today. What it shows is read anew when the
// page comes to the front, every few minutes while it is there, and after a record was opened from it.
class StartPage final : public QWidget
{
    Q_OBJECT

public:
    // One launcher per action, in that order; it mirrors the action's text, picture and state.
    explicit StartPage(const QList<QAction *> &actions, QWidget *parent = nullptr);
    ~StartPage() override;

    void setGreeting(const QString &greeting, const QString &line);
    void focusFirst();
    // Which cards there are follows from the user's rights: after a login, and when rights or modules changed.
    void refresh();
    bool isReading() const { return m_reader.isReading(); }
    // As read; what was shown before stays where the reading failed.
    void show(const TodayState &state);
    // Before that is called there is no card of the backups.
    void setBackups(const BackupStanding &standing);
    // Also in an office that has begun, or whose user has hidden them.
    void showFirstSteps();

Q_SIGNALS:
    void backupAsked();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void read();
    void showChips(const TodayState &state);
    TodayCardView *viewOf(const QString &card) const;
    void addCards(const TodayState &state);

    ElidedLabel *m_greeting;
    ElidedLabel *m_line;
    QHBoxLayout *m_chips;
    QList<KChip *> m_chipViews;
    LauncherRow *m_launchers;
    QWidget *m_board;
    TodayBoard *m_columns;
    QList<TodayCardView *> m_views;
    MonthFigures *m_figures;
    FirstSteps *m_steps;                   // in place of the cards while the office is empty
    std::array<BackupCard *, 2> m_backups; // among the cards and beside the steps
    QTimer m_clock;
    TodayReader m_reader;
};
