// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QColor>

// Drawn pictures of cars, as the picture box would store them.
namespace DemoPictures {

enum class Body {
    Sedan,
    Hatchback,
    OffRoad,
    Pickup
};

QByteArray car(Body body, const QColor &paint);

}
