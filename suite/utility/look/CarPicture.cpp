// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/CarPicture.h"

#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/TextStandard.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// All measures are those of a picture of this size; the painter scales them.
constexpr QRectF drawn(50, 110, 540, 260);
constexpr double ground = 330;
constexpr double groundShare = 0.8; // of a scene's height, where its ground begins

struct PaintName
{
    QStringView name;
    QColor paint;
};

// The first name that a colour holds tells its paint: what is said more exactly comes first.
const PaintName paintNames[] = {
    {u"نوک مداد", QColor(0x59626b)},
    {u"صدف", QColor(0xe4ddcd)},
    {u"سفید", QColor(0xf0f2f4)},
    {u"شیری", QColor(0xece5d3)},
    {u"نقره", QColor(0xb9c0c6)},
    {u"دلفین", QColor(0x77858f)},
    {u"تیتانیوم", QColor(0x8f8a80)},
    {u"خاکستر", QColor(0x868e95)},
    {u"طوسی", QColor(0x868e95)},
    {u"کربن", QColor(0x3d4349)},
    {u"مشک", QColor(0x2b2f34)},
    {u"سیاه", QColor(0x2b2f34)},
    {u"زرشک", QColor(0x7b1f2e)},
    {u"آلبالو", QColor(0x8c1c2c)},
    {u"عناب", QColor(0x6f1a24)},
    {u"گیلاس", QColor(0x8c1c2c)},
    {u"قرمز", QColor(0xc0302c)},
    {u"سرمه", QColor(0x1f3a68)},
    {u"فیروزه", QColor(0x259c9c)},
    {u"آبی", QColor(0x2f6fb3)},
    {u"یشم", QColor(0x2f5d50)},
    {u"زیتون", QColor(0x6b7340)},
    {u"سبز", QColor(0x3b7d4f)},
    {u"زرد", QColor(0xe3bf3d)},
    {u"خردل", QColor(0xb8902e)},
    {u"طلا", QColor(0xc2a24c)},
    {u"برنز", QColor(0x8c6b45)},
    {u"مسی", QColor(0xa5603a)},
    {u"نارنج", QColor(0xdb772c)},
    {u"قهوه", QColor(0x6a4a36)},
    {u"شکلات", QColor(0x5a3c2c)},
    {u"کرم", QColor(0xd9ceb3)},
    {u"بژ", QColor(0xcdbf9f)},
    {u"بادمجان", QColor(0x4a2a4e)},
    {u"بنفش", QColor(0x6a4fa0)},
    {u"یاس", QColor(0xb6a6cf)},
    {u"صورت", QColor(0xd98aa6)},
};
const QColor unknownPaint(0xa9b1b8);

// What a car has in every paint.
const QColor glass(0x2f3a46);
const QColor frontLight(0xf7e7a6);
const QColor rearLight(0xb3261e);
const QColor shadow(0, 0, 0, 60);

constexpr std::pair<QStringView, CarPicture::Body> bodyWords[] = {
    {u"وانت", CarPicture::Body::Pickup},
    {u"پیکاپ", CarPicture::Body::Pickup},
    {u"شاسی", CarPicture::Body::OffRoad},
    {u"هاچ", CarPicture::Body::Hatchback},
};

// Corners of the side view, from the rear bumper over the roof to the front bumper; a car looks to the right.
struct Shape
{
    QPolygonF body;
    QPolygonF windows;
};

Shape shapeOf(CarPicture::Body body)
{
    using Body = CarPicture::Body;
    switch (body) {
    case Body::Sedan:
        return {{{{70, 305}, {72, 245}, {150, 228}, {215, 168}, {365, 165}, {445, 228}, {560, 248}, {572, 305}}},
                {{{178, 226}, {225, 181}, {360, 178}, {418, 226}}}};
    case Body::Hatchback:
        return {{{{85, 305}, {90, 235}, {130, 170}, {350, 162}, {435, 228}, {550, 248}, {560, 305}}},
                {{{125, 226}, {150, 182}, {345, 175}, {408, 226}}}};
    case Body::OffRoad:
        return {{{{70, 300}, {74, 150}, {110, 128}, {390, 128}, {440, 200}, {560, 215}, {572, 300}}},
                {{{105, 198}, {120, 145}, {382, 145}, {415, 198}}}};
    case Body::Pickup:
        return {{{{60, 305}, {60, 225}, {290, 225}, {300, 150}, {415, 150}, {455, 215}, {560, 228}, {570, 305}}},
                {{{315, 212}, {322, 168}, {408, 168}, {432, 212}}}};
    }
    Q_UNREACHABLE();
}

