// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/look/CarPicture.h"

#include <QByteArray>

// Photographs of cars, as the picture box would store them.
namespace DemoPictures {

QByteArray car(CarPicture::Body body, const QColor &paint);

}
