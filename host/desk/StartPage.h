// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class QAction;
class QLabel;

// Fills the work area while no page is open: a greeting and the commands that a day begins with.
class StartPage final : public QWidget
{
    Q_OBJECT

public:
    // One button per action, in that order; it mirrors the action's text, picture and state.
    explicit StartPage(const QList<QAction *> &actions, QWidget *parent = nullptr);

    void setGreeting(const QString &greeting, const QString &line);
    void focusFirst();

private:
    QLabel *m_greeting;
    QLabel *m_line;
    QList<QWidget *> m_buttons;
};
