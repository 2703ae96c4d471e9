// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/CardPage.h"

#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookSizes.h"

#include <QGroupBox>
#include <QVBoxLayout>

CardPage::CardPage(int width, QWidget *parent)
    : QWidget(parent)
    , m_width(width)
    , m_cards(new CardStack(this))
{
}

FormGrid *CardPage::addForm(const QString &title, FormGrid::Extent extent)
{
    return new FormGrid(makeCard(title, false), extent);
}

QVBoxLayout *CardPage::addColumn(const QString &title)
{
    auto *column = new QVBoxLayout(makeCard(title, true));
    // As those of a form, the border included.
    column->setContentsMargins(LookSizes::cardPadding - 1, LookSizes::unit - 1, LookSizes::cardPadding - 1, LookSizes::unit + 1);
    column->setSpacing(LookSizes::unit);
    return column;
}

QGroupBox *CardPage::makeCard(const QString &title, bool grows)
{
    auto *card = new QGroupBox(title, this);
    m_cards->addCard(card, grows);
    return card;
}

QSize CardPage::sizeHint() const
{
    const int width = LookSizes::scaled(m_width);
    return {width, m_cards->totalHeightForWidth(width)};
}
