// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KWaitNotice.h"

#include "suite/db/connection/KConnection.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

KWaitNotice::KWaitNotice()
{
    m_turn.setInterval(0);
    connect(&m_turn, &QTimer::timeout, this, [this] {
        m_turn.stop();
        KConnection::endOperation();
    });
    KConnection::setWaiter(this);
}

KWaitNotice::~KWaitNotice()
{
    KConnection::setWaiter(nullptr);
    ended();
}

bool KWaitNotice::began() noexcept
{
    m_turn.start();
    return true;
}

void KWaitNotice::slow() noexcept
{
    if (QGuiApplication::overrideCursor())
        return;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    m_isSlow = true;
}

bool KWaitNotice::goOn(std::chrono::milliseconds waited) noexcept
{
    try {
        if (!m_window)
            show();
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(waited).count();
        m_text->setText(u"در انتظار پاسخ پایگاه داده... (%1 ثانیه)"_s.arg(seconds));
        m_text->setAccessibleName(m_text->text());
        QCoreApplication::processEvents();
    } catch (...) {
        // Without a notice the wait goes on, and ends by its own time.
    }
    return !m_givenUp;
}

void KWaitNotice::ended() noexcept
{
    if (m_cursorSet)
        QApplication::restoreOverrideCursor();
    m_cursorSet = false;
    if (std::exchange(m_isSlow, false))
        QApplication::restoreOverrideCursor();
    // Also where the window went with the one below it.
    qApp->removeEventFilter(this);
    if (!m_window)
        return;
    const bool isActive = m_window->isActiveWindow();
    delete m_window;
    // Where no window manager does so by itself.
    if (m_before && (isActive || !QApplication::activeWindow()))
        m_before->activateWindow();
}

void KWaitNotice::show()
{
    m_givenUp = false;
    m_before = QApplication::activeWindow();
    m_window = new QDialog(m_before);
    m_window->setWindowTitle(u"پایگاه داده"_s);
    m_window->setAccessibleName(m_window->windowTitle());
    m_window->setLayoutDirection(Qt::RightToLeft);
    m_window->setWindowModality(Qt::ApplicationModal);
    m_text = new QLabel(m_window);
    auto *hint = new QLabel(u"با انصراف چیزی ذخیره نمی‌شود و آنچه وارد کرده‌اید می‌ماند."_s, m_window);
    auto *giveUp = new QPushButton(u"انصراف"_s, m_window);
    giveUp->setAccessibleName(giveUp->text());
    // Whoever is typing when the notice comes up gives up by Esc or by going to the button, not by the next letter.
    giveUp->setAutoDefault(false);
    m_window->setFocusPolicy(Qt::StrongFocus);
    LookFonts::apply(m_text, LookFonts::Use::Strong);
    LookFonts::apply(hint, LookFonts::Use::Label);
    auto *column = new QVBoxLayout(m_window);
    constexpr int around = LookSizes::windowMargin;
    column->setContentsMargins(around, around, around, around);
    column->setSpacing(LookSizes::unit);
    column->addWidget(m_text);
    column->addWidget(hint);
    column->addWidget(giveUp, 0, Qt::AlignHCenter);
    connect(giveUp, &QPushButton::clicked, m_window, &QDialog::reject);
    connect(m_window, &QDialog::rejected, this, [this] { m_givenUp = true; });
    if (QApplication::overrideCursor()) {
        QApplication::setOverrideCursor(Qt::ArrowCursor);
        m_cursorSet = true;
    }
    qApp->installEventFilter(this);
    m_window->show();
    m_window->setFocus();
}

bool KWaitNotice::isOfNotice(const QObject *receiver) const
{
    for (; receiver; receiver = receiver->parent()) {
        if (receiver == m_window)
            return true;
    }
    return false;
}

// Both come again by themselves: a timer that was not served stays due, and so does a socket that was not read. The operation is over
// when its own timer comes while nobody waits.
bool KWaitNotice::eventFilter(QObject *receiver, QEvent *event)
{
    if (receiver == &m_turn && !KConnection::isWaiting())
        return false;
    return (event->type() == QEvent::Timer || event->type() == QEvent::SockAct) && !isOfNotice(receiver);
}
