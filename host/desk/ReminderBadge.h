// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QToolButton>

// How many of the user's reminders have fallen due, in the status line; nothing is shown while none has. It never disturbs:
// a database that does not answer takes it off until it may be asked again.
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
