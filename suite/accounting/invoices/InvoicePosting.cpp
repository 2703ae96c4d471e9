// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/InvoicePosting.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/records/KLookup.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/changes/ChangedLines.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/OpenedRow.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentWriter.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/CTblFactorStuffs.h"
#include "suite/accounting/invoices/InvoiceDocumentRows.h"
#include "suite/accounting/invoices/InvoiceValues.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

const QString keyColumn = u"iID"_s;

InvoicePosting::MoneyTaken moneyTaken = nullptr;

// What does not change while the invoice is written, so that a replay reads it once.
struct Frame
{
    int database;
    int decimals;
    int fiscalYear;
    int departmentID;
};

void requireSavable(const Invoice &invoice, const Frame &frame)
{
    GetDBSetting()->RequireOpenDB();
    const QList<Invoice::Problem> problems = invoice.problems(frame.decimals);
    if (!problems.isEmpty())
        throw KAccountingError(Invoice::message(problems.constFirst()));
    OfficeSettings::read({}, frame.database).requireInFiscalYear(invoice.date.date(), u"فاکتور"_s);
}

QString voidText(const CTblFactors &invoice)
{
    const QString text = u"فاکتور شماره %1 باطل شده است و تغییر نمی‌کند."_s.arg(invoice.m_iID);
    const bool isKnown = KChangeLog::last(invoice.GetTableName(), invoice.m_iID, invoice.database()).has_value();
    return isKnown ? u"%1 (%2)"_s.arg(text, RowChanged::lastChange(invoice.GetTableName(), invoice.m_iID, invoice.database())) : text;
}

QString refusalOf(const CTblFactors &invoice, int fiscalYear)
{
    if (invoice.m_iStatus != CTblFactors::valid)
        return voidText(invoice);
    if (invoice.m_iFiscalYear != fiscalYear)
        return u"فاکتور شماره %1 از سال مالی %2 است و در سال مالی %3 تغییر نمی‌کند."_s
            .arg(invoice.m_iID)
            .arg(invoice.m_iFiscalYear)
            .arg(fiscalYear);
    return {};
}

// A cheque counts until it was given back, for a bounced one may still be paid.
QString moneyText(int num, double taken, int database)
{
    return u"برای فاکتور شماره %1 مبلغ %2 %3 دریافت یا پرداخت شده است (چک برگشتی نیز تا عودت آن به حساب می‌آید)."_s.arg(
        QString::number(num), DToMoney(taken), OfficeSettings::read({}, database).moneyUnitName());
}

// Empty while no money stands against the invoice.
QString moneyRefusal(int num, int database)
{
    const double taken = moneyTaken ? moneyTaken(num, database) : 0;
    if (IsEquals(taken, 0))
        return {};
    return moneyText(num, taken, database) + u" ابتدا آن را در فهرست «دریافت‌ها و پرداخت‌ها» باطل نمایید."_s;
}

void requireNoMoney(const CTblFactors &invoice)
{
    if (const QString refusal = moneyRefusal(invoice.m_iID, invoice.database()); !refusal.isEmpty())
        throw KAccountingError(refusal);
}

// What was received for more is neither owed nor on account, and nothing would ever show it.
void requireNotBelowMoney(const CTblFactors &stored, const Invoice &invoice, const Frame &frame)
{
    const double before = stored.m_dAmount - stored.m_dDiscount + stored.m_dTax + stored.m_dImposition;
    const double now = invoice.sum(frame.decimals) - invoice.discount + invoice.tax + invoice.duty;
    if (now > before || IsEquals(now, before))
        return;
    const double taken = moneyTaken ? moneyTaken(stored.m_iID, frame.database) : 0;
    if (taken > now && !IsEquals(taken, now))
        throw KAccountingError(moneyText(stored.m_iID, taken, frame.database) + u" مبلغ آن کمتر از این نمی‌شود."_s);
}

QString goneText()
{
    return u"این فاکتور دیگر وجود ندارد."_s;
}

// Loads the invoice for a change and keeps others from changing it until the transaction ends.
void lockForChange(CTblFactors &record, int num, const Frame &frame)
{
    if (!record.lockRecord(num))
        throw RowChanged(RowChanged::Kind::Gone, record, num);
    const QString refusal = refusalOf(record, frame.fiscalYear);
    if (!refusal.isEmpty())
        throw KAccountingError(refusal);
}

