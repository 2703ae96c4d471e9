// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/records/ChequeStates.h"

#include "suite/accounting/books/chart/Accounts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using State = ChequeState;

struct Way
{
    State from;
    State to;
};

// Of a received cheque, and of one that the office gave. Within a state the order is that of the drop-down.
constexpr Way receivedWays[] = {
    {State::InHand, State::Deposited},
    {State::InHand, State::Cleared},
    {State::InHand, State::Bounced},
    {State::InHand, State::Returned},
    {State::InHand, State::Endorsed},
    {State::Deposited, State::Cleared},
    {State::Deposited, State::Bounced},
    {State::Bounced, State::Deposited},
    {State::Bounced, State::Cleared},
    {State::Bounced, State::Returned},
    {State::Endorsed, State::Cleared},
    {State::Endorsed, State::Bounced},
};
constexpr Way givenWays[] = {
    {State::InHand, State::Cleared},
    {State::InHand, State::Bounced},
    {State::InHand, State::Returned},
    {State::Bounced, State::Cleared},
    {State::Bounced, State::Returned},
};

// Where the books hold the cheque's amount while it is in a state.
struct Holding
{
    int account = 0;
    int personID = 0;

    bool operator==(const Holding &) const = default;
};

Holding holdingOf(State state, const ChequeStates::Step &step)
{
    switch (state) {
    case State::InHand: return {step.given ? Accounts::chequesPayable : Accounts::chequesInHand};
    case State::Deposited: return {Accounts::chequesDeposited};
    case State::Cleared: return {step.account};
    case State::Endorsed: return {Accounts::persons, step.endorsedID};
    case State::Bounced:
    case State::Returned:
    case State::Void: break;
    }
    return {Accounts::persons, step.personID};
}

}

QString ChequeStates::name(ChequeState state, bool given)
{
    switch (state) {
    case State::InHand: return given ? u"صادر شده"_s : u"نزد صندوق"_s;
    case State::Deposited: return u"در جریان وصول"_s;
    case State::Cleared: return given ? u"پاس شده"_s : u"وصول شده"_s;
    case State::Bounced: return u"برگشت خورده"_s;
    case State::Returned: return given ? u"پس گرفته شده"_s : u"عودت داده شده"_s;
    case State::Endorsed: return u"خرج شده"_s;
    case State::Void: return u"باطل"_s;
    }
    return {};
}

QList<ChequeState> ChequeStates::following(ChequeState state, bool given)
{
    QList<ChequeState> states;
    const auto take = [&](const auto &ways) {
        for (const Way &way : ways) {
            if (way.from == state)
                states.append(way.to);
        }
    };
    given ? take(givenWays) : take(receivedWays);
    return states;
}

bool ChequeStates::counts(ChequeState state)
{
    return state != State::Bounced && state != State::Returned && state != State::Void;
}

bool ChequeStates::isOpen(ChequeState state)
{
    return state == State::InHand || state == State::Deposited || state == State::Bounced;
}

bool ChequeStates::needsPerson(ChequeState to)
{
    return to == State::Endorsed;
}

// Whoever got an endorsed cheque collects it; which account that goes to is nothing to the office.
bool ChequeStates::needsAccount(ChequeState from, ChequeState to)
{
    return to == State::Deposited || (to == State::Cleared && from != State::Endorsed);
}

QList<DocumentRow> ChequeStates::rowsOf(const Step &step)
{
    if (step.from == State::Endorsed && step.to == State::Cleared)
        return {};
    Holding debited = holdingOf(step.to, step);
    Holding credited = holdingOf(step.from, step);
    if (debited == credited)
        return {};
    // What the office gave is its debt until it is paid: the same step on the other side.
    if (step.given)
        std::swap(debited, credited);
    return {{debited.account, debited.personID, step.amount, 0, step.desc}, {credited.account, credited.personID, 0, step.amount, step.desc}};
}
