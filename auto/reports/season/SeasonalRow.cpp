// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalRow.h"

#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

const QString yes = u"بلی"_s;
const QString no = u"خیر"_s;
const QString blank = u" "_s;

QString yesOrNo(bool answer)
{
    return answer ? yes : no;
}

QString money(const std::optional<double> &amount)
{
    return amount ? DToMoney(*amount) : QString();
}

QString codeText(int code)
{
    return code == 0 ? QString() : QString::number(code);
}

// The tax authority knows only these kinds.
QString partyKindText(int code)
{
    return code >= 5 && code <= 8 ? QString::number(code) : QString();
}

}

QString SeasonalRow::partyText(int column) const
{
    switch (column) {
    case PersonKind:
        return party->natural ? u"حقیقی"_s : u"حقوقی"_s;
    case PostalCode:
        return party->postalCode;
    case AreaCode:
        return party->areaCode;
    case Telephone:
        return party->telephone;
    case Address:
        return party->address;
    case Name:
        return party->name;
    case Family:
        return party->family;
    case EconomicCode:
        return party->economicCode;
    case NationalCode:
        return party->nationalCode;
    case PartyKind:
        return partyKindText(party->kindCode);
    case Zone:
        return codeText(party->zone);
    case ProvinceCode:
        return codeText(party->provinceCode);
    case CityCode:
        return codeText(party->cityCode);
    default:
        return {};
    }
}

QString SeasonalRow::text(int column) const
{
    const bool sum = source == Source::SmallSum;
    if (column >= PersonKind && column <= CityCode && party)
        return partyText(column);
    switch (column) {
    case RowNumber:
        return QString::number(number);
    case Serial:
        return sum ? QString() : QString::number(serviceCode != 0 ? serviceCode : number);
    case Description:
        return sum ? blank : description;
    case Returned:
        return yesOrNo(returned);
    case Amount:
        return money(amount);
    case Tax:
        return DToMoney(tax);
    case PersonKind: // of a sum, as Family, Code and Date below
        return u"0"_s;
    case Family:
        return blank;
    case IsSmallSum:
        return yesOrNo(sum);
    case Discount:
        return money(discount);
    case Total:
        return money(total);
    case Code:
        return QString::number(code);
    case Date:
        return sum ? blank : shamsiText(date);
    case Duties:
        return source == Source::InvoiceLine ? DToMoney(duties) : u"0"_s;
    case Payment:
        return sum ? QString() : u"نقد"_s;
    case Heading:
        return sum ? QString() : u"خدمت"_s;
    case DocumentNumber:
        return codeText(documentNumber);
    case DocumentDate:
        return shamsiText(documentDate);
    case GoodsKind:
        return sum ? QString() : u"12"_s;
    default:
        return {};
    }
}

std::optional<double> SeasonalRow::figure(int column) const
{
    switch (column) {
    case RowNumber:
        return number;
    case Serial:
        return source == Source::SmallSum ? 0 : serviceCode != 0 ? serviceCode
                                                                 : number;
    case Amount:
        return amount.value_or(0);
    case Tax:
        return tax;
    case Discount:
        return discount.value_or(0);
    case Total:
        return total.value_or(0);
    case Code:
        return code;
    case Duties:
        return source == Source::InvoiceLine ? duties : 0;
    case DocumentNumber:
        return documentNumber;
    case Zone:
        return party ? party->zone : 0;
    case ProvinceCode:
        return party ? party->provinceCode : 0;
    case CityCode:
        return party ? party->cityCode : 0;
    default:
        return {};
    }
}

QVariant SeasonalRow::value(int column) const
{
    if (column == Date)
        return date;
    if (column == DocumentDate)
        return documentDate;
    if (const std::optional<double> answer = figure(column))
        return *answer;
    return text(column);
}

QString SeasonalRow::subject() const
{
    switch (source) {
    case Source::Contract:
        return u"قرارداد شماره %1"_s.arg(code);
    case Source::InvoiceLine:
        return u"فاکتور شماره %1"_s.arg(code);
    case Source::SmallSum:
        break;
    }
    return u"مجموع معاملات کوچک"_s;
}

QStringList SeasonalRow::texts() const
{
    QStringList texts;
    texts.reserve(ColumnCount);
    for (int column = 0; column < ColumnCount; ++column)
        texts.append(text(column));
    return texts;
}

void SeasonalTotals::add(const SeasonalRow &row)
{
    amount += row.amount.value_or(0);
    tax += row.tax;
    discount += row.discount.value_or(0);
    total += row.total.value_or(0);
}
