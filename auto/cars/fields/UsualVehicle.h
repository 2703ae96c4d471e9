// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>

// What a vehicle usually has; anything else may be, but is more likely a slip of the keyboard.
namespace UsualVehicle {

// A Shamsi year from 1300 to the one after today's, or an ordinary year from 1920 to the one after. 0, none stated, is usual.
bool isYear(int year, const QDate &today);
// Up to twelve.
bool isWheelCount(int wheels);

}
