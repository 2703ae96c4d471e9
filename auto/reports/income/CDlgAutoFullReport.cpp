// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/income/CDlgAutoFullReport.h"

#include "auto/reports/income/IncomeChart.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QLabel>
#include <QPushButton>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString section = u"AutoFullReport"_s;

struct SortKey
{
    const char16_t *name; // as stored in the settings
    IncomeAndExpenses::Order order;
};

// By the columns of the list.
constexpr SortKey sortKeys[] = {
    {u"iCode", IncomeAndExpenses::Order::Chart},
    {u"sName", IncomeAndExpenses::Order::Name},
    {u"dAmount", IncomeAndExpenses::Order::Amount},
    {u"sNature", IncomeAndExpenses::Order::Nature},
};
constexpr int columnCount = std::size(sortKeys);

QVector<KListModel::Column> listColumns()
{
    return {
        {u"گروه"_s, Qt::AlignHCenter, 60, QString::fromUtf16(sortKeys[0].name)},
        {u"نام حساب"_s, Qt::AlignRight, 140, QString::fromUtf16(sortKeys[1].name)},
        {u"مبلغ"_s, Qt::AlignRight, 90, QString::fromUtf16(sortKeys[2].name)},
        {u"تشخیص"_s, Qt::AlignHCenter, 45, QString::fromUtf16(sortKeys[3].name)},
    };
}

KListModel::Row headingRow(const QString &name)
{
    return {.key = 0, .cells = {{}, {name}, {}, {}}, .heading = true};
}

KListModel::Row amountRow(int code, const QString &name, const AccountBalance &balance)
{
    const double amount = std::abs(balance.net());
    const KListModel::Cell codeCell = code == 0 ? KListModel::Cell{} : KListModel::Cell{QString::number(code), code};
    return {.key = code, .cells = {codeCell, {name}, {DToMoney(amount), amount}, {balance.nature()}}};
}

KListModel::Row totalRow(const QString &name, const AccountBalance &balance)
{
    KListModel::Row row = amountRow(0, name, balance);
    row.heading = true;
    return row;
}

}

CDlgAutoFullReport::CDlgAutoFullReport(QWidget *parent)
    : CDlgAutoFullReport(OfficeSettings::read(), parent)
{
}

CDlgAutoFullReport::CDlgAutoFullReport(const OfficeSettings &settings, QWidget *parent)
    : ChartWindow(section, u"گزارش جامع"_s, section, parent)
    , m_chart(new IncomeChart(settings.moneyUnitName()))
{
    list()->setColumns(listColumns());
    connect(list(), &KExtListCtrl::columnClicked, this, &CDlgAutoFullReport::sortBy);
    connect(list(), &KExtListCtrl::rowActivated, this, &CDlgAutoFullReport::activated);
    build({.chart = m_chart, .cancel = u"انصراف"_s, .listWidth = 620, .chartWidth = 480}, settings);
    setChoiceMode(false);
    readSettings();
    search();
    list()->setFocus();
}

CDlgAutoFullReport::~CDlgAutoFullReport() = default;

void CDlgAutoFullReport::Show(QWidget *parent)
{
    if (mayOpen(section))
        CDlgAutoFullReport(parent).exec();
}

void CDlgAutoFullReport::setChoiceMode(bool on)
{
    m_choiceMode = on;
    okButton()->setText(on ? u"انتخاب"_s : u"بازگشت"_s);
    okButton()->setAccessibleName(okButton()->text());
    // What the window is for: to pick an account, or to look.
    LookMarks::setButton(okButton(), on ? LookMarks::Button::Primary : LookMarks::Button::Normal);
    LookMarks::setButton(searchButton(), on ? LookMarks::Button::Normal : LookMarks::Button::Primary);
}

void CDlgAutoFullReport::readSettings()
{
    m_order.column = ReadSetting(section, u"iLastCol"_s, 0);
    if (m_order.column < 0 || m_order.column >= columnCount)
        m_order.column = 0;
    m_order.descending = KSortOrder::isDescending(ReadSetting(section, u"Sort"_s, QString()));
    list()->setSortMark(m_order.column);
}

void CDlgAutoFullReport::done(int result)
{
    WriteSetting(section, u"iLastCol"_s, m_order.column);
    WriteSetting(section, u"Sort"_s, m_order.expression(listColumns().at(m_order.column).sortKey));
    KDialog::done(result);
}

