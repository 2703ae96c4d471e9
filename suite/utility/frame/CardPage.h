// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"
#include "suite/utility/look/FormGrid.h"

#include <QString>
#include <QWidget>

class CardStack;
class KListCard;
class QAbstractItemView;
class QHBoxLayout;

// The content of a window made of cards: it asks for a width, and for the height that its cards have in it.
class TZUTILITY_EXPORT CardPage : public QWidget
{
    Q_OBJECT

public:
    // The width in pixels at 100 %.
    explicit CardPage(int width, QWidget *parent = nullptr);

    CardStack *cards() const { return m_cards; }
    // A new card below those that are there, filled by its form. An empty title: a card without one.
    FormGrid *addForm(const QString &title = {}, FormGrid::Extent extent = FormGrid::Extent::Half);
    // A list or a grid of lines in a card of its own, which takes the height that is left.
    KListCard *addList(QAbstractItemView *list);
    // A line on the ground of the window, such as the commands of a list; the layout's items are to follow.
    QHBoxLayout *addLine();

    QSize sizeHint() const override;

private:
    int m_width;
    CardStack *m_cards;
};
