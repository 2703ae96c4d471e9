// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/TodayRow.h"

#include "host/today/TodayTones.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowHeight = 32;
constexpr int chipPadding = 8;
constexpr int gap = 12;
// Text is measured in whole pixels and drawn in parts of them.
constexpr int spare = 2;
// The name gets so much of what amount and chip leave, the words beside it the rest.
constexpr int namePercent = 55;

using Use = LookFonts::Use;

}

struct TodayRow::Places
{
    QRect name;
    QRect line;
    QRect amount;
    QRect chip;
};

TodayRow::TodayRow(QWidget *parent)
    : QAbstractButton(parent)
{
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void TodayRow::setLine(const TodayLine &line, const QString &unit)
{
    m_line = line;
    QStringList parts{line.name};
    if (!line.line.isEmpty())
        parts.append(line.line);
    if (line.amount)
        parts.append(DToMoney(*line.amount) + u' ' + unit);
    if (!line.chip.isEmpty())
        parts.append(line.chip);
    setText(line.name);
    setAccessibleName(parts.join(u"، "_s));
    // What leads nowhere is read, not pressed.
    setFocusPolicy(line.table.isEmpty() ? Qt::NoFocus : Qt::StrongFocus);
    setCursor(line.table.isEmpty() ? Qt::ArrowCursor : Qt::PointingHandCursor);
    update();
}

QSize TodayRow::sizeHint() const
{
    return {LookSizes::scaled(200), std::max(LookSizes::scaled(rowHeight), fontMetrics().height() + LookSizes::unit)};
}

QSize TodayRow::minimumSizeHint() const
{
    return {LookSizes::scaled(120), sizeHint().height()};
}

TodayRow::Places TodayRow::places() const
{
    const QFontMetrics strong(LookFonts::font(Use::Strong));
    const QFontMetrics chips(LookFonts::font(Use::Chip));
    QRect rest = rect().adjusted(LookSizes::unit / 2, 0, -LookSizes::unit / 2, 0);
    Places found;
    if (!m_line.chip.isEmpty()) {
        const int width = chips.horizontalAdvance(m_line.chip) + 2 * chipPadding;
        found.chip = QRect(rest.right() - width + 1, 0, width, LookSizes::scaled(LookSizes::chip));
        found.chip.moveCenter({found.chip.center().x(), rect().center().y()});
        rest.setRight(found.chip.left() - gap);
    }
    if (m_line.amount) {
        const int width = strong.horizontalAdvance(DToMoney(*m_line.amount)) + spare;
        found.amount = QRect(rest.right() - width + 1, 0, width, height());
        rest.setRight(found.amount.left() - gap);
    }
    const int wanted = strong.horizontalAdvance(m_line.name) + spare;
    const int share = m_line.line.isEmpty() ? rest.width() : std::max(rest.width() * namePercent / 100, rest.width() - gap - QFontMetrics(LookFonts::font(Use::Label)).horizontalAdvance(m_line.line));
    found.name = QRect(rest.left(), 0, std::max(0, std::min(wanted, share)), height());
    found.line = m_line.line.isEmpty() ? QRect() : rest.adjusted(found.name.width() + gap, 0, 0, 0);
    return found;
}

void TodayRow::paintEvent(QPaintEvent *)
{
    using HostColors::Role;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool leads = !m_line.table.isEmpty();
    if (leads && (underMouse() || isDown())) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(HostColors::of(isDown() ? Role::Select : Role::Hover));
        painter.drawRoundedRect(rect(), LookSizes::controlCorner, LookSizes::controlCorner);
    }
    if (hasFocus()) {
        painter.setPen(QPen(HostColors::of(Role::Accent), LookSizes::ring));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), LookSizes::controlCorner, LookSizes::controlCorner);
    }
    const auto draw = [&](const QRect &place, Use use, Role ink, const QString &text, int alignment) {
        if (place.width() <= 0 || text.isEmpty())
            return;
        const QFont font = LookFonts::font(use);
        painter.setFont(font);
        painter.setPen(HostColors::of(ink));
        painter.drawText(QStyle::visualRect(layoutDirection(), rect(), place), alignment | Qt::TextSingleLine,
                         QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width()));
    };
    const int leading = int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading | Qt::AlignVCenter));
    const Places found = places();
    draw(found.name, Use::Strong, isDown() ? Role::OnSelect : Role::Text, m_line.name, leading);
    draw(found.line, Use::Label, isDown() ? Role::OnSelect : Role::Quiet, m_line.line, leading);
    if (m_line.amount)
        draw(found.amount, Use::Strong, isDown() ? Role::OnSelect : Role::Text, DToMoney(*m_line.amount), Qt::AlignCenter);
    if (!found.chip.isEmpty()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(HostColors::of(TodayTones::ground(m_line.tone)));
        const QRect chip = QStyle::visualRect(layoutDirection(), rect(), found.chip);
        painter.drawRoundedRect(chip, chip.height() / 2.0, chip.height() / 2.0);
        draw(found.chip, Use::Chip, TodayTones::ink(m_line.tone), m_line.chip, Qt::AlignCenter);
    }
}

void TodayRow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        return click();
    // The rows above and below, as in a list.
    if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up) {
        focusNextPrevChild(event->key() == Qt::Key_Down);
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

// A tip only where something is cut.
bool TodayRow::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractButton::event(event);
    const Places found = places();
    const bool isCut = QFontMetrics(LookFonts::font(Use::Strong)).horizontalAdvance(m_line.name) > found.name.width()
        || (!m_line.line.isEmpty() && QFontMetrics(LookFonts::font(Use::Label)).horizontalAdvance(m_line.line) > found.line.width());
    if (isCut)
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), m_line.line.isEmpty() ? m_line.name : m_line.name + u'\n' + m_line.line, this);
    else
        QToolTip::hideText();
    return true;
}
