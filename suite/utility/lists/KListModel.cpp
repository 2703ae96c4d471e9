// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KListModel.h"

#include <QBrush>
#include <QFont>
#include <QGuiApplication>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <numeric>
#include <utility>

#include "suite/utility/entries/CodeFont.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/lists/RowWords.h"

namespace {

// More than a screen shows.
constexpr int keptRows = 512;
// Of a source, whose rows are made when they are asked for.
constexpr int sampledRows = 200;

using HostColors::Role;

QVariant brush(Role role)
{
    return QBrush(HostColors::of(role));
}

// How a cell stands out, if it does.
QVariant look(const KListModel::Row &row, int column, int role)
{
    const bool warns = row.warning || (column < row.cells.size() && row.cells.at(column).warning);
    if (role == Qt::FontRole) {
        const bool isCode = column < row.cells.size() && CodeFont::isLatinCode(row.cells.at(column).text);
        if (!isCode && !warns && !row.heading)
            return {};
        QFont font;
        if (warns || row.heading)
            font.setWeight(row.heading ? QFont::Bold : QFont::Medium);
        if (isCode)
            font.setFamilies(CodeFont::families(QGuiApplication::font()));
        return font;
    }
    const bool isGround = role == Qt::BackgroundRole;
    if (column == row.markedCell)
        return brush(isGround ? Role::DangerSoft : Role::Danger);
    if (warns && !isGround)
        return brush(Role::Danger);
    if (row.heading && isGround)
        return brush(Role::Sunken);
    return {};
}

}

KListModel::Source::~Source() = default;

KListModel::Maker::~Maker() = default;

void KListModel::Row::makeCells()
{
    if (const std::shared_ptr<const Maker> made = std::exchange(maker, nullptr))
        made->make(*this);
}

KListModel::KListModel(QObject *parent)
    : QAbstractTableModel(parent)
    , m_madeRows(keptRows) { }

QChar KListModel::sortMark()
{
    return u'*';
}

bool KListModel::isFigure(const QString &text)
{
    return std::ranges::all_of(text, [](QChar c) { return (c >= u'0' && c <= u'9') || c == u'/' || c == u',' || c == u'.' || c == u'-'; });
}

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

int KListModel::columnOf(QStringView key) const
{
    const auto found = std::find_if(m_columns.cbegin(), m_columns.cend(), [key](const Column &column) { return column.key == key; });
    return found == m_columns.cend() ? -1 : int(found - m_columns.cbegin());
}

void KListModel::setSortMark(int column)
{
    const int before = std::exchange(m_markedColumn, column);
    if (before == column)
        return;
    for (const int changed : {before, column}) {
        if (changed >= 0 && changed < m_columns.size())
            Q_EMIT headerDataChanged(Qt::Horizontal, changed, changed);
    }
}

void KListModel::setRows(QVector<Row> rows)
{
    beginResetModel();
    m_source.reset();
    m_sourceRows = 0;
    m_madeRows.clear();
    m_rows = std::move(rows);
    m_rowKeys.clear();
    findInSight();
    endResetModel();
}

void KListModel::narrow(const QString &text, const QList<int> &columns)
{
    const QStringList words = RowWords::of(text);
    if (words == m_words && (words.isEmpty() || columns == m_wordColumns))
        return;
    beginResetModel();
    if (columns != m_wordColumns)
        m_rowKeys.clear();
    m_words = words;
    m_wordColumns = columns;
    findInSight();
    endResetModel();
}

int KListModel::allRows() const
{
    return m_source ? m_source->count() : int(m_rows.size());
}

// Many cells of a column say the same: a state, a name, a kind.
void KListModel::makeRowKeys()
{
    QHash<QString, QString> known;
    m_rowKeys.clear();
    m_rowKeys.reserve(m_rows.size());
    for (int at = 0; at < m_rows.size(); ++at) {
        const Row &row = made(at);
        QString key;
        for (const int column : std::as_const(m_wordColumns)) {
            if (column >= row.cells.size() || row.cells.at(column).text.isEmpty())
                continue;
            const QString &text = row.cells.at(column).text;
            auto cell = known.constFind(text);
            if (cell == known.cend())
                cell = known.insert(text, RowWords::key(text));
            key += *cell + RowWords::cellEnd;
        }
        m_rowKeys.append(key);
    }
}

// The keys stay for the next letter.
void KListModel::findInSight()
{
    m_inSight.clear();
    if (m_words.isEmpty())
        return;
    if (m_rowKeys.size() != m_rows.size())
        makeRowKeys();
    for (qsizetype row = 0; row < m_rows.size(); ++row) {
        if (RowWords::areIn(m_words, m_rowKeys.at(row)))
            m_inSight.append(int(row));
    }
}

