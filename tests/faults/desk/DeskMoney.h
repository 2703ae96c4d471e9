// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/faults/desk/Desk.h"

// Money received, made void and sent on by the units that the windows use. A refusal is the command's value, in the user's words;
// otherwise it is the key that was written.
namespace DeskMoney {

// plan CONTRACT PERSON COUNT AMOUNT: a plan without interest; the keys of its instalments.
Desk::Then plan(Desk &desk, const Desk::Words &words);
// pay CONTRACT PERSON AMOUNT SAYAD PAYMENT...: so much for each of the instalments, handed over at once; in cash without a Sayad number.
Desk::Then pay(Desk &desk, const Desk::Words &words);
// settle CONTRACT SIDE AMOUNT: of the commission.
Desk::Then settle(Desk &desk, const Desk::Words &words);
// void RECEIPT REASON
Desk::Then makeVoid(Desk &desk, const Desk::Words &words);
// cheque CHEQUE STATE: the next step, as ChequeState counts them.
Desk::Then sendOn(Desk &desk, const Desk::Words &words);
// back CHEQUE REASON: takes the last step back.
Desk::Then takeBack(Desk &desk, const Desk::Words &words);

}