void CDlgAutoFullReport::search()
{
    if (!checkDays())
        return;
    const KWaitCursor wait;
    m_report = ComprehensiveReport::read(fromDate()->dateTime(), toDate()->dateTime());
    m_rangeStart = fromDate()->dateTime();
    m_rangeEnd = toDate()->dateTime();
    m_chart->setReport(m_report);
    showRows();
}

void CDlgAutoFullReport::showRows()
{
    const int selected = list()->currentKey();
    QVector<KListModel::Row> rows;
    const auto addSide = [&](IncomeAndExpenses::Side side, const QString &heading, const QString &total) {
        rows.append(headingRow(heading));
        IncomeAndExpenses::sort(side.accounts, sortKeys[m_order.column].order, m_order.descending);
        for (const IncomeAndExpenses::Account &account : std::as_const(side.accounts))
            rows.append(amountRow(account.code, account.name, account.balance));
        rows.append(totalRow(total, side.total));
    };
    addSide(m_report.income, u"درآمد ها"_s, u"جمع درآمدها"_s);
    addSide(m_report.expenses, u"هزینه ها"_s, u"جمع هزینه ها"_s);
    rows.append(totalRow(u"مابه التفاوت درآمدها با هزینه ها"_s,
                         IncomeAndExpenses::difference(m_report.income, m_report.expenses)));
    // Enter opens an account, so an account is what is selected at first.
    const auto account = std::find_if(rows.cbegin(), rows.cend(), [](const KListModel::Row &row) { return row.key != 0; });
    const int first = account == rows.cend() ? 0 : int(account - rows.cbegin());
    list()->setRows(std::move(rows));
    if (selected == 0 || !list()->selectKey(selected))
        list()->selectRow(first);
    countLabel()->setText(SuiteMessages::count(m_report.income.accounts.size() + m_report.expenses.accounts.size()));
}

void CDlgAutoFullReport::sortBy(int column)
{
    if (column < 0 || column >= columnCount)
        return;
    m_order = m_order.clicked(column);
    list()->setSortMark(column);
    showRows();
}

const IncomeAndExpenses::Account *CDlgAutoFullReport::account(int key) const
{
    for (const IncomeAndExpenses::Side *side : {&m_report.income, &m_report.expenses}) {
        for (const IncomeAndExpenses::Account &account : side->accounts) {
            if (account.code == key)
                return &account;
        }
    }
    return nullptr;
}

void CDlgAutoFullReport::activated(int key)
{
    if (m_choiceMode) {
        accept();
        return;
    }
    if (const IncomeAndExpenses::Account *found = account(key))
        CDlgAccountDocs::Show(found->level, found->code, m_rangeStart, m_rangeEnd, this);
}

bool CDlgAutoFullReport::OnOK()
{
    if (!m_choiceMode)
        return true;
    m_chosenCode = list()->currentKey();
    return m_chosenCode != 0 || warn(u"لطفا یک حساب را انتخاب نمایید."_s, list());
}

QString CDlgAutoFullReport::fromText() const
{
    const QString from = shamsiText(m_rangeStart.date());
    return from.isEmpty() ? QString() : u"تاريخ : "_s + from;
}

QString CDlgAutoFullReport::toText() const
{
    const QString to = shamsiText(m_rangeEnd.date());
    return to.isEmpty() ? QString() : u"تا : "_s + to;
}

ListReport CDlgAutoFullReport::listReport() const
{
    ListReport report(u"گالری اتومبیل"_s, u"لیست گزارش جامع"_s);
    report.setText(u"RightTop"_s, u"گالری اتومبیل"_s);
    report.setText(u"RightCenter"_s, fromText());
    report.setText(u"RightBottom"_s, toText());
    report.setText(u"LeftBottom"_s,
                   u"تاریخ چاپ : "_s + shamsiText(GetDBSetting()->GetDBServerDate().date()));
    report.setText(u"Count"_s, countLabel()->text());
    report.setTable(u"List"_s, list());
    if (!report.loadLayout())
        report.buildStandard(u"لیست گزارش جامع"_s);
    return report;
}

void CDlgAutoFullReport::drawChart(QPainter &painter, const QRectF &rectangle) const
{
    const QString range = fromText() + u' ' + toText();
    m_chart->draw(painter, rectangle, windowTitle() + u' ' + range.trimmed());
}