QString KListModel::longestFigure(int column) const
{
    QString longest;
    const Maker *asked = nullptr;
    const int rows = m_source ? qMin(m_sourceRows, sampledRows) : int(m_rows.size());
    for (int i = 0; i < rows; ++i) {
        const Row &row = m_source ? rowAt(i) : m_rows.at(i);
        if (row.maker && row.maker.get() != asked) {
            asked = row.maker.get();
            if (const QString figure = asked->longestFigure(column); figure.size() > longest.size())
                longest = figure;
        }
        if (column >= row.cells.size())
            continue;
        const Cell &cell = row.cells[column];
        if (cell.text.size() > longest.size() && (readsLeftToRight(m_columns[column], cell) || isFigure(cell.text)))
            longest = cell.text;
    }
    return longest;
}

QVector<KListModel::Row> KListModel::rows() const
{
    if (!m_source && !isNarrowed()) {
        for (int row = 0; row < m_rows.size(); ++row)
            made(row);
        return m_rows;
    }
    QVector<Row> rows;
    if (!m_source) {
        for (int row = 0; row < m_inSight.size(); ++row)
            rows.append(narrowedRow(row));
        return rows;
    }
    const int all = m_source->count();
    rows.reserve(all);
    for (int row = 0; row < all; ++row)
        rows.append(m_source->row(row));
    return rows;
}

// Numbered as it is seen.
KListModel::Row KListModel::narrowedRow(int row) const
{
    Row shown = rowAt(row);
    for (int column = 0; column < m_columns.size() && column < shown.cells.size(); ++column) {
        if (m_columns[column].countsRows)
            shown.cells[column] = {QString::number(row + 1), row + 1};
    }
    return shown;
}

void KListModel::setSource(std::shared_ptr<const Source> source)
{
    beginResetModel();
    m_rows.clear();
    m_rowKeys.clear();
    m_words.clear();
    m_inSight.clear();
    m_madeRows.clear();
    m_source = std::move(source);
    m_mostRows = m_step;
    m_sourceRows = m_source ? qMin(m_source->count(), m_mostRows) : 0;
    endResetModel();
}

void KListModel::showFurther(int rows)
{
    if (!m_source)
        return;
    m_mostRows = qMin(m_sourceRows + rows, m_source->count());
    sourceGrew();
}

void KListModel::sourceGrew()
{
    const int count = m_source ? qMin(m_source->count(), m_mostRows) : 0;
    if (count <= m_sourceRows)
        return;
    beginInsertRows({}, m_sourceRows, count - 1);
    m_sourceRows = count;
    endInsertRows();
}

void KListModel::sourceChanged()
{
    m_madeRows.clear();
    if (m_sourceRows > 0)
        Q_EMIT dataChanged(index(0, 0), index(m_sourceRows - 1, columnCount() - 1));
}

void KListModel::appendRow(Row row)
{
    if (isNarrowed()) {
        beginResetModel();
        m_rows.append(std::move(row));
        findInSight();
        endResetModel();
        return;
    }
    const int at = int(m_rows.size());
    beginInsertRows({}, at, at);
    m_rows.append(std::move(row));
    m_rowKeys.clear();
    endInsertRows();
}

void KListModel::appendRows(QVector<Row> rows)
{
    if (rows.isEmpty())
        return;
    QSet<int> keys;
    for (const Row &row : std::as_const(rows))
        keys.insert(row.key);
    const bool hasMoved = std::ranges::any_of(std::as_const(m_rows), [&keys](const Row &row) { return keys.contains(row.key); });
    if (isNarrowed() || hasMoved) {
        beginResetModel();
        m_rows.removeIf([&keys](const Row &row) { return keys.contains(row.key); });
        m_rows.append(std::move(rows));
        m_rowKeys.clear();
        findInSight();
        endResetModel();
        return countRowsFrom(0);
    }
    const int first = int(m_rows.size());
    beginInsertRows({}, first, first + int(rows.size()) - 1);
    m_rows.append(std::move(rows));
    m_rowKeys.clear();
    endInsertRows();
}

bool KListModel::removeKey(int key)
{
    const int row = rowOfKey(key);
    if (row < 0)
        return false;
    const int at = stored(row);
    beginRemoveRows({}, row, row);
    m_rows.removeAt(at);
    m_rowKeys.clear();
    findInSight();
    endRemoveRows();
    countRowsFrom(at);
    return true;
}

void KListModel::countRowsFrom(int first)
{
    if (first >= m_rows.size())
        return;
    for (int column = 0; column < m_columns.size(); ++column) {
        if (!m_columns[column].countsRows)
            continue;
        for (int row = first; row < m_rows.size(); ++row) {
            if (!m_rows.at(row).maker)
                m_rows[row].cells[column] = {QString::number(row + 1), row + 1};
        }
        if (rowCount() > 0)
            Q_EMIT dataChanged(index(0, column), index(rowCount() - 1, column));
    }
}

