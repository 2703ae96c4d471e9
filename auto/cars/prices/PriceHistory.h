// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

// What a car was offered for, as the log of changes tells it.
namespace PriceHistory {

struct Entry
{
    QDateTime when; // by the server's clock
    QString user;   // empty for one who is gone
    double price = 0;
    double before = 0; // 0: the car had no price

    double difference() const { return price - before; }
};

// Oldest first; what a change left as it was is not among them. Empty for a car of before the log, or one without a price. One statement.
QList<Entry> of(int carID, int database = 0);

}
