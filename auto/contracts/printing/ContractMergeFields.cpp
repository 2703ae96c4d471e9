// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractMergeFields.h"

#include "auto/contracts/figures/Commission.h"
#include "auto/contracts/editor/MatterVisibility.h"
#include "auto/contracts/printing/ContractMergeRows.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/PlateText.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QHash>

#include <algorithm>
#include <optional>
#include <span>

using namespace Qt::StringLiterals;

namespace {

using Row = ContractMergeRow;
using Rows = std::vector<Row>;

QString firstText(const std::vector<QStringView> &columns, const RecordValues &record)
{
    for (const QStringView column : columns)
        if (QString text = record(column).toString(); !text.isEmpty())
            return text;
    return {};
}

QString titleText(const std::vector<QStringView> &columns, const RecordValues &person)
{
    constexpr int man = 0;
    constexpr int highestNaturalKind = 1;
    if (person(columns.at(1)).toInt() > highestNaturalKind)
        return {};
    return person(columns.at(0)).toInt() == man ? u"آقا"_s : u"خانم"_s;
}

QString timeText(const QDateTime &moment)
{
    const QTime time = moment.time();
    return time == QTime(0, 0) ? QString() : time.toString(u"HH:mm");
}

double amountOf(const Row &row, const RecordValues &record)
{
    double amount = row.deducted.isEmpty() ? 0 : -record(row.deducted).toDouble();
    for (const QStringView column : row.columns)
        amount += record(column).toDouble();
    return amount;
}

QString wordsOf(double amount, const QString &moneyUnit)
{
    const QString words = amountInWords(amount);
    return words.isEmpty() || moneyUnit.isEmpty() ? words : words + u' ' + moneyUnit;
}

// In the order of a car's plate, which a Persian line would turn around: each part, then a mark that keeps the next one to its right.
QString plateText(const PlateText &plate)
{
    return u"\u202A%1 %2\u200E %3 | ایران\u200E %4\u202C"_s.arg(plate.two, plate.letter, plate.three, plate.region);
}

QString plateText(Row::Format format, const QString &stored)
{
    const std::optional<PlateText> plate = PlateText::of(stored);
    if (!plate)
        return format == Row::Plate ? stored : QString();
    switch (format) {
    case Row::PlateTwo: return plate->two;
    case Row::PlateLetter: return plate->letter;
    case Row::PlateThree: return plate->three;
    case Row::PlateRegion: return plate->region;
    default: return plateText(*plate);
    }
}

QString text(const Row &row, const std::vector<QStringView> &columns, const RecordValues &record, const ContractForPrinting &source)
{
    if (columns.empty())
        return {};
    const auto value = [&] { return record(columns.front()); };
    switch (row.format) {
    case Row::Text: return firstText(columns, record);
    case Row::Money: return DToMoney(amountOf(row, record), source.moneyDecimals);
    case Row::Words: return wordsOf(amountOf(row, record), source.moneyUnit);
    case Row::Date: return shamsiText(value().toDateTime().date());
    case Row::Time: return timeText(value().toDateTime());
    case Row::Code: return value().toInt() == 0 ? QString() : LToStr(value().toInt());
    case Row::Title: return titleText(columns, record);
    case Row::Plate:
    case Row::PlateTwo:
    case Row::PlateLetter:
    case Row::PlateThree:
    case Row::PlateRegion: return plateText(row.format, value().toString());
    }
    return {};
}

// What an amount says: 0 is nothing to speak of.
bool isZero(const Row &row, const RecordValues &record, int decimals)
{
    return row.isAmount() && roundToDecimals(amountOf(row, record), decimals) == 0;
}

bool isHidden(const Row &row, int contractType)
{
    return !row.columns.empty()
        && std::ranges::all_of(row.columns, [&](QStringView column) { return MatterVisibility::isMatter(column) && !MatterVisibility::isUsed(contractType, column); });
}

MergeBatch filled(const Rows &rows, const RecordValues &record, const RecordValues &person, const ContractForPrinting &source)
{
    MergeBatch batch;
    batch.reserve(static_cast<qsizetype>(rows.size()));
    for (const Row &row : rows) {
        const bool askPerson = person && !row.personColumns.empty();
        const RecordValues &asked = askPerson ? person : record;
        const QString value = text(row, askPerson ? row.personColumns : row.columns, asked, source);
        const bool says = !value.trimmed().isEmpty() && !isZero(row, record, source.moneyDecimals) && !isHidden(row, source.contract(u"iContractType").toInt());
        batch.append({row.name.toString(), value.isEmpty() ? u" "_s : value, says});
    }
    return batch;
}

MergeBatch partyBatch(const Rows &rows, QStringView kindColumn, const RecordValues &person,
                      const ContractForPrinting &source)
{
    const bool ordinary = source.contract(kindColumn).toInt() == static_cast<int>(PartyKind::Ordinary);
    if (ordinary && !person)
        return {};
    return filled(rows, source.contract, ordinary ? person : RecordValues(), source);
}

}

ContractMergeBatches contractMergeFields(const ContractForPrinting &source)
{
    return {partyBatch(Row::ofFirstParty(), u"iPersonContract1", source.firstPerson, source),
            partyBatch(Row::ofSecondParty(), u"iPersonContract2", source.secondPerson, source),
            filled(Row::ofMatter(), source.contract, {}, source)};
}

MergeBatch furtherMergeFields(const ContractForPrinting &source)
{
    const RecordValues office = source.office ? source.office : [](QStringView) { return QVariant(); };
    MergeBatch batch = {dealershipField(source.companyName), {u"MoneyUnit"_s, source.moneyUnit.isEmpty() ? u" "_s : source.moneyUnit, !source.moneyUnit.isEmpty()}};
    return batch + filled(Row::ofOffice(), office, {}, source) + filled(Row::further(), source.contract, {}, source);
}

MergeField dealershipField(const QString &companyName)
{
    const QString blankLine = u"نمایشگاه اتومبیل ........................"_s;
    return {u"Dealership"_s, companyName.isEmpty() ? blankLine : companyName};
}

QString logoField()
{
    return u"Logo"_s;
}

QStringList statedMergeFields()
{
    QStringList names;
    for (const Rows *rows : {&Row::ofFirstParty(), &Row::ofSecondParty(), &Row::ofMatter()})
        for (const Row &row : *rows)
            if (!names.contains(row.name))
                names.append(row.name.toString());
    return names;
}

QStringList hiddenMergeFields(int contractType)
{
    QStringList names;
    for (const Rows *rows : {&Row::ofFirstParty(), &Row::ofSecondParty(), &Row::ofMatter(), &Row::further()})
        for (const Row &row : *rows)
            if (isHidden(row, contractType) && !names.contains(row.name))
                names.append(row.name.toString());
    return names;
}
