// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportColumnsModel.h"

#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

enum Column {
    TitleColumn,
    ShareColumn,
    ColumnCount
};

}

ReportColumnsModel::ReportColumnsModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void ReportColumnsModel::arrange(const ListReport &report, const ReportLayout &layout)
{
    beginResetModel();
    m_entries.clear();
    auto has = [this](const QString &title) {
        return std::any_of(m_entries.cbegin(), m_entries.cend(), [&](const Entry &entry) { return entry.column.title == title; });
    };
    for (const ReportLayout::Column &column : layout.columns) {
        const bool inTable = std::any_of(report.columns().cbegin(), report.columns().cend(),
                                         [&](const KListModel::Column &own) { return own.title == column.title; });
        if (inTable && !has(column.title))
            m_entries.append({column, true});
    }
    for (const KListModel::Column &column : report.columns()) {
        if (!has(column.title))
            m_entries.append({{column.title, 0}, false});
    }
    endResetModel();
}

QVector<ReportLayout::Column> ReportColumnsModel::chosen() const
{
    QVector<ReportLayout::Column> columns;
    for (const Entry &entry : m_entries) {
        if (entry.printed)
            columns.append(entry.column);
    }
    return columns;
}

int ReportColumnsModel::move(int row, int places)
{
    const int target = row + places;
    if (row < 0 || row >= m_entries.size() || target < 0 || target >= m_entries.size() || places == 0)
        return row;
    beginMoveRows({}, row, row, {}, target > row ? target + 1 : target);
    m_entries.move(row, target);
    endMoveRows();
    return target;
}

double ReportColumnsModel::share(int row) const
{
    return row >= 0 && row < m_entries.size() ? m_entries.at(row).column.share : 0;
}

void ReportColumnsModel::setShare(int row, double percent)
{
    if (row < 0 || row >= m_entries.size())
        return;
    m_entries[row].column.share = qBound(0.0, percent, 100.0);
    Q_EMIT dataChanged(index(row, ShareColumn), index(row, ShareColumn));
}

int ReportColumnsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

int ReportColumnsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant ReportColumnsModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Entry &entry = m_entries.at(index.row());
    if (role == Qt::CheckStateRole && index.column() == TitleColumn)
        return static_cast<int>(entry.printed ? Qt::Checked : Qt::Unchecked);
    if (role != Qt::DisplayRole)
        return {};
    if (index.column() == TitleColumn)
        return entry.column.title;
    return entry.column.share > 0 ? DToStr(entry.column.share) + u'%' : u"خودکار"_s;
}

bool ReportColumnsModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != TitleColumn || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return false;
    m_entries[index.row()].printed = value.toInt() == Qt::Checked;
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

QVariant ReportColumnsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == TitleColumn ? u"ستون"_s : u"پهنا"_s;
}

Qt::ItemFlags ReportColumnsModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == TitleColumn ? flags | Qt::ItemIsUserCheckable : flags;
}
