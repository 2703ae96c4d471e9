// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostLabels.h"

#include "host/frame/HostPanels.h"
#include "suite/utility/entries/CodeFont.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace {

using HostColors::Role;

bool stateOf(const QStyleOption &option, QStyle::StateFlag flag)
{
    return option.state & flag;
}

Role buttonInk(const QStyleOptionButton &option, LookMarks::Button kind)
{
    if (!stateOf(option, QStyle::State_Enabled))
        return Role::Disabled;
    if (kind == LookMarks::Button::Primary)
        return Role::OnAccent;
    if (stateOf(option, QStyle::State_Sunken) || stateOf(option, QStyle::State_On))
        return Role::OnSelect;
    return kind == LookMarks::Button::Danger ? Role::Danger : Role::Text;
}

// Mnemonics are underlined only while the keyboard asks for them.
int shortcutFlag(const QStyle &style, const QStyleOption &option, const QWidget *widget)
{
    return style.styleHint(QStyle::SH_UnderlineShortcut, &option, widget) ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
}

void paintIcon(const QIcon &icon, QPainter &painter, const QRect &rect, bool enabled)
{
    icon.paint(&painter, rect, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
}

QRect centered(int x, const QRect &around, int side)
{
    return {x, around.center().y() - side / 2 + 1, side, side};
}

constexpr int underline = 3;

}

void HostLabels::button(const QStyle &style, const QStyleOptionButton &option, QPainter &painter, const QWidget *widget)
{
    const LookMarks::Button kind = LookMarks::button(widget);
    const bool enabled = stateOf(option, QStyle::State_Enabled);
    const bool primary = kind == LookMarks::Button::Primary;
    painter.save();
    if (primary)
        painter.setFont(LookFonts::font(LookFonts::Use::Primary));
    const int flags = Qt::AlignCenter | Qt::TextSingleLine | shortcutFlag(style, option, widget);
    const int side = option.icon.isNull() ? 0 : option.iconSize.height();
    const int gap = side > 0 && !option.text.isEmpty() ? LookSizes::iconGap : 0;
    const int textWidth = option.text.isEmpty() ? 0 : painter.fontMetrics().size(Qt::TextShowMnemonic, option.text).width();
    const int arrow = option.features & QStyleOptionButton::HasMenu ? style.pixelMetric(QStyle::PM_MenuButtonIndicator, &option, widget) : 0;
    QRect room = option.rect;
    if (arrow > 0) {
        const bool leftward = option.direction == Qt::RightToLeft;
        const QRect mark(leftward ? room.left() : room.right() - arrow + 1, room.top(), arrow, room.height());
        HostPanels::chevron(painter, option.text.isEmpty() && side == 0 ? room : mark, enabled);
        room.adjust(leftward ? arrow : 0, 0, leftward ? 0 : -arrow, 0);
    }
    const int width = qMin(room.width(), side + gap + textWidth);
    QRect label(room.center().x() - width / 2, room.top(), width, room.height());
    const Role ink = buttonInk(option, kind);
    if (side > 0) {
        const int x = option.direction == Qt::RightToLeft ? label.right() - side + 1 : label.left();
        paintIcon(primary && enabled ? LookIcons::inked(option.icon, Role::OnAccent) : option.icon, painter, centered(x, label, side), enabled);
        label = option.direction == Qt::RightToLeft ? label.adjusted(0, 0, -side - gap, 0) : label.adjusted(side + gap, 0, 0, 0);
    }
    painter.setPen(HostColors::of(ink));
    painter.drawText(label, flags, option.text);
    painter.restore();
}

void HostLabels::headerSection(const QStyleOptionHeader &option, QPainter &painter)
{
    painter.fillRect(option.rect, HostColors::of(stateOf(option, QStyle::State_MouseOver) ? Role::Hover : Role::Header));
    painter.fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1), HostColors::of(Role::Line));
    const bool last = option.position == QStyleOptionHeader::End || option.position == QStyleOptionHeader::OnlyOneSection;
    if (option.orientation == Qt::Horizontal && !last) {
        const int x = option.direction == Qt::RightToLeft ? option.rect.left() : option.rect.right();
        painter.fillRect(QRect(x, option.rect.top(), 1, option.rect.height()), HostColors::of(Role::Line));
    }
}

