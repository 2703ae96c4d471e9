// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// What the list of users asks for. Defaults: everybody.
struct UserCriteria
{
    QString namePart; // of the login name or the person's; already escaped for a LIKE literal; empty: any
    bool activeOnly = false;
};

// A run of clauses, each beginning with " AND "; empty when nothing is asked.
QString userFilter(const UserCriteria &criteria);
