// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentSheet.h"

#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentKinds.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using C = PaperSheet::Column;

PaperSheet::Cell side(double amount)
{
    return {IsEquals(amount, 0) ? QString() : DToMoney(amount), amount};
}

QString inWords(double amount, const QString &unit)
{
    const QString words = amountInWords(amount);
    return words.isEmpty() ? QString() : u"%1 %2"_s.arg(words, unit);
}

QString sideName(double balance)
{
    return IsEquals(balance, 0) ? u"تسویه"_s : balance > 0 ? u"بدهکار"_s
                                                           : u"بستانکار"_s;
}

QList<PaperSheet::Cell> documentRow(const DocumentRows::Named &named, int number)
{
    const DocumentRow &row = named.row;
    QString account = named.accountName;
    if (!named.person.isEmpty())
        account += u" - "_s + named.person;
    return {{QString::number(number)}, {QString::number(row.account)}, {account}, {row.description}, side(row.debit), side(row.credit)};
}

}

PaperSheet DocumentSheet::of(const Source &source)
{
    PaperSheet sheet;
    sheet.kind = u"DocumentPaper"_s;
    sheet.title = u"سند حسابداری"_s;
    sheet.fileName = u"%1 %2 سال %3"_s.arg(sheet.title).arg(source.num).arg(source.fiscalYear);
    sheet.marks = {{u"شماره :"_s, QString::number(source.num)}, {u"تاریخ :"_s, shamsiText(source.date.date())}, {u"سال مالی :"_s, QString::number(source.fiscalYear)}};
    sheet.facts = {{.label = u"نوع سند :"_s, .text = source.kind, .isWide = true}, {.label = u"شرح سند :"_s, .text = source.desc, .isWide = true}};
    sheet.columns = {{u"ردیف"_s, 10, C::Centred}, {u"کد حساب"_s, 12, C::Centred}, {u"حساب"_s, 24}, {u"شرح"_s, 25}, {u"بدهکار"_s, 16, C::Amount, true}, {u"بستانکار"_s, 16, C::Amount, true}};
    double debit = 0;
    for (qsizetype i = 0; i < source.rows.size(); ++i) {
        sheet.rows.append(documentRow(source.rows.at(i), static_cast<int>(i) + 1));
        debit += source.rows.at(i).row.debit;
    }
    sheet.totals = {{u"جمع به حروف :"_s, inWords(debit, source.moneyUnit)}};
    sheet.signatures = {{u"تنظیم‌کننده"_s, source.user}, {u"حسابدار"_s, {}}, {u"تایید‌کننده"_s, {}}, {u"مدیر"_s, {}}};
    sheet.state = source.isVoid ? u"باطل"_s : QString();
    return sheet;
}

std::optional<PaperSheet> DocumentSheet::read(int num, int fiscalYear, int database)
{
    CTblDocuments document(database);
    if (num <= 0 || !document.IsRecordExist(u"iNum"_s, num, 0, KSql::formatted(" AND iFiscalYear=%1", fiscalYear)))
        return {};
    return of({.num = num,
               .fiscalYear = fiscalYear,
               .date = document.m_date,
               .kind = DocumentKinds::name(document.m_iKind),
               .desc = document.m_sDesc,
               .user = document.m_iUserID > 0 ? CTblUsers::GetName(document.m_iUserID, database) : QString(),
               .isVoid = document.m_iStatus != 0,
               .rows = DocumentRows::read(num, fiscalYear, database),
               .moneyUnit = OfficeSettings::read({}, database).moneyUnitName()});
}

PaperSheet DocumentSheet::statement(const AccountLedger::Person &person, const AccountLedger::Sheet &ledger, const QDate &from, const QDate &to,
                                    const QDate &day, const QString &moneyUnit)
{
    PaperSheet sheet;
    sheet.kind = u"StatementPaper"_s;
    sheet.title = u"صورتحساب"_s;
    sheet.fileName = u"صورتحساب %1"_s.arg(person.name);
    sheet.marks = {{u"تاریخ :"_s, shamsiText(day)}};
    sheet.facts = {{.label = u"شخص :"_s, .text = person.name, .isStrong = true},
                   {.label = u"کد :"_s, .text = QString::number(person.code)},
                   {.label = u"کد ملی :"_s, .text = person.nationalCode, .isCode = true},
                   {.label = u"از تاریخ :"_s, .text = shamsiText(from)},
                   {.label = u"تا تاریخ :"_s, .text = shamsiText(to)}};
    sheet.columns = {{u"ردیف"_s, 10, C::Centred}, {u"سند"_s, 8, C::Centred}, {u"تاریخ"_s, 17, C::Centred}, {u"بابت"_s, 23}, {u"بدهکار"_s, 15, C::Amount, true}, {u"بستانکار"_s, 15, C::Amount, true}, {u"مانده"_s, 16, C::Amount}};
    if (!ledger.before.isBalanced()) {
        const double before = ledger.before.net();
        sheet.rows.append({{}, {}, {}, {u"مانده از قبل"_s}, side(std::max(before, 0.0)), side(std::max(-before, 0.0)), {DToMoney(std::abs(before))}});
    }
    int number = 0;
    for (const AccountLedger::Row &row : ledger.rows)
        sheet.rows.append({{QString::number(++number)}, {QString::number(row.docNum)}, {shamsiText(row.date.date())}, {row.purpose().isEmpty() ? row.desc : row.purpose()}, side(row.bed), side(row.bes), {DToMoney(std::abs(row.balance))}});
    const double closing = ledger.closing();
    sheet.totals = {{u"مانده نهایی :"_s, u"%1 %2 %3"_s.arg(DToMoney(std::abs(closing)), moneyUnit, sideName(closing)), true},
                    {u"به حروف :"_s, inWords(std::abs(closing), moneyUnit)}};
    sheet.signatures = {{u"مهر و امضا"_s, {}}};
    return sheet;
}
