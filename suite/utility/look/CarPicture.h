// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QColor>
#include <QString>

class QPainter;
class QRectF;

// A drawn car, for one without a photograph: seen from its side, in its paint.
namespace CarPicture {

enum class Body {
    Sedan,
    Hatchback,
    OffRoad,
    Pickup
};

// The paint that the Persian name of a colour means ("سفید صدفی", "نوک مدادی"), however it is written; a grey for one that says nothing.
TZUTILITY_EXPORT QColor paintOf(const QString &color);
// The body that the words about a car tell; a sedan where they tell nothing.
TZUTILITY_EXPORT Body bodyOf(const QString &words);

// As large as it fits, in the middle of the room, with its shadow; what is behind it stays.
TZUTILITY_EXPORT void paint(QPainter &painter, const QRectF &room, Body body, const QColor &paint);
// The same before a sky and on a ground in the colours of the look.
TZUTILITY_EXPORT void paintScene(QPainter &painter, const QRectF &room, Body body, const QColor &paint);

}
