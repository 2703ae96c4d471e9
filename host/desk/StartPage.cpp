// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/StartPage.h"

#include "host/desk/LauncherRow.h"
#include "suite/utility/look/ElidedLabel.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int greetingHeight = 40;
constexpr int besideGreeting = 12;

}

StartPage::StartPage(const QList<QAction *> &actions, QWidget *parent)
    : QWidget(parent)
    , m_greeting(new ElidedLabel(this))
    , m_line(new ElidedLabel(this))
    , m_launchers(new LauncherRow(actions, this))
{
    setAccessibleName(u"صفحه شروع"_s);
    LookFonts::apply(m_greeting, LookFonts::Use::Page);
    m_greeting->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    LookFonts::apply(m_line, LookFonts::Use::Label);

    auto *head = new QHBoxLayout;
    head->setSpacing(LookSizes::scaled(besideGreeting));
    head->addWidget(m_greeting);
    head->addWidget(m_line, 1);
    m_greeting->setMinimumHeight(LookSizes::scaled(greetingHeight));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(LookSizes::windowMargin, LookSizes::unit / 2, LookSizes::windowMargin, 0);
    column->setSpacing(LookSizes::unit);
    column->addLayout(head);
    column->addWidget(m_launchers);
    column->addStretch(1);
}

void StartPage::setGreeting(const QString &greeting, const QString &line)
{
    m_greeting->setText(greeting);
    m_line->setText(line);
}

void StartPage::focusFirst()
{
    m_launchers->focusFirst();
}
