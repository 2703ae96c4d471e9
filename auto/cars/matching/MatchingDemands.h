// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/matching/DemandMatch.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <vector>

// The demands that one car fits. Names that are not found are empty.
struct MatchingDemands
{
    struct Demand
    {
        int id = 0;
        int code = 0;
        DemandMatch match;
        DemandWishes wishes;
        QString person;
        QString mobile;
        QString type;
        QString color;
        QDateTime referenceDate;
        QDateTime latestDate; // until when the car is needed; invalid: open
        bool overdue = false; // that day is over
        QString specialDescription;
    };

    int carCode = 0;
    OfferedCar offer;
    QString type;
    QString color;
    std::vector<Demand> demands; // best first, those that are overdue behind the others

    // Among the demands not archived and active, read by one statement; one whose person is gone is left out, as the list of
    // demands does. None when there is no such car.
    static std::optional<MatchingDemands> of(int carID, int database = 0);
    // The same for a car as it is being offered, whether or not it is stored so.
    static MatchingDemands of(const OfferedCar &offer, int carCode, int database = 0);
};
