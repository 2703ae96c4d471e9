// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/StartPage.h"

#include "host/desk/StartButton.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

// The window is never higher than a small screen: many buttons make the rows wider, not more numerous.
constexpr qsizetype mostRows = 3;
constexpr qsizetype fewestPerRow = 3;

}

StartPage::StartPage(const QList<QAction *> &actions, QWidget *parent)
    : QWidget(parent)
    , m_greeting(new QLabel(this))
    , m_line(new QLabel(this))
{
    setAccessibleName(u"صفحه شروع"_s);
    QFont font = m_greeting->font();
    font.setPointSizeF(font.pointSizeF() * 1.7);
    font.setBold(true);
    m_greeting->setFont(font);
    for (QLabel *label : {m_greeting, m_line}) {
        label->setAlignment(Qt::AlignCenter);
        label->setTextFormat(Qt::PlainText);
    }

    auto *grid = new QGridLayout;
    grid->setSpacing(16);
    const int buttonsPerRow = static_cast<int>(qMax(fewestPerRow, (actions.size() + mostRows - 1) / mostRows));
    for (QAction *action : actions) {
        const int place = static_cast<int>(m_buttons.size());
        m_buttons.append(new StartButton(action, this));
        grid->addWidget(m_buttons.constLast(), place / buttonsPerRow, place % buttonsPerRow);
    }

    auto *middle = new QHBoxLayout;
    middle->addStretch();
    middle->addLayout(grid);
    middle->addStretch();
    auto *column = new QVBoxLayout(this);
    column->addStretch(2);
    column->addWidget(m_greeting);
    column->addWidget(m_line);
    column->addSpacing(24);
    column->addLayout(middle);
    column->addStretch(3);
}

void StartPage::setGreeting(const QString &greeting, const QString &line)
{
    m_greeting->setText(greeting);
    m_line->setText(line);
}

void StartPage::focusFirst()
{
    if (!m_buttons.isEmpty())
        m_buttons.constFirst()->setFocus();
}
