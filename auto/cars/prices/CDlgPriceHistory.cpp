// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/prices/CDlgPriceHistory.h"

#include "auto/cars/prices/PriceChart.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QVector<KListModel::Column> priceColumns()
{
    return {{u"تاریخ"_s, Qt::AlignCenter, 70, {}, true},
            {u"ساعت"_s, Qt::AlignCenter, 45},
            {u"کاربر"_s, Qt::AlignRight, 100},
            {u"قیمت"_s, Qt::AlignRight, 110},
            {u"تغییر"_s, Qt::AlignRight, 140}};
}

// In words, so that a minus is not missed.
QString differenceOf(const PriceHistory::Entry &entry)
{
    if (IsEquals(entry.before, 0))
        return u"نخستین قیمت"_s;
    const QString amount = DToMoney(std::abs(entry.difference()));
    return entry.difference() > 0 ? u"%1 بیشتر"_s.arg(amount) : u"%1 کمتر"_s.arg(amount);
}

KListModel::Row priceRow(int number, const PriceHistory::Entry &entry)
{
    return {number,
            {{shamsiText(entry.when.date()), entry.when.date()},
             {entry.when.time().toString(u"HH:mm"_s)},
             {entry.user.isEmpty() ? u"-"_s : entry.user},
             {DToMoney(entry.price), entry.price},
             {differenceOf(entry), entry.difference()}}};
}

}

CDlgPriceHistory::CDlgPriceHistory(int carID, QWidget *parent)
    : KDialog(parent)
{
    SetSettingName(u"AutomobilInformations\\Prices"_s);
    setWindowTitle(u"تاریخچه قیمت (%1)"_s.arg(OfficeSettings::read().moneyUnitName()));
    build();
    fill(carID);
    resize(LookSizes::scaled(640), LookSizes::scaled(440));
}

CDlgPriceHistory::~CDlgPriceHistory() = default;

void CDlgPriceHistory::Show(int carID, QWidget *parent)
{
    CDlgPriceHistory(carID, parent).exec();
}

void CDlgPriceHistory::build()
{
    m_list = new KExtListCtrl(this);
    m_list->setAccessibleName(u"تاریخچه قیمت"_s);
    m_list->setColumns(priceColumns());
    m_list->SetSettingName(u"AutomobilInformations\\PriceList"_s);
    auto *content = new QWidget(this);
    auto *cards = new CardStack(content);
    auto *box = new QGroupBox(content);
    m_chart = new PriceChart(box);
    (new QVBoxLayout(box))->addWidget(m_chart);
    cards->addCard(box);
    cards->addCard(new KListCard(m_list, content), true);
    setContent(content, createButtons({}, u"بازگشت"_s));
}

// The latest on top of the list.
void CDlgPriceHistory::fill(int carID)
{
    const QList<PriceHistory::Entry> prices = PriceHistory::of(carID);
    m_chart->setPrices(prices);
    QVector<KListModel::Row> rows;
    for (auto entry = prices.crbegin(); entry != prices.crend(); ++entry)
        rows.append(priceRow(int(rows.size()) + 1, *entry));
    m_list->setRows(rows);
    m_list->selectRow(0);
    m_list->setFocus();
}
