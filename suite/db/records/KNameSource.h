// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// Where the names behind keys stand: a table, the column that holds the keys and the column that is shown.
struct KNameSource
{
    QString table;
    QString key;
    QString display;
};
