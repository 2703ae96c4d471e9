// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/StartScreen.h"

#include "host/start/CDlgLogin.h"

#include <QCoreApplication>

StartScreen::StartScreen() = default;
StartScreen::~StartScreen() = default;

void StartScreen::offerLogin()
{
    m_offersLogin = CDlgLogin::isOfficeKnown();
}

bool StartScreen::showWaiting(const QString &waitingFor)
{
    if (m_offersLogin && !m_isLeft)
        showLogin(waitingFor);
    else
        m_splash.showWaiting(waitingFor);
    return !m_isLeft;
}

void StartScreen::showLogin(const QString &waitingFor)
{
    m_splash.hide();
    if (!m_login) {
        m_login = std::make_unique<CDlgLogin>(CDlgLogin::BeforeDatabase());
        connect(m_login.get(), &CDlgLogin::painted, this, &StartScreen::loginPainted, Qt::QueuedConnection);
        connect(m_login.get(), &CDlgLogin::rejected, this, [this] { m_isLeft = true; });
        m_login->setModal(true);
    }
    m_login->waitFor(waitingFor);
    if (!m_login->isVisible())
        m_login->show();
    QCoreApplication::processEvents();
}

bool StartScreen::showWaitingOrGiveUp(const QString &waitingFor)
{
    if (m_login)
        m_login->hide();
    return m_splash.showWaitingOrGiveUp(waitingFor);
}

void StartScreen::hide()
{
    m_splash.hide();
    if (m_login)
        m_login->hide();
}

std::unique_ptr<CDlgLogin> StartScreen::takeLogin()
{
    m_offersLogin = false;
    if (m_login)
        m_login->disconnect(this);
    return std::move(m_login);
}

QWidget *StartScreen::window()
{
    return m_login && m_login->isVisible() ? static_cast<QWidget *>(m_login.get()) : &m_splash;
}
