// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The module's reasons to write to somebody among MessageKinds.
class AutoMessages
{
public:
    // Until the module is unloaded; a second call changes nothing.
    static void enter();

    AutoMessages(const AutoMessages &) = delete;
    AutoMessages &operator=(const AutoMessages &) = delete;

private:
    AutoMessages();
    ~AutoMessages();
};
