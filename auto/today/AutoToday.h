// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// What the dealership's day holds, among TodayCards: instalments, unsettled contracts, cars that fit demands, cars that stand, insurances that
// end, and the months' figures.
class AutoToday
{
public:
    // For as long as the module is loaded; a second call changes nothing.
    static void enter();

private:
    AutoToday();
    ~AutoToday();
};
