// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/chart/AccountBalance.h"

#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

bool AccountBalance::isBalanced() const
{
    return IsEquals(bed, bes);
}

QString AccountBalance::nature() const
{
    if (isBalanced())
        return u"-"_s;
    return bed > bes ? u"بد"_s : u"بس"_s;
}

AccountBalance &AccountBalance::operator+=(const AccountBalance &other)
{
    bed += other.bed;
    bes += other.bes;
    return *this;
}
