// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QDate>
#include <QHash>
#include <QList>

#include <optional>

// What a card shows of a car besides what its row in the list holds.
struct CarCard
{
    enum class State {
        Available,
        Standing,     // for longer than the office likes
        StandingLong, // for more than twice as long
        Wanted,       // available, and demands ask for such a car
        Sold,
        Archived
    };

    int mileage = 0; // kilometres; 0: not known
    bool sold = false;
    bool archived = false;
    QDate introduced;     // the day from which it stands
    QByteArray thumbnail; // empty: there is no picture that can be shown
    int demands = 0;      // that it fits, of those that ask for something
    QDate soldOn = {};    // invalid: it is not sold, or nobody entered the day
    bool moreDemands = false; // there may be others, which were not looked at
    bool onWeb = false;       // ticked to be shown there

    // Whole days that it stands; none of a car that is sold, or whose day is not known or to come.
    std::optional<int> days(const QDate &today) const;
    // Whole days that it stood until it was sold; none where either day is not known, or it was sold before it came.
    std::optional<int> daysToSale() const;
    // longest: days that a car may stand.
    State state(int longest, const QDate &today) const;
};

namespace CarCards {

// Those of the cars with these keys, in one statement, and in a second one the demands that they fit, where these are asked for. No whole
// picture is read. Cars that are gone are not among them. Of each car so many demands are looked at that a screen of cars stays quick.
QHash<qint32, CarCard> read(const QList<qint32> &keys, bool withDemands, const QDate &today, int database = 0);

}
