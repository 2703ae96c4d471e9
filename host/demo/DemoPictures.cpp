// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoPictures.h"

#include "suite/image/PictureIntake.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr QSize size(640, 420);
constexpr double ground = 330;

// Corners of the side view, from the rear bumper over the roof to the front bumper; a car looks to the right.
struct Shape
{
    QPolygonF body;
    QPolygonF windows;
};

Shape shapeOf(DemoPictures::Body body)
{
    using Body = DemoPictures::Body;
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

void drawScene(QPainter &painter)
{
    QLinearGradient wall(0, 0, 0, ground);
    wall.setColorAt(0, QColor(0xd8dee6));
    wall.setColorAt(1, QColor(0xf3f5f7));
    painter.fillRect(QRectF(0, 0, size.width(), ground), wall);
    QLinearGradient floor(0, ground, 0, size.height());
    floor.setColorAt(0, QColor(0xa9afb7));
    floor.setColorAt(1, QColor(0x7c838c));
    painter.fillRect(QRectF(0, ground, size.width(), size.height() - ground), floor);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 60));
    painter.drawEllipse(QRectF(70, ground - 8, 500, 34));
}

void drawWheel(QPainter &painter, double x)
{
    for (const auto &[radius, color] : {std::pair{44.0, QColor(0x1c1e21)}, {26.0, QColor(0xb8bec5)}, {8.0, QColor(0x4a4f55)}}) {
        painter.setBrush(color);
        painter.drawEllipse(QPointF(x, ground - 30), radius, radius);
    }
}

}

QByteArray DemoPictures::car(Body body, const QColor &paint)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawScene(painter);
    const Shape shape = shapeOf(body);
    QLinearGradient coat(0, 130, 0, 310);
    coat.setColorAt(0, paint.lighter(118));
    coat.setColorAt(0.55, paint);
    coat.setColorAt(1, paint.darker(135));
    painter.setPen(QPen(paint.darker(170), 2));
    painter.setBrush(coat);
    painter.drawPath(withRoundCorners(shape.body, 26));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x2f3a46));
    painter.drawPath(withRoundCorners(shape.windows, 10));
    painter.setBrush(QColor(0xf7e7a6));
    painter.drawRoundedRect(QRectF(540, 250, 26, 16), 6, 6);
    painter.setBrush(QColor(0xb3261e));
    painter.drawRoundedRect(QRectF(74, 250, 20, 16), 6, 6);
    drawWheel(painter, 175);
    drawWheel(painter, 460);
    painter.end();
    return PictureIntake::fromImage(image).bytes;
}
