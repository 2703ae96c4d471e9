// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

// Fields that an office adds to the records of one kind.
class TZACCOUNTINGDATA_EXPORT CTblCustomFields : public KMySQL, private KLiveCount<CTblCustomFields>
{
public:
    using KLiveCount<CTblCustomFields>::liveCount;

    // Stored in iType.
    enum Type : int {
        Text = 0,
        Number = 1,
        Date = 2,
        YesNo = 3
    };

    explicit CTblCustomFields(int database = 0);
    ~CTblCustomFields() override;
    QString GetTableName() const override;

    // Persian names by position.
    static const QStringList &typeNames();
    // Defines a field and returns its key. Throws KAccountingError for an empty name or one that the record kind already has.
    static int define(int table, const QString &name, Type type, int database = 0);
    // Between the entries of a field and its row: brings the name into standard form. Throws FieldRefused for an empty one or one
    // that another field than that of the key has.
    void settle(qint32 key);
    // Deletes the field with the values that records hold for it, in one transaction. Throws RowChanged for one that is gone.
    static void remove(int fieldID, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iTable = 0; // record kind
    QString m_sName;
    qint32 m_iType = 0;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
