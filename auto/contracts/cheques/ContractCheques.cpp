// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/cheques/ContractCheques.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/db/records/CTblTemp.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int buyerSide = 2;

// The contract is locked by then.
void requireBuyer(int contractID, int buyer, int database)
{
    CTblAutomobilContracts contract(database);
    if (!contract.IsRecordExist(u"iID"_s, contractID))
        return;
    if (contract.m_iStatus == 1)
        throw KAccountingError(u"این قرارداد باطل شده است."_s);
    if (contract.m_iPersonSecondID != buyer)
        throw KAccountingError(u"%1 خریدار این قرارداد را در این میان تغییر داده است. چیزی ثبت نشد."_s.arg(
            RowChanged::lastChange(contract.GetTableName(), contractID, database)));
}

ReceiptPurpose priceOf(const CTblAutomobilContracts &contract)
{
    return {.recordKind = CTblAutomobilContracts::recordKind,
            .recordID = contract.m_iID,
            .what = ReceiptPurpose::Price,
            .side = buyerSide,
            .text = u"بهای خودرو قرارداد %1، خریدار"_s.arg(contract.number()),
            .require = [id = contract.m_iID, buyer = contract.m_iPersonSecondID, database = contract.database()] { requireBuyer(id, buyer, database); }};
}

bool isOfBuyer(const OpenItem &item, const CTblAutomobilContracts &contract)
{
    const ReceiptPurpose &purpose = item.purpose;
    return purpose.recordID == contract.m_iID && (purpose.what == ReceiptPurpose::Instalment || purpose.what == ReceiptPurpose::Price);
}

}

QList<ContractCheques::Row> ContractCheques::list(int contractID, int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted(
        "SELECT c.iID,c.iState,c.sSayad,c.sNumber,c.sBank,c.sBranch,c.sBranchCode,c.dateDue,c.sDrawer,c.dAmount,"
        "SUM(IF(r.iFor=%3,r.dAmount,0)),GROUP_CONCAT(DISTINCT r.sFor ORDER BY r.iID SEPARATOR '، ') "
        "FROM Receipts r JOIN Cheques c ON c.iID=r.iChequeID WHERE r.iTable=%1 AND r.iRecordID=%2 AND r.iKind=%4 GROUP BY c.iID ORDER BY c.iID",
        int(CTblAutomobilContracts::recordKind), contractID, int(ReceiptPurpose::Price), int(CTblReceipts::received)));
    QList<Row> rows;
    for (; query.HasResultRow(); query.MoveNextResult()) {
        rows.append({.id = query.GetLongFieldValue(0),
                     .state = static_cast<ChequeState>(query.GetLongFieldValue(1)),
                     .cheque = {query.GetTextFieldValue(2), query.GetTextFieldValue(3), query.GetTextFieldValue(4), query.GetTextFieldValue(5),
                                query.GetTextFieldValue(6), query.GetDateFieldValue(7), query.GetTextFieldValue(8)},
                     .amount = query.GetDoubleFieldValue(9),
                     .price = query.GetDoubleFieldValue(10),
                     .purpose = query.GetTextFieldValue(11)});
    }
    return rows;
}

QList<MatterCheques::Part> ContractCheques::ofPrice(const QList<Row> &rows)
{
    QList<MatterCheques::Part> parts;
    for (const Row &row : rows) {
        if (row.price > 0 && row.state != ChequeState::Void && row.state != ChequeState::Returned)
            parts.append({row.cheque.number, row.cheque.bank, row.cheque.branch, row.cheque.branchCode, row.price});
    }
    return parts;
}

QHash<int, QStringList> ContractCheques::ofInstalments(int contractID, int database)
{
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted(
        "SELECT DISTINCT r.iPaymentID,c.iID,c.sNumber,c.sBank FROM Receipts r JOIN Cheques c ON c.iID=r.iChequeID "
        "WHERE r.iTable=%1 AND r.iRecordID=%2 AND r.iKind=%3 AND r.iFor=%4 AND c.iState NOT IN(%5,%6) ORDER BY c.iID",
        int(CTblAutomobilContracts::recordKind), contractID, int(CTblReceipts::received), int(ReceiptPurpose::Instalment),
        int(ChequeState::Void), int(ChequeState::Returned)));
    QHash<int, QStringList> cheques;
    for (; query.HasResultRow(); query.MoveNextResult())
        cheques[query.GetLongFieldValue(0)].append(QString(query.GetTextFieldValue(2) + u' ' + query.GetTextFieldValue(3)).trimmed());
    return cheques;
}

QList<OpenItem> ContractCheques::purposes(const CTblAutomobilContracts &contract)
{
    QList<OpenItem> items;
    if (const ReceiptOwner *owner = ReceiptOwners::of(CTblAutomobilContracts::recordKind))
        items = owner->openItems(contract.m_iPersonSecondID, CTblReceipts::received);
    items.removeIf([&](const OpenItem &item) { return !isOfBuyer(item, contract); });
    const auto isPrice = [](const OpenItem &item) { return item.purpose.what == ReceiptPurpose::Price; };
    std::ranges::stable_partition(items, isPrice);
    // Cheques can be taken for more than what the page says of the price so far: they are what it will say.
    if (items.isEmpty() || !isPrice(items.constFirst()))
        items.prepend({.purpose = priceOf(contract)});
    return items;
}

QString ContractCheques::entryRefusal(const CTblAutomobilContracts &stored, int shownBuyer)
{
    if (stored.m_iStatus == 1)
        return u"این قرارداد باطل شده است."_s;
    if (shownBuyer == 0)
        return u"خریدار این قرارداد از فهرست اشخاص نیست. برای ثبت چک، ابتدا خریدار را از فهرست اشخاص انتخاب و قرارداد را تایید نمایید."_s;
    if (shownBuyer != stored.m_iPersonSecondID)
        return u"خریدار این قرارداد تغییر کرده و هنوز ذخیره نشده است. برای ثبت چک، ابتدا قرارداد را تایید نمایید."_s;
    return {};
}
