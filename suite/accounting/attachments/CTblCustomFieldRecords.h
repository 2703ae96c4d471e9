// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

#include <QHash>

// Values of custom fields, one row per field and record. A value is a text whatever the field's type is: numbers as
// "1234.5", dates as "2026-11-20", yes as "1". A field without a value, and a no, has no row.
class TZACCOUNTINGDATA_EXPORT CTblCustomFieldRecords : public KMySQL, private KLiveCount<CTblCustomFieldRecords>
{
public:
    using KLiveCount<CTblCustomFieldRecords>::liveCount;

    explicit CTblCustomFieldRecords(int database = 0);
    ~CTblCustomFieldRecords() override;
    QString GetTableName() const override;

    // Value per field key of one record.
    static QHash<int, QString> values(int table, int recordID, int database = 0);
    // That they will be asked (KReadAhead).
    static void expectValues(int table, int recordID, int database = 0);
    // Replaces the record's values; joins the caller's transaction.
    static void setValues(int table, int recordID, const QHash<int, QString> &values, int database = 0);
    // Writes these values and leaves the record's others; an empty one deletes its row. Joins the caller's transaction.
    static void changeValues(int table, int recordID, const QHash<int, QString> &values, int database = 0);
    // Deletes the values of one record; fieldID 0: of every field.
    static void DeleteAllRelatedRecords(int table, int recordID, int fieldID, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iFieldID = 0;
    qint32 m_iTable = 0;
    qint32 m_iRecordID = 0;
    QString m_sValue;

protected:
    void DoFieldExchange() override;

private:
    static void addRows(int table, int recordID, const QHash<int, QString> &values, int database);
};
