// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/receipts/ReceiptLinking.h"

#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/contracts/parties/ContractSide.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/contracts/receipts/OlderReceipts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/ReceiptPurpose.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/treasury/records/CTblReceipts.h"

#include <QLoggingCategory>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcLinking, "tzauto.receipts")

constexpr int contractTable = CTblAutomobilContracts::recordKind;
// As everything else that is done once to a database.
const QString doneSection = u"Schema"_s;
const QString doneKey = u"ReceiptsLinked"_s;

// Received, standing, on account, with a text as it was proposed and the untouched document of a receipt of that amount.
QList<OlderReceipts::Receipt> candidates()
{
    QList<OlderReceipts::Receipt> found;
    CTblTemp rows;
    rows.Open(true, false, true);
    rows.FormatAndExecuteQuery("SELECT r.iID,r.iPersonID,r.dAmount,r.sDesc FROM Receipts r"
                               " JOIN Documents h ON h.iNum=r.iDocNum AND h.iFiscalYear=r.iFiscalYear AND h.iKind=%d"
                               " WHERE r.iTable=0 AND r.iStatus=%d AND r.iKind=%d AND (r.sDesc LIKE 'بابت کمسیون قرارداد شماره %%'"
                               " OR r.sDesc LIKE 'بابت قسط شماره %%')"
                               " AND ABS((SELECT SUM(d.dBed) FROM Docs d WHERE d.iDocNum=r.iDocNum AND d.iFiscalYear=r.iFiscalYear)-r.dAmount)<0.0001",
                               int(Accounts::documentKindReceipt), int(CTblReceipts::valid), int(CTblReceipts::received));
    for (; rows.HasResultRow(); rows.MoveNextResult())
        found.append({rows.GetLongFieldValue(0), rows.GetLongFieldValue(1), rows.GetDoubleFieldValue(2), rows.GetTextFieldValue(3)});
    return found;
}

OlderReceipts::Claim commissionClaim(const CTblAutomobilContracts &contract, int side)
{
    return {ContractReceipts::commissionText(contract.number()), contract.*ContractSide::of(side).personID, contract.m_iID, 0, side, 0,
            u"کمیسیون قرارداد %1، %2"_s.arg(QString::number(contract.number()), ContractSide::nameOf(side))};
}

// A person who is both sides is neither without doubt.
void addCommissions(QList<OlderReceipts::Claim> &claims, const CTblAutomobilContracts &contract)
{
    for (const int side : {ContractSide::seller, ContractSide::buyer}) {
        const OlderReceipts::Claim claim = commissionClaim(contract, side);
        if (claim.personID > 0)
            claims.append(claim);
    }
}

void addInstalments(QList<OlderReceipts::Claim> &claims, const CTblAutomobilContracts &contract)
{
    for (const StoredInstalments::Row &row : StoredInstalments::load(contract.m_iID, StoredInstalments::Scope::AllDepartments)) {
        if (row.paid && row.received == 0)
            claims.append({StoredInstalments::receiptText(row.number, contract.m_iCode), contract.m_iPersonSecondID, contract.m_iID, row.id,
                           ContractSide::buyer, row.due, u"قسط %1 قرارداد %2"_s.arg(row.number).arg(contract.number())});
    }
}

// Of the contracts that one of those persons is a side of.
QList<OlderReceipts::Claim> claimsFor(const QList<OlderReceipts::Receipt> &receipts)
{
    QList<int> persons;
    for (const OlderReceipts::Receipt &receipt : receipts)
        persons.append(receipt.personID);
    std::ranges::sort(persons);
    persons.erase(std::unique(persons.begin(), persons.end()), persons.end());
    const KSql list = KSql::list(persons);
    QList<OlderReceipts::Claim> claims;
    CTblAutomobilContracts contracts;
    contracts.SetColumns({u"iID"_s, u"iCode"_s, u"iNum"_s, u"iPersonFirstID"_s, u"iPersonSecondID"_s, u"iDocNum"_s});
    contracts.m_filter = KSql::formatted("iDocNum>0 AND (iPersonFirstID IN (%1) OR iPersonSecondID IN (%1))", list);
    for (contracts.Open(true, true, true); !contracts.IsEOF(); contracts.MoveNext()) {
        addCommissions(claims, contracts);
        if (contracts.m_iPersonSecondID > 0)
            addInstalments(claims, contracts);
    }
    return claims;
}

