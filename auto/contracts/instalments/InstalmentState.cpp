// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/InstalmentState.h"

#include "suite/utility/values/Money.h"

InstalmentState InstalmentState::of(double due, double received, bool markedPaid)
{
    const bool nothing = received < 0 || IsEquals(received, 0);
    if (nothing && markedPaid)
        return {Paid, 0};
    const double rest = nothing ? due : due - received;
    if (rest < 0 || IsEquals(rest, 0))
        return {Paid, 0};
    return {nothing ? Unpaid : Partly, rest};
}
