// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/twins/Twins.h"

#include <QHash>
#include <QList>

// The twins of many rows at once: what the records of a table say of themselves is read once, and compared as Twins compares it.
class TZACCOUNTINGDATA_EXPORT TwinTable
{
public:
    struct Column
    {
        QString name;
        Twins::Sort sort = Twins::Sort::Number;
        QString with = {}; // another column that must say the same too
    };

    // One statement. Throws CMySQLException.
    TwinTable(const QString &table, const QList<Column> &columns, int database = 0);

    // A record that says the same in that column, by key and code; or a row that was added. Nothing for an empty text, and where there is
    // a column with it, for an empty one of that.
    struct Found
    {
        qint32 key = 0; // 0: a row
        int number = 0; // the record's code, or the row's number
    };
    std::optional<Found> find(const QString &column, const QString &text, const QString &with = {}) const;
    // A row that is not stored yet; it does not hide a record.
    void add(const QString &column, const QString &text, const QString &with, int row);

private:
    const Column &named(const QString &column) const;
    static QString keyOf(const Column &column, const QString &text, const QString &with);

    QList<Column> m_columns;
    QHash<QString, QHash<QString, Found>> m_found; // by column and key
};
