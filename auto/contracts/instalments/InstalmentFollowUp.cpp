// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/InstalmentFollowUp.h"

#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/db/CTblAutomobilContracts.h"

using namespace Qt::StringLiterals;

QString InstalmentFollowUp::form()
{
    return u"AutomobilPayments"_s;
}

CTblFollowUps::Subject InstalmentFollowUp::subject(int contractID, int paymentID, int number)
{
    return {.recordKind = CTblAutomobilContracts::recordKind,
            .recordID = contractID,
            .paymentID = paymentID,
            .form = form(),
            .require = [=] {
                if (StoredInstalments::lock(contractID, paymentID) == StoredInstalments::State::Gone)
                    throw KAccountingError(u"قسط شماره %1 دیگر در برنامه اقساط این قرارداد نیست. چیزی ثبت نشد."_s.arg(number));
            }};
}
