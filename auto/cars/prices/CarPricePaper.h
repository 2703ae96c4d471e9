// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

class QWidget;

// Shows a car's price sheet to a user who may print cars; says why there is none of it.
namespace CarPricePaper {

void show(qint32 carID, QWidget *parent);

}
