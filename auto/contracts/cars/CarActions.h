// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// What can be done with a car, and with a contract, because one was made from the other: entries among RecordWindows' actions.
class CarActions
{
public:
    // Until the module is unloaded; a second call changes nothing.
    static void enter();

    CarActions(const CarActions &) = delete;
    CarActions &operator=(const CarActions &) = delete;

private:
    CarActions();
    ~CarActions();
};
