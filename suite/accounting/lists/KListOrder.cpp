// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListOrder.h"

#include "suite/utility/values/KSettings.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString columnSetting = u"iLastCol"_s;
const QString sortSetting = u"Sort"_s;

}

KListOrder::KListOrder(QString section, QVector<KListModel::Column> columns, Defaults defaults)
    : m_section(std::move(section))
    , m_columns(std::move(columns))
    , m_defaults(std::move(defaults))
{
}

void KListOrder::read()
{
    m_sort = m_defaults.sort;
    if (!isSortable())
        return;
    m_clicked.column = ReadSetting(m_section, columnSetting, m_defaults.column);
    const bool isColumn = m_clicked.column >= 0 && m_clicked.column < m_columns.size();
    // The mark is not sought on a title that may not be in sight.
    if (!isColumn || m_columns.at(m_clicked.column).optional)
        m_clicked.column = m_defaults.column;
    QString stored = ReadSetting(m_section, sortSetting, m_defaults.sort);
    if (stored.isEmpty())
        stored = m_defaults.emptySort;
    // The expression goes into the statement, so one that belongs to no column of this list is not taken from a file.
    if (isKnown(stored))
        m_sort = stored;
    m_clicked.descending = KSortOrder::isDescending(m_sort);
}

void KListOrder::write() const
{
    if (!isSortable())
        return;
    WriteSetting(m_section, columnSetting, m_clicked.column);
    WriteSetting(m_section, sortSetting, m_sort);
}

bool KListOrder::click(int column)
{
    const QString key = m_columns.value(column).sortKey;
    if (key.isEmpty())
        return false;
    m_clicked = m_clicked.clicked(column);
    m_sort = m_clicked.expression(key);
    return true;
}

bool KListOrder::isSortable() const
{
    return std::any_of(m_columns.cbegin(), m_columns.cend(), [](const auto &column) { return !column.sortKey.isEmpty(); });
}

bool KListOrder::isKnown(const QString &sort) const
{
    QStringList known = {m_defaults.sort, m_defaults.emptySort};
    for (const KListModel::Column &column : m_columns)
        known << column.sortKey;
    known.removeAll(QString());
    return known.contains(sort) || known.contains(KSortOrder::sortKey(sort));
}
