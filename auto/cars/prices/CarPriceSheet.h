// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/papers/PaperSheet.h"

#include <optional>

// A car's price sheet for the windscreen: what a passer-by wants to know, and nothing of what the office paid.
namespace CarPriceSheet {

struct Source
{
    int code = 0; // that users know the car by
    QString name; // brand, model and class
    QByteArray picture;
    int year = 0;
    QString color;
    QString fuel;
    int kilometres = 0;
    QString body;
    QString insurance;
    QString facilities;
    double price = 0; // 0: its place is left to the pen
    QString moneyUnit;
};

PaperSheet of(const Source &source);
// What the square for telephones says of the car: Latin letters and digits.
QString scanCode(int code);
// Nothing for a car that is gone.
std::optional<PaperSheet> read(int carID);
// Why there is no price sheet of the car; empty where there is one. A sold car is not offered any more.
QString refusal(int carID);

}
