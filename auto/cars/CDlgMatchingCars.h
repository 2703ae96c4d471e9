// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

// "خودروهای مناسب": the cars, not sold, not archived and active, that fit a demand, best first.
class CDlgMatchingCars
{
public:
    // Modal. Does nothing for a demand that is gone, and tells a user who may not open the register of cars.
    static void Show(int demandID, QWidget *parent);
};
