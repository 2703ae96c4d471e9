// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/FirstContract.h"

#include "auto/contracts/CDlgAutomobilContractSetting.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/settings/MissingSettings.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/office/Placeholders.h"

using namespace Qt::StringLiterals;

namespace {

void setToAny(CTblAutomobilContracts &contract)
{
    contract.SetColumns({u"iCode"_s});
    contract.m_filter = Placeholders::none(contract.GetTableName());
    contract.SetLimit(1);
}

bool hasContract()
{
    CTblAutomobilContracts contract;
    setToAny(contract);
    contract.Open(false, true, true);
    return !contract.IsEOF();
}

MissingSettings missingNow()
{
    return MissingSettings::of(OfficeSettings::read({ContractSettings::section()}));
}

// What only the host's settings mend has no way there from here.
KMessageDialog::Answer ask(const MissingSettings &missing, QWidget *parent)
{
    const QString told = u"پیش از نخستین قرارداد، این‌ها در دفتر شما هنوز تعیین نشده است:\n"_s + missing.inWords();
    if (!missing.isOfContracts())
        return g_pDlgYesNo->Ask(told + u"\nآیا با این حال قرارداد ثبت شود؟"_s, parent) == KMessageDialog::No ? KMessageDialog::Cancel : KMessageDialog::Yes;
    return g_pDlgYesNo->AskOrCancel(told + u"\nآیا با این حال قرارداد ثبت شود؟ با «خیر» نخست تنظیمات قرارداد باز می‌شود."_s, parent);
}

}

void FirstContract::expect()
{
    CTblAutomobilContracts contract;
    setToAny(contract);
    contract.expectOpen();
}

bool FirstContract::mayBegin(QWidget *parent)
{
    if (hasContract())
        return true;
    for (MissingSettings missing = missingNow(); missing.isAny(); missing = missingNow()) {
        const KMessageDialog::Answer answer = ask(missing, parent);
        if (answer != KMessageDialog::No)
            return answer == KMessageDialog::Yes;
        if (CDlgAutomobilContractSetting(parent).exec() != QDialog::Accepted)
            return false;
    }
    return true;
}
