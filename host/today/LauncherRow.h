// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAction>
#include <QWidget>

class CommandMenu;
class StartButton;

// Launchers in one row, in the order of their actions. Those that do not fit stand in the menu of the last one, "بیشتر".
class LauncherRow final : public QWidget
{
    Q_OBJECT

public:
    explicit LauncherRow(const QList<QAction *> &actions, QWidget *parent = nullptr);

    void focusFirst();
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    int fitting() const;
    void arrange();

    QList<StartButton *> m_buttons;
    QAction m_more;
    StartButton *m_moreButton;
    CommandMenu *m_menu;
};
