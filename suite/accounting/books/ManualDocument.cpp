// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/ManualDocument.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KLookup.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentKinds.h"
#include "suite/accounting/books/DocumentRows.h"
#include "suite/accounting/books/DocumentValues.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/OpenedRow.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/TextStandard.h"

using namespace Qt::StringLiterals;

namespace {

bool findHeader(CTblDocuments &header, int num, int fiscalYear)
{
    return num > 0
        && header.IsRecordExist(u"iNum"_s, num, 0, KSql::formatted(" AND iFiscalYear=%1", fiscalYear));
}

// Keeps others from changing the document until the transaction ends. meant: the key of its header; 0: whichever has the number.
// Returns that key.
qint32 lockForChange(int num, int fiscalYear, qint32 meant, int database)
{
    CTblDocuments header(database);
    CTblTemp lock(database);
    lock.FormatAndExecuteQuery("SELECT iID FROM Documents WHERE iNum=%d AND iFiscalYear=%d FOR UPDATE", num, fiscalYear);
    const qint32 key = lock.GetLongFieldValue(0);
    if (key == 0 || (meant != 0 && key != meant))
        throw RowChanged(RowChanged::Kind::Gone, header, meant);
    const QString refusal = ManualDocument::changeRefusal(num, fiscalYear, database);
    if (!refusal.isEmpty())
        throw KAccountingError(refusal);
    return key;
}

void requirePersons(const QList<DocumentRow> &rows, int database)
{
    QList<int> persons;
    for (const DocumentRow &row : rows)
        persons.append(row.personID);
    const QHash<int, QString> known = KLookup::names<CTblDocs>(u"iPersonID", persons, database);
    for (int index = 0; index < rows.size(); ++index) {
        const int person = rows.at(index).personID;
        if (person > 0 && !known.contains(person))
            throw KAccountingError(u"شخص ردیف %1 دیگر وجود ندارد."_s.arg(index + 1));
    }
}

void appendRowProblems(QList<ManualDocument::Problem> &found, const DocumentRow &row, int index, const QSet<int> &accounts)
{
    using What = ManualDocument::Problem::What;
    const bool onPersons = row.account == Accounts::persons;
    const bool isDebit = row.debit > 0 && !IsEquals(row.debit, 0);
    const bool isCredit = row.credit > 0 && !IsEquals(row.credit, 0);
    if (!accounts.contains(row.account))
        found.append({What::NoAccount, index});
    if (onPersons && row.personID < 1)
        found.append({What::NoPerson, index});
    if (!onPersons && row.personID > 0)
        found.append({What::NeedlessPerson, index});
    if (!isDebit && !isCredit)
        found.append({What::NoAmount, index});
    if (isDebit && isCredit)
        found.append({What::BothSides, index});
    if (row.debit > largestMoney || row.credit > largestMoney)
        found.append({What::AmountTooLarge, index});
}

}

QList<ManualDocument::Problem> ManualDocument::problems(const QSet<int> &accounts) const
{
    using What = Problem::What;
    QList<Problem> found;
    if (!date.isValid())
        found.append({What::NoDate});
    if (rows.isEmpty())
        found.append({What::NoRows});
    for (int index = 0; index < rows.size(); ++index)
        appendRowProblems(found, rows.at(index), index, accounts);
    if (!documentSum(rows).isBalanced())
        found.append({What::NotBalanced});
    return found;
}

QString ManualDocument::message(const Problem &problem) const
{
    using What = Problem::What;
    const QString row = QString::number(problem.row + 1);
    switch (problem.what) {
    case What::NoDate:
        return u"لطفا تاریخ را وارد نمایید."_s;
    case What::NoRows:
        return u"لطفا ردیف‌های سند را وارد نمایید."_s;
    case What::NoAccount:
        return u"لطفا حساب ردیف %1 را انتخاب نمایید."_s.arg(row);
    case What::NoPerson:
        return u"لطفا شخص ردیف %1 را انتخاب نمایید."_s.arg(row);
    case What::NeedlessPerson:
        return u"ردیف %1 روی حساب اشخاص نیست و شخص نمی‌گیرد."_s.arg(row);
    case What::NoAmount:
        return u"لطفا بدهکار یا بستانکار ردیف %1 را وارد نمایید."_s.arg(row);
    case What::BothSides:
        return u"ردیف %1 یا بدهکار است یا بستانکار."_s.arg(row);
    case What::AmountTooLarge:
        return u"مبلغ ردیف %1 بیش از اندازه بزرگ است."_s.arg(row);
    case What::NotBalanced:
        return DocumentWriter::imbalance(rows);
    }
    Q_UNREACHABLE();
}