// What the user edited, onto the invoice as it is now.
Invoice mergedOnto(const OpenedRow &opened, const Invoice &edited, const Frame &frame)
{
    const Invoice theirs = InvoicePosting::load(edited.num, frame.database);
    InvoiceValues values(frame.database);
    values.set(theirs);
    opened.mergeOnto(values, [&] { values.set(edited); });
    return values.merged(theirs, edited);
}

// Locked, so that nobody deletes a service between the look and the line that names it.
void requireServices(const Invoice &invoice, const Frame &frame)
{
    CTblTemp query(frame.database);
    query.Open(false, false, true);
    for (int index = 0; index < invoice.lines.size(); ++index) {
        const int service = invoice.lines.at(index).serviceID;
        if (service < 1)
            continue;
        query.FormatAndExecuteQuery("SELECT iID FROM Services WHERE iID=%d LOCK IN SHARE MODE", service);
        if (!query.HasResultRow())
            throw KAccountingError(u"خدمت ردیف %1 دیگر وجود ندارد."_s.arg(index + 1));
    }
}

void writeLines(const Invoice &invoice, const CTblFactors &owner, const Frame &frame)
{
    CTblTemp statement(frame.database);
    statement.Open(false, false, true);
    statement.FormatAndExecuteQuery("DELETE FROM FactorStuffs WHERE iFactorNum=%d", owner.m_iID);
    for (const InvoiceLine &line : invoice.lines) {
        CTblFactorStuffs record(frame.database);
        record.AddNew();
        record.m_iFactorNum = owner.m_iID;
        record.m_iType = owner.m_iType;
        record.m_iKind = CTblFactorStuffs::kindOf(owner.m_iType, invoice.returned);
        record.m_iServiceID = line.serviceID;
        record.m_sDesc = ConvertToStandard(line.desc);
        record.m_dCount = line.count;
        record.m_dPrice = line.price;
        record.m_dAmount = InvoiceFigures::lineAmount(line.count, line.price, frame.decimals);
        record.m_iDepartmentID = owner.m_iDepartmentID;
        record.Update(true);
    }
}

DocumentContent documentOf(const CTblFactors &record, bool returned, const QString &personName)
{
    return {record.m_date, invoiceDocumentDescription(record.m_iType, returned, record.m_iID),
            invoiceDocumentRows({record.m_iType, returned, record.m_iID, record.m_iPersonID, personName, record.m_dAmount,
                                 record.m_dDiscount, record.m_dTax, record.m_dImposition})};
}

// A new document's number is stored with the invoice before the rows are written.
void writeDocument(CTblFactors &record, const DocumentContent &content, const Frame &frame)
{
    DocumentWriter document(content, frame.database);
    if (!document.rewrite(record.m_iDocNum, record.m_iFiscalYear)) {
        const int kind = record.m_iType == CTblFactors::purchase ? Accounts::documentKindPurchase : Accounts::documentKindSale;
        if (!document.add(kind, frame.fiscalYear))
            throw KAccountingError(u"سند فاکتور ایجاد نشد."_s);
        record.Edit();
        record.m_iDocNum = document.num();
        record.m_iFiscalYear = document.fiscalYear();
        record.Update(true);
    }
    document.writeRows();
}

void fill(CTblFactors &record, const Invoice &invoice, const Frame &frame)
{
    record.m_iPersonID = invoice.personID;
    record.m_date = invoice.date;
    record.m_sDesc = ConvertToStandard(invoice.desc);
    record.m_dAmount = invoice.sum(frame.decimals);
    record.m_dDiscount = invoice.discount;
    record.m_dTax = invoice.tax;
    record.m_dImposition = invoice.duty;
}