void HostLabels::headerLabel(const QStyleOptionHeader &option, QPainter &painter)
{
    const QRect room = option.rect;
    painter.save();
    painter.setFont(LookFonts::font(LookFonts::Use::Column));
    painter.setPen(HostColors::of(stateOf(option, QStyle::State_Enabled) ? Role::Quiet : Role::Disabled));
    painter.drawText(room, int(option.textAlignment | Qt::AlignVCenter) | Qt::TextSingleLine, painter.fontMetrics().elidedText(option.text, Qt::ElideRight, room.width()));
    painter.restore();
}

void HostLabels::tabShape(const QStyleOptionTab &option, QPainter &painter)
{
    if (stateOf(option, QStyle::State_Selected))
        painter.fillRect(QRect(option.rect.left(), option.rect.bottom() - underline + 1, option.rect.width(), underline), HostColors::of(Role::Accent));
    if (stateOf(option, QStyle::State_HasFocus))
        HostPanels::focusRing(painter, option.rect.adjusted(2, 3, -2, -4));
}

void HostLabels::tabLabel(const QStyle &style, const QStyleOptionTab &option, QPainter &painter, const QWidget *widget)
{
    const bool enabled = stateOf(option, QStyle::State_Enabled);
    const bool selected = stateOf(option, QStyle::State_Selected);
    const Role ink = !enabled ? Role::Disabled : selected ? Role::Link
        : stateOf(option, QStyle::State_MouseOver)        ? Role::Text
                                                          : Role::Quiet;
    QRect room = style.subElementRect(QStyle::SE_TabBarTabText, &option, widget);
    painter.save();
    if (selected)
        painter.setFont(LookFonts::font(LookFonts::Use::Primary));
    if (!option.icon.isNull()) {
        // The base style leaves the icon its room beside the text, with a smaller gap.
        constexpr int leftGap = 4;
        constexpr int more = LookSizes::iconGap - leftGap;
        const int side = option.iconSize.height();
        const int x = option.direction == Qt::RightToLeft ? room.right() + leftGap + 1 : room.left() - leftGap - side;
        paintIcon(option.icon, painter, centered(x, room, side), enabled);
        room = option.direction == Qt::RightToLeft ? room.adjusted(0, 0, -more, 0) : room.adjusted(more, 0, 0, 0);
    }
    painter.setPen(HostColors::of(ink));
    painter.drawText(room, Qt::AlignCenter | Qt::TextSingleLine | shortcutFlag(style, option, widget),
                     painter.fontMetrics().elidedText(option.text, Qt::ElideRight, room.width(), Qt::TextShowMnemonic));
    painter.restore();
}

