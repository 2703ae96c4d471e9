// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/figures/ContractSettlement.h"

#include "suite/utility/values/Money.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

double receivable(double amount)
{
    return roundToDecimals(amount, defaultMoneyDecimals());
}

}

double ContractSettlement::rest() const
{
    return std::max(0.0, receivable(receivable(charged) - received));
}

bool ContractSettlement::isSettled() const
{
    return receivable(charged) > 0 && IsEquals(rest(), 0);
}

QString ContractSettlement::inWords() const
{
    if (receivable(charged) <= 0)
        return u"-"_s;
    if (isSettled())
        return u"تسویه"_s;
    // Neither all nor nothing is said of what is only nearly so.
    const double percent = std::floor(received / charged * 100);
    const int least = received > 0 && !IsEquals(received, 0) ? 1 : 0;
    return u"%1٪"_s.arg(std::clamp(static_cast<int>(percent), least, 99));
}
