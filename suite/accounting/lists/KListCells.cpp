// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListCells.h"

#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/KLookup.h"
#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>
#include <utility>

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
    Q_ASSERT_X(column, "KListCells", "no such column");
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

struct KListCells::Bound
{
    const KListColumn *column = nullptr;
    const KMySQL::Column *value = nullptr; // null where the cell needs none
    KListFigures figures;
    KNameSource source = {};      // without a table: no lookup
    const qint32 *key = nullptr;  // in the record, of a lookup
    QList<int> keys = {};         // of the rows, until the names are there
    QHash<int, QString> names = {};
    const Bound *part = nullptr;  // by whose words the sums are parted
    std::vector<Amount> amounts = {}; // of a column that sums
};

// One of each place where names stand, for all columns that take theirs from it.
struct KListCells::Source
{
    KNameSource source;
    QList<int> keys = {};
    std::vector<size_t> columns = {};
};

KListCells::KListCells(const QList<KListColumn> &columns, std::shared_ptr<KMySQL> record, int first, std::function<bool(KMySQL &)> warns)
    : m_columns(columns)
    , m_record(std::move(record))
    , m_first(first)
    , m_warns(std::move(warns))
    , m_rowKey(rowKey(*m_record))
{
    m_bound.reserve(static_cast<size_t>(m_columns.size()));
    for (const KListColumn &column : std::as_const(m_columns)) {
        const KMySQL::Column *value = found(*m_record, column.column);
        Bound bound{&column, value, KListFigures(column, value)};
        if (!column.lookup.isEmpty()) {
            bound.key = keyOf(found(*m_record, column.lookup));
            bound.source = m_record->nameSource(column.lookup);
            Q_ASSERT_X(!bound.source.table.isEmpty(), "KListCells", "no names behind this column");
        }
        m_bound.push_back(std::move(bound));
    }
    for (Bound &bound : m_bound) {
        if (const int part = columnOf(bound.column->sumsBy); part >= 0)
            bound.part = &m_bound[static_cast<size_t>(part)];
    }
}

KListCells::~KListCells() = default;

int KListCells::columnOf(const QString &key) const
{
    const auto column = std::ranges::find(m_columns, key, &KListColumn::key);
    return key.isEmpty() || column == m_columns.cend() ? -1 : static_cast<int>(column - m_columns.cbegin());
}

int KListCells::note()
{
    const int number = m_first + m_noted++;
    for (Bound &bound : m_bound) {
        if (bound.key)
            bound.keys.append(*bound.key);
        if (bound.column->sums)
            bound.amounts.push_back(amountOf(bound, number));
        bound.figures.note([&] { return cell(bound, number); });
    }
    return m_rowKey ? *m_rowKey : 0;
}

KListCells::Amount KListCells::amountOf(const Bound &bound, int number) const
{
    Amount amount;
    const bool isPlain = bound.value && !bound.column->cell && !bound.column->show && std::holds_alternative<double *>(bound.value->member);
    amount.value = isPlain ? *std::get<double *>(bound.value->member) : cell(bound, number).value.toDouble();
    amount.isSummed = !bound.column->counts || bound.column->counts(*m_record);
    if (bound.part)
        amount.part = cell(*bound.part, number).text;
    return amount;
}

KListModel::Cell KListCells::cell(const Bound &bound, int number) const
{
    if (bound.column->cell)
        return bound.column->cell(*m_record, number);
    if (!bound.value)
        return {};
    return bound.column->show ? bound.column->show(bound.value->value()) : std::visit(PlainCell(), bound.value->member);
}

void KListCells::readNames()
{
    const KReadAhead reading(m_record->database());
    const std::vector<Source> all = sources();
    for (const Source &source : all)
        KLookup::expectNames(source.source, source.keys, m_record->database());
    for (const Source &source : all) {
        const QHash<int, QString> names = KLookup::names(source.source, source.keys, m_record->database());
        for (const size_t column : source.columns) {
            m_bound[column].names = names;
            m_bound[column].keys.clear();
            for (const QString &name : names)
                m_bound[column].figures.noteText(name);
        }
    }
    for (Bound &bound : m_bound)
        bound.figures.noteText(bound.column->emptyText);
}

std::vector<KListCells::Source> KListCells::sources() const
{
    std::vector<Source> all;
    for (size_t column = 0; column < m_bound.size(); ++column) {
        const Bound &bound = m_bound[column];
        if (bound.source.table.isEmpty())
            continue;
        auto same = std::ranges::find_if(all, [&](const Source &source) { return isSame(source.source, bound.source); });
        if (same == all.end())
            same = all.insert(all.end(), {bound.source});
        same->keys += bound.keys;
        same->columns.push_back(column);
    }
    return all;
}

void KListCells::make(KListModel::Row &row) const
{
    m_record->MoveTo(row.place);
    row.cells.reserve(static_cast<qsizetype>(m_bound.size()));
    for (const Bound &bound : m_bound) {
        KListModel::Cell made = cell(bound, m_first + row.place);
        if (bound.key) {
            if (const auto name = bound.names.constFind(*bound.key); name != bound.names.cend())
                made.text = *name;
        }
        if (made.text.isEmpty())
            made.text = bound.column->emptyText;
        made.warning = bound.column->warns && bound.column->warns(*m_record);
        made.isSummed = !bound.column->counts || bound.column->counts(*m_record);
        row.cells.append(std::move(made));
    }
    row.warning = m_warns && m_warns(*m_record);
}

KListModel::Maker::Amount KListCells::amount(int place, int column) const
{
    const std::vector<Amount> &amounts = m_bound[static_cast<size_t>(column)].amounts;
    return static_cast<size_t>(place) < amounts.size() ? amounts[static_cast<size_t>(place)] : Amount();
}

QString KListCells::longestFigure(int column) const
{
    return static_cast<size_t>(column) < m_bound.size() ? m_bound[static_cast<size_t>(column)].figures.longest() : QString();
}
