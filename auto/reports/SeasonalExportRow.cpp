// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/SeasonalExportRow.h"

#include "suite/utility/Money.h"

#include <cmath>
#include <limits>

namespace {

// Cells of the list.
enum Column {
    Sequence = 1,
    Description = 2,
    Returned = 3,
    Amount = 4,
    Tax = 5,
    PersonKind = 6,
    PostalCode = 7,
    AreaCode = 8,
    Telephone = 9,
    Address = 10,
    Name = 11,
    Family = 12,
    EconomicCode = 13,
    NationalCode = 14,
    PartyKind = 15,
    ProvinceCode = 17,
    CityCode = 18,
    Discount = 20,
    ContractCode = 22,
    ContractDate = 23,
    Duties = 24,
    DocumentDate = 28,
    GoodsKind = 29
};

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
    if (cell == QStringLiteral("حقیقی"))
        return 1;
    if (cell == QStringLiteral("حقوقی"))
        return 2;
    return {};
}

// What only a row of its own has.
void setOwnValues(SeasonalExportRow &row, const QStringList &cells)
{
    const int sequence = wholeNumber(cells.value(Sequence));
    row.goodsKind = wholeNumber(cells.value(GoodsKind));
    row.sequence = sequence > SeasonalExportRow::highestSequence ? 0 : sequence;
    row.personKind = personKind(cells.value(PersonKind));
    row.postalCode = cells.value(PostalCode);
    row.areaCode = cells.value(AreaCode);
    row.telephone = cells.value(Telephone);
    row.address = cells.value(Address);
    row.name = cells.value(Name);
    row.economicCode = cells.value(EconomicCode);
    row.nationalCode = cells.value(NationalCode);
    row.partyKind = wholeNumber(cells.value(PartyKind));
    row.provinceCode = wholeNumber(cells.value(ProvinceCode));
    row.cityCode = wholeNumber(cells.value(CityCode));
    row.contractCode = numberText(cells.value(ContractCode));
    row.contractDate = cells.value(ContractDate);
    row.documentDate = cells.value(DocumentDate);
}

}

SeasonalExportRow SeasonalExportRow::fromCells(const QStringList &cells)
{
    SeasonalExportRow row;
    row.description = cells.value(Description);
    row.isReturned = cells.value(Returned) == QStringLiteral("بلی");
    row.amount = numberText(cells.value(Amount));
    row.tax = numberText(cells.value(Tax));
    row.duties = numberText(cells.value(Duties));
    row.discount = numberText(cells.value(Discount));
    row.family = cells.value(Family);
    if (!cells.value(Sequence).isEmpty())
        setOwnValues(row, cells);
    return row;
}
