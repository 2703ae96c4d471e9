// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/ChequeStates.h"

using namespace Qt::StringLiterals;

QString ChequeStates::name(ChequeState state)
{
    switch (state) {
    case ChequeState::InHand: return u"نزد صندوق"_s;
    case ChequeState::Deposited: return u"در جریان وصول"_s;
    case ChequeState::Cleared: return u"وصول شده"_s;
    case ChequeState::Bounced: return u"برگشت خورده"_s;
    case ChequeState::Returned: return u"عودت داده شده"_s;
    case ChequeState::Endorsed: return u"خرج شده"_s;
    case ChequeState::Void: return u"باطل"_s;
    }
    return {};
}
