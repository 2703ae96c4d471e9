// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The windows of the module's records among RecordWindows: contracts, cars, demands.
class AutoWindows
{
public:
    // Until the module is unloaded; a second call changes nothing.
    static void enter();

    AutoWindows(const AutoWindows &) = delete;
    AutoWindows &operator=(const AutoWindows &) = delete;

private:
    AutoWindows();
    ~AutoWindows();
};
