// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalList.h"

#include <QCollator>

#include <algorithm>
#include <numeric>

namespace {

// Sorts positions by keys that are read once from each row.
template <class Key, class KeyOf>
void sortByKeys(std::vector<int> &order, bool descending, const KeyOf &keyOf)
{
    std::vector<Key> keys;
    keys.reserve(order.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        keys.push_back(keyOf(int(i)));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        return descending ? keys[std::size_t(b)] < keys[std::size_t(a)] : keys[std::size_t(a)] < keys[std::size_t(b)];
    });
}

}

const SeasonalRow &SeasonalList::rowOf(int position) const
{
    const auto batch = std::upper_bound(m_starts.cbegin(), m_starts.cend(), position) - 1;
    return m_batches[std::size_t(batch - m_starts.cbegin())].at(position - *batch);
}

KListModel::Row SeasonalList::row(int row) const
{
    const SeasonalRow &source = at(row);
    KListModel::Row shown;
    shown.key = source.number;
    shown.cells.reserve(SeasonalRow::ColumnCount);
    for (int column = 0; column < SeasonalRow::ColumnCount; ++column)
        shown.cells.append({source.text(column), source.value(column)});
    if (source.isAddressTooLong())
        shown.markedCell = SeasonalRow::Address;
    return shown;
}

int SeasonalList::rowOfKey(int key) const
{
    const auto found = std::find(m_order.cbegin(), m_order.cend(), key - 1);
    return found == m_order.cend() ? -1 : int(found - m_order.cbegin());
}

// Numbers count from 1 in the order of arrival.
const SeasonalRow *SeasonalList::find(int key) const
{
    return key >= 1 && key <= count() ? &rowOf(key - 1) : nullptr;
}

void SeasonalList::append(const QVector<SeasonalRow> &rows)
{
    if (rows.isEmpty())
        return;
    const int start = count();
    m_starts.push_back(start);
    m_batches.push_back(rows);
    m_order.resize(m_order.size() + std::size_t(rows.size()));
    std::iota(m_order.begin() + start, m_order.end(), start);
}

void SeasonalList::sort(int column, bool descending)
{
    if (m_order.empty())
        return;
    switch (rowOf(0).value(column).typeId()) {
    case QMetaType::Double:
        sortByKeys<double>(m_order, descending, [&](int position) { return rowOf(position).value(column).toDouble(); });
        break;
    case QMetaType::QDate:
        sortByKeys<QDate>(m_order, descending, [&](int position) { return rowOf(position).value(column).toDate(); });
        break;
    default: {
        const QCollator persian(QLocale(QLocale::Persian));
        sortByKeys<QCollatorSortKey>(m_order, descending,
                                     [&](int position) { return persian.sortKey(rowOf(position).text(column)); });
        break;
    }
    }
}

void SeasonalList::setParty(int personID, const TaxParty &party)
{
    const auto replacement = std::make_shared<const TaxParty>(party);
    for (QVector<SeasonalRow> &batch : m_batches) {
        for (SeasonalRow &row : batch) {
            if (row.party && row.party->personID == personID)
                row.party = replacement;
        }
    }
}

int SeasonalList::firstTooLongAddress() const
{
    const auto found = std::find_if(m_order.cbegin(), m_order.cend(),
                                    [this](int position) { return rowOf(position).isAddressTooLong(); });
    return found == m_order.cend() ? -1 : int(found - m_order.cbegin());
}
