// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QToolButton>

// A bell with the number of the user's reminders that are due; not there while none is. It never disturbs:
// when the database does not answer, it disappears until the next attempt.
class ReminderBadge final : public QToolButton
{
    Q_OBJECT

public:
    explicit ReminderBadge(QWidget *parent = nullptr);

    // Counts now.
    void refresh();
    // Once a minute.
    void tick();

private:
    void showCount(int due);

    int m_ticksToSkip = 0;
};
