// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/KListModel.h"

#include <QBrush>
#include <QFont>
#include <QGuiApplication>

#include <utility>

#include "suite/utility/EntryMark.h"
#include "suite/utility/ListRoles.h"

KListModel::KListModel(QObject *parent)
    : QAbstractTableModel(parent) { }

// A run of digits with a sign, a slash or a separator would be turned round inside a line that reads from the right.
bool KListModel::readsLeftToRight(const Column &column, const Cell &cell)
{
    switch (cell.value.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Double:
    case QMetaType::QDate:
    case QMetaType::QDateTime:
        return true;
    default:
        return column.isDate || column.isCode;
    }
}

void KListModel::setColumns(const QVector<Column> &columns)
{
    beginResetModel();
    m_columns = columns;
    endResetModel();
}

void KListModel::setColumnTitle(int column, const QString &title)
{
    if (column < 0 || column >= m_columns.size() || m_columns[column].title == title)
        return;
    m_columns[column].title = title;
    Q_EMIT headerDataChanged(Qt::Horizontal, column, column);
}

void KListModel::setRows(QVector<Row> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

void KListModel::appendRow(Row row)
{
    const int at = int(m_rows.size());
    beginInsertRows({}, at, at);
    m_rows.append(std::move(row));
    endInsertRows();
}

bool KListModel::removeKey(int key)
{
    const int row = rowOfKey(key);
    if (row < 0)
        return false;
    beginRemoveRows({}, row, row);
    m_rows.removeAt(row);
    endRemoveRows();
    return true;
}

void KListModel::clear()
{
    setRows({});
}

int KListModel::keyAt(int row) const
{
    return row >= 0 && row < m_rows.size() ? m_rows[row].key : 0;
}

int KListModel::rowOfKey(int key) const
{
    for (int row = 0; row < m_rows.size(); ++row) {
        if (m_rows[row].key == key)
            return row;
    }
    return -1;
}

int KListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int KListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_columns.size());
}

const KListModel::Cell *KListModel::cellAt(const QModelIndex &index) const
{
    if (!index.isValid() || index.row() >= m_rows.size())
        return nullptr;
    const QVector<Cell> &cells = m_rows[index.row()].cells;
    return index.column() < cells.size() ? &cells[index.column()] : nullptr;
}

QVariant KListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows.size() || index.column() >= m_columns.size())
        return {};
    const Column &column = m_columns[index.column()];
    const Cell *cell = cellAt(index);
    switch (role) {
    case Qt::DisplayRole:
        return cell ? cell->text : QString();
    case Qt::TextAlignmentRole:
        return int(column.alignment | Qt::AlignVCenter | Qt::AlignAbsolute);
    case SortRole:
        return !cell ? QVariant() : cell->value.isValid() ? cell->value
                                                          : QVariant(cell->text);
    case KeyRole:
        return keyAt(index.row());
    case Qt::ForegroundRole:
        return m_rows[index.row()].warning ? QVariant(QBrush(warningColor(QGuiApplication::palette()))) : QVariant();
    case Qt::FontRole: {
        if (!m_rows[index.row()].warning)
            return {};
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    case LeftToRightRole:
        return readsLeftToRight(column, cell ? *cell : Cell());
    default:
        return {};
    }
}

QVariant KListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= m_columns.size())
        return {};
    if (role == Qt::DisplayRole)
        return m_columns[section].title;
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignCenter);
    return {};
}
