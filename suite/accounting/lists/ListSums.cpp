// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/ListSums.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/Money.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// A sum stays on one line; the line breaks between two.
const QString sumGap = u"     "_s;

QString unbroken(QString text)
{
    return text.replace(u' ', QChar(QChar::Nbsp));
}

}

ListSums::ListSums(KExtListCtrl *list, bool hasTotals, QWidget *card)
    : QLabel(card)
    , m_list(list)
    , m_hasTotals(hasTotals)
{
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
    list->setSeveralMarkable();
    connect(list, &KExtListCtrl::marksChanged, this, &ListSums::refresh);
    // For the unit of money.
    if (isShown())
        OfficeSettings::expect();
}

bool ListSums::isWanted(const KExtListCtrl &list)
{
    return std::ranges::any_of(list.listModel()->columns(), &KListModel::Column::sums);
}

QString ListSums::sums(const QString &start, const std::function<Sums(int)> &sumsOf) const
{
    const QVector<KListModel::Column> &columns = m_list->listModel()->columns();
    QStringList texts;
    for (int column = 0; column < columns.size(); ++column) {
        if (!columns.at(column).sums || !m_list->isColumnShown(column))
            continue;
        for (const auto &[part, sum] : sumsOf(column)) {
            const QString title = part.isEmpty() ? columns.at(column).title : u"%1 (%2)"_s.arg(columns.at(column).title, part);
            texts << unbroken(u"%1 %2 : %3 %4"_s.arg(start, title, DToMoney(sum), m_unit).trimmed());
        }
    }
    return texts.join(sumGap);
}

bool ListSums::isShown() const
{
    const QVector<KListModel::Column> &columns = m_list->listModel()->columns();
    for (int column = 0; column < columns.size(); ++column) {
        if (columns.at(column).sums && m_list->isColumnShown(column))
            return true;
    }
    return false;
}

void ListSums::refresh()
{
    // Once: marking rows asks the database nothing.
    if (m_unit.isEmpty() && isShown())
        m_unit = GetDBSetting()->MoneyUnitName();
    const KListModel *model = m_list->listModel();
    QStringList texts;
    if (m_list->count() > 0 && m_hasTotals)
        texts << sums(u"جمع"_s, [model](int column) { return model->sums(column); });
    const QList<int> marked = m_list->markedRows();
    if (marked.size() > 1)
        texts << sums(u"%1 ردیف نشان‌شده،"_s.arg(marked.size()), [&](int column) { return model->sums(column, marked); });
    texts.removeAll(QString());
    setText(texts.join(sumGap));
    setVisible(!texts.isEmpty());
}
