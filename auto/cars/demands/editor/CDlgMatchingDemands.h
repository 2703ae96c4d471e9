// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/matching/CDlgMatches.h"
#include "auto/cars/matching/DemandMatch.h"

// "متقاضیان": the demands, not archived and active, that a car fits, best first.
class CDlgMatchingDemands
{
public:
    // Modal. Does nothing for a car that is gone, and tells a user who may not open the list of demands.
    static void Show(int carID, QWidget *parent);
    // For a car as it is offered, whatever of it is stored.
    static void Show(const OfferedCar &offer, int carCode, QWidget *parent);

    static MatchTable table(int carID);
};
