// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/parties/PartyEntering.h"

#include "auto/contracts/document/ContractPosting.h"
#include "auto/contracts/figures/Commission.h"
#include "auto/db/PlanTrace.h"
#include "auto/contracts/parties/ContractSide.h"
#include "auto/db/ContractLock.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"

using namespace Qt::StringLiterals;

namespace {

using PartyEntering::Party;

void requireRightToChange()
{
    const QString form = u"AutomobilContracts"_s;
    KSecurity::forgetRights();
    if (!KSecurity::IsGranted(form, KSecurity::Modify))
        throw KAccountingError(KSecurity::refusalText(form, KSecurity::Modify));
}

void requireAsSeen(const CTblAutomobilContracts &contract, const Party &seen)
{
    if (PartyEntering::of(contract, seen.side) != seen)
        throw KAccountingError(u"%1 %2 این قرارداد را در این میان تغییر داده است. چیزی ثبت نشد."_s.arg(
            RowChanged::lastChange(contract.GetTableName(), contract.m_iID, contract.database()), ContractSide::nameOf(seen.side)));
    if (contract.m_iStatus == 1)
        throw KAccountingError(u"این قرارداد باطل شده است."_s);
    if (contract.m_iArchiveUserID != 0)
        throw KAccountingError(u"این قرارداد بایگانی شده است. ابتدا آن را از بایگانی خارج نمایید."_s);
}

// Locked, so that nobody deletes him before the unit ends.
void requirePerson(CTblPersons &person, int personID, const CTblAutomobilContracts &contract, const ContractSide &side)
{
    if (!person.lockRecord(personID))
        throw KAccountingError(u"این شخص دیگر وجود ندارد. چیزی ثبت نشد."_s);
    if (contract.*(side.other().personID) == personID)
        throw KAccountingError(u"دو طرف معامله نمی تواند یک شخص باشد."_s);
}

// As the editor takes over a person; what the list does not know of him stays as it was typed.
void takePerson(CTblAutomobilContracts &contract, const ContractSide &side, const CTblPersons &person)
{
    contract.*(side.personID) = person.m_iID;
    contract.*(side.kind) = static_cast<qint32>(PartyKind::Ordinary);
    const std::pair<ContractSide::Text, QString> texts[] = {{side.name, person.m_sName2},
                                                            {side.nationalCode, person.m_sNationalCode},
                                                            {side.mobile, person.m_sMobile},
                                                            {side.telephone, person.m_sTel},
                                                            {side.address, person.m_sAddress}};
    for (const auto &[column, text] : texts) {
        if (!text.isEmpty())
            contract.*column = text;
    }
}

void givePlanTo(int personID, int contractID)
{
    CTblTemp plan;
    plan.Open(true, false, true);
    if (plan.FormatAndExecuteQuery("UPDATE AutomobilPayments SET iPersonID=%d WHERE iAutomobilContractID=%d", personID, contractID) > 0)
        PlanTrace::notePayer(contractID, 0, personID);
}

}

std::optional<Party> PartyEntering::of(const CTblAutomobilContracts &contract, int side)
{
    const ContractSide &columns = ContractSide::of(side);
    const bool isShowroom = contract.*(columns.kind) == static_cast<qint32>(PartyKind::Showroom);
    if (contract.*(columns.personID) > 0 || isShowroom || (contract.*(columns.name)).trimmed().isEmpty())
        return std::nullopt;
    return Party{contract.m_iID,
                 columns.number,
                 contract.*(columns.name),
                 contract.*(columns.nationalCode),
                 contract.*(columns.mobile),
                 contract.*(columns.telephone),
                 contract.*(columns.address)};
}

int PartyEntering::knownPerson(const Party &party)
{
    return CTblPersons::findByNationalCode(party.nationalCode, 0);
}

int PartyEntering::enter(const Party &seen, int personID)
{
    int yearLeft = 0;
    const ContractSide &side = ContractSide::of(seen.side);
    KTransaction::runReplayable([&] {
        CTblDocuments::lockBooks();
        OfficeClosing::requireOpen();
        requireRightToChange();
        CTblAutomobilContracts contract;
        ContractLock::take(contract, seen.contractID);
        requireAsSeen(contract, seen);
        CTblPersons person;
        requirePerson(person, personID, contract, side);
        if (side.number == ContractSide::buyer)
            givePlanTo(personID, contract.m_iID);
        contract.Edit();
        takePerson(contract, side, person);
        const bool staysAsItIs = ContractPosting::isOfAnotherYear(contract);
        if (contract.m_iDocNum != 0 && !staysAsItIs && !ContractPosting::post(contract))
            throw KAccountingError(u"سند حسابداری قرارداد نوشته نشد؛ چیزی ذخیره نشد."_s);
        contract.Update(true);
        yearLeft = staysAsItIs ? contract.m_iFiscalYear : 0;
    });
    return yearLeft;
}
