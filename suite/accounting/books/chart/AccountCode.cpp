// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/chart/AccountCode.h"

#include "suite/accounting/books/chart/Accounts.h"

#include <algorithm>
#include <array>

namespace {

struct Digits
{
    int least;
    int most;
};

constexpr Digits digitsOf(AccountLevel level)
{
    switch (level) {
    case AccountLevel::Kol:
        return {4, 4};
    case AccountLevel::Moeen:
        return {6, 6};
    case AccountLevel::Tafsily:
        return {7, 9};
    }
    Q_UNREACHABLE();
}

int digitCount(int code)
{
    int digits = 0;
    for (int rest = code; rest > 0; rest /= 10)
        ++digits;
    return digits;
}

int shortened(int code, int digits)
{
    int shorter = code;
    for (int count = digitCount(code); count > digits; --count)
        shorter /= 10;
    return shorter;
}

constexpr std::array fixedAccounts{
    Accounts::cash,
    Accounts::bank,
    Accounts::persons,
    Accounts::chequesInHand,
    Accounts::chequesDeposited,
    Accounts::chequesPayable,
    Accounts::taxPayable,
    Accounts::dutyPayable,
    Accounts::carSaleClearing,
    Accounts::serviceIncome,
    Accounts::saleDiscount,
    Accounts::commissionIncome,
    Accounts::instalmentInterest,
    Accounts::carSales,
    Accounts::serviceExpense,
    Accounts::purchaseDiscount,
    Accounts::taxExpense,
    Accounts::dutyExpense,
};

}

AccountLevel AccountCode::levelOf(int code)
{
    const int digits = digitCount(code);
    if (digits > digitsOf(AccountLevel::Moeen).most)
        return AccountLevel::Tafsily;
    return digits > digitsOf(AccountLevel::Kol).most ? AccountLevel::Moeen : AccountLevel::Kol;
}

int AccountCode::parentOf(int code)
{
    switch (levelOf(code)) {
    case AccountLevel::Kol:
        return 0;
    case AccountLevel::Moeen:
        return shortened(code, digitsOf(AccountLevel::Kol).most);
    case AccountLevel::Tafsily:
        return shortened(code, digitsOf(AccountLevel::Moeen).most);
    }
    Q_UNREACHABLE();
}

AccountCode::Problem AccountCode::check(AccountLevel level, int code, int parent)
{
    const Digits digits = digitsOf(level);
    const int count = digitCount(code);
    if (count < digits.least || count > digits.most)
        return Problem::WrongLength;
    if (level != AccountLevel::Kol && parentOf(code) != parent)
        return Problem::NotUnderParent;
    return Problem::None;
}

int AccountCode::proposed(AccountLevel level, int parent, const QList<int> &taken)
{
    if (level == AccountLevel::Kol)
        return 0;
    // Two digits more for a subsidiary account, three for a detail one.
    const int step = level == AccountLevel::Moeen ? 100 : 1000;
    const auto isOne = [&](int code) { return code / step == parent; };
    int code = parent * step;
    for (const int other : taken) {
        if (isOne(other))
            code = std::max(code, other);
    }
    return isOne(code + 1) ? code + 1 : 0;
}

bool AccountCode::isFixed(int code)
{
    return std::any_of(fixedAccounts.cbegin(), fixedAccounts.cend(),
                       [code](int account) { return account == code || parentOf(account) == code; });
}

bool AccountCode::isUndivided(int moeen)
{
    const int kol = parentOf(moeen);
    return isFixed(moeen) || kol == Accounts::cashKol || kol == Accounts::bankKol;
}
