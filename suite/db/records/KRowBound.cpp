// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/KRowBound.h"

#include <utility>

KRowBound::KRowBound(QList<Term> terms, std::vector<Value> values)
    : m_terms(std::move(terms))
    , m_values(std::move(values))
{
    Q_ASSERT(m_terms.size() == qsizetype(m_values.size()));
}

KSql KRowBound::behind() const
{
    return m_terms.isEmpty() ? KSql("(TRUE)") : behindFrom(0);
}

// Behind by this term, or the same by it and behind by those after it.
KSql KRowBound::behindFrom(qsizetype first) const
{
    const Term &term = m_terms.at(first);
    const Value &value = m_values.at(static_cast<std::size_t>(first));
    const bool isLast = first == m_terms.size() - 1;
    QList<KSql> ways;
    if (value)
        ways.append(term.expression + (term.isDescending ? KSql("<") : KSql(">")) + KSql::quoted(*value));
    else if (!term.isDescending)
        ways.append(term.expression + " IS NOT NULL");
    if (value && term.isDescending && !isLast)
        ways.append(term.expression + " IS NULL");
    if (!isLast)
        ways.append(KSql::formatted("(%1 AND %2)", value ? term.expression + "=" + KSql::quoted(*value) : term.expression + " IS NULL", behindFrom(first + 1)));
    return "(" + KSql::joined(ways, " OR ") + ")";
}
