// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/ConflictTable.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QPixmap>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize pictureSize(160, 120);
const QString titles[] = {u"هنگام باز شدن"_s, u"تغییر او"_s, u"تغییر شما"_s};

}

ConflictTable::ConflictTable(const QList<Line> &lines, QWidget *parent)
    : QWidget(parent)
    , m_grid(new QGridLayout(this))
{
    m_grid->setContentsMargins(LookSizes::unit, LookSizes::unit, LookSizes::unit, LookSizes::unit);
    m_grid->setHorizontalSpacing(LookSizes::gutter);
    m_grid->setVerticalSpacing(LookSizes::gutter);
    m_grid->addWidget(title(u"فیلد"_s), 0, 0);
    m_grid->setColumnStretch(0, 2);
    for (int side = 0; side < sides; ++side) {
        m_grid->addWidget(title(titles[side]), 0, side + 1);
        m_grid->setColumnStretch(side + 1, 3);
    }
    int row = 1;
    for (const Line &line : lines) {
        m_grid->addWidget(caption(line.caption), row, 0, Qt::AlignTop);
        for (int side = 0; side < sides; ++side)
            m_grid->addWidget(value(line, side, titles[side]), row, side + 1, Qt::AlignTop);
        ++row;
    }
    m_grid->setRowStretch(row, 1);
}

QLabel *ConflictTable::title(const QString &text)
{
    auto *label = new QLabel(text, this);
    LookFonts::apply(label, LookFonts::Use::Column);
    return label;
}

QLabel *ConflictTable::caption(const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setForegroundRole(HostColors::quietText);
    return label;
}

QLabel *ConflictTable::value(const Line &line, int side, const QString &title)
{
    const auto position = static_cast<std::size_t>(side);
    const QString text = line.texts[position].isEmpty() ? u"(خالی)"_s : line.texts[position];
    auto *label = new QLabel(text, this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // Figures and dates too begin at the column's right edge.
    label->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignTop);
    label->setAccessibleName(line.caption + u"، "_s + title + u": "_s + text);
    if (QPixmap picture; picture.loadFromData(line.pictures[position]))
        label->setPixmap(picture.scaled(pictureSize.boundedTo(picture.size()), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    else if (position > 0 && line.texts[position] != line.texts[0])
        label->setFont(LookFonts::font(LookFonts::Use::Primary));
    return label;
}

std::pair<int, int> ConflictTable::edgesOf(int row) const
{
    // The layout's own measures of a row are not kept where texts wrap.
    QRect cells;
    for (int column = 0; column <= sides; ++column)
        cells |= m_grid->itemAtPosition(row, column)->geometry();
    const int half = m_grid->verticalSpacing() / 2;
    return {row == 0 ? 0 : cells.top() - half, cells.bottom() + 1 + half};
}

void ConflictTable::paintEvent(QPaintEvent *)
{
    using Role = HostColors::Role;
    QPainter painter(this);
    painter.fillRect(rect(), HostColors::of(Role::Surface));
    // The last row of the layout is what is left below the lines.
    for (int row = 0; row + 1 < m_grid->rowCount(); ++row) {
        const auto [top, bottom] = edgesOf(row);
        const QRect ground(0, top, width(), bottom - top);
        if (row == 0 || row % 2 == 0)
            painter.fillRect(ground, HostColors::of(row == 0 ? Role::Header : Role::Stripe));
        painter.fillRect(QRect(0, bottom - 1, width(), 1), HostColors::of(Role::Line));
    }
}
