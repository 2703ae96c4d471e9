// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CTblCustomFieldRecords.h"

#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KLookup.h"
#include "suite/db/connection/KTransaction.h"

using namespace Qt::StringLiterals;

namespace {

// As values of the record, each by the field's name.
void noteValues(int table, int recordID, const QHash<int, QString> &before, const QHash<int, QString> &after, int database)
{
    const QHash<int, QString> names = KLookup::names<CTblCustomFieldRecords>(u"iFieldID", after.keys(), database);
    QList<KChangedValue> changed;
    for (auto value = after.cbegin(); value != after.cend(); ++value) {
        if (before.value(value.key()) != *value)
            changed.append({names.value(value.key(), QString::number(value.key())), before.value(value.key()), *value});
    }
    RecordSubjects::noteOn(table, recordID, u"CustomFieldRecords"_s, changed, database);
}

KSql recordFilter(int table, int recordID)
{
    return KSql::formatted("iTable=%1 AND iRecordID=%2", table, recordID);
}

}

CTblCustomFieldRecords::CTblCustomFieldRecords(int database)
    : KMySQL(database)
{
}

CTblCustomFieldRecords::~CTblCustomFieldRecords() = default;

QString CTblCustomFieldRecords::GetTableName() const
{
    return u"CustomFieldRecords"_s;
}

void CTblCustomFieldRecords::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, u"");
    RFX_Long(u"iFieldID", m_iFieldID, u"فیلد", u"CustomFields", u"iID", u"sName");
    RFX_Long(u"iTable", m_iTable, u"");
    RFX_Long(u"iRecordID", m_iRecordID, u"");
    RFX_Text(u"sValue", m_sValue, u"مقدار");
}

void CTblCustomFieldRecords::expectValues(int table, int recordID, int database)
{
    CTblCustomFieldRecords set(database);
    set.m_filter = recordFilter(table, recordID);
    set.expectOpen();
}

QHash<int, QString> CTblCustomFieldRecords::values(int table, int recordID, int database)
{
    CTblCustomFieldRecords set(database);
    set.m_filter = recordFilter(table, recordID);
    QHash<int, QString> found;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        found.insert(set.m_iFieldID, set.m_sValue);
    return found;
}

void CTblCustomFieldRecords::addRows(int table, int recordID, const QHash<int, QString> &values, int database)
{
    CTblCustomFieldRecords set(database);
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        if (value->isEmpty())
            continue;
        set.AddNew();
        set.m_iFieldID = value.key();
        set.m_iTable = table;
        set.m_iRecordID = recordID;
        set.m_sValue = *value;
        set.Update(true);
    }
}

void CTblCustomFieldRecords::setValues(int table, int recordID, const QHash<int, QString> &values, int database)
{
    KTransaction transaction(database);
    DeleteAllRelatedRecords(table, recordID, 0, database);
    addRows(table, recordID, values, database);
    transaction.commit();
}

void CTblCustomFieldRecords::changeValues(int table, int recordID, const QHash<int, QString> &values, int database)
{
    if (values.isEmpty())
        return;
    KTransaction transaction(database);
    const QHash<int, QString> before = CTblCustomFieldRecords::values(table, recordID, database);
    for (auto value = values.cbegin(); value != values.cend(); ++value)
        DeleteAllRelatedRecords(table, recordID, value.key(), database);
    addRows(table, recordID, values, database);
    noteValues(table, recordID, before, values, database);
    transaction.commit();
}

void CTblCustomFieldRecords::DeleteAllRelatedRecords(int table, int recordID, int fieldID, int database)
{
    KSql statement = "DELETE FROM CustomFieldRecords WHERE " + recordFilter(table, recordID);
    if (fieldID != 0)
        statement += KSql::formatted(" AND iFieldID=%1", fieldID);
    CTblTemp temp(database);
    temp.Open(true, false, true);
    temp.ExecuteQuery(statement);
}