QPainterPath withRoundCorners(const QPolygonF &corners, double radius)
{
    QPainterPath path;
    const qsizetype count = corners.size();
    for (qsizetype i = 0; i < count; ++i) {
        const QPointF corner = corners[i];
        const QLineF in(corner, corners[(i + count - 1) % count]);
        const QLineF out(corner, corners[(i + 1) % count]);
        const QPointF from = in.pointAt(qMin(0.5, radius / in.length()));
        const QPointF to = out.pointAt(qMin(0.5, radius / out.length()));
        if (i == 0)
            path.moveTo(from);
        else
            path.lineTo(from);
        path.quadTo(corner, to);
    }
    path.closeSubpath();
    return path;
}

void drawWheel(QPainter &painter, double x)
{
    for (const auto &[radius, color] : {std::pair{44.0, QColor(0x1c1e21)}, {26.0, QColor(0xb8bec5)}, {8.0, QColor(0x4a4f55)}}) {
        painter.setBrush(color);
        painter.drawEllipse(QPointF(x, ground - 30), radius, radius);
    }
}

}

QColor CarPicture::paintOf(const QString &color)
{
    const QString folded = searchKey(color);
    const auto found = std::ranges::find_if(paintNames, [&](const PaintName &name) { return folded.contains(searchKey(name.name.toString())); });
    return folded.isEmpty() || found == std::end(paintNames) ? unknownPaint : found->paint;
}

CarPicture::Body CarPicture::bodyOf(const QString &words)
{
    const QString folded = searchKey(words);
    const auto found = std::ranges::find_if(bodyWords, [&](const auto &word) { return folded.contains(searchKey(word.first.toString())); });
    return found == std::end(bodyWords) ? Body::Sedan : found->second;
}

void CarPicture::paint(QPainter &painter, const QRectF &room, Body body, const QColor &paint)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = std::min(room.width() / drawn.width(), room.height() / drawn.height());
    painter.translate(room.center());
    painter.scale(scale, scale);
    painter.translate(-drawn.center());
    painter.setPen(Qt::NoPen);
    painter.setBrush(shadow);
    painter.drawEllipse(QRectF(70, ground - 8, 500, 34));
    const Shape shape = shapeOf(body);
    QLinearGradient coat(0, 130, 0, 310);
    coat.setColorAt(0, paint.lighter(118));
    coat.setColorAt(0.55, paint);
    coat.setColorAt(1, paint.darker(135));
    painter.setPen(QPen(paint.darker(170), 2));
    painter.setBrush(coat);
    painter.drawPath(withRoundCorners(shape.body, 26));
    painter.setPen(Qt::NoPen);
    painter.setBrush(glass);
    painter.drawPath(withRoundCorners(shape.windows, 10));
    painter.setBrush(frontLight);
    painter.drawRoundedRect(QRectF(540, 250, 26, 16), 6, 6);
    painter.setBrush(rearLight);
    painter.drawRoundedRect(QRectF(74, 250, 20, 16), 6, 6);
    drawWheel(painter, 175);
    drawWheel(painter, 460);
    painter.restore();
}

void CarPicture::paintScene(QPainter &painter, const QRectF &room, Body body, const QColor &paint)
{
    painter.fillRect(room, HostColors::of(HostColors::Role::Sky));
    painter.fillRect(room.adjusted(0, groundShare * room.height(), 0, 0), HostColors::of(HostColors::Role::Ground));
    const double margin = LookSizes::scaled(LookSizes::unit);
    CarPicture::paint(painter, room.adjusted(0, margin, 0, -margin / 2), body, paint);
}
