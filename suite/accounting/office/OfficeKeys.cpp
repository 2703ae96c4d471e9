// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/OfficeKeys.h"

#include "suite/db/connection/KTableSchema.h"
#include "suite/db/records/CTblTemp.h"

#include <QLoggingCategory>
#include <QSet>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcKeys, "tz.schema")

struct Key
{
    const char *table;
    const char *name;
    const char *columns;
};

// Who locks the plan of one contract would otherwise lock those of all, and whoever asks for what belongs to a person, for the contracts of some
// days or for the cars on the lot would read all there is. The keys "list..." are the orders of a list, behind what its filter compares with a
// constant until the user asks for something else.
constexpr Key keys[] = {
    {"AutomobilPayments", "contract", "iAutomobilContractID"},
    {"AutomobilPayments", "due", "iStatus,date"},
    {"AutomobilPayments", "person", "iPersonID"},
    {"AutomobilContracts", "personFirst", "iPersonFirstID"},
    {"AutomobilContracts", "personSecond", "iPersonSecondID"},
    {"AutomobilContracts", "day", "dateContract"},
    {"AutomobilContracts", "code", "iCode"},
    {"AutomobilContracts", "number", "iNum"},
    {"AutomobilContracts", "listCode", "iStatus,bReturn,iArchiveUserID,iCode"},
    {"AutomobilContracts", "listType", "iStatus,bReturn,iArchiveUserID,iContractType"},
    {"AutomobilContracts", "listDocument", "iStatus,bReturn,iArchiveUserID,iDocNum"},
    {"AutomobilContracts", "listDay", "iStatus,bReturn,iArchiveUserID,dateContract"},
    {"AutomobilContracts", "listEnd", "iStatus,bReturn,iArchiveUserID,dateExpiration"},
    {"AutomobilContracts", "listAmount", "iStatus,bReturn,iArchiveUserID,dAmount"},
    {"AutomobilContracts", "listExplanation", "iStatus,bReturn,iArchiveUserID,orderOf_sExplain"},
    {"AutomobilContracts", "listDescription", "iStatus,bReturn,iArchiveUserID,orderOf_sDesc"},
    {"AutomobilContracts", "listPlate", "iStatus,bReturn,iArchiveUserID,orderOf_sNumOfPlates"},
    {"AutomobilInformations", "person", "iPersonID"},
    {"AutomobilInformations", "buyer", "iPersonBuyerID"},
    {"AutomobilInformations", "lot", "bSold,iArchiveUserID"},
    {"AutomobilInformations", "code", "iCode"},
    {"AutomobilInformations", "listCode", "iArchiveUserID,iStatus,iCode"},
    {"AutomobilInformations", "listSold", "iArchiveUserID,iStatus,bSold"},
    {"AutomobilInformations", "listType", "iArchiveUserID,iStatus,iAutomobilType"},
    {"AutomobilInformations", "listModel", "iArchiveUserID,iStatus,iModel"},
    {"AutomobilInformations", "listYear", "iArchiveUserID,iStatus,iYear"},
    {"AutomobilInformations", "listIntroduction", "iArchiveUserID,iStatus,dateIntroduction"},
    {"AutomobilInformations", "listAmount", "iArchiveUserID,iStatus,dAmount"},
    {"AutomobilInformations", "created", "dateCreate"},
    {"AutomobilInformations", "sold", "dateBuy"},
    {"AutomobilInformations", "insurer", "sNameInsurance"},
    {"AutomobilInformations", "listPlate", "iArchiveUserID,iStatus,orderOf_sNumOfPlates"},
    {"AutomobilDemands", "person", "iPersonID"},
    {"AutomobilDemands", "code", "iCode"},
    {"AutomobilDemands", "listCode", "iArchiveUserID,iStatus,iCode"},
    {"AutomobilDemands", "listType", "iArchiveUserID,iStatus,iAutomobilType"},
    {"AutomobilDemands", "listReference", "iArchiveUserID,iStatus,dateReference"},
    {"AutomobilDemands", "listAmount", "iArchiveUserID,iStatus,dAmountFrom"},
    {"Documents", "listNumber", "iFiscalYear,iNum"},
    {"Persons", "listName", "iStatus,orderOf_sName2"},
    {"Persons", "listCode", "iStatus,iCode"},
    {"Persons", "listNationalCode", "iStatus,orderOf_sNationalCode"},
    {"Persons", "listMobile", "iStatus,orderOf_sMobile"},
};

QString tableOf(const Key &key)
{
    return QString::fromLatin1(key.table);
}

QStringList columnsOf(const Key &key)
{
    return QString::fromLatin1(key.columns).split(u',');
}

// Each table once, in their order.
QStringList tables()
{
    QStringList names;
    for (const Key &key : keys) {
        if (!names.contains(tableOf(key)))
            names.append(tableOf(key));
    }
    return names;
}

// What is there of those tables, in two statements whatever their number: the program asks at each start. Names of columns with the characters
// that they hold.
struct Present
{
    QHash<QString, int> columns; // "table column"
    QSet<QString> keys;          // "table key"
};

