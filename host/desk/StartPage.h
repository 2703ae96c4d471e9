// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class ElidedLabel;
class LauncherRow;
class QAction;

// The first page of the work area: a greeting and the commands that a day begins with.
class StartPage final : public QWidget
{
    Q_OBJECT

public:
    // One launcher per action, in that order; it mirrors the action's text, picture and state.
    explicit StartPage(const QList<QAction *> &actions, QWidget *parent = nullptr);

    void setGreeting(const QString &greeting, const QString &line);
    void focusFirst();

private:
    ElidedLabel *m_greeting;
    ElidedLabel *m_line;
    LauncherRow *m_launchers;
};
