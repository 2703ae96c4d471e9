// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalExportRow.h"

#include "auto/reports/season/SeasonalRow.h"
#include "suite/utility/values/Money.h"

#include <QHash>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

using Row = SeasonalRow;

double number(const QString &cell)
{
    double value = 0;
    return parseMoney(cell, &value) ? value : 0;
}

// 0 as well for a number that a field of whole numbers does not hold.
int wholeNumber(const QString &cell)
{
    const double value = std::trunc(number(cell));
    return std::abs(value) <= std::numeric_limits<int>::max() ? static_cast<int>(value) : 0;
}

QString numberText(const QString &cell)
{
    return DToStr(number(cell));
}

std::optional<int> personKind(const QString &cell)
{
    if (cell == u"حقیقی"_s)
        return 1;
    if (cell == u"حقوقی"_s)
        return 2;
    return {};
}

// What only a row of its own has.
void setOwnValues(SeasonalExportRow &row, const QStringList &cells)
{
    const int sequence = wholeNumber(cells.value(Row::Serial));
    row.goodsKind = wholeNumber(cells.value(Row::GoodsKind));
    row.sequence = sequence > SeasonalExportRow::highestSequence ? 0 : sequence;
    row.personKind = personKind(cells.value(Row::PersonKind));
    row.postalCode = cells.value(Row::PostalCode);
    row.areaCode = cells.value(Row::AreaCode);
    row.telephone = cells.value(Row::Telephone);
    row.address = cells.value(Row::Address);
    row.name = cells.value(Row::Name);
    row.economicCode = cells.value(Row::EconomicCode);
    row.nationalCode = cells.value(Row::NationalCode);
    row.partyKind = wholeNumber(cells.value(Row::PartyKind));
    row.provinceCode = wholeNumber(cells.value(Row::ProvinceCode));
    row.cityCode = wholeNumber(cells.value(Row::CityCode));
    row.contractCode = numberText(cells.value(Row::Code));
    row.contractDate = cells.value(Row::Date);
    row.documentDate = cells.value(Row::DocumentDate);
}

}

int SeasonalExportRow::columnOf(const QString &value)
{
    static const QHash<QString, int> columns{
        {u"goodsKind"_s, Row::GoodsKind},
        {u"description"_s, Row::Description},
        {u"sequence"_s, Row::Serial},
        {u"returned"_s, Row::Returned},
        {u"amount"_s, Row::Amount},
        {u"tax"_s, Row::Tax},
        {u"duties"_s, Row::Duties},
        {u"discount"_s, Row::Discount},
        {u"personKind"_s, Row::PersonKind},
        {u"postalCode"_s, Row::PostalCode},
        {u"areaCode"_s, Row::AreaCode},
        {u"telephone"_s, Row::Telephone},
        {u"address"_s, Row::Address},
        {u"firstName"_s, Row::Name},
        {u"familyName"_s, Row::Family},
        {u"economicNumber"_s, Row::EconomicCode},
        {u"nationalCode"_s, Row::NationalCode},
        {u"partyKind"_s, Row::PartyKind},
        {u"provinceCode"_s, Row::ProvinceCode},
        {u"cityCode"_s, Row::CityCode},
        {u"contractCode"_s, Row::Code},
        {u"contractDate"_s, Row::Date},
        {u"documentDate"_s, Row::DocumentDate},
    };
    return columns.value(value, -1);
}

SeasonalExportRow SeasonalExportRow::fromCells(const QStringList &cells)
{
    SeasonalExportRow row;
    row.description = cells.value(Row::Description);
    row.isReturned = cells.value(Row::Returned) == u"بلی"_s;
    row.amount = numberText(cells.value(Row::Amount));
    row.tax = numberText(cells.value(Row::Tax));
    row.duties = numberText(cells.value(Row::Duties));
    row.discount = numberText(cells.value(Row::Discount));
    row.family = cells.value(Row::Family);
    if (!cells.value(Row::Serial).isEmpty())
        setOwnValues(row, cells);
    return row;
}
