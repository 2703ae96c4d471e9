// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/look/PlatePicture.h"

#include "suite/utility/look/LookSizes.h"

#include <QApplication>
#include <QPainter>
#include <QPen>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// All measures are those of a plate of this size; the painter scales them.
constexpr int plateWidth = 138;
constexpr int plateHeight = 30;

// The plate's own colours, the same on every ground and in every look.
struct PlateColors
{
    QColor ground{0xff, 0xff, 0xff};
    QColor edge{0x1a, 0x1a, 0x1a};
    QColor ink{0x11, 0x11, 0x11};
    QColor band{0x12, 0x40, 0x8f};
    QColor bandInk{0xff, 0xff, 0xff};
    QColor flag[3]{{0x23, 0x9f, 0x40}, {0xff, 0xff, 0xff}, {0xda, 0x00, 0x00}};
};

void write(QPainter &painter, const QRectF &room, int size, const QColor &ink, const QString &text)
{
    QFont font = QApplication::font();
    font.setPixelSize(size);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(ink);
    painter.drawText(room, Qt::AlignCenter, text);
}

// The blue band with the flag at the left end.
void paintBand(QPainter &painter, const PlateColors &colors)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.band);
    painter.drawRoundedRect(QRectF(1.6, 1.6, 13, 26.8), 3, 3);
    constexpr double stripe = 2.4;
    double top = 5;
    for (const QColor &color : colors.flag) {
        painter.fillRect(QRectF(4, top, 8.4, stripe), color);
        top += stripe;
    }
    write(painter, {1.6, 15, 13, 6}, 5, colors.bandInk, u"I.R."_s);
    write(painter, {1.6, 20, 13, 6}, 5, colors.bandInk, u"IRAN"_s);
}

// What is not typed yet has its place.
QString withGaps(const QString &part, qsizetype length)
{
    return part + QString(std::max<qsizetype>(0, length - part.size()), u'‒');
}

void paintPlate(QPainter &painter, const PlateText &plate)
{
    const PlateColors colors;
    painter.setPen(QPen(colors.edge, 1.4));
    painter.setBrush(colors.ground);
    painter.drawRoundedRect(QRectF(0.7, 0.7, plateWidth - 1.4, plateHeight - 1.4), 4, 4);
    paintBand(painter, colors);
    write(painter, {17, 1, 25, 29}, 16, colors.ink, withGaps(plate.two, 2));
    write(painter, {42, -1, 20, 29}, 16, colors.ink, withGaps(plate.letter, 1));
    write(painter, {63, 1, 40, 29}, 16, colors.ink, withGaps(plate.three, 3));
    painter.fillRect(QRectF(104, 1.4, 1.2, 27.2), colors.edge);
    write(painter, {105, 1, 32, 11}, 8, colors.ink, u"ایران"_s);
    write(painter, {105, 11, 32, 18}, 14, colors.ink, withGaps(plate.region, 2));
}

}

PlatePicture::PlatePicture(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void PlatePicture::setText(const QString &text)
{
    std::optional<PlateText> plate = PlateText::of(text);
    if (!plate)
        plate = PlateText::begun(text);
    if (plate == m_plate)
        return;
    m_plate = plate;
    setAccessibleName(isPlate() ? m_plate->text() : QString());
    update();
}

QSize PlatePicture::sizeHint() const
{
    return {LookSizes::scaled(plateWidth), LookSizes::scaled(plateHeight)};
}

void PlatePicture::paint(QPainter &painter, const QRectF &room, const PlateText &plate)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setLayoutDirection(Qt::LeftToRight);
    const double scale = std::min(room.width() / plateWidth, room.height() / plateHeight);
    painter.translate(room.left(), room.top() + (room.height() - scale * plateHeight) / 2);
    painter.scale(scale, scale);
    paintPlate(painter, plate);
    painter.restore();
}

void PlatePicture::paintEvent(QPaintEvent *)
{
    if (!m_plate)
        return;
    QPainter painter(this);
    const double drawn = std::min<double>(width(), plateWidth * double(height()) / plateHeight);
    paint(painter, QRectF(isRightToLeft() ? width() - drawn : 0, 0, drawn, height()), *m_plate);
}
