// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/timeline/StoryDelegate.h"

#include "suite/accounting/timeline/StoryKinds.h"
#include "suite/accounting/timeline/StoryModel.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QApplication>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int stepHeight = 66;
constexpr int monthHeight = 32;
constexpr int dayWidth = 84;
constexpr int spotWidth = 66;
constexpr int spotSize = 34;
constexpr int userWidth = 120;
constexpr int leastWithUser = 520; // a narrower line shows no user

// All of it is drawn from right to left; a screen's dots count from the left.
struct Columns
{
    QRect day;
    QRect spot;
    QRect words;
    QRect user; // empty: no room
};

Columns columnsOf(QRect room)
{
    const auto takeRight = [&room](int width) {
        const QRect part(room.right() - width + 1, room.top(), width, room.height());
        room.setRight(part.left() - 1);
        return part;
    };
    const bool hasUser = room.width() >= LookSizes::scaled(leastWithUser);
    room.adjust(LookSizes::cardPadding, 0, -LookSizes::cardPadding, 0);
    Columns columns;
    columns.day = takeRight(LookSizes::scaled(dayWidth));
    columns.spot = takeRight(LookSizes::scaled(spotWidth));
    if (hasUser) {
        columns.user = QRect(room.left(), room.top(), LookSizes::scaled(userWidth), room.height());
        room.setLeft(columns.user.right() + LookSizes::unit);
    }
    columns.words = room;
    return columns;
}

QRect upperHalf(const QRect &room)
{
    return {room.left(), room.top() + room.height() / 2 - LookSizes::scaled(22), room.width(), LookSizes::scaled(22)};
}

QRect lowerHalf(const QRect &room)
{
    return {room.left(), room.top() + room.height() / 2, room.width(), LookSizes::scaled(20)};
}

void writeLine(QPainter &painter, const QRect &room, LookFonts::Use use, HostColors::Role ink, const QString &text, Qt::Alignment alignment)
{
    const QFont font = LookFonts::font(use);
    painter.setFont(font);
    painter.setPen(HostColors::of(ink));
    const QString shown = QFontMetrics(font).elidedText(text, Qt::ElideRight, room.width());
    painter.drawText(room, int(alignment | Qt::AlignVCenter) | Qt::TextSingleLine, shown);
}

}

StoryDelegate::StoryDelegate(const StoryModel *story, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_story(story)
{
}

QSize StoryDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return {option.rect.width(), LookSizes::scaled(m_story->event(index) ? stepHeight : monthHeight)};
}

void StoryDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setLayoutDirection(Qt::RightToLeft);
    if (m_story->event(index)) {
        QStyleOptionViewItem ground = option;
        const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
        style->drawPrimitive(QStyle::PE_PanelItemViewRow, &ground, painter, option.widget);
        const Columns columns = columnsOf(option.rect);
        paintSpot(*painter, columns.spot, index);
        paintWords(*painter, option.rect, index);
        if (option.state & QStyle::State_Selected) {
            const QRect bar(option.rect.right() - LookSizes::unit / 2 + 1, option.rect.top(), LookSizes::unit / 2, option.rect.height());
            painter->fillRect(bar, HostColors::of(option.state & QStyle::State_Active ? HostColors::Role::Accent : HostColors::Role::Edge));
        }
    } else {
        paintMonth(*painter, option, index.data().toString());
    }
    painter->restore();
}

void StoryDelegate::paintMonth(QPainter &painter, const QStyleOptionViewItem &option, const QString &month) const
{
    const QRect room = option.rect.adjusted(LookSizes::cardPadding, 0, -LookSizes::cardPadding, 0);
    painter.fillRect(option.rect, HostColors::of(HostColors::Role::Header));
    writeLine(painter, room, LookFonts::Use::Column, HostColors::Role::Quiet, month, Qt::AlignLeading);
}

void StoryDelegate::paintSpot(QPainter &painter, const QRect &column, const QModelIndex &index) const
{
    const StoryEvent &event = *m_story->event(index);
    const StoryKinds::Inks inks = StoryKinds::inks(event.tone);
    const int size = LookSizes::scaled(spotSize);
    QRect spot(0, 0, size, size);
    spot.moveCenter(column.center());
    if (!m_story->endsMonth(index)) {
        painter.setPen(QPen(HostColors::of(HostColors::Role::Line), LookSizes::ring));
        painter.drawLine(QPoint(spot.center().x(), spot.bottom() + LookSizes::unit / 2), QPoint(spot.center().x(), column.bottom()));
    }
    const QModelIndex before = index.siblingAtRow(index.row() - 1);
    if (m_story->event(before)) {
        painter.setPen(QPen(HostColors::of(HostColors::Role::Line), LookSizes::ring));
        painter.drawLine(QPoint(spot.center().x(), column.top()), QPoint(spot.center().x(), spot.top() - LookSizes::unit / 2));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(HostColors::of(inks.ground));
    painter.drawEllipse(spot);
    const int inset = (size - LookSizes::scaled(LookSizes::iconSize)) / 2;
    LookIcons::icon(StoryKinds::icon(event.kind), inks.ink).paint(&painter, spot.adjusted(inset, inset, -inset, -inset));
}

void StoryDelegate::paintWords(QPainter &painter, const QRect &room, const QModelIndex &index) const
{
    const StoryEvent &event = *m_story->event(index);
    const Columns columns = columnsOf(room);
    using HostColors::Role;
    using LookFonts::Use;
    const QString time = StoryModel::timeText(event);
    writeLine(painter, time.isEmpty() ? columns.day : upperHalf(columns.day), Use::Text, Role::Text, StoryModel::dayText(event), Qt::AlignLeading);
    writeLine(painter, lowerHalf(columns.day), Use::Label, Role::Quiet, time, Qt::AlignLeading);
    writeLine(painter, event.line.isEmpty() ? columns.words : upperHalf(columns.words), Use::Strong, Role::Text, event.title, Qt::AlignLeading);
    writeLine(painter, lowerHalf(columns.words), Use::Label, Role::Quiet, event.line, Qt::AlignLeading);
    if (!columns.user.isEmpty())
        writeLine(painter, columns.user, Use::Label, Role::Quiet, event.user, Qt::AlignTrailing);
}
