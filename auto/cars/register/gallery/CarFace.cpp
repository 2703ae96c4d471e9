// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/gallery/CarFace.h"

#include "auto/cars/web/PublicCondition.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/CarPicture.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/look/PlatePicture.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/PlateText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Use = LookFonts::Use;
using HostColors::Role;

constexpr int pictureHeight = 112;
constexpr int pictureCorner = 6;
constexpr int plateHeight = 30;
constexpr int plateWidth = 138;
constexpr int lineGap = 4;
constexpr double mostEnlarged = 1.4; // a photograph beyond what shows all of it, so that less of the room stays empty

const int leading = Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine;
const int trailing = Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignVCenter | Qt::TextSingleLine;

const QString onWebText = u"وب"_s; // beside what the tip says in full

int lineHeight(Use use)
{
    return QFontMetrics(LookFonts::font(use)).height() + LookSizes::scaled(lineGap);
}

// In the room, from its leading end, as far as it goes; how wide it is.
int write(QPainter &painter, const QRect &room, Use use, Role ink, const QString &text, int alignment = leading)
{
    painter.setFont(LookFonts::font(use));
    painter.setPen(HostColors::of(ink));
    const QString shown = painter.fontMetrics().elidedText(text, Qt::ElideRight, room.width());
    painter.drawText(room, alignment, shown);
    return painter.fontMetrics().horizontalAdvance(shown);
}

QRect takeLine(QRect &room, int height)
{
    const QRect line(room.left(), room.top(), room.width(), height);
    room.setTop(room.top() + height);
    return line;
}

}

CarFace::CarFace(const KExtListCtrl *list)
    : m_list(list)
{
}

CarFace::~CarFace() = default;

QString CarFace::daysText(const CarCard &card, const QDate &today)
{
    if (const std::optional<int> days = card.daysToSale())
        return *days == 0 ? u"فروش در همان روز"_s : u"فروش در %1 روز"_s.arg(*days);
    if (const std::optional<int> days = card.days(today))
        return *days == 0 ? u"امروز"_s : u"%1 روز"_s.arg(*days);
    return {};
}

void CarFace::setCards(const QHash<qint32, CarCard> &cards)
{
    for (auto card = cards.cbegin(); card != cards.cend(); ++card) {
        m_order.removeOne(card.key());
        m_order.append(card.key());
        m_outdated.remove(card.key());
        Known known{*card, {}};
        if (!card->thumbnail.isEmpty())
            known.picture.loadFromData(card->thumbnail);
        known.card.thumbnail.clear();
        m_cards.insert(card.key(), known);
    }
    while (m_order.size() > mostCards) {
        m_outdated.remove(m_order.constFirst());
        m_cards.remove(m_order.takeFirst());
    }
}

void CarFace::outdate()
{
    m_outdated = {m_order.cbegin(), m_order.cend()};
}

void CarFace::outdate(const QList<qint32> &keys)
{
    for (const qint32 key : keys)
        m_outdated.insert(key);
}

int CarFace::height(int) const
{
    return LookSizes::scaled(pictureHeight) + LookSizes::scaled(LookSizes::unit) + lineHeight(Use::Title) + lineHeight(Use::Label) + lineHeight(Use::Strong)
        + LookSizes::scaled(LookSizes::unit) / 2 + LookSizes::scaled(plateHeight);
}

int CarFace::leastWidth() const
{
    return 300;
}

QString CarFace::cell(int row, QStringView column) const
{
    const QString text = m_list->cellText(row, column);
    return text == "-"_L1 ? QString() : text;
}

// A model is often named with its brand.
QString CarFace::title(int row) const
{
    const QString type = cell(row, u"type");
    const QString model = cell(row, u"model");
    if (type.isEmpty() || model.startsWith(type))
        return model.isEmpty() ? u"خودرو"_s : model;
    return model.isEmpty() ? type : type + u' ' + model;
}

QString CarFace::particulars(int row) const
{
    QStringList parts;
    if (const QString year = cell(row, u"year"); !year.isEmpty() && year != "0"_L1)
        parts.append(u"مدل "_s + year);
    if (const QString color = cell(row, u"color"); !color.isEmpty())
        parts.append(color);
    if (const auto known = m_cards.constFind(m_list->listModel()->keyAt(row)); known != m_cards.cend() && known->card.mileage > 0)
        parts.append(DToMoney(known->card.mileage, 0) + u" کیلومتر"_s);
    return parts.join(u"، "_s);
}

std::pair<KChip::Kind, QString> CarFace::state(const CarCard &card) const
{
    using State = CarCard::State;
    switch (card.state(m_frame.longestDays, m_frame.today)) {
    case State::Available:
        return {KChip::Kind::Good, u"موجود"_s};
    case State::Standing:
        return {KChip::Kind::Warn, u"مانده"_s};
    case State::StandingLong:
        return {KChip::Kind::Danger, u"مانده"_s};
    case State::Wanted:
        return {KChip::Kind::Info, (card.moreDemands ? u"بیش از %1 متقاضی"_s : u"%1 متقاضی"_s).arg(card.demands)};
    case State::Sold:
        return {KChip::Kind::Neutral, u"فروخته شده"_s};
    case State::Archived:
        return {KChip::Kind::Neutral, u"بایگانی"_s};
    }
    Q_UNREACHABLE();
}

