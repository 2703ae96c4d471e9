// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/start/SplashWindow.h"

#include <QObject>

#include <memory>

class CDlgLogin;

// What stands on the screen while the program starts and ends: the splash, which says what is waited for; or the login, which says it
// below its fields, so that users type their names while the server starts. One of them at a time.
class StartScreen final : public QObject
{
    Q_OBJECT

public:
    StartScreen();
    ~StartScreen() override;

    // From the next wait on the login stands there, where this computer knows the office.
    void offerLogin();
    // Shows the text and paints at once; into the login the user can type meanwhile. False: the user has left it, and what still
    // has to be waited for stands on the splash.
    bool showWaiting(const QString &waitingFor);
    // On the splash, with a button by which the user gives up waiting. False once it was pressed.
    bool showWaitingOrGiveUp(const QString &waitingFor);
    // What was typed stays.
    void hide();

    // The login with what was typed into it; null where none was shown. It belongs to the caller, and no other comes.
    std::unique_ptr<CDlgLogin> takeLogin();
    // The user has closed the login.
    bool isLeft() const { return m_isLeft; }
    // Below which a message belongs.
    QWidget *window();

Q_SIGNALS:
    void loginPainted();

private:
    void showLogin(const QString &waitingFor);

    SplashWindow m_splash;
    std::unique_ptr<CDlgLogin> m_login;
    bool m_offersLogin = false;
    bool m_isLeft = false;
};
