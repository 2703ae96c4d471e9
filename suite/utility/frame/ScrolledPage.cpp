// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/ScrolledPage.h"

#include "suite/utility/frame/TabOrder.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

// Asks for the room of the whole page; by itself an area asks for little, and a small window would begin scrolled.
class PageArea : public QScrollArea
{
public:
    using QScrollArea::QScrollArea;

    QSize sizeHint() const override { return widget() ? widget()->sizeHint() : QScrollArea::sizeHint(); }
};

}

void fillWithScrolled(QWidget *page, QWidget *content)
{
    auto *scroll = new PageArea(page);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(content);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroll);
    scroll->setMinimumWidth(content->minimumSizeHint().width() + scroll->verticalScrollBar()->sizeHint().width());
    tabInLayoutOrder(content);
}
