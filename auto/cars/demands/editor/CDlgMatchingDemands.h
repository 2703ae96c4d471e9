// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/matching/CDlgMatches.h"
#include "auto/cars/matching/DemandMatch.h"

// "متقاضیان": the active demands, not archived, that a car fits, best match first.
class CDlgMatchingDemands
{
public:
    // Modal. Does nothing for a car that is gone, and shows a message when the user may not open the list of demands.
    static void Show(int carID, QWidget *parent);
    // For a car as it is being offered, whether or not it is stored so.
    static void Show(const OfferedCar &offer, int carCode, QWidget *parent);

    static MatchTable table(int carID);
};