void KListModel::clear()
{
    setRows({});
}

int KListModel::keyAt(int row) const
{
    return row >= 0 && row < rowCount() ? listed(row).key : 0;
}

int KListModel::rowOfKey(int key) const
{
    if (m_source) {
        // What it has more views do not know yet.
        const int row = m_source->rowOfKey(key);
        return row < m_sourceRows ? row : -1;
    }
    for (int row = 0, rows = rowCount(); row < rows; ++row) {
        if (listed(row).key == key)
            return row;
    }
    return -1;
}

void KListModel::addAmount(int row, int column, int words, QList<std::pair<QString, double>> &sums) const
{
    const Row &summed = listed(row);
    Maker::Amount amount;
    if (summed.maker)
        amount = summed.maker->amount(summed.place, column);
    else if (column < summed.cells.size() && words < summed.cells.size() && !summed.heading)
        amount = {summed.cells.at(column).value.toDouble(), summed.cells.at(column).isSummed, words < 0 ? QString() : summed.cells.at(words).text};
    else
        return;
    if (!amount.isSummed)
        return;
    const auto known = std::ranges::find(sums, amount.part, &std::pair<QString, double>::first);
    if (known != sums.end())
        known->second += amount.value;
    else
        sums.append({amount.part, amount.value});
}

QList<std::pair<QString, double>> KListModel::sums(int column, const QList<int> &rows) const
{
    const int words = columnOf(m_columns.at(column).sumsBy);
    QList<std::pair<QString, double>> sums;
    for (const int row : rows)
        addAmount(row, column, words, sums);
    return sums;
}

QList<std::pair<QString, double>> KListModel::sums(int column) const
{
    QList<int> rows(rowCount());
    std::iota(rows.begin(), rows.end(), 0);
    return sums(column, rows);
}

QModelIndex KListModel::index(int row, int column, const QModelIndex &parent) const
{
    const bool there = row >= 0 && column >= 0 && !parent.isValid() && row < KListModel::rowCount() && column < m_columns.size();
    return there ? createIndex(row, column) : QModelIndex();
}

Qt::ItemFlags KListModel::flags(const QModelIndex &index) const
{
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren : Qt::ItemFlags();
}

int KListModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    if (m_source)
        return m_sourceRows;
    return isNarrowed() ? int(m_inSight.size()) : int(m_rows.size());
}

int KListModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_columns.size());
}

int KListModel::stored(int row) const
{
    return isNarrowed() ? m_inSight.at(row) : row;
}

// Perhaps without its cells.
const KListModel::Row &KListModel::listed(int row) const
{
    return m_source ? rowAt(row) : m_rows.at(stored(row));
}

// With them. Its number is the one that it has by now.
const KListModel::Row &KListModel::made(int stored) const
{
    if (!m_rows.at(stored).maker)
        return m_rows.at(stored);
    Row &row = m_rows[stored];
    row.makeCells();
    for (int column = 0; column < m_columns.size() && column < row.cells.size(); ++column) {
        if (m_columns[column].countsRows)
            row.cells[column] = {QString::number(stored + 1), stored + 1};
    }
    return row;
}

// Valid until the next call.
const KListModel::Row &KListModel::rowAt(int row) const
{
    if (!m_source)
        return made(stored(row));
    if (const Row *made = m_madeRows.object(row))
        return *made;
    auto *made = new Row(m_source->row(row));
    m_madeRows.insert(row, made);
    return *made;
}

QVariant KListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= m_columns.size())
        return {};
    const Column &column = m_columns[index.column()];
    const Row &row = rowAt(index.row());
    const Cell *cell = index.column() < row.cells.size() ? &row.cells[index.column()] : nullptr;
    switch (role) {
    case Qt::DisplayRole:
        if (isNarrowed() && column.countsRows)
            return QString::number(index.row() + 1);
        return cell ? cell->text : QString();
    case Qt::TextAlignmentRole: {
        // Amounts end on one line, so that their digits stand below each other.
        const bool isAmount = cell && cell->value.typeId() == QMetaType::Double;
        return int((isAmount ? Qt::AlignRight : column.alignment) | Qt::AlignVCenter | Qt::AlignAbsolute);
    }
    case SortRole:
        return !cell ? QVariant() : cell->value.isValid() ? cell->value
                                                          : QVariant(cell->text);
    case KeyRole:
        return row.key;
    case Qt::ForegroundRole:
    case Qt::BackgroundRole:
    case Qt::FontRole:
        return look(row, index.column(), role);
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
        return section == m_markedColumn ? m_columns[section].title + sortMark() : m_columns[section].title;
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignCenter);
    return {};
}