// opened: nullptr when nobody looks at a stored state.
InvoicePosting::Saved write(const Invoice &edited, const OpenedRow *opened, const Frame &frame)
{
    CTblDocuments::lockBooks(frame.database);
    OfficeClosing::requireOpen(frame.database);
    CTblFactors record(frame.database);
    Invoice invoice = edited;
    Invoice stored;
    // The lock comes before any other reading: what is read first fixes what this transaction sees.
    if (edited.num != 0) {
        lockForChange(record, edited.num, frame);
        if (opened)
            invoice = mergedOnto(*opened, edited, frame);
        requireSavable(invoice, frame);
        stored = InvoicePosting::load(edited.num, frame.database);
        if (invoice.personID != record.m_iPersonID || invoice.returned != stored.returned)
            requireNoMoney(record);
        requireNotBelowMoney(record, invoice, frame);
        record.Edit();
    } else {
        record.AddNew();
        record.m_iType = invoice.type;
        record.m_iDepartmentID = frame.departmentID;
        record.m_iUserID = GetDBSetting()->GetUserID();
        record.m_iFiscalYear = frame.fiscalYear;
    }
    const QString person = KLookup::name(record, u"iPersonID", invoice.personID);
    if (person.isEmpty())
        throw KAccountingError(u"این شخص دیگر وجود ندارد."_s);
    requireServices(invoice, frame);
    fill(record, invoice, frame);
    if (const auto lines = ChangedLines::between(u"lines"_s, InvoiceValues::linesOf(stored.lines), InvoiceValues::linesOf(invoice.lines)))
        record.noteFurther(*lines);
    record.Update(true);
    writeLines(invoice, record, frame);
    writeDocument(record, documentOf(record, invoice.returned, person), frame);
    return {record.m_iID, record.m_iDocNum, record.m_iFiscalYear};
}

Frame currentFrame(int database)
{
    const CDBSetting *setting = GetDBSetting();
    return {database, setting->MoneyDecimals(), setting->FiscalYear(), setting->GetDepartmentID()};
}

InvoicePosting::Saved saveWhole(const Invoice &edited, const OpenedRow *opened, int database)
{
    const Frame frame = currentFrame(database);
    requireSavable(edited, frame);
    InvoicePosting::Saved saved;
    KTransaction::runReplayable([&] { saved = write(edited, opened, frame); }, database);
    return saved;
}

}

InvoicePosting::Saved InvoicePosting::save(const Invoice &invoice, int database)
{
    return saveWhole(invoice, nullptr, database);
}

InvoicePosting::Saved InvoicePosting::save(const Invoice &edited, const OpenedRow &opened, int database)
{
    return saveWhole(edited, &opened, database);
}

void InvoicePosting::makeVoid(int num, int database)
{
    GetDBSetting()->RequireOpenDB();
    const Frame frame = currentFrame(database);
    KTransaction::runReplayable(
        [&] {
            CTblDocuments::lockBooks(frame.database);
            OfficeClosing::requireOpen(frame.database);
            CTblFactors record(frame.database);
            lockForChange(record, num, frame);
            requireNoMoney(record);
            record.Edit();
            record.m_iStatus = CTblFactors::voided;
            record.Update(true);
            CTblDocuments::VoidDoc(record.m_iDocNum, record.m_iFiscalYear, frame.database);
        },
        database);
}

Invoice InvoicePosting::load(int num, int database)
{
    Invoice invoice;
    CTblFactors record(database);
    if (!record.IsRecordExist(keyColumn, num))
        return invoice;
    invoice.num = record.m_iID;
    invoice.type = record.m_iType;
    invoice.personID = record.m_iPersonID;
    invoice.date = record.m_date;
    invoice.desc = record.m_sDesc;
    invoice.discount = record.m_dDiscount;
    invoice.tax = record.m_dTax;
    invoice.duty = record.m_dImposition;
    CTblFactorStuffs lines(database);
    lines.m_filter = KSql::formatted("iFactorNum=%1", num);
    lines.m_sort = "iID";
    for (lines.Open(true, true, true); !lines.IsEOF(); lines.MoveNext()) {
        invoice.returned = invoice.returned || CTblFactorStuffs::isReturned(lines.m_iKind);
        invoice.lines.append({lines.m_iServiceID, lines.m_sDesc, lines.m_dCount, lines.m_dPrice});
    }
    return invoice;
}

QString InvoicePosting::changeRefusal(int num, int database)
{
    CTblFactors record(database);
    if (!record.IsRecordExist(keyColumn, num))
        return goneText();
    return refusalOf(record, GetDBSetting()->FiscalYear());
}

QString InvoicePosting::voidRefusal(int num, int database)
{
    const QString refusal = changeRefusal(num, database);
    return refusal.isEmpty() ? moneyRefusal(num, database) : refusal;
}

void InvoicePosting::setMoneyTaken(MoneyTaken taken)
{
    moneyTaken = taken;
}
