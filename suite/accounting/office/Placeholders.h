// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/sql/KSql.h"
#include "suite/accounting/TzAccountingDataExport.h"

#include <QList>
#include <QString>

// Rows that "جديد" has added for an editor that is still open: they are in their tables before anybody has saved anything. They
// are known by the table Placeholders (table, key, session of the program with the editor), never by what their columns hold.
// Whatever lists, counts, picks or reports rows of such a table leaves them out. Joins the caller's transaction.
namespace Placeholders {

struct Row
{
    QString table;
    qint32 key = 0;
};

// In the transaction that adds the row. session: OfficeSession::key.
TZACCOUNTINGDATA_EXPORT void add(const Row &row, const QString &session, int database = 0);
// The same for the row that the next statement adds to the table, in one packet with it.
TZACCOUNTINGDATA_EXPORT void addNext(const QString &table, const QString &session, int database = 0);
// The row is a record like any other from now on: in the transaction that saves it for the first time. Nothing for a row that
// already is.
TZACCOUNTINGDATA_EXPORT void confirm(const QString &table, qint32 key, int database = 0);
TZACCOUNTINGDATA_EXPORT bool contains(const Row &row, int database = 0);
// That it will be asked (KReadAhead).
TZACCOUNTINGDATA_EXPORT void expect(const Row &row, int database = 0);

// The condition that the table's row with that key is none of these. key: the column of the statement that holds it, with its
// table or alias ("ad.iID"); empty: the table's own iID.
TZACCOUNTINGDATA_EXPORT KSql none(const QString &table, const QString &key = {});

// Those whose program has died. One statement while there is nothing but what this program has begun.
TZACCOUNTINGDATA_EXPORT QList<Row> left(int database = 0);
// That they will be asked (KReadAhead).
TZACCOUNTINGDATA_EXPORT void expectLeft(int database = 0);
// Whether it still is one of a program that has died; nobody else saves or removes it until the transaction ends. False at once
// where somebody is doing so.
TZACCOUNTINGDATA_EXPORT bool lockLeft(const Row &row, int database = 0);

}
