// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/KLiveCount.h"
#include "suite/db/KMySQL.h"
#include "suite/accounting/books/chart/AccountBalance.h"
#include "suite/accounting/TzAccountingExport.h"

#include <QHash>

// A row to be added to an accounting document. Amounts are in the money unit, never negative, and only one of them is above 0.
struct DocRow
{
    int docNum = 0;
    int fiscalYear = 0;
    int hesabKol = 0;
    int hesabMoeen = 0;
    int hesabTafsily = 0; // 0: none
    int personID = 0;     // 0: none
    double bed = 0;       // debit
    double bes = 0;       // credit
    QString desc;
};

// Rows of the accounting documents.
class TZACCOUNTING_EXPORT CTblDocs : public KMySQL, private KLiveCount<CTblDocs>
{
public:
    using KLiveCount<CTblDocs>::liveCount;

    explicit CTblDocs(int database = 0);
    ~CTblDocs() override;
    QString GetTableName() const override;

    // Adds the row; the key of it. Joins the caller's transaction. Throws KAccountingError for a row that no document may
    // hold: no document number, a negative amount, amounts on both sides, a subsidiary account under another general one.
    static int AddRecord(const DocRow &row, int database = 0);

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
