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

    // Whole days that it stands; none of a car that is sold, or whose day is not known or to come.
    std::optional<int> days(const QDate &today) const;
    // longest: days that a car may stand.
    State state(int longest, const QDate &today) const;
};

namespace CarCards {

// Those of the cars with these keys, in one statement, and in a second one the demands that they fit, where these are asked for. No whole
// picture is read. Cars that are gone are not among them. Where very many demands come into question none is counted.
QHash<qint32, CarCard> read(const QList<qint32> &keys, bool withDemands, const QDate &today, int database = 0);

}
