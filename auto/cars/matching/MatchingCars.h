// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/matching/DemandMatch.h"

#include <QString>

#include <optional>
#include <vector>

// The cars that fit one demand. Names that are not found are empty.
struct MatchingCars
{
    struct Car
    {
        int id = 0;
        int code = 0;
        DemandMatch match;
        OfferedCar offer;
        QString type;
        QString model;
        QString carClass;
        QString color;
        QString plate;
        QString owner;
    };

    int demandCode = 0;
    DemandWishes wishes;
    QString person; // the customer
    QString type;
    QString color;
    QDateTime latestDate; // until when the car is needed; invalid: open
    bool overdue = false; // that day is over
    std::vector<Car> cars; // best first, those that are sold behind the others

    // Among the cars not archived and active, read by one statement, and the names of those that fit by one for
    // each kind of name. None when there is no such demand.
    static std::optional<MatchingCars> of(int demandID, int database = 0);
};
