// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The stories of cars, contracts and demands, and what these add to the stories of others.
class AutoStory
{
public:
    // Until the module is unloaded; a second call changes nothing.
    static void enter();

    AutoStory(const AutoStory &) = delete;
    AutoStory &operator=(const AutoStory &) = delete;

private:
    AutoStory();
    ~AutoStory();
};
