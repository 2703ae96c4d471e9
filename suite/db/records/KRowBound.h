// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"
#include "suite/sql/KSql.h"

#include <QList>
#include <QString>

#include <optional>
#include <vector>

// Where the rows that a list has read so far end: what the terms of its order held in the last of them when it was read. The rows
// behind it are found by these values, so it does not matter whether that row has been changed or deleted since.
class TZDB_EXPORT KRowBound
{
public:
    // What the rows are ordered by: an expression, and its direction.
    struct Term
    {
        KSql expression;
        bool isDescending = false;
    };
    // None: the term is NULL there.
    using Value = std::optional<QString>;

    // In front of the first row.
    KRowBound() = default;
    // A value for each term, as the server writes it. The last term is the key, by which the order leaves no two rows open.
    KRowBound(QList<Term> terms, std::vector<Value> values);

    bool isEmpty() const { return m_terms.isEmpty(); }
    // The condition that leaves the rows behind it, in parentheses. NULL stands before every value, as the server sorts it. An
    // index in that order leads to the first of them.
    KSql behind() const;

private:
    KSql behindFrom(qsizetype first) const;

    QList<Term> m_terms;
    std::vector<Value> m_values;
};
