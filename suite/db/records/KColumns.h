// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KColumn.h"
#include "suite/db/records/KNameSource.h"
#include "suite/db/records/KRowBound.h"
#include "suite/db/records/KRowValues.h"
#include "suite/sql/KSql.h"

#include <QStringList>

#include <vector>

class KTableSchema;

// The columns of one record object in their order, which of them are read, and where the names behind their keys stand.
class KColumns
{
public:
    // Columns that are added from here on are of this alias of the FROM clause and named with it ("ai.iCode"); empty: none.
    void setAlias(QStringView alias) { m_alias = alias.toString(); }
    // The column is named without the alias here.
    void add(KColumn column);
    void addNameSource(QStringView column, KNameSource source);

    const std::vector<KColumn> &all() const { return m_columns; }
    // Null when there is none with that name.
    const KColumn *find(QStringView name) const;
    // The lookup of the column, else its name source; empty parts when it has neither.
    KNameSource nameSource(QStringView column) const;

    // What is read: these columns and the key; empty: all.
    void setSubset(const QStringList &names) { m_subset = names; }
    // Names of the columns that are read, as they stand after SELECT; load() expects rows of this list.
    QByteArray selectList();
    // Whether each column after ORDER BY is among these.
    bool hold(const KSql &order) const;
    // Whether one of them is a text.
    bool holdText(const KSql &order) const;
    // The terms after ORDER BY, those of texts in the order of the Persian alphabet.
    // table: of the record; a text that it has an order column for is ordered by that.
    QList<KRowBound::Term> terms(const KSql &columns, const KTableSchema &table) const;
    // The same with the key behind them, in the last one's direction, so that no two rows are alike; the key alone for no columns.
    QList<KRowBound::Term> totalTerms(const KSql &columns, const KTableSchema &table) const;
    static KSql ordered(const QList<KRowBound::Term> &terms);
    // Sets the members of the columns that are read.
    void load(char *const *cells, const unsigned long *lengths) const;

    void clear() const;
    std::vector<QVariant> values() const;
    // Of the columns that are read, but the key.
    KRowValues rowValues() const;
    void setValues(const std::vector<QVariant> &values) const;

    // The member of the column iID; 0 and nothing when there is none.
    qint32 key() const;
    void setKey(qint32 key) const;
    static bool isKey(const KColumn &column);

private:
    QString qualified(QStringView name) const;
    QString keyName() const;
    bool isText(QStringView name) const;
    KSql textTerm(QStringView name, const KTableSchema &table) const;

    QString m_alias;
    std::vector<KColumn> m_columns;
    std::vector<std::pair<QString, KNameSource>> m_nameSources;
    QStringList m_subset;
    std::vector<KColumn::Member> m_read; // in the order of the select list
};
