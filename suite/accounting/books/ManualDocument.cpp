// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/ManualDocument.h"

#include "suite/db/CTblTemp.h"
#include "suite/db/KLookup.h"
#include "suite/db/KTransaction.h"
#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentKinds.h"
#include "suite/accounting/books/DocumentRows.h"
#include "suite/accounting/books/DocumentWriter.h"
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

void requireChangeable(int num, int fiscalYear, int database)
{
    CTblTemp lock(database);
    lock.Open(false, false, true);
    lock.FormatAndExecuteQuery("SELECT iID FROM Documents WHERE iNum=%d AND iFiscalYear=%d FOR UPDATE", num, fiscalYear);
    const QString refusal = ManualDocument::changeRefusal(num, fiscalYear, database);
    if (!refusal.isEmpty())
        throw KAccountingError(refusal);
}

void requireUnchanged(const ManualDocument &seen, int database)
{
    if (ManualDocument::load(seen.num, seen.fiscalYear, database) != seen)
        throw KAccountingError(u"سند شماره %1 را کاربر دیگری در این میان تغییر داده است. برای دیدن تغییر او این پنجره "
                               "را ببندید و سند را دوباره باز نمایید."_s
                                   .arg(seen.num));
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

void ManualDocument::save(const ManualDocument &seen, int database)
{
    saveWhole(&seen, database);
}

void ManualDocument::saveWhole(const ManualDocument *seen, int database)
{
    GetDBSetting()->RequireOpenDB();
    QSet<int> accounts;
    for (const AccountChart::Account &account : AccountChart::postable(database))
        accounts.insert(account.code);
    const QList<Problem> found = problems(accounts);
    if (!found.isEmpty())
        throw KAccountingError(message(found.constFirst()));
    OfficeSettings::read().requireInFiscalYear(date.date(), u"سند"_s);
    ManualDocument written = *this;
    if (num == 0)
        written.fiscalYear = GetDBSetting()->FiscalYear();
    KTransaction::runReplayable(
        [&] {
            written.num = num;
            written.write(seen, database);
        },
        database);
    *this = written;
}

void ManualDocument::write(const ManualDocument *seen, int database)
{
    DocumentWriter writer({date, ConvertToStandard(desc), rows}, database);
    if (num == 0) {
        if (!writer.add(Accounts::documentKindManual, fiscalYear))
            throw KAccountingError(u"سند ایجاد نشد."_s);
        num = writer.num();
    } else {
        requireChangeable(num, fiscalYear, database);
        if (seen)
            requireUnchanged(*seen, database);
        if (!writer.rewrite(num, fiscalYear))
            throw KAccountingError(u"سند تغییر نکرد."_s);
    }
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

void ManualDocument::remove(int num, int fiscalYear, int database)
{
    GetDBSetting()->RequireOpenDB();
    KTransaction transaction(database);
    requireChangeable(num, fiscalYear, database);
    CTblDocuments::DeleteDoc(num, fiscalYear, Accounts::documentKindManual, 0, u"by hand"_s, database);
    transaction.commit();
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
