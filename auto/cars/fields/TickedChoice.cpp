// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/TickedChoice.h"

int choiceOfTicked(const QList<int> &ticked, int before)
{
    for (const int key : ticked) {
        if (key != before)
            return key;
    }
    return ticked.isEmpty() ? 0 : before;
}
