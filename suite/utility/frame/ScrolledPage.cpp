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

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        QScrollArea::resizeEvent(event);
        if (!m_isLooking && verticalScrollBar()->isVisible())
            lookWithoutBar(event);
    }

private:
    // A bar from when there was less room takes some of the width; a sentence that breaks into one more line for that would keep it.
    void lookWithoutBar(QResizeEvent *event)
    {
        const QSize room = maximumViewportSize();
        if (!widget() || !widget()->hasHeightForWidth() || widget()->heightForWidth(room.width()) > room.height())
            return;
        m_isLooking = true;
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        // The least height of the page is that of the width it has by now.
        QScrollArea::resizeEvent(event);
        setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
        m_isLooking = false;
    }

    bool m_isLooking = false;
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
