// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/bin/CarRecordParts.h"

#include "auto/catalog/CatalogEntries.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblAutomobilPayments.h"
#include "suite/accounting/bin/RecordParts.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/followups/CTblFollowUps.h"

using namespace Qt::StringLiterals;

namespace {

using Gone = RecordReference::Gone;

const QString brandTable = u"CarBrands"_s;
const QString modelTable = u"CarModels"_s;
const QString classTable = u"CarClasses"_s;
const QString personWord = u"شخص"_s;

RecordReference user()
{
    return {u"iUserID"_s, u"Users"_s, u"کاربر"_s, Gone::Kept};
}

RecordReference person(const QString &column, Gone gone = Gone::Kept)
{
    return {column, u"Persons"_s, personWord, gone};
}

// What was said about it.
RecordPart notes(int kind)
{
    RecordPart part = RecordParts::byKind(u"FollowUps"_s, u"پیگیری"_s, kind);
    part.make = &RecordPart::of<CTblFollowUps>;
    return part;
}

KSql ownDocument(const KWholeRow &contract, int database, const KSql &numberColumn)
{
    const qint32 num = contract.number(u"iDocNum");
    const qint32 year = contract.number(u"iFiscalYear");
    if (!CTblAutomobilContracts::ownsDocument(contract.key(), num, year, database))
        return {};
    return KSql::formatted("%1=%2 AND iFiscalYear=%3", numberColumn, num, year);
}

// An instalment that was received when the backup was taken may be open since. One without any receipt was marked by hand, and stays so.
void countInstalments(qint32 contractID, int database)
{
    CTblTemp receipts(database);
    QList<qint32> instalments;
    for (receipts.FormatAndExecuteQuery("SELECT DISTINCT iPaymentID FROM Receipts WHERE iTable=%d AND iRecordID=%d AND iPaymentID>0",
                                        int(CTblAutomobilContracts::recordKind), contractID);
         receipts.HasResultRow(); receipts.MoveNextResult())
        instalments.append(receipts.GetLongFieldValue(0));
    for (const qint32 instalment : std::as_const(instalments))
        StoredInstalments::recount(contractID, instalment);
}

RecordParts contractParts()
{
    const QString table = u"AutomobilContracts"_s;
    constexpr int kind = CTblAutomobilContracts::recordKind;
    RecordPart calls = notes(kind);
    calls.references = {{u"iPaymentID"_s, u"AutomobilPayments"_s}};
    RecordPart instalments = RecordParts::byColumn(u"AutomobilPayments"_s, u"قسط"_s, u"iAutomobilContractID"_s, table);
    instalments.make = &RecordPart::of<CTblAutomobilPayments>;
    // Without the car it says nothing.
    RecordPart car = RecordParts::byColumn(u"CarContracts"_s, {}, u"iContractID"_s, table);
    car.references.append({u"iCarID"_s, u"AutomobilInformations"_s, u"خودرو"_s, Gone::LeftOut});
    return {.table = table,
            .form = table,
            .references = {person(u"iPersonFirstID"_s), person(u"iPersonSecondID"_s), user()},
            .parts = {{.table = u"Documents"_s,
                       .word = u"سند"_s,
                       .rows = [](const KWholeRow &contract, int database) { return ownDocument(contract, database, "iNum"); }},
                      {.table = u"Docs"_s,
                       .word = {},
                       .rows = [](const KWholeRow &contract, int database) { return ownDocument(contract, database, "iDocNum"); },
                       .references = {person(u"iPersonID"_s)},
                       .make = &RecordPart::of<CTblDocs>},
                      instalments,
                      RecordParts::files(kind),
                      RecordParts::filedPapers(kind),
                      RecordParts::customValues(kind),
                      calls,
                      car},
            .code = u"iCode"_s,
            .recount = &countInstalments};
}

RecordParts carParts()
{
    const QString table = u"AutomobilInformations"_s;
    constexpr int kind = CTblAutomobilInformations::recordKind;
    return {.table = table,
            .form = table,
            .references = {person(u"iPersonID"_s), person(u"iPersonBuyerID"_s), {u"iAutomobilType"_s, brandTable, u"برند"_s}, {u"iModel"_s, modelTable, u"مدل"_s}, {u"iBrigade"_s, classTable, u"تیپ"_s}, user()},
            .parts = {RecordParts::files(kind), RecordParts::pictures(kind), RecordParts::customValues(kind), notes(kind), RecordParts::byColumn(u"PublicCars"_s, {}, u"iCarID"_s, table)},
            .code = u"iCode"_s};
}

// A demand is listed by its person.
RecordParts demandParts()
{
    const QString table = u"AutomobilDemands"_s;
    constexpr int kind = CTblAutomobilDemands::recordKind;
    return {.table = table,
            .form = table,
            .references = {person(u"iPersonID"_s, Gone::Refused), {u"iAutomobilType"_s, brandTable, u"برند"_s}, user(), {u"iAlarmID"_s, u"Alarms"_s}},
            .parts = {RecordParts::files(kind), RecordParts::byKind(u"Alarms"_s, u"یادآوری"_s, kind), notes(kind)},
            .code = u"iCode"_s};
}

// The editors let no two entries below the same parent have one name.
void requireFreeName(const KWholeRow &entry, CatalogLevel level, qint32 parent, int database)
{
    NamedLock::take(CatalogEntries::lockName(), database);
    const QString name = entry.text(u"sName");
    CTblTemp others(database);
    others.ExecuteQuery(KSql::formatted("SELECT iID FROM %1 WHERE %2 LIMIT 1 LOCK IN SHARE MODE", KSql::name(entry.table()),
                                        CatalogEntries::sameNameBelow(level, parent, name)));
    if (others.HasResultRow())
        throw KAccountingError(u"در فهرست خودروها «%1» دیگری هست؛ نخست نام آن را تغییر دهید. «%1» بازنگشت."_s.arg(name));
}

RecordParts brandParts()
{
    // As the deletion has it: only models that have classes go along.
    RecordPart models{.table = modelTable,
                      .word = u"مدل"_s,
                      .rows = [](const KWholeRow &brand, int) {
                          return KSql::formatted("iClassID=%1 AND EXISTS(SELECT 1 FROM CarClasses cc WHERE cc.iBrandID=CarModels.iID)", brand.key());
                      },
                      .references = {{u"iClassID"_s, brandTable}}};
    RecordPart classes{.table = classTable,
                       .word = u"تیپ"_s,
                       .rows = [](const KWholeRow &brand, int) {
                           return KSql::formatted("iBrandID IN (SELECT cm.iID FROM CarModels cm WHERE cm.iClassID=%1)", brand.key());
                       },
                       .references = {{u"iBrandID"_s, modelTable}}};
    return {.table = brandTable, .form = u"CarsAll"_s, .references = {user()}, .parts = {models, classes}, .known = {u"sName"_s}, .settle = [](KWholeRow &brand, int database, QStringList &) { requireFreeName(brand, CatalogLevel::Brand, 0, database); }};
}

RecordParts modelParts()
{
    return {.table = modelTable,
            .form = u"CarsAll"_s,
            .references = {{u"iClassID"_s, brandTable, u"برند"_s, Gone::Refused}, user()},
            .parts = {RecordParts::byColumn(classTable, u"تیپ"_s, u"iBrandID"_s, modelTable)},
            .known = {u"sName"_s, u"iClassID"_s},
            .settle = [](KWholeRow &model, int database, QStringList &) {
                requireFreeName(model, CatalogLevel::Model, model.number(u"iClassID"), database);
            }};
}

RecordParts classParts()
{
    return {.table = classTable,
            .form = u"CarsAll"_s,
            .references = {{u"iBrandID"_s, modelTable, u"مدل"_s, Gone::Refused}, user()},
            .parts = {},
            .known = {u"sName"_s, u"iBrandID"_s},
            .settle = [](KWholeRow &carClass, int database, QStringList &) {
                requireFreeName(carClass, CatalogLevel::Class, carClass.number(u"iBrandID"), database);
            }};
}

// For as long as the module is loaded.
class Entered
{
public:
    Entered()
    {
        for (const auto &make : {contractParts, carParts, demandParts, brandParts, modelParts, classParts}) {
            RecordParts parts = make();
            m_tables.append(parts.table);
            BinnedRecords::enter(std::move(parts));
        }
    }
    ~Entered()
    {
        for (const QString &table : std::as_const(m_tables))
            BinnedRecords::remove(table);
    }
    Entered(const Entered &) = delete;
    Entered &operator=(const Entered &) = delete;

private:
    QStringList m_tables;
};

}

void CarRecordParts::enter()
{
    static const Entered entered;
}
