// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoPictures.h"

#include "suite/image/PictureIntake.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>

namespace {

constexpr QSize size(640, 420);
constexpr double ground = 330;
// Where the car stands, its shadow included.
constexpr QRectF place(50, 110, 540, 260);

void drawHall(QPainter &painter)
{
    QLinearGradient wall(0, 0, 0, ground);
    wall.setColorAt(0, QColor(0xd8dee6));
    wall.setColorAt(1, QColor(0xf3f5f7));
    painter.fillRect(QRectF(0, 0, size.width(), ground), wall);
    QLinearGradient floor(0, ground, 0, size.height());
    floor.setColorAt(0, QColor(0xa9afb7));
    floor.setColorAt(1, QColor(0x7c838c));
    painter.fillRect(QRectF(0, ground, size.width(), size.height() - ground), floor);
}

}

QByteArray DemoPictures::car(CarPicture::Body body, const QColor &paint)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawHall(painter);
    CarPicture::paint(painter, place, body, paint);
    painter.end();
    return PictureIntake::fromImage(image).bytes;
}
