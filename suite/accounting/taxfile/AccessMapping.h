// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>
#include <QVector>

// What the tables of the tax file are called: which table stands for each record class, and which field holds each of its
// values. Read from a file beside the template, so that an office can work with the tax authority's own file by editing it.
class TZACCOUNTINGDATA_EXPORT AccessMapping
{
public:
    struct Field
    {
        QString value; // what the record class calls it
        QString name;  // what the file calls it
    };
    struct Table
    {
        QString role; // name of the record class without its C
        QString name; // what the file calls it
        QVector<Field> fields;
    };

    // Throws KAccountingError, with the file's name and what is wrong in it, for a file that cannot be read, is larger than a
    // mapping could be, or names a table or a field twice.
    static AccessMapping read(const QString &path);

    // The table of that role; throws KAccountingError when the mapping has none.
    const Table &table(const QString &role) const;
    // The value in that column of the role's table; empty when the table is another one or the mapping does not say.
    QString valueIn(const QString &role, const QString &table, const QString &column) const;
    // Throws KAccountingError: the table names a value that its record class does not have.
    [[noreturn]] void refuseValue(const QString &role, const QString &value) const;

private:
    QString m_path;
    QVector<Table> m_tables;
};