void link(const OlderReceipts::Link &found)
{
    const OlderReceipts::Claim &claim = found.claim;
    const int what = claim.paymentID > 0 ? ReceiptPurpose::Instalment : ReceiptPurpose::Commission;
    CTblTemp statement;
    statement.Open(true, false, true);
    statement.ExecuteQuery(KSql::formatted("UPDATE Receipts SET iTable=%1,iRecordID=%2,iPaymentID=%3,iFor=%4,iSide=%5,sFor=%6 WHERE iID=%7 AND iTable=0",
                                           contractTable, claim.contractID, claim.paymentID, what, claim.side, KSql::quoted(claim.purpose),
                                           found.receiptID));
}

// Those that named their contract before they said which of its sides they are from.
void completeLinked()
{
    CTblTemp statement;
    statement.Open(true, false, true);
    statement.FormatAndExecuteQuery("UPDATE Receipts r JOIN AutomobilContracts c ON c.iID=r.iRecordID SET r.iFor=IF(r.iPaymentID>0,%d,%d),"
                                    "r.iSide=IF(r.iPaymentID>0 OR (r.iPersonID=c.iPersonSecondID AND r.iPersonID<>c.iPersonFirstID),2,"
                                    "IF(r.iPersonID=c.iPersonFirstID AND r.iPersonID<>c.iPersonSecondID,1,0))"
                                    " WHERE r.iTable=%d AND r.iSide=0 AND r.iFor IN (0,%d,%d)",
                                    int(ReceiptPurpose::Instalment), int(ReceiptPurpose::Commission), contractTable,
                                    int(ReceiptPurpose::Commission), int(ReceiptPurpose::Instalment));
    statement.FormatAndExecuteQuery("UPDATE Receipts r JOIN AutomobilContracts c ON c.iID=r.iRecordID LEFT JOIN AutomobilPayments p ON p.iID=r.iPaymentID"
                                    " SET r.sFor=IF(r.iPaymentID>0,CONCAT('قسط ',IFNULL(p.iNum,''),' قرارداد ',IF(c.iNum<>0,c.iNum,c.iCode)),"
                                    "CONCAT('کمیسیون قرارداد ',IF(c.iNum<>0,c.iNum,c.iCode),ELT(r.iSide+1,'','، فروشنده','، خریدار')))"
                                    " WHERE r.iTable=%d AND r.iFor IN (%d,%d) AND IFNULL(r.sFor,'')=''",
                                    contractTable, int(ReceiptPurpose::Commission), int(ReceiptPurpose::Instalment));
}

// A receipt of a part used to mark the whole.
void recountMarked()
{
    QList<std::pair<int, int>> marked;
    CTblTemp rows;
    rows.Open(true, false, true);
    rows.FormatAndExecuteQuery("SELECT p.iAutomobilContractID,p.iID FROM AutomobilPayments p JOIN (SELECT iPaymentID,SUM(IF(iKind=%d,-dAmount,dAmount)) dSum"
                               " FROM Receipts WHERE iTable=%d AND iPaymentID>0 AND iStatus=%d GROUP BY iPaymentID) r ON r.iPaymentID=p.iID"
                               " WHERE p.iStatus=1 AND r.dSum<p.dAmount",
                               int(CTblReceipts::paid), contractTable, int(CTblReceipts::valid));
    for (; rows.HasResultRow(); rows.MoveNextResult())
        marked.append({rows.GetLongFieldValue(0), rows.GetLongFieldValue(1)});
    for (const auto &[contractID, paymentID] : std::as_const(marked))
        StoredInstalments::recount(contractID, paymentID);
}

}

void ReceiptLinking::run()
{
    if (CTblProperties::DBReadSettingInt(doneSection, doneKey, 0) != 0)
        return;
    KTransaction::runReplayable([] {
        const QList<OlderReceipts::Receipt> receipts = candidates();
        if (!receipts.isEmpty()) {
            const QList<OlderReceipts::Link> found = OlderReceipts::links(receipts, claimsFor(receipts));
            for (const OlderReceipts::Link &one : found)
                link(one);
            qCInfo(lcLinking) << "older receipts linked:" << found.size() << "of" << receipts.size();
        }
        completeLinked();
        recountMarked();
        CTblProperties::DBWriteSettingInt(doneSection, doneKey, 1);
    });
}
