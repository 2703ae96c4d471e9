// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// A field that texts of a kind may hold.
struct MessageField
{
    QString name;    // as it stands in braces
    QString meaning; // in a few words
};
