// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ListReport.h"

#include "suite/accounting/reports/CTblReportLayouts.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {

const QString titleElement = u"Title"_s;
const QString countElement = u"Count"_s;
// Beyond so many columns a list reads better on the paper's long side.
constexpr qsizetype widestUpright = 7;
// Of more columns than these only the smallest letters leave the words whole.
constexpr qsizetype mostInPlainSize = 20;

}

ListReport::ListReport(const QString &group, const QString &report)
    : m_group(group)
    , m_report(report)
{
}

void ListReport::setText(const QString &element, const QString &text)
{
    for (auto &[name, value] : m_texts) {
        if (name == element) {
            value = text;
            return;
        }
    }
    m_texts.append({element, text});
}

QString ListReport::text(const QString &element) const
{
    for (const auto &[name, value] : m_texts) {
        if (name == element)
            return value;
    }
    return {};
}

void ListReport::setTable(const QString &element, const KExtListCtrl *list)
{
    setTable(element, list->listModel()->columns(), list->listModel()->rows());
    const QHeaderView *header = list->header();
    m_order.clear();
    for (int position = 0; position < header->count(); ++position) {
        const int column = header->logicalIndex(position);
        if (!header->isSectionHidden(column))
            m_order.append(column);
    }
}

void ListReport::setTable(const QString &element, const QVector<KListModel::Column> &columns,
                          const QVector<KListModel::Row> &rows)
{
    m_table = element;
    m_columns = columns;
    m_rows = rows;
    m_order.clear();
    for (int column = 0; column < m_columns.size(); ++column)
        m_order.append(column);
}

void ListReport::addFooter(const QVector<FooterCell> &cells)
{
    KListModel::Row titles;
    titles.heading = true;
    titles.cells.resize(m_columns.size());
    KListModel::Row sums = titles;
    for (const FooterCell &cell : cells) {
        titles.cells[cell.column].text = cell.title;
        sums.cells[cell.column] = {DToMoney(cell.sum), cell.sum};
    }
    m_rows << titles << sums;
}

bool ListReport::loadLayout(const QString &name)
{
    const std::optional<ReportLayout> stored = CTblReportLayouts::load(m_group, m_report, name);
    if (!stored)
        return false;
    const ReportLayout before = m_layout;
    m_layout = *stored;
    // Kept for a table that had other columns: there would be nothing to print.
    if (!shownColumns().isEmpty())
        return true;
    m_layout = before;
    return false;
}

void ListReport::buildStandard(const QString &title)
{
    setText(titleElement, title);
    m_layout = {};
    m_layout.title = ReportLayout::ownTextMark();
    for (const int column : std::as_const(m_order))
        m_layout.columns.append({m_columns.at(column).title, 0});
    m_layout.landscape = m_layout.columns.size() > widestUpright;
    if (m_layout.columns.size() > mostInPlainSize)
        m_layout.fontSize = ReportLayout::lowestFontSize;
}

QString ListReport::shownTitle() const
{
    // A stored layout loads before the standard title is set; the report's name is its title then.
    const QString own = text(titleElement).isEmpty() ? m_report : text(titleElement);
    return ReportLayout::filled(m_layout.title, own, shamsiText(QDate::currentDate()), text(countElement));
}

QString ListReport::shownCorner(const QString &corner) const
{
    const QString own = text(corner);
    const auto arranged = m_layout.texts.constFind(corner);
    if (arranged == m_layout.texts.cend())
        return own;
    return ReportLayout::filled(*arranged, own, shamsiText(QDate::currentDate()), text(countElement));
}

QStringList ListReport::shownSummary() const
{
    QStringList summary;
    for (const auto &[name, value] : m_texts) {
        if (name != titleElement && !ReportLayout::corners().contains(name) && !value.isEmpty())
            summary.append(value);
    }
    return summary;
}

QVector<ListReport::ShownColumn> ListReport::shownColumns() const
{
    QVector<ShownColumn> shown;
    for (const ReportLayout::Column &column : m_layout.columns) {
        if (const int found = columnOf(column.title); found >= 0)
            shown.append({found, column.share});
    }
    return shown;
}

int ListReport::columnOf(const QString &title) const
{
    for (int column = 0; column < m_columns.size(); ++column) {
        // An optional column that is off has no contents: a layout that names it prints the others.
        const bool isOff = m_columns.at(column).optional && !m_order.contains(column);
        if (m_columns.at(column).title == title && !isOff)
            return column;
    }
    return -1;
}
