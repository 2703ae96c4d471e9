// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListFigures.h"

#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>

namespace {

// A column that shows no figure in so many rows shows none.
constexpr int sampledRows = 100;
// More than that are no words of a list.
constexpr qsizetype mostWords = 200;

}

KListFigures::KListFigures(const KListColumn &column, const KMySQL::Column *value)
    : m_value(value)
{
    m_column.isCode = column.isCode;
    if (column.countsRows)
        m_kind = Kind::Counted;
    else if (value && !column.cell && !column.show)
        m_kind = Kind::Plain;
    else if (value && !column.cell && std::holds_alternative<qint32 *>(value->member))
        m_kind = Kind::Words;
}

void KListFigures::note(const std::function<KListModel::Cell()> &make)
{
    ++m_noted;
    switch (m_kind) {
    case Kind::Plain:
        return std::visit([this](const auto *member) { note(member); }, m_value->member);
    case Kind::Words:
        return noteWords(make);
    case Kind::Counted:
        return;
    case Kind::Made:
        return noteMade(make);
    }
}

// The same number reads the same in every row.
void KListFigures::noteWords(const std::function<KListModel::Cell()> &make)
{
    const qint32 number = *std::get<qint32 *>(m_value->member);
    if (m_known.contains(number))
        return;
    m_known.insert(number);
    if (m_known.size() > mostWords)
        m_kind = Kind::Made;
    noteCell(make());
}

void KListFigures::noteMade(const std::function<KListModel::Cell()> &make)
{
    if (m_hasFigures || m_noted <= sampledRows)
        noteCell(make());
}

void KListFigures::noteCell(const KListModel::Cell &cell)
{
    if (cell.text.isEmpty() || !(KListModel::readsLeftToRight(m_column, cell) || KListModel::isFigure(cell.text)))
        return;
    m_hasFigures = true;
    if (cell.text.size() > m_longest.size())
        m_longest = cell.text;
}

void KListFigures::noteText(const QString &text)
{
    if (text.size() > m_longest.size() && (m_column.isCode || KListModel::isFigure(text)))
        m_longest = text;
}

void KListFigures::note(const QDateTime *date)
{
    if (m_longest.isEmpty() && date->isValid())
        m_longest = shamsiText(date->date());
}

void KListFigures::noteAmount(double amount)
{
    m_lowest = m_hasFigures ? std::min(m_lowest, amount) : amount;
    m_highest = m_hasFigures ? std::max(m_highest, amount) : amount;
    m_hasFigures = true;
}

QString KListFigures::longest() const
{
    if (m_kind == Kind::Counted)
        return QString::number(m_noted);
    if (m_kind != Kind::Plain || !m_hasFigures)
        return m_longest;
    const bool isAmount = std::holds_alternative<double *>(m_value->member);
    const auto text = [isAmount](double value) { return (isAmount ? KListColumn::money(value) : KListColumn::number(static_cast<int>(value))).text; };
    return std::ranges::max({m_longest, text(m_lowest), text(m_highest)}, {}, &QString::size);
}
