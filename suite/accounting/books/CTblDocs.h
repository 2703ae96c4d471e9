// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/accounting/books/DocumentRow.h"

#include <QHash>

// Rows of the accounting documents.
class TZACCOUNTINGDATA_EXPORT CTblDocs : public KMySQL, private KLiveCount<CTblDocs>
{
public:
    using KLiveCount<CTblDocs>::liveCount;

    explicit CTblDocs(int database = 0);
    ~CTblDocs() override;
    QString GetTableName() const override;

    // Adds the rows to the document, by one statement. Joins the caller's transaction. Throws KAccountingError as setRow does, and adds none then.
    static void AddRecords(int docNum, int fiscalYear, const QList<DocumentRow> &rows, int database = 0);
    // Sets every column but the key. Throws KAccountingError for a row that no document may hold: no document number, a
    // negative amount, amounts on both sides, no account that rows stand on.
    void setRow(int docNum, int fiscalYear, const DocumentRow &row);

    // Debit and credit of a general, a subsidiary and a detail account, each by one statement. The dates are those of the
    // documents; a range holds its last day whole, and an invalid end is open. Rows of void documents do not count.
    static AccountBalance GetBedBesHesabKol1(int kolCode, const QDateTime &from = {}, const QDateTime &to = {}, int database = 0);
    static AccountBalance GetBedBesHesabMoeen1(int moeenCode, const QDateTime &from = {}, const QDateTime &to = {},
                                               int database = 0);
    static AccountBalance GetBedBes2(int tafsilyCode, const QDateTime &from = {}, const QDateTime &to = {}, int database = 0);
    // Every account of a level by its code, in one statement; accounts without rows are left out, and so are rows that
    // stand on no account of that level. group: the first two digits of the general account (41 for income), 0 for all.
    static QHash<int, AccountBalance> balances(AccountLevel level, const QDateTime &from = {}, const QDateTime &to = {},
                                               int group = 0, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iDocNum = 0;
    qint32 m_iFiscalYear = 0;
    qint32 m_iHesabKolCode = 0;
    qint32 m_iHesabMoeenCode = 0;
    qint32 m_iHesabTafsilyCode = 0;
    qint32 m_iPersonID = 0;
    double m_dBed = 0;
    double m_dBes = 0;
    QString m_sDesc;

protected:
    void DoFieldExchange() override;
};
