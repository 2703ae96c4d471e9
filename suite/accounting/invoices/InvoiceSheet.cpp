// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/invoices/InvoiceSheet.h"

#include "suite/accounting/books/AccountLedger.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/CTblFactorStuffs.h"
#include "suite/accounting/invoices/InvoicePosting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/KLookup.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

QString titleOf(const Invoice &invoice)
{
    const bool sale = invoice.type == Invoice::sale;
    if (invoice.returned)
        return sale ? u"فاکتور برگشت از فروش"_s : u"فاکتور برگشت از خرید"_s;
    return sale ? u"فاکتور فروش"_s : u"فاکتور خرید"_s;
}

QString returnText(const Invoice &invoice)
{
    if (!invoice.returned)
        return {};
    return invoice.type == Invoice::sale ? u"ردیف‌های بالا پیش‌تر فروخته شده و با این فاکتور برگشت داده شده است."_s
                                         : u"ردیف‌های بالا پیش‌تر خریداری شده و با این فاکتور برگشت داده شده است."_s;
}

QList<PaperSheet::Cell> rowOf(const InvoiceLine &line, const QString &service, int number, int decimals)
{
    const double amount = InvoiceFigures::lineAmount(line.count, line.price, decimals);
    const QString text = service.isEmpty() || line.desc.isEmpty() ? service + line.desc : service + u" - "_s + line.desc;
    return {{QString::number(number)}, {text}, {DToStr(line.count)}, {DToMoney(line.price, decimals)}, {DToMoney(amount, decimals), amount}};
}

// A line that is no part of the sum is left out.
PaperSheet::Fact further(const QString &label, double amount, const InvoiceSheet::Source &source)
{
    return {label, IsEquals(amount, 0) ? QString() : u"%1 %2"_s.arg(DToMoney(amount, source.decimals), source.moneyUnit)};
}

}

PaperSheet InvoiceSheet::of(const Source &source)
{
    using C = PaperSheet::Column;
    const Invoice &invoice = source.invoice;
    const bool sale = invoice.type == Invoice::sale;
    const double total = invoice.sum(source.decimals) - invoice.discount + invoice.tax + invoice.duty;
    PaperSheet sheet;
    sheet.kind = u"InvoicePaper"_s;
    sheet.title = titleOf(invoice);
    sheet.fileName = u"%1 %2"_s.arg(sheet.title).arg(invoice.num);
    sheet.marks = {{u"شماره :"_s, QString::number(invoice.num)}, {u"تاریخ :"_s, shamsiText(invoice.date.date())}};
    sheet.facts = {{.label = sale ? u"خریدار :"_s : u"فروشنده :"_s, .text = source.person, .isStrong = true},
                   {.label = u"کد ملی :"_s, .text = source.nationalCode, .isCode = true},
                   {.label = u"شرح :"_s, .text = invoice.desc, .isWide = true}};
    sheet.columns = {{u"ردیف"_s, 10, C::Centred}, {u"شرح کالا یا خدمت"_s, 37}, {u"تعداد"_s, 10, C::Centred}, {u"قیمت واحد"_s, 20, C::Amount}, {u"مبلغ"_s, 23, C::Amount, true}};
    for (qsizetype i = 0; i < invoice.lines.size(); ++i)
        sheet.rows.append(rowOf(invoice.lines.at(i), source.services.value(i), static_cast<int>(i) + 1, source.decimals));
    const QString words = amountInWords(total);
    sheet.totals = {further(u"تخفیف :"_s, invoice.discount, source), further(u"مالیات :"_s, invoice.tax, source), further(u"عوارض :"_s, invoice.duty, source), {u"قابل پرداخت :"_s, u"%1 %2"_s.arg(DToMoney(total, source.decimals), source.moneyUnit), true}, {u"به حروف :"_s, words.isEmpty() ? QString() : u"%1 %2"_s.arg(words, source.moneyUnit)}};
    sheet.notes = returnText(invoice);
    sheet.signatures = {{u"مهر و امضای فروشنده"_s, {}}, {u"مهر و امضای خریدار"_s, {}}};
    sheet.signatures[sale ? 1 : 0].name = source.person;
    sheet.foot = (source.user.isEmpty() ? QString() : u"ثبت‌کننده : %1     "_s.arg(source.user)) + (source.docNum > 0 ? u"سند حسابداری : %1"_s.arg(source.docNum) : QString());
    sheet.state = source.isVoid ? u"باطل"_s : QString();
    return sheet;
}

std::optional<PaperSheet> InvoiceSheet::read(int num, int database)
{
    CTblFactors stored(database);
    if (!stored.IsRecordExist(u"iID"_s, num))
        return {};
    const OfficeSettings office = OfficeSettings::read({}, database);
    const AccountLedger::Person person = AccountLedger::person(stored.m_iPersonID, database);
    Source source{.invoice = InvoicePosting::load(num, database),
                  .person = person.name,
                  .nationalCode = person.nationalCode,
                  .docNum = stored.m_iDocNum,
                  .isVoid = stored.m_iStatus == CTblFactors::voided,
                  .user = stored.m_iUserID > 0 ? CTblUsers::GetName(stored.m_iUserID, database) : QString(),
                  .moneyUnit = office.moneyUnitName(),
                  .decimals = office.moneyDecimals()};
    QList<int> keys;
    for (const InvoiceLine &line : source.invoice.lines)
        keys.append(line.serviceID);
    const QHash<int, QString> names = KLookup::names<CTblFactorStuffs>(u"iServiceID", keys, database);
    for (const int key : keys)
        source.services.append(names.value(key));
    return of(source);
}
