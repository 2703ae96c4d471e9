// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentRowsPane.h"

#include "suite/accounting/books/DocumentRows.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/values/Money.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

KListModel::Cell numberCell(int value)
{
    return {QString::number(value), value};
}

}

KListModel::Cell DocumentRowsPane::sideCell(double amount)
{
    return {IsEquals(amount, 0) ? QString() : DToMoney(amount), amount};
}

DocumentRowsPane::DocumentRowsPane(const QString &settingName, QWidget *parent)
    : QWidget(parent)
    , m_list(new KExtListCtrl(this))
    , m_totals(new QLabel(this))
{
    m_list->setAccessibleName(u"ردیف‌های سند"_s);
    m_list->setColumns({
        {u"ردیف"_s, Qt::AlignHCenter, 30, {}},
        {u"کد حساب"_s, Qt::AlignHCenter, 50, {}},
        {u"نام حساب"_s, Qt::AlignRight, 110, {}},
        {u"شخص"_s, Qt::AlignRight, 110, {}},
        {u"شرح"_s, Qt::AlignRight, 170, {}},
        {u"بدهکار"_s, Qt::AlignRight, 75, {}},
        {u"بستانکار"_s, Qt::AlignRight, 75, {}},
    });
    m_list->SetSettingName(settingName);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto *card = new KListCard(m_list, this);
    card->addToFoot(m_totals);
    column->addWidget(card, 1);
    setFocusProxy(m_list);
}

void DocumentRowsPane::showDocument(int num, int fiscalYear)
{
    const QList<DocumentRows::Named> found = num > 0 ? DocumentRows::read(num, fiscalYear) : QList<DocumentRows::Named>();
    QVector<KListModel::Row> rows;
    AccountBalance sum;
    for (const auto &[id, row, accountName, person] : found) {
        rows.append({id,
                     {
                         numberCell(static_cast<int>(rows.size()) + 1),
                         numberCell(row.account),
                         {accountName},
                         {person},
                         {row.description},
                         sideCell(row.debit),
                         sideCell(row.credit),
                     }});
        sum += {row.debit, row.credit};
    }
    m_list->setRows(std::move(rows));
    m_totals->setText(found.isEmpty() ? QString()
                                      : u"جمع بدهکار : %1     جمع بستانکار : %2"_s
                                            .arg(DToMoney(sum.bed), DToMoney(sum.bes)));
}

QString DocumentRowsPane::totalsText() const
{
    return m_totals->text();
}
