// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/look/GrownOffice.h"

#include "suite/db/records/CTblTemp.h"

#include <QHash>
#include <QSet>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// Whose rows are the same however large the office is, and what only one moment is.
const QSet<QString> keptTables{u"AutomobilTariffs"_s, u"BackupState"_s, u"CarBrands"_s, u"CarClasses"_s, u"CarModels"_s, u"CarYears"_s, u"CustomFields"_s, u"Departments"_s,
                               u"HesabKol"_s, u"HesabMoeen"_s, u"HesabTafsily"_s, u"ImportMappings"_s, u"Items"_s, u"Leases"_s, u"MessageTexts"_s, u"Placeholders"_s,
                               u"Properties"_s, u"ReportLayouts"_s, u"SavedFilters"_s, u"Services"_s, u"Templates"_s, u"UnitTokens"_s, u"UserRights"_s, u"Users"_s};

// Keys and numbers that a copy has its own of, and the names by which other tables call them.
const QSet<QString> shifted{u"iID"_s, u"iCode"_s, u"iNum"_s, u"iDocNum"_s, u"iVoidDocNum"_s, u"iPersonID"_s, u"iPersonFirstID"_s, u"iPersonSecondID"_s, u"iPersonBuyerID"_s,
                            u"iEndorsedID"_s, u"iAutomobilContractID"_s, u"iAutomobilInformationID"_s, u"iContractID"_s, u"iCarID"_s, u"iRecordID"_s, u"iRecordID2"_s, u"iPaymentID"_s,
                            u"iFactorNum"_s, u"iChequeID"_s, u"iReceiptID"_s, u"iBinID"_s, u"iPictureID"_s};

constexpr int shift = 1'000'000;

struct Column
{
    QString name;
    QString type;
};

QHash<QString, QList<Column>> columnsOfTables()
{
    QHash<QString, QList<Column>> all;
    CTblTemp query;
    query.Open(true, false, true);
    for (query.ExecuteQuery("SELECT c.TABLE_NAME,c.COLUMN_NAME,c.DATA_TYPE FROM information_schema.COLUMNS c JOIN information_schema.TABLES t"
                            " ON t.TABLE_SCHEMA=c.TABLE_SCHEMA AND t.TABLE_NAME=c.TABLE_NAME AND t.TABLE_TYPE='BASE TABLE' WHERE c.TABLE_SCHEMA=DATABASE()"
                            " AND c.GENERATION_EXPRESSION IS NULL");
         query.HasResultRow(); query.MoveNextResult())
        all[query.GetTextFieldValue(0)].append({query.GetTextFieldValue(1), query.GetTextFieldValue(2)});
    return all;
}

KSql valueOf(const QString &table, const Column &column)
{
    const KSql name = KSql::name(u"t."_s + column.name);
    // The number of an instalment counts within its plan.
    if (shifted.contains(column.name) && !(table == u"AutomobilPayments" && column.name == u"iNum"))
        return KSql::formatted("IF(%1>0,%1+n.seq*%2,%1)", name, shift);
    if (column.type == u"datetime" || column.type == u"date")
        return name + "-INTERVAL n.seq*7 DAY";
    return name;
}

}

void GrownOffice::grow(int copies)
{
    CTblTemp session;
    const QHash<QString, QList<Column>> tables = columnsOfTables();
    for (auto table = tables.cbegin(); table != tables.cend(); ++table) {
        if (keptTables.contains(table.key()))
            continue;
        QList<KSql> names;
        QList<KSql> values;
        for (const Column &column : table.value()) {
            names.append(KSql::name(column.name));
            values.append(valueOf(table.key(), column));
        }
        const KSql name = KSql::name(table.key());
        session.ExecuteQuery(KSql::formatted("INSERT IGNORE INTO %1(%2) SELECT %3 FROM %1 t JOIN seq_1_to_", name, KSql::joined(names, ","), KSql::joined(values, ","))
                             + KSql::number(copies) + " n");
        session.ExecuteQuery("ANALYZE TABLE " + name);
    }
}
