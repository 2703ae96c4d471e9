// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QWidget>

class QMenu;
class QMenuBar;
class QToolButton;
class ReminderBadge;
class SearchBox;

// The bar at the top of the main window: the menus; room in its middle; at its far end the look, the reminders and the user.
class TopBar final : public QWidget
{
    Q_OBJECT

public:
    explicit TopBar(QWidget *parent = nullptr);

    QMenuBar *menuBar() const { return m_menuBar; }
    // Between the menus and the far end, in the middle of what is left.
    SearchBox *search() const { return m_search; }
    ReminderBadge *reminders() const { return m_reminders; }
    // What the user's button offers.
    QMenu *userMenu() const { return m_userMenu; }
    void setUser(const QString &name);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QToolButton *makeButton(const QString &icon);
    void showLook();
    void showUser();

    QMenuBar *m_menuBar;
    SearchBox *m_search;
    QToolButton *m_look;
    ReminderBadge *m_reminders;
    QToolButton *m_user;
    QMenu *m_userMenu;
    QString m_name;
};