bool CarFace::isOnWeb(int row) const
{
    const auto known = m_cards.constFind(m_list->listModel()->keyAt(row));
    return known != m_cards.cend() && known->card.onWeb;
}

void CarFace::paintPicture(QPainter &painter, const QRect &room, int row) const
{
    painter.save();
    QPainterPath corners;
    const int corner = LookSizes::scaled(pictureCorner);
    corners.addRoundedRect(room, corner, corner);
    painter.setClipPath(corners);
    const auto known = m_cards.constFind(m_list->listModel()->keyAt(row));
    if (known == m_cards.cend() || known->picture.isNull()) {
        const QString words = cell(row, u"usage") + u' ' + cell(row, u"type") + u' ' + cell(row, u"model") + u' ' + cell(row, u"class");
        CarPicture::paintScene(painter, room, CarPicture::bodyOf(words), CarPicture::paintOf(cell(row, u"color")));
    } else {
        painter.fillRect(room, HostColors::of(Role::Sky));
        const QSizeF size = known->picture.size();
        const double all = std::min(room.width() / size.width(), room.height() / size.height());
        const double full = std::max(room.width() / size.width(), room.height() / size.height());
        const QSizeF shown = size * std::min(full, all * mostEnlarged);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(QRectF(QPointF(QRectF(room).center() - QPointF(shown.width() / 2, shown.height() / 2)), shown), known->picture, QRectF(QPointF(), size));
    }
    painter.restore();
    if (isOnWeb(row)) {
        const int inset = LookSizes::scaled(pictureCorner);
        const QSize size = KChip::sizeOf(onWebText);
        KChip::paint(painter, {QPoint(room.left() + inset, room.top() + inset), size}, KChip::Kind::Info, onWebText);
    }
}

// What is no plate of the common form is written.
void CarFace::paintPlate(QPainter &painter, const QRect &room, int row) const
{
    const QString text = cell(row, u"plate");
    if (const std::optional<PlateText> plate = PlateText::of(text))
        PlatePicture::paint(painter, QRectF(room.right() + 1 - LookSizes::scaled(plateWidth), room.top(), LookSizes::scaled(plateWidth), room.height()), *plate);
    else
        write(painter, room, Use::Text, Role::Text, text);
}

void CarFace::paint(QPainter &painter, const QRect &inside, int row) const
{
    QRect room = inside;
    paintPicture(painter, takeLine(room, LookSizes::scaled(pictureHeight)), row);
    takeLine(room, LookSizes::scaled(LookSizes::unit));
    const auto known = m_cards.constFind(m_list->listModel()->keyAt(row));
    const bool isKnown = known != m_cards.cend();
    const int gap = LookSizes::scaled(LookSizes::unit);

    QRect line = takeLine(room, lineHeight(Use::Title));
    if (isKnown) {
        const auto [kind, words] = state(known->card);
        const QSize size = KChip::sizeOf(words);
        KChip::paint(painter, QRect(line.left(), line.center().y() - size.height() / 2, size.width(), size.height()), kind, words);
        line.setLeft(line.left() + size.width() + gap);
    }
    write(painter, line, Use::Title, Role::Text, title(row));

    write(painter, takeLine(room, lineHeight(Use::Label)), Use::Label, Role::Quiet, particulars(row));

    line = takeLine(room, lineHeight(Use::Strong));
    if (const QString days = isKnown ? daysText(known->card, m_frame.today) : QString(); !days.isEmpty())
        line.setLeft(line.left() + write(painter, line, Use::Label, Role::Quiet, days, trailing) + gap);
    if (const QString amount = cell(row, u"amount"); !amount.isEmpty() && amount != "0"_L1) {
        line.setRight(line.right() - write(painter, line, Use::Strong, Role::Text, amount) - gap / 2);
        write(painter, line, Use::Label, Role::Hint, m_frame.moneyUnit);
    }

    takeLine(room, gap / 2);
    paintPlate(painter, takeLine(room, LookSizes::scaled(plateHeight)), row);
}

QString CarFace::text(int row) const
{
    const QString plate = cell(row, u"plate");
    QStringList parts{title(row), plate, isOnWeb(row) ? PublicCondition::caption() : QString()};
    parts.removeAll(QString());
    return parts.join(u"، "_s);
}

QString CarFace::tip(int row) const
{
    QStringList lines{title(row)};
    if (const QString more = particulars(row); !more.isEmpty())
        lines.append(more);
    const auto known = m_cards.constFind(m_list->listModel()->keyAt(row));
    if (known != m_cards.cend())
        lines.append(state(known->card).second);
    if (const QString days = known == m_cards.cend() ? QString() : daysText(known->card, m_frame.today); !days.isEmpty())
        lines.append(days);
    if (isOnWeb(row))
        lines.append(PublicCondition::caption());
    return lines.join(u'\n');
}
