// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

// How far the making of the keys came, as the database remembers it: the kinds before are done, and of this one the records up to that key.
struct SearchProgress
{
    // Stored with it: keys made by other rules are made anew.
    static constexpr int rulesVersion = 1;

    int version = 0;
    int kind = 0;
    qint32 record = 0;
    bool complete = false;

    // Throws CMySQLException, as store does.
    static SearchProgress read(int database);
    void store(int database) const;
};
