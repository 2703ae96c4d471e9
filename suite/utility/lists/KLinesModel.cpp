// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/lists/KLinesModel.h"

#include <QBrush>
#include <QGuiApplication>

#include <algorithm>

#include "suite/utility/entries/CodeFont.h"
#include "suite/utility/lists/KListModel.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/TextStandard.h"
#include "suite/utility/values/TypedNumber.h"

using namespace Qt::StringLiterals;

namespace {

bool isNumeric(KLinesModel::Kind kind)
{
    return kind == KLinesModel::Kind::Number || kind == KLinesModel::Kind::Money || kind == KLinesModel::Kind::Computed;
}

bool isEmptyCell(const KLinesModel::Cell &cell)
{
    return cell.text.isEmpty() && cell.key == 0 && IsEquals(cell.number, 0);
}

}

KLinesModel::KLinesModel(QVector<Column> columns, QObject *parent)
    : QAbstractTableModel(parent)
    , m_columns(std::move(columns))
{
}

QVector<KLinesModel::Line> KLinesModel::lines(QVector<int> *positions) const
{
    QVector<Line> entered;
    for (int row = 0; row < m_lines.size(); ++row) {
        if (isLineEmpty(row))
            continue;
        entered.append(m_lines.at(row));
        if (positions)
            positions->append(row);
    }
    return entered;
}

void KLinesModel::setLines(QVector<Line> lines)
{
    beginResetModel();
    m_lines = std::move(lines);
    for (Line &line : m_lines)
        line.resize(m_columns.size());
    endResetModel();
}

bool KLinesModel::isLineEmpty(int row) const
{
    const Line &line = m_lines.at(row);
    return std::all_of(line.cbegin(), line.cend(), isEmptyCell);
}

void KLinesModel::insertLine(int row)
{
    beginInsertRows({}, row, row);
    m_lines.insert(row, emptyLine());
    endInsertRows();
    Q_EMIT edited();
}

void KLinesModel::removeLine(int row)
{
    beginRemoveRows({}, row, row);
    m_lines.removeAt(row);
    endRemoveRows();
    Q_EMIT edited();
}

void KLinesModel::setCell(int row, int column, const Cell &cell)
{
    m_lines[row][column] = cell;
    // What is computed from it stands in the same line.
    Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
    Q_EMIT edited();
}

KLinesModel::Cell KLinesModel::choiceFor(int column, const QString &typed) const
{
    const QString text = ConvertToStandard(typed);
    const QString key = searchKey(text);
    if (key.isEmpty())
        return {};
    QVector<const Choice *> named;
    QVector<const Choice *> holding;
    const Choice *byCode = nullptr;
    for (const Choice &choice : m_columns.at(column).choices) {
        if (searchKey(choice.text) == key)
            return {choice.text, 0, choice.key};
        if (choice.text.startsWith(text + u' '))
            byCode = &choice;
        if (searchKey(choice.text.section(u' ', 1)) == key)
            named.append(&choice);
        if (searchKey(choice.text).contains(key))
            holding.append(&choice);
    }
    if (byCode)
        return {byCode->text, 0, byCode->key};
    for (const QVector<const Choice *> &found : {named, holding}) {
        if (found.size() == 1)
            return {found.constFirst()->text, 0, found.constFirst()->key};
    }
    return {text, 0, 0};
}

int KLinesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

int KLinesModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QString KLinesModel::shownText(const QModelIndex &index) const
{
    const Column &column = m_columns.at(index.column());
    const Line &line = m_lines.at(index.row());
    const Cell &cell = line.at(index.column());
    switch (column.kind) {
    case Kind::Text:
    case Kind::Choice:
    case Kind::Pick:
        return cell.text;
    case Kind::Number:
        return IsEquals(cell.number, 0) ? QString() : DToStr(cell.number);
    case Kind::Money:
        return IsEquals(cell.number, 0) ? QString() : DToMoney(cell.number);
    case Kind::Computed: {
        const double amount = column.compute(line);
        return IsEquals(amount, 0) ? QString() : DToMoney(amount);
    }
    }
    Q_UNREACHABLE();
}

bool KLinesModel::isUnknownChoice(const QModelIndex &index) const
{
    const Cell &cell = m_lines.at(index.row()).at(index.column());
    return m_columns.at(index.column()).kind == Kind::Choice && cell.key == 0 && !cell.text.isEmpty();
}

QVariant KLinesModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Kind kind = m_columns.at(index.column()).kind;
    const Cell &cell = m_lines.at(index.row()).at(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return shownText(index);
    case Qt::EditRole:
        return isNumeric(kind) ? QVariant(cell.number) : QVariant(cell.text);
    case NumberRole:
        return kind == Kind::Computed ? m_columns.at(index.column()).compute(m_lines.at(index.row())) : cell.number;
    case KeyRole:
        return cell.key;
    case Qt::TextAlignmentRole:
        return int(Qt::AlignRight | Qt::AlignVCenter | Qt::AlignAbsolute);
    case Qt::ForegroundRole:
        return isUnknownChoice(index) ? QVariant(QBrush(HostColors::of(HostColors::Role::Danger))) : QVariant();
    case Qt::FontRole:
        return CodeFont::isLatinCode(shownText(index)) ? QVariant(CodeFont::of(QGuiApplication::font(), shownText(index))) : QVariant();
    case Qt::ToolTipRole:
        return isUnknownChoice(index) ? u"در لیست نیست"_s : QString();
    case KListModel::LeftToRightRole:
        return isNumeric(kind);
    default:
        return {};
    }
}

QVariant KLinesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignCenter);
    if (role != Qt::DisplayRole)
        return {};
    return orientation == Qt::Horizontal ? QVariant(m_columns.at(section).title) : QVariant(section + 1);
}

Qt::ItemFlags KLinesModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    const Kind kind = m_columns.value(index.column()).kind;
    if (index.isValid() && !m_readOnly && kind != Kind::Computed && kind != Kind::Pick)
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool KLinesModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || !(flags(index) & Qt::ItemIsEditable))
        return false;
    const Kind kind = m_columns.at(index.column()).kind;
    Cell cell;
    if (kind == Kind::Choice) {
        cell = choiceFor(index.column(), value.toString());
    } else if (kind == Kind::Text) {
        cell.text = value.toString();
    } else if (value.typeId() != QMetaType::QString) {
        cell.number = value.toDouble();
    } else if (!value.toString().isEmpty() && !parseMoney(value.toString(), &cell.number)) {
        return false;
    } else if (kind == Kind::Money) {
        // As the entry line takes it: without the decimals that the money unit does not have.
        cell.number = readTyped(value.toString(), 0, {defaultMoneyDecimals(), true}).value();
    }
    const Cell &before = m_lines.at(index.row()).at(index.column());
    if (before.text != cell.text || before.key != cell.key || before.number != cell.number)
        setCell(index.row(), index.column(), cell);
    return true;
}
