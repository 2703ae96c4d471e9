// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Contracts, cars and demands among SearchKinds.
class AutoSearch
{
public:
    // Until the module is unloaded; a second call changes nothing.
    static void enter();

    AutoSearch(const AutoSearch &) = delete;
    AutoSearch &operator=(const AutoSearch &) = delete;

private:
    AutoSearch();
    ~AutoSearch();
};
