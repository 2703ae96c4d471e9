// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/gallery/CarStanding.h"

std::optional<int> CarStanding::days(const QDate &introduced, bool sold, const QDate &today)
{
    if (sold || !introduced.isValid() || introduced > today)
        return std::nullopt;
    return static_cast<int>(introduced.daysTo(today));
}