void ManualDocument::save(int database)
{
    saveWhole(nullptr, database);
}

void ManualDocument::save(const OpenedRow &opened, int database)
{
    saveWhole(&opened, database);
}

void ManualDocument::requireSavable(int database) const
{
    QSet<int> accounts;
    for (const AccountChart::Account &account : AccountChart::postable(database))
        accounts.insert(account.code);
    const QList<Problem> found = problems(accounts);
    if (!found.isEmpty())
        throw KAccountingError(message(found.constFirst()));
    OfficeSettings::read().requireInFiscalYear(date.date(), u"سند"_s);
}

void ManualDocument::saveWhole(const OpenedRow *opened, int database)
{
    GetDBSetting()->RequireOpenDB();
    requireSavable(database);
    ManualDocument edited = *this;
    if (num == 0)
        edited.fiscalYear = GetDBSetting()->FiscalYear();
    ManualDocument written;
    KTransaction::runReplayable(
        [&] {
            CTblDocuments::lockBooks(database);
            OfficeClosing::requireOpen(database);
            written = edited;
            written.write(opened, database);
        },
        database);
    *this = written;
}

void ManualDocument::write(const OpenedRow *opened, int database)
{
    if (num != 0)
        return change(opened, database);
    DocumentWriter writer({date, ConvertToStandard(desc), rows}, database);
    if (!writer.add(Accounts::documentKindManual, fiscalYear))
        throw KAccountingError(u"سند ایجاد نشد."_s);
    num = writer.num();
    requirePersons(rows, database);
    writer.writeRows();
}

void ManualDocument::change(const OpenedRow *opened, int database)
{
    const qint32 meant = opened ? DocumentValues::headerOf(opened->values()) : 0;
    const qint32 key = lockForChange(num, fiscalYear, meant, database);
    if (opened) {
        const DocumentContent theirs = load(num, fiscalYear, database).content();
        DocumentValues values(database);
        values.set(theirs, key);
        opened->mergeOnto(values, [&] { values.set(content(), key); });
        const DocumentContent merged = values.merged(theirs, content());
        date = merged.date;
        desc = merged.description;
        rows = merged.rows;
        requireSavable(database);
    }
    DocumentWriter writer({date, ConvertToStandard(desc), rows}, database);
    if (!writer.rewrite(num, fiscalYear))
        throw KAccountingError(u"سند تغییر نکرد."_s);
    requirePersons(rows, database);
    writer.writeRows();
}

ManualDocument ManualDocument::load(int num, int fiscalYear, int database)
{
    ManualDocument document;
    CTblDocuments header(database);
    if (!findHeader(header, num, fiscalYear))
        return document;
    document.num = header.m_iNum;
    document.fiscalYear = header.m_iFiscalYear;
    document.date = header.m_date;
    document.desc = header.m_sDesc;
    for (const DocumentRows::Named &stored : DocumentRows::read(num, fiscalYear, database))
        document.rows.append(stored.row);
    return document;
}

void ManualDocument::remove(int num, int fiscalYear, qint32 headerKey, int database)
{
    GetDBSetting()->RequireOpenDB();
    KTransaction::runReplayable(
        [&] {
            CTblDocuments::lockBooks(database);
            lockForChange(num, fiscalYear, headerKey, database);
            CTblDocuments::DeleteDoc(num, fiscalYear, Accounts::documentKindManual, 0, u"by hand"_s, database);
        },
        database);
}

QString ManualDocument::changeRefusal(int num, int fiscalYear, int database)
{
    CTblDocuments header(database);
    if (!findHeader(header, num, fiscalYear))
        return u"این سند دیگر وجود ندارد."_s;
    QString ofKind = DocumentKinds::refusal(header.m_iKind);
    if (!ofKind.isEmpty())
        return ofKind;
    const int year = GetDBSetting()->FiscalYear();
    if (fiscalYear != year)
        return u"سند شماره %1 از سال مالی %2 است و در سال مالی %3 تغییر نمی‌کند."_s
            .arg(num)
            .arg(fiscalYear)
            .arg(year);
    return {};
}
