// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

#include <QString>

// How a text goes through the telephone network. One that keeps to the network's own alphabet (Latin) has room for 160 letters, or 153 in each of
// several parts; any other one is sent in UTF-16, with room for 70, or 67.
struct TZCRMDATA_EXPORT SmsParts
{
    int letters = 0; // as the network counts them: an emoji is two, and so is a bracket in the network's alphabet
    int parts = 0;   // 0 for no text
    int room = 0;    // letters that the last part still takes

    // What counts as two letters is never torn between two parts.
    static SmsParts of(const QString &text);

    friend bool operator==(const SmsParts &, const SmsParts &) = default;
};
