// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QString>

// The order that the titles of a list ask for: the column whose title was clicked last, and its direction.
struct TZUTILITY_EXPORT KSortOrder
{
    int column = -1; // -1: no title was clicked
    bool descending = false;

    // What a click on a title asks for: its column from the lowest on, or turned round when the list stands so already.
    KSortOrder clicked(int title) const { return {title, title == column && !descending}; }
    // The columns after ORDER BY, the sort key of that column.
    QString expression(const QString &sortKey) const;

    static bool isDescending(const QString &expression);
    // The expression without its direction.
    static QString sortKey(const QString &expression);
};
