// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/frame/KDialog.h"

#include <QTimer>

class KEdit;
class QAbstractButton;
class QLabel;

// The login. The last user name is remembered on this computer, the password never. Wrong attempts delay the next one, also
// after the program was started again (LoginAttempts).
class CDlgLogin : public KDialog
{
    Q_OBJECT

public:
    // officeName: shown above the fields; empty: the program's name.
    explicit CDlgLogin(const QString &officeName, QWidget *parent = nullptr);

    // The user who logged in; 0 until then.
    int userID() const { return m_userID; }
    void setUserName(const QString &user);

Q_SIGNALS:
    // The window has painted itself for the first time; it is on the screen when the event loop goes on.
    void painted();

protected:
    bool OnOK() override;
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void build(const QString &officeName);
    void refuse();
    // Closes the way in for so many seconds; 0: it stays open.
    void wait(int seconds);
    void showWait();

    KEdit *m_user;
    KEdit *m_password;
    QLabel *m_hint;
    QAbstractButton *m_ok = nullptr;
    QTimer m_wait;
    int m_secondsLeft = 0;
    int m_userID = 0;
    bool m_painted = false;
};
