// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/InvoiceReceiptOwner.h"

#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/CTblFactorStuffs.h"
#include "suite/accounting/invoices/InvoicePosting.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/records/ChequeStates.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

static_assert(int(RecordKind::SaleInvoice) == Invoice::sale && int(RecordKind::PurchaseInvoice) == Invoice::purchase);

namespace {

// What stands against an invoice: received less paid.
const KSql balanceOfInvoice = "IFNULL((SELECT SUM(IF(r.iKind=1,-r.dAmount,r.dAmount)) FROM Receipts AS r "
                              "WHERE r.iTable=f.iType AND r.iRecordID=f.iID AND r.iStatus=0),0)";
const KSql isReturnedInvoice = "IFNULL((SELECT MAX(s.iKind) FROM FactorStuffs AS s WHERE s.iFactorNum=f.iID),0)";

struct InvoiceDebt
{
    int num = 0;
    bool returned = false;
    double owed = 0;     // by the person; below 0 to the person
    double received = 0; // less what was paid
};

QList<InvoiceDebt> debts(int type, const KSql &condition)
{
    CTblTemp query;
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT f.iID,f.dAmount-f.dDiscount+f.dTax+f.dImposition,%1,%2 FROM Factors AS f "
                                       "WHERE f.iStatus=0 AND f.iType=%3 AND %4 ORDER BY f.date,f.iID",
                                       isReturnedInvoice, balanceOfInvoice, type, condition));
    QList<InvoiceDebt> found;
    for (; query.HasResultRow(); query.MoveNextResult()) {
        InvoiceDebt debt{.num = query.GetLongFieldValue(0),
                         .returned = CTblFactorStuffs::isReturned(query.GetLongFieldValue(2)),
                         .owed = query.GetDoubleFieldValue(1),
                         .received = query.GetDoubleFieldValue(3)};
        if ((type == Invoice::purchase) != debt.returned)
            debt.owed = -debt.owed;
        found.append(debt);
    }
    return found;
}

// What is open in that direction; 0 or below: nothing.
double restOf(const InvoiceDebt &debt, CTblReceipts::Kind kind)
{
    const bool owesOffice = debt.owed > 0;
    if (owesOffice != (kind == CTblReceipts::received))
        return 0;
    // What cannot be handed over is not open.
    const double rest = roundToDecimals(debt.owed - debt.received, OfficeSettings::read().moneyDecimals());
    return owesOffice ? rest : -rest;
}

QString invoiceText(int type, bool returned, int num)
{
    const bool isPurchase = type == Invoice::purchase;
    const QString name = returned ? (isPurchase ? u"برگشت از خرید"_s : u"برگشت از فروش"_s)
                                  : (isPurchase ? u"فاکتور خرید"_s : u"فاکتور فروش"_s);
    return u"%1 شماره %2"_s.arg(name).arg(num);
}

// Who changed what stands against the invoice since the user saw its rest.
QString changedText(int type, int num, bool returned)
{
    CTblTemp query;
    query.Open(false, false, true);
    query.FormatAndExecuteQuery("SELECT iID FROM Receipts WHERE iTable=%d AND iRecordID=%d "
                                "ORDER BY GREATEST(IFNULL(dateVoid,dateCreate),dateCreate) DESC,iID DESC LIMIT 1",
                                type, num);
    const int last = query.HasResultRow() ? query.GetLongFieldValue(0) : 0;
    const QString who = RowChanged::lastChange(CTblReceipts().GetTableName(), last);
    return u"%1 مانده «%2» را تغییر داده است. چیزی ثبت نشد."_s.arg(who, invoiceText(type, returned, num));
}

// Two desks that see the same rest receive it once.
std::function<void()> requireSameRest(int type, int num, double seen, CTblReceipts::Kind kind)
{
    return [=] {
        const QList<InvoiceDebt> now = debts(type, KSql::formatted("f.iID=%1", num));
        if (now.isEmpty() || !IsEquals(restOf(now.constFirst(), kind), seen))
            throw KAccountingError(changedText(type, num, !now.isEmpty() && now.constFirst().returned));
    };
}

// A cheque that bounced may still be paid; it is out of the way once it was given back.
double moneyAgainst(int num, int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    query.FormatAndExecuteQuery("SELECT IFNULL(SUM(r.dAmount),0) FROM Receipts AS r LEFT JOIN Cheques AS c ON c.iID=r.iChequeID "
                                "WHERE r.iTable IN (%d,%d) AND r.iRecordID=%d AND (r.iStatus=%d OR (r.iStatus=%d AND c.iState NOT IN (%d,%d)))",
                                int(RecordKind::SaleInvoice), int(RecordKind::PurchaseInvoice), num, int(CTblReceipts::valid),
                                int(CTblReceipts::unpaid), int(ChequeState::Returned), int(ChequeState::Void));
    return query.HasResultRow() ? query.GetDoubleFieldValue(0) : 0;
}

}

InvoiceReceiptOwner::InvoiceReceiptOwner(int type)
    : m_type(type)
{
    ReceiptOwners::enter(type, *this);
}

InvoiceReceiptOwner::~InvoiceReceiptOwner()
{
    ReceiptOwners::remove(m_type);
}

void InvoiceReceiptOwner::enter()
{
    static const InvoiceReceiptOwner sales(Invoice::sale);
    static const InvoiceReceiptOwner purchases(Invoice::purchase);
    InvoicePosting::setMoneyTaken(&moneyAgainst);
}

QList<OpenItem> InvoiceReceiptOwner::openItems(int personID, CTblReceipts::Kind kind) const
{
    QList<OpenItem> items;
    if (personID < 1)
        return items;
    for (const InvoiceDebt &debt : debts(m_type, KSql::formatted("f.iPersonID=%1", personID))) {
        const double rest = restOf(debt, kind);
        if (rest <= 0 || IsEquals(rest, 0))
            continue;
        items.append({.purpose = {.recordKind = m_type,
                                  .recordID = debt.num,
                                  .what = ReceiptPurpose::Invoice,
                                  .text = invoiceText(m_type, debt.returned, debt.num),
                                  .require = requireSameRest(m_type, debt.num, rest, kind)},
                      .rest = rest});
    }
    return items;
}

// The nodes of a cluster compare what was written, not what was locked, so that something common is written too.
void InvoiceReceiptOwner::lock(int recordID, bool mustExist) const
{
    CTblFactors invoice;
    const bool isThere = invoice.lockRecord(recordID);
    if (mustExist && !isThere)
        throw KAccountingError(u"این فاکتور دیگر وجود ندارد. چیزی ثبت نشد."_s);
    if (mustExist && invoice.m_iStatus != CTblFactors::valid)
        throw KAccountingError(u"%1 فاکتور شماره %2 را باطل کرده است. چیزی ثبت نشد."_s.arg(
            RowChanged::lastChange(invoice.GetTableName(), recordID), QString::number(recordID)));
    NamedLock::take(u"Receipts"_s);
}

void InvoiceReceiptOwner::recount(const CTblReceipts &) const
{
}