QString named(const QString &table, const QString &part)
{
    return (table + u' ' + part).toLower();
}

Present readPresent(int database)
{
    QList<KSql> names;
    for (const QString &table : tables())
        names.append(KSql::quoted(table));
    const KSql of = KSql::formatted(" WHERE TABLE_SCHEMA=DATABASE() AND TABLE_NAME IN (%1)", KSql::joined(names, ","));
    Present present;
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery("SELECT TABLE_NAME,COLUMN_NAME,CHARACTER_MAXIMUM_LENGTH FROM information_schema.COLUMNS" + of);
    for (; query.HasResultRow(); query.MoveNextResult())
        present.columns.insert(named(query.GetTextFieldValue(0), query.GetTextFieldValue(1)), query.GetLongFieldValue(2));
    for (query.ExecuteQuery("SELECT TABLE_NAME,INDEX_NAME FROM information_schema.STATISTICS" + of); query.HasResultRow(); query.MoveNextResult())
        present.keys.insert(named(query.GetTextFieldValue(0), query.GetTextFieldValue(1)));
    return present;
}

// The column that the order is made of; empty for one that is no such order.
QString orderedText(const QString &column)
{
    return column.startsWith(KTableSchema::orderPrefix()) ? column.mid(KTableSchema::orderPrefix().size()) : QString();
}

// An earlier schema of the module may lack a column.
bool canHave(const Present &present, const Key &key)
{
    const QStringList columns = columnsOf(key);
    return std::ranges::all_of(columns, [&](const QString &column) {
        const QString text = orderedText(column);
        return present.columns.contains(named(tableOf(key), text.isEmpty() ? column : text));
    });
}

QList<const Key *> lackingKeys(const Present &present, const QString &table = {})
{
    QList<const Key *> lacking;
    for (const Key &key : keys) {
        if ((table.isEmpty() || tableOf(key) == table) && canHave(present, key) && !present.keys.contains(named(tableOf(key), QString::fromLatin1(key.name))))
            lacking.append(&key);
    }
    return lacking;
}

KSql orderColumn(const QString &table, const QString &text, const Present &present)
{
    const int characters = present.columns.value(named(table, text));
    return KSql::formatted("ADD COLUMN %1 VARCHAR(%2) CHARACTER SET utf8mb4 COLLATE utf8mb4_persian_ci AS (CONVERT(%3 USING utf8mb4)) VIRTUAL INVISIBLE",
                           KSql::name(KTableSchema::orderPrefix() + text), characters, KSql::name(text));
}

// While others work on the table; a server that cannot do that builds it while they wait.
void alter(CTblTemp &session, const QString &table, const QList<KSql> &changes, const KSql &online)
{
    const KSql statement = KSql::formatted("ALTER TABLE %1 %2", KSql::name(table), KSql::joined(changes, ","));
    try {
        session.ExecuteQuery(statement + online);
    } catch (const CMySQLException &error) {
        constexpr unsigned int notSupported = 1845;
        constexpr unsigned int notSupportedReason = 1846;
        if (error.serverCode() != notSupported && error.serverCode() != notSupportedReason)
            throw;
        qCWarning(lcKeys).noquote() << "others wait while keys of" << table << "are built:" << error.GetErrorMessage();
        session.ExecuteQuery(statement);
    }
}

void addTo(const QString &table, const Present &present, CTblTemp &session)
{
    QList<KSql> columns;
    QList<KSql> added;
    QSet<QString> made;
    for (const Key *key : lackingKeys(present, table)) {
        QList<KSql> names;
        for (const QString &column : columnsOf(*key)) {
            names.append(KSql::name(column));
            const QString text = orderedText(column);
            if (!text.isEmpty() && !made.contains(text) && !present.columns.contains(named(table, column))) {
                columns.append(orderColumn(table, text, present));
                made.insert(text);
            }
        }
        added.append(KSql::formatted("ADD KEY %1 (%2)", KSql::name(QLatin1String(key->name)), KSql::joined(names, ",")));
    }
    if (!columns.isEmpty())
        alter(session, table, columns, ",ALGORITHM=INSTANT");
    // All at once: the table is read once.
    if (!added.isEmpty())
        alter(session, table, added, ",ALGORITHM=INPLACE,LOCK=NONE");
}

}

bool OfficeKeys::areLacking(int database)
{
    return !lackingKeys(readPresent(database)).isEmpty();
}

void OfficeKeys::add(const Progress &progress, int database)
{
    const Present present = readPresent(database);
    QStringList due = tables();
    due.removeIf([&](const QString &table) { return lackingKeys(present, table).isEmpty(); });
    CTblTemp session(database);
    for (qsizetype number = 0; number < due.size(); ++number) {
        if (progress)
            progress(due.at(number), int(number) + 1, int(due.size()));
        addTo(due.at(number), present, session);
        qCInfo(lcKeys).noquote() << "keys of" << due.at(number) << "are there";
    }
}
