// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/CardPage.h"

#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookSizes.h"

#include <QGroupBox>
#include <QHBoxLayout>

CardPage::CardPage(int width, QWidget *parent)
    : QWidget(parent)
    , m_width(width)
    , m_cards(new CardStack(this))
{
}

FormGrid *CardPage::addForm(const QString &title, FormGrid::Extent extent)
{
    auto *card = new QGroupBox(title, this);
    m_cards->addCard(card);
    return new FormGrid(card, extent);
}

KListCard *CardPage::addList(QAbstractItemView *list)
{
    auto *card = new KListCard(list, this);
    m_cards->addCard(card, true);
    return card;
}

QHBoxLayout *CardPage::addLine()
{
    auto *place = new QWidget(this);
    auto *line = new QHBoxLayout(place);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(LookSizes::unit);
    m_cards->addCard(place);
    return line;
}

QSize CardPage::sizeHint() const
{
    const int width = LookSizes::scaled(m_width);
    return {width, m_cards->totalHeightForWidth(width)};
}
