// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/matching/CDlgMatches.h"

struct DemandWishes;

// "خودروهای مناسب": the active cars, neither sold nor archived, that fit a demand, best match first.
class CDlgMatchingCars
{
public:
    // Modal. Does nothing for a demand that is gone, and shows a message when the user may not open the register of cars.
    static void Show(int demandID, QWidget *parent);

    static MatchTable table(int demandID);
    // What a demand asks for, in one line; parts that ask nothing are left out.
    static QString wishesText(const DemandWishes &wishes, const QString &type, const QString &color);
};
