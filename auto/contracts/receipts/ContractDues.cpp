// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/ContractDues.h"

#include "auto/contracts/document/ContractDocumentRows.h"
#include "auto/contracts/parties/ContractSide.h"
#include "suite/accounting/office/ReceiptPurpose.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/records/CTblReceipts.h"

using namespace Qt::StringLiterals;

namespace {

ContractDocumentParty partyOf(const CTblAutomobilContracts &contract, const ContractSide &side)
{
    return {.personID = contract.*(side.personID),
            .kind = static_cast<PartyKind>(contract.*(side.kind)),
            .discount = contract.*(side.discount),
            .tax = contract.*(side.tax),
            .duty = contract.*(side.duty)};
}

// Of the receipts r of a contract c: what counts for its commission.
KSql countsForCommission()
{
    return KSql::formatted("r.iTable=%1 AND r.iFor=%2 AND r.iStatus=%3 AND r.iPersonID>0", int(CTblAutomobilContracts::recordKind),
                           int(ReceiptPurpose::Commission), int(CTblReceipts::valid));
}

KSql receivedSum()
{
    return KSql::formatted("SUM(IF(r.iKind=%1,-r.dAmount,r.dAmount))", int(CTblReceipts::paid));
}

}

double ContractDues::charged(const CTblAutomobilContracts &contract, int number, bool levySeparate)
{
    const ContractSide &side = ContractSide::of(number);
    const ContractDocumentParty party = partyOf(contract, side);
    if (party.personID < 1 || party.kind == PartyKind::Showroom)
        return 0;
    if (levySeparate)
        return contract.*(side.pays) + party.tax + party.duty;
    return amountCharged(contract.m_dCommission, party).value_or(0);
}

QStringList ContractDues::chargedColumns()
{
    return {u"iPersonFirstID"_s, u"iPersonSecondID"_s, u"iPersonContract1"_s, u"iPersonContract2"_s, u"dCommission"_s,
            u"dDiscountFirst"_s, u"dDiscountSecond"_s, u"dTax"_s, u"dTax2"_s, u"dImposition"_s,
            u"dImposition2"_s, u"dPayFirst"_s, u"dPaySecond"_s};
}

ContractDues::Due ContractDues::commission(const CTblAutomobilContracts &contract, int side, bool levySeparate)
{
    const Sides sides = received({contract.m_iID}, contract.database()).value(contract.m_iID);
    return {charged(contract, side, levySeparate), sides.at(static_cast<std::size_t>(side - 1))};
}

// A side's are those of whoever is that side now: what somebody else gave before him is owed to that one. A receipt that says no side,
// from before sides were kept, is that of the party it came from.
QHash<int, ContractDues::Sides> ContractDues::received(const QList<int> &contractIDs, int database)
{
    QHash<int, Sides> sums;
    if (contractIDs.isEmpty())
        return sums;
    CTblTemp receipts(database);
    receipts.ExecuteQuery("SELECT c.iID,IF(r.iPersonID=c.iPersonFirstID,1,2) side," + receivedSum()
                          + " FROM Receipts r JOIN AutomobilContracts c ON c.iID=r.iRecordID WHERE " + countsForCommission()
                          + KSql::formatted(" AND r.iRecordID IN (%1) AND r.iPersonID IN (c.iPersonFirstID,c.iPersonSecondID) "
                                            "AND r.iSide IN (0,IF(r.iPersonID=c.iPersonFirstID,1,2)) GROUP BY c.iID,side",
                                            KSql::list(contractIDs)));
    for (; receipts.HasResultRow(); receipts.MoveNextResult())
        sums[receipts.GetLongFieldValue(0)].at(static_cast<std::size_t>(receipts.GetLongFieldValue(1) - 1)) = receipts.GetDoubleFieldValue(2);
    return sums;
}

KSql ContractDues::receivedOf(int side)
{
    const KSql person = side == 1 ? KSql("r.iPersonID=c.iPersonFirstID") : KSql("r.iPersonID=c.iPersonSecondID AND r.iPersonID<>c.iPersonFirstID");
    return "COALESCE((SELECT " + receivedSum() + " FROM Receipts r WHERE r.iRecordID=c.iID AND " + countsForCommission() + " AND " + person
        + KSql::formatted(" AND r.iSide IN (0,%1)),0)", side);
}
