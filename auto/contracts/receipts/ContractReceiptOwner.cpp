// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/ContractReceiptOwner.h"

#include "auto/contracts/document/ContractPosting.h"
#include "auto/contracts/figures/Commission.h"
#include "auto/contracts/instalments/InstalmentReceiving.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/contracts/parties/ContractSide.h"
#include "auto/contracts/receipts/ContractDues.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/ContractLock.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/Money.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Rows = std::vector<StoredInstalments::Row>;

bool isAbove(double amount)
{
    return amount > 0 && !IsEquals(amount, 0);
}

// What was received for the price from that side, less what was paid back; for the seller the other way round.
double priceHandedOver(int contractID, int side, CTblReceipts::Kind kind)
{
    CTblTemp sum;
    sum.Open(true, false, true);
    sum.FormatAndExecuteQuery("SELECT SUM(IF(iKind=%d,dAmount,-dAmount)) FROM Receipts WHERE iTable=%d AND iRecordID=%d AND iFor=%d AND iSide=%d"
                              " AND iStatus=%d",
                              int(kind), int(CTblAutomobilContracts::recordKind), contractID, int(ReceiptPurpose::Price), side,
                              int(CTblReceipts::valid));
    return sum.HasResultRow() ? sum.GetDoubleFieldValue(0) : 0;
}

void requireValid(int contractID)
{
    CTblAutomobilContracts contract;
    ContractLock::take(contract, contractID);
    if (contract.m_iStatus == 1)
        throw KAccountingError(u"این قرارداد باطل شده است."_s);
}

ReceiptPurpose pricePurpose(const CTblAutomobilContracts &contract, int side)
{
    const int contractID = contract.m_iID;
    return {.recordKind = CTblAutomobilContracts::recordKind,
            .recordID = contractID,
            .what = ReceiptPurpose::Price,
            .side = side,
            .text = u"بهای خودرو قرارداد %1، %2"_s.arg(QString::number(contract.number()), ContractSide::nameOf(side)),
            .require = [contractID] { requireValid(contractID); }};
}

// What of the price is paid in cash and by cheques; all of it while there is no plan.
double outsideOfPlan(const CTblAutomobilContracts &contract, const Rows &rows)
{
    return rows.empty() ? contract.m_dAmount : roundToDecimals(contract.m_dAmount - StoredInstalments::termsOf(rows).principal, GetDBSetting()->MoneyDecimals());
}

// The open items of one person, contract by contract.
class Gathering
{
public:
    explicit Gathering(int personID)
        : m_personID(personID)
        , m_levySeparate(ContractSettings::load().levySeparate)
    {
    }

    void addReceivable(const CTblAutomobilContracts &contract)
    {
        if (contract.m_iPersonFirstID == m_personID)
            addCommission(contract, ContractSide::seller);
        if (contract.m_iPersonSecondID != m_personID)
            return;
        addCommission(contract, ContractSide::buyer);
        const Rows rows = StoredInstalments::load(contract.m_iID, StoredInstalments::Scope::AllDepartments);
        // Elsewhere the buyer pays the seller himself, and the books know nothing of it.
        if (ContractPosting::holdsSale(contract))
            add(pricePurpose(contract, ContractSide::buyer),
                outsideOfPlan(contract, rows) - priceHandedOver(contract.m_iID, ContractSide::buyer, CTblReceipts::received), {});
        for (const StoredInstalments::Row &row : rows)
            add(InstalmentReceiving::purpose({contract.m_iID, contract.number(), row.id, row.number, row.received}), row.state().rest, row.date);
    }

    // The seller is owed the price as far as the books say so.
    void addPayable(const CTblAutomobilContracts &contract)
    {
        const bool isSeller = contract.m_iPersonFirstID == m_personID && contract.m_iPersonContract1 != static_cast<int>(PartyKind::Showroom);
        if (isSeller && ContractPosting::holdsSale(contract))
            add(pricePurpose(contract, ContractSide::seller), contract.m_dAmount - priceHandedOver(contract.m_iID, ContractSide::seller, CTblReceipts::paid), {});
    }

    // What is due at once stands before what is due later; otherwise in the order of the contracts.
    QList<OpenItem> take()
    {
        std::ranges::stable_sort(m_items, [](const OpenItem &first, const OpenItem &second) {
            return first.due.isValid() ? second.due.isValid() && first.due < second.due : second.due.isValid();
        });
        return std::move(m_items);
    }

private:
    void addCommission(const CTblAutomobilContracts &contract, int side)
    {
        add(ContractReceipts::commission(contract, side), ContractDues::commission(contract, side, m_levySeparate).rest(), {});
    }

    void add(const ReceiptPurpose &purpose, double rest, const QDateTime &due)
    {
        if (isAbove(rest))
            m_items.append({purpose, rest, due});
    }

    int m_personID;
    bool m_levySeparate;
    QList<OpenItem> m_items;
};

}

ContractReceiptOwner::ContractReceiptOwner()
{
    ReceiptOwners::enter(CTblAutomobilContracts::recordKind, *this);
}

ContractReceiptOwner::~ContractReceiptOwner()
{
    ReceiptOwners::remove(CTblAutomobilContracts::recordKind);
}

void ContractReceiptOwner::enter()
{
    static const ContractReceiptOwner owner;
}

// Of contracts that are confirmed and not void; also archived ones.
QList<OpenItem> ContractReceiptOwner::openItems(int personID, CTblReceipts::Kind kind) const
{
    if (personID < 1)
        return {};
    Gathering gathering(personID);
    CTblAutomobilContracts contracts;
    contracts.m_filter = KSql::formatted("(iPersonFirstID=%1 OR iPersonSecondID=%1) AND iStatus=0 AND iDocNum>0", personID);
    contracts.m_sort = "dateContract,iID";
    for (contracts.Open(false, true, true); !contracts.IsEOF(); contracts.MoveNext()) {
        if (kind == CTblReceipts::received)
            gathering.addReceivable(contracts);
        else
            gathering.addPayable(contracts);
    }
    return gathering.take();
}

double ContractReceiptOwner::restOf(const CTblAutomobilContracts &contract)
{
    double rest = 0;
    if (contract.m_iStatus != 0 || contract.m_iDocNum < 1)
        return rest;
    for (const int person : QSet<int>{contract.m_iPersonFirstID, contract.m_iPersonSecondID}) {
        Gathering gathering(person);
        if (person > 0)
            gathering.addReceivable(contract);
        for (const OpenItem &item : gathering.take())
            rest += item.rest;
    }
    return rest;
}

void ContractReceiptOwner::lock(int recordID, bool mustExist) const
{
    CTblAutomobilContracts contract;
    if (!mustExist) {
        ContractLock::takeIfThere(contract, recordID);
        return;
    }
    ContractLock::take(contract, recordID);
    if (contract.m_iStatus == 1)
        throw KAccountingError(u"این قرارداد باطل شده است."_s);
}

void ContractReceiptOwner::recount(const CTblReceipts &receipt) const
{
    if (receipt.m_iPaymentID > 0)
        StoredInstalments::recount(receipt.m_iRecordID, receipt.m_iPaymentID);
}
