// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/parties/PartyQuestions.h"

#include "auto/contracts/parties/ContractSide.h"
#include "auto/contracts/parties/PartyEntering.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/CDlgAddPerson.h"
#include "suite/crm/persons/CTblPersonsMini.h"

using namespace Qt::StringLiterals;

namespace {

// 0: the user left it, or may not.
int addedPerson(const PartyEntering::Party &party, QWidget *parent)
{
    KSecurity persons;
    persons.SetFormName(u"Persons"_s);
    if (!persons.CheckWriteSecurity())
        return 0;
    return CDlgAddPerson::AddKnown(parent, {party.name, party.nationalCode, party.mobile, party.telephone, party.address});
}

int knownOrAdded(const PartyEntering::Party &party, QWidget *parent)
{
    const int known = PartyEntering::knownPerson(party);
    if (known == 0)
        return addedPerson(party, parent);
    const QString question = u"کد ملی %1 در لیست اشخاص برای «%2» ثبت شده است. آیا همان شخص %3 این قرارداد شود؟ با «خیر» شخص دیگری ثبت می‌شود."_s.arg(
        party.nationalCode, CTblPersonsMini::GetName(known), ContractSide::nameOf(party.side));
    switch (g_pDlgYesNo->AskOrCancel(question, parent)) {
    case KMessageDialog::Yes:
        return known;
    case KMessageDialog::No:
        return addedPerson(party, parent);
    case KMessageDialog::Cancel:
        break;
    }
    return 0;
}

QString unchangedText(int year, const QString &name)
{
    return u"سند این قرارداد از سال مالی %1 است و تغییر نکرد؛ بدهی آن سال در دفترها به نام «%2» نیست و آنچه بپردازد در صورتحساب او بستانکار می‌ماند."_s.arg(
        QString::number(year), name);
}

}

int PartyQuestions::enter(int contractID, int side, QWidget *parent)
{
    CTblAutomobilContracts contract;
    if (!contract.IsRecordExist(u"iID"_s, contractID))
        return 0;
    const auto party = PartyEntering::of(contract, side);
    if (!party)
        return 0;
    KSecurity contracts;
    contracts.SetFormName(u"AutomobilContracts"_s);
    if (!contracts.CheckModifySecurity())
        return 0;
    const QString question = u"«%1» دستی در قرارداد نوشته شده و در لیست اشخاص نیست؛ تا آنجا ثبت نشود، دریافتی به نام او ثبت نمی‌شود. آیا اکنون با "
                             "مشخصات همین قرارداد ثبت شود؟"_s.arg(party->name);
    if (g_pDlgYesNo->Ask(question, parent) == KMessageDialog::No)
        return 0;
    const int personID = knownOrAdded(*party, parent);
    if (personID == 0)
        return 0;
    try {
        if (const int year = PartyEntering::enter(*party, personID))
            g_pDlgMessage->Show(unchangedText(year, CTblPersonsMini::GetName(personID)), parent);
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), parent);
        return 0;
    }
    return personID;
}
