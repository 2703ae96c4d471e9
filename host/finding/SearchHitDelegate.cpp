// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/finding/SearchHitDelegate.h"

#include "host/finding/KeyCap.h"
#include "host/finding/SearchHits.h"
#include "suite/accounting/search/SearchText.h"
#include "suite/utility/entries/CodeFont.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookSizes.h"

#include <QPainter>
#include <QTextLayout>

using namespace Qt::StringLiterals;

namespace {

using Colors = HostColors::Role;
using Fonts = LookFonts::Use;

constexpr int hitHeight = 46;
constexpr int titleHeight = 32;
constexpr int hitIcon = 20;

QString allText()
{
    return u"همه"_s;
}

int lineHeight(Fonts use)
{
    return QFontMetrics(LookFonts::font(use)).height();
}

QColor inkOf(Colors role)
{
    return HostColors::of(role);
}

// From right to left, without the padding at both ends.
QRect inner(const QStyleOptionViewItem &option)
{
    const int padding = LookSizes::scaled(LookSizes::buttonPadding);
    return option.rect.adjusted(padding, 0, -padding, 0);
}

}

QRect SearchHitDelegate::allRect(const QStyleOptionViewItem &option)
{
    const QRect row = inner(option);
    const int width = QFontMetrics(LookFonts::font(Fonts::Chip)).horizontalAdvance(allText()) + 2 * LookSizes::scaled(LookSizes::unit);
    return {row.left() - LookSizes::scaled(LookSizes::unit), row.top(), width, row.height()};
}

QSize SearchHitDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const
{
    const int padding = LookSizes::scaled(LookSizes::unit);
    if (index.data(SearchHits::IsTitle).toBool())
        return {0, std::max(LookSizes::scaled(titleHeight), lineHeight(Fonts::Label) + padding)};
    return {0, std::max(LookSizes::scaled(hitHeight), lineHeight(Fonts::Strong) + lineHeight(Fonts::Label) + padding)};
}

void SearchHitDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (index.data(SearchHits::IsTitle).toBool())
        paintTitle(*painter, option, index);
    else
        paintHit(*painter, option, index);
    painter->restore();
}

void SearchHitDelegate::paintTitle(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QRect row = inner(option);
    const int gap = LookSizes::scaled(LookSizes::unit);
    painter.setFont(LookFonts::font(Fonts::Label));
    painter.setPen(inkOf(Colors::Quiet));
    QRect text;
    painter.drawText(row, Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine, index.data().toString(), &text);
    // The count, on a round ground.
    const QString count = index.data(SearchHits::CountText).toString();
    painter.setFont(LookFonts::font(Fonts::Chip));
    const int height = LookSizes::scaled(LookSizes::chip);
    const int width = std::max(height, painter.fontMetrics().horizontalAdvance(count) + 2 * gap);
    const QRect badge(text.left() - gap - width, row.center().y() - height / 2, width, height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(inkOf(Colors::NeutralSoft));
    painter.drawRoundedRect(badge, height / 2.0, height / 2.0);
    painter.setPen(inkOf(Colors::Quiet));
    painter.drawText(badge, Qt::AlignCenter, count);
    painter.setPen(inkOf(Colors::Link));
    painter.drawText(allRect(option), Qt::AlignCenter, allText());
}

void SearchHitDelegate::paintHit(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const bool chosen = option.state.testFlag(QStyle::State_Selected);
    const int gap = LookSizes::scaled(LookSizes::unit);
    if (chosen || option.state.testFlag(QStyle::State_MouseOver)) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(inkOf(chosen ? Colors::Select : Colors::Hover));
        const int corner = LookSizes::scaled(LookSizes::buttonCorner);
        painter.drawRoundedRect(option.rect, corner, corner);
    }
    QRect row = inner(option);
    const int icon = LookSizes::scaled(hitIcon);
    const QRect iconRect(row.right() - icon + 1, row.center().y() - icon / 2, icon, icon);
    LookIcons::icon(index.data(SearchHits::Icon).toString()).paint(&painter, iconRect);
    row.setRight(iconRect.left() - LookSizes::scaled(LookSizes::buttonPadding));

    if (chosen)
        row.setLeft(KeyCap::paint(painter, row, u"Enter"_s) + gap);
    const QFont label = LookFonts::font(Fonts::Label);
    const QString aside = index.data(SearchHits::Aside).toString();
    painter.setFont(label);
    painter.setPen(inkOf(chosen ? Colors::OnSelect : Colors::Quiet));
    const int asideWidth = std::min(painter.fontMetrics().horizontalAdvance(aside) + gap, row.width() / 3);
    painter.drawText(QRect(row.left(), row.top(), asideWidth, row.height()), Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter, painter.fontMetrics().elidedText(aside, Qt::ElideRight, asideWidth));
    row.setLeft(row.left() + asideWidth + 2 * gap);

    const int title = lineHeight(Fonts::Strong);
    const int both = title + QFontMetrics(label).height();
    const int top = row.center().y() - both / 2;
    const QColor ink = inkOf(chosen ? Colors::OnSelect : Colors::Text);
    const QColor quiet = inkOf(chosen ? Colors::OnSelect : Colors::Quiet);
    paintMarked(painter, {row.left(), top, row.width(), title}, LookFonts::font(Fonts::Strong), ink, index.data().toString());
    paintMarked(painter, {row.left(), top + title, row.width(), both - title}, label, quiet, index.data(SearchHits::Line).toString());
}

void SearchHitDelegate::paintMarked(QPainter &painter, const QRect &rect, const QFont &font, const QColor &ink, const QString &text) const
{
    const QString shown = QFontMetrics(font).elidedText(text, Qt::ElideRight, rect.width());
    QTextOption option(Qt::AlignRight);
    option.setTextDirection(Qt::RightToLeft);
    option.setWrapMode(QTextOption::NoWrap);
    QTextLayout layout(shown, font, painter.device());
    layout.setTextOption(option);
    QList<QTextLayout::FormatRange> ranges;
    for (const CodeFont::Stretch &code : CodeFont::codesIn(shown)) {
        QTextCharFormat format;
        format.setFontFamilies(CodeFont::families(font));
        ranges.append({static_cast<int>(code.start), static_cast<int>(code.length), format});
    }
    for (const SearchText::Mark &mark : SearchText::marks(shown, m_typed)) {
        QTextCharFormat format;
        format.setBackground(inkOf(Colors::WarnSoft));
        format.setForeground(inkOf(Colors::Warn));
        ranges.append({static_cast<int>(mark.start), static_cast<int>(mark.length), format});
    }
    layout.setFormats(ranges);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(rect.width());
    line.setPosition({0, 0});
    layout.endLayout();
    painter.setPen(ink);
    layout.draw(&painter, rect.topLeft());
}
