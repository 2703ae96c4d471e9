// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListRows.h"

#include "suite/db/records/KLookup.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

// The member behind a column as its type reads.
struct PlainCell
{
    KListModel::Cell operator()(const qint32 *number) const { return KListColumn::number(*number); }
    KListModel::Cell operator()(const double *amount) const { return KListColumn::money(*amount); }
    KListModel::Cell operator()(const QString *text) const { return {*text}; }
    KListModel::Cell operator()(const QDateTime *date) const { return {shamsiText(date->date()), *date}; }
    KListModel::Cell operator()(const KLongBinary *) const { return {}; }
};

const KMySQL::Column *found(KMySQL &record, const QString &name)
{
    if (name.isEmpty())
        return nullptr;
    const KMySQL::Column *column = record.column(name);
    Q_ASSERT_X(column, "KListRows", "no such column");
    return column;
}

const qint32 *keyOf(const KMySQL::Column *column)
{
    return column ? std::get<qint32 *>(column->member) : nullptr;
}

// The record's own key, the first column of that name: a joined view names it with its table.
const qint32 *rowKey(KMySQL &record)
{
    for (const KMySQL::Column &column : record.columns()) {
        if (column.name == "iID"_L1 || column.name.endsWith(".iID"_L1))
            return keyOf(&column);
    }
    return nullptr;
}

bool isSame(const KNameSource &first, const KNameSource &second)
{
    return first.table == second.table && first.key == second.key && first.display == second.display;
}

}

KListRows::KListRows(const QList<KListColumn> &columns, KMySQL &record)
    : m_record(record)
    , m_rowKey(rowKey(record))
{
    m_bound.reserve(static_cast<size_t>(columns.size()));
    for (const KListColumn &column : columns) {
        Bound bound;
        bound.column = &column;
        bound.value = found(record, column.column);
        if (!column.lookup.isEmpty()) {
            bound.key = keyOf(found(record, column.lookup));
            bound.names = record.nameSource(column.lookup);
            Q_ASSERT_X(!bound.names.table.isEmpty(), "KListRows", "no names behind this column");
        }
        m_bound.push_back(std::move(bound));
    }
}

QStringList KListRows::fetched(const QList<KListColumn> &columns)
{
    QStringList names;
    for (const KListColumn &column : columns)
        names << column.column << column.lookup << column.reads;
    names.removeAll(QString());
    names.removeDuplicates();
    return names;
}

QVector<KListModel::Column> KListRows::shown(const QList<KListColumn> &columns, KMySQL &record)
{
    QVector<KListModel::Column> shown;
    shown.reserve(columns.size());
    for (const KListColumn &column : columns) {
        const KMySQL::Column *value = column.show || column.cell ? nullptr : found(record, column.column);
        const bool isDate = value && value->kind == KMySQL::ColumnKind::Date;
        shown.append({column.title, column.alignment, column.width, column.sortKey, isDate, column.isCode, column.key, column.countsRows, column.optional, column.widthOnceOn, column.sums, column.sumsBy});
    }
    return shown;
}

void KListRows::reserve(qsizetype rows)
{
    m_rows.reserve(rows);
    for (Bound &bound : m_bound) {
        if (bound.key)
            bound.keys.reserve(rows);
    }
}

KListModel::Row &KListRows::add(int number)
{
    KListModel::Row row;
    row.key = m_rowKey ? *m_rowKey : 0;
    row.cells.reserve(static_cast<qsizetype>(m_bound.size()));
    for (Bound &bound : m_bound) {
        row.cells.append(cell(bound, number));
        row.cells.last().warning = bound.column->warns && bound.column->warns(m_record);
        row.cells.last().isSummed = !bound.column->counts || bound.column->counts(m_record);
        if (bound.key)
            bound.keys.append(*bound.key);
    }
    m_rows.append(std::move(row));
    return m_rows.last();
}

KListModel::Cell KListRows::cell(const Bound &bound, int number)
{
    if (bound.column->cell)
        return bound.column->cell(m_record, number);
    if (!bound.value)
        return {};
    return bound.column->show ? bound.column->show(bound.value->value()) : std::visit(PlainCell(), bound.value->member);
}

QVector<KListModel::Row> KListRows::take()
{
    for (size_t i = 0; i < m_bound.size(); ++i) {
        if (!m_bound[i].names.table.isEmpty())
            lookUp(i);
    }
    fillEmpty();
    return std::move(m_rows);
}

// One statement for this column and all behind it whose names stand in the same place.
void KListRows::lookUp(size_t first)
{
    const KNameSource source = m_bound[first].names;
    std::vector<size_t> same;
    QList<int> keys;
    for (size_t i = first; i < m_bound.size(); ++i) {
        if (!isSame(m_bound[i].names, source))
            continue;
        same.push_back(i);
        keys += m_bound[i].keys;
        m_bound[i].names = {};
    }
    const QHash<int, QString> names = KLookup::names(source, keys, m_record.database());
    for (const size_t column : same) {
        const QList<int> &keysOfRows = m_bound[column].keys;
        for (qsizetype row = 0; row < m_rows.size(); ++row) {
            if (const auto name = names.constFind(keysOfRows.at(row)); name != names.cend())
                m_rows[row].cells[static_cast<qsizetype>(column)].text = *name;
        }
    }
}

void KListRows::fillEmpty()
{
    for (size_t column = 0; column < m_bound.size(); ++column) {
        const QString &text = m_bound[column].column->emptyText;
        if (text.isEmpty())
            continue;
        for (KListModel::Row &row : m_rows) {
            if (QString &shown = row.cells[static_cast<qsizetype>(column)].text; shown.isEmpty())
                shown = text;
        }
    }
}
