// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/finding/SearchHits.h"

#include "suite/accounting/records/RecordWindows.h"

using namespace Qt::StringLiterals;

SearchHits::SearchHits(QObject *parent)
    : QAbstractListModel(parent)
{
}

void SearchHits::show(const QList<SearchFinding::Group> &groups)
{
    beginResetModel();
    m_groups = groups;
    m_rows.clear();
    for (qsizetype group = 0; group < m_groups.size(); ++group) {
        m_rows.append({group, -1});
        for (qsizetype hit = 0; hit < m_groups.at(group).hits.size(); ++hit)
            m_rows.append({group, hit});
    }
    endResetModel();
}

const SearchFinding::Group *SearchHits::group(int row) const
{
    return row < 0 || row >= m_rows.size() ? nullptr : &m_groups.at(m_rows.at(row).group);
}

const SearchHit *SearchHits::hit(int row) const
{
    if (row < 0 || row >= m_rows.size() || m_rows.at(row).hit < 0)
        return nullptr;
    return &m_groups.at(m_rows.at(row).group).hits.at(m_rows.at(row).hit);
}

int SearchHits::nextHit(int row, int direction) const
{
    for (; row >= 0 && row < m_rows.size(); row += direction) {
        if (m_rows.at(row).hit >= 0)
            return row;
    }
    return -1;
}

int SearchHits::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant SearchHits::data(const QModelIndex &index, int role) const
{
    const SearchFinding::Group *of = group(index.row());
    if (!of)
        return {};
    const SearchHit *one = hit(index.row());
    const QString count = of->more ? u"بیش از %1"_s.arg(of->records.size() - 1) : QString::number(of->records.size());
    switch (role) {
    case Qt::DisplayRole:
        return one ? one->title : of->title;
    case Qt::AccessibleTextRole:
        return one ? QStringList{one->title, one->line, one->aside}.join(u"، "_s) : u"%1، %2"_s.arg(of->title, count);
    case IsTitle:
        return !one;
    case Line:
        return one ? one->line : QString();
    case Aside:
        return one ? one->aside : QString();
    case CountText:
        return count;
    case Icon: {
        const RecordWindow *window = RecordWindows::of(of->table);
        return window ? window->icon : QString();
    }
    default:
        return {};
    }
}

Qt::ItemFlags SearchHits::flags(const QModelIndex &index) const
{
    return hit(index.row()) ? Qt::ItemIsEnabled | Qt::ItemIsSelectable : Qt::ItemIsEnabled;
}
