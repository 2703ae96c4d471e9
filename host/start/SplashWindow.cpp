// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/SplashWindow.h"

#include "host/frame/HostOptions.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int splashPicture = 96;
constexpr QMargins aroundSplash(32, 28, 32, 28);

QLabel *centred(const QString &text, LookFonts::Use use, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setAlignment(Qt::AlignCenter);
    LookFonts::apply(label, use);
    return label;
}

}

SplashWindow::SplashWindow(QWidget *parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    setWindowTitle(u"گالری اتومبیل"_s);
    setAccessibleName(windowTitle());
}

void SplashWindow::build()
{
    if (m_waiting)
        return;
    auto *picture = new QLabel(this);
    picture->setPixmap(LookIcons::icon(u":/icons/tzauto.svg"_s).pixmap(LookSizes::scaled(splashPicture)));
    picture->setAlignment(Qt::AlignCenter);
    m_waiting = centred(QString(), LookFonts::Use::Text, this);
    m_waiting->setWordWrap(true);
    m_waiting->setMinimumSize(fontMetrics().averageCharWidth() * 56, 2 * fontMetrics().lineSpacing());
    auto *bar = new QProgressBar(this);
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    bar->setFixedHeight(LookSizes::scaled(LookSizes::unit));
    bar->setAccessibleName(u"در حال انجام"_s);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(aroundSplash);
    column->setSpacing(LookSizes::unit);
    column->addWidget(picture);
    column->addWidget(centred(windowTitle(), LookFonts::Use::Page, this));
    column->addWidget(centred(HostOptions::versionText(true).trimmed(), LookFonts::Use::Label, this));
    column->addSpacing(LookSizes::unit);
    column->addWidget(m_waiting);
    column->addWidget(bar);
    m_giveUp = new QPushButton(u"انصراف"_s, this);
    m_giveUp->setAccessibleName(m_giveUp->text());
    m_giveUp->hide();
    connect(m_giveUp, &QPushButton::clicked, this, [this] { m_givenUp = true; });
    column->addWidget(m_giveUp, 0, Qt::AlignCenter);
}

void SplashWindow::showWaiting(const QString &waitingFor)
{
    build();
    if (m_giveUp->isVisibleTo(this)) {
        m_giveUp->hide();
        adjustSize();
    }
    showText(waitingFor);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

bool SplashWindow::showWaitingOrGiveUp(const QString &waitingFor)
{
    build();
    const bool begins = !m_giveUp->isVisibleTo(this);
    if (begins) {
        m_givenUp = false;
        m_giveUp->show();
        adjustSize();
    }
    showText(waitingFor);
    if (begins) {
        activateWindow();
        m_giveUp->setFocus();
    }
    QCoreApplication::processEvents();
    return !m_givenUp;
}

void SplashWindow::showText(const QString &waitingFor)
{
    // Some texts end with dots of their own.
    const bool dotted = waitingFor.endsWith(u'.') || waitingFor.endsWith(u'…');
    const QString text = dotted ? waitingFor : waitingFor + u" …"_s;
    if (m_waiting->text() != text) {
        m_waiting->setText(text);
        m_waiting->setAccessibleName(text);
    }
    if (!isVisible()) {
        adjustSize();
        const QScreen *screen = QGuiApplication::primaryScreen();
        move(screen->availableGeometry().center() - rect().center());
        show();
        LookSizes::keepOnScreen(this);
    }
}

void SplashWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && m_giveUp->isVisible())
        m_givenUp = true;
    else
        QWidget::keyPressEvent(event);
}

void SplashWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), HostColors::of(HostColors::Role::Surface));
    painter.setPen(HostColors::of(HostColors::Role::Line));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