void HostLabels::menuItem(const QStyle &style, const QStyleOptionMenuItem &option, QPainter &painter, const QWidget *widget)
{
    using enum Role;
    const bool enabled = stateOf(option, QStyle::State_Enabled);
    const bool chosen = stateOf(option, QStyle::State_Selected) && enabled;
    const bool rtl = option.direction == Qt::RightToLeft;
    const QRect rect = option.rect;
    if (option.menuItemType == QStyleOptionMenuItem::Separator) {
        painter.fillRect(QRect(rect.left() + LookSizes::unit, rect.center().y(), rect.width() - 2 * LookSizes::unit, 1), HostColors::of(Line));
        return;
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (chosen) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(HostColors::of(Select));
        painter.drawRoundedRect(rect, LookSizes::controlCorner, LookSizes::controlCorner);
    }
    const int side = LookSizes::scaled(LookSizes::iconSize);
    const QRect inner = rect.adjusted(LookSizes::buttonPadding, 0, -LookSizes::buttonPadding, 0);
    const QRect mark = centered(rtl ? inner.right() - side + 1 : inner.left(), inner, side);
    if (option.checkType != QStyleOptionMenuItem::NotCheckable) {
        QStyleOption box = option;
        const int width = style.pixelMetric(QStyle::PM_IndicatorWidth, &option, widget);
        box.rect = QRect(0, 0, width, width);
        box.rect.moveCenter(mark.center());
        box.state.setFlag(QStyle::State_On, option.checked);
        option.checkType == QStyleOptionMenuItem::Exclusive ? HostPanels::radioMark(painter, box) : HostPanels::checkMark(painter, box);
    } else if (!option.icon.isNull()) {
        paintIcon(option.icon, painter, mark, enabled);
    }
    const int taken = side + LookSizes::iconGap;
    const QRect text = rtl ? inner.adjusted(0, 0, -taken, 0) : inner.adjusted(taken, 0, 0, 0);
    const qsizetype tab = option.text.indexOf(u'\t');
    painter.setFont(option.font);
    painter.setPen(HostColors::of(!enabled ? Disabled : chosen ? OnSelect
                                                               : Text));
    const int flags = Qt::AlignVCenter | Qt::TextSingleLine | shortcutFlag(style, option, widget);
    painter.drawText(text, flags | Qt::AlignAbsolute | (rtl ? Qt::AlignRight : Qt::AlignLeft), tab < 0 ? option.text : option.text.left(tab));
    if (tab >= 0) {
        painter.setPen(HostColors::of(!enabled ? Disabled : chosen ? OnSelect
                                                                   : Quiet));
        // From the left and in Latin digits, as on the keys.
        QFont keys = option.font;
        keys.setFamilies(CodeFont::families(option.font));
        painter.setFont(keys);
        painter.drawText(text, Qt::AlignVCenter | Qt::TextSingleLine | Qt::AlignAbsolute | (rtl ? Qt::AlignLeft : Qt::AlignRight),
                         QChar(0x202A) + option.text.mid(tab + 1) + QChar(0x202C));
    }
    if (option.menuItemType == QStyleOptionMenuItem::SubMenu) {
        painter.setPen(QPen(HostColors::of(Quiet), 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF at(rtl ? inner.left() + 3 : inner.right() - 3, inner.center().y());
        const double ahead = rtl ? -2 : 2;
        painter.drawPolyline(QPolygonF{at + QPointF(-ahead, -4), at + QPointF(ahead, 0), at + QPointF(-ahead, 4)});
    }
    painter.restore();
}

void HostLabels::menuBarItem(const QStyle &style, const QStyleOptionMenuItem &option, QPainter &painter, const QWidget *widget)
{
    const bool enabled = stateOf(option, QStyle::State_Enabled);
    const bool chosen = enabled && (stateOf(option, QStyle::State_Selected) || stateOf(option, QStyle::State_Sunken));
    const bool open = chosen && stateOf(option, QStyle::State_Sunken);
    if (chosen) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(HostColors::of(open ? Role::Select : Role::Hover));
        painter.drawRoundedRect(option.rect.adjusted(2, 2, -2, -2), LookSizes::buttonCorner, LookSizes::buttonCorner);
        painter.restore();
        if (!open)
            HostPanels::focusRing(painter, option.rect.adjusted(2, 2, -2, -2));
    }
    painter.setPen(HostColors::of(!enabled ? Role::Disabled : open ? Role::OnSelect
                                                                   : Role::Text));
    painter.drawText(option.rect, Qt::AlignCenter | Qt::TextSingleLine | shortcutFlag(style, option, widget), option.text);
}

void HostLabels::groupTitle(const QStyle &style, const QStyleOptionGroupBox &option, const QRect &line, QPainter &painter)
{
    painter.save();
    painter.setFont(LookFonts::font(LookFonts::Use::Title));
    painter.setPen(HostColors::of(stateOf(option, QStyle::State_Enabled) ? Role::Text : Role::Disabled));
    const int side = option.direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    painter.drawText(line, side | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine | shortcutFlag(style, option, nullptr), option.text);
    painter.restore();
}
