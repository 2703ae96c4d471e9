// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/charts/CDlgCharts.h"

#include "auto/db/CTblCarBrands.h"
#include "auto/reports/charts/BarChart.h"
#include "auto/reports/charts/ChartReading.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QLabel>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Bars = QList<ChartFigures::Bar>;
using Sales = QList<ChartFigures::Sale>;

struct Range
{
    QDateTime from;
    QDateTime to;
    int brand = 0;
};

template <Bars (*rule)(const Sales &)>
Bars ofSales(const Range &range)
{
    return rule(ChartReading::sales(range.from, range.to, range.brand));
}

template <Bars (*rule)(const QList<ChartFigures::Earning> &)>
Bars ofEarnings(const Range &range)
{
    return rule(ChartReading::earnings(range.from, range.to));
}

Bars ofWanted(const Range &range)
{
    return ChartFigures::demandAndStock(ChartReading::wanted(range.brand));
}

// One row for each chart, by the number of its kind.
struct ChartKind
{
    QStringView caption;
    QStringView nameTitle; // of the list's columns
    QStringView countTitle;
    QStringView first;
    QStringView second; // empty: one course
    bool isMoney;
    bool isSummed; // the sum of its bars says something
    bool hasRange; // asks for days
    bool hasBrand;
    Bars (*read)(const Range &range);
};

constexpr ChartKind chartKinds[CDlgCharts::kindCount] = {
    {u"سود فروش به تفکیک برند", u"برند", u"خودرو", u"سود", {}, true, true, true, true, &ofSales<&ChartFigures::marginByBrand>},
    {u"سود فروش به تفکیک ماه", u"ماه", u"خودرو", u"سود", {}, true, true, true, true, &ofSales<&ChartFigures::marginByMonth>},
    {u"روزهای ماندن به تفکیک برند", u"برند", u"خودرو", u"میانگین روز", {}, false, false, true, true, &ofSales<&ChartFigures::standingByBrand>},
    {u"روزهای ماندن به تفکیک ماه", u"ماه", u"خودرو", u"میانگین روز", {}, false, false, true, true, &ofSales<&ChartFigures::standingByMonth>},
    {u"تقاضا و موجودی", u"برند", {}, u"تقاضای باز", u"خودروی موجود", false, true, false, true, &ofWanted},
    {u"کمیسیون به تفکیک کاربر", u"کاربر", u"قرارداد", u"کمیسیون", {}, true, true, true, false, &ofEarnings<&ChartFigures::commissionByClerk>},
    {u"کمیسیون به تفکیک ماه", u"ماه", u"قرارداد", u"کمیسیون", {}, true, true, true, false, &ofEarnings<&ChartFigures::commissionByMonth>},
};

const QString chartsForm = u"AutoFullReport"_s;
const QString chartsSection = u"Charts"_s;

QVector<KListModel::Column> columnsOf(const ChartKind &kind)
{
    QVector<KListModel::Column> columns{{kind.nameTitle.toString(), Qt::AlignRight, 110}};
    if (!kind.countTitle.isEmpty())
        columns.append({kind.countTitle.toString(), Qt::AlignHCenter, 45});
    columns.append({kind.first.toString(), Qt::AlignRight, 90});
    if (!kind.second.isEmpty())
        columns.append({kind.second.toString(), Qt::AlignRight, 90});
    return columns;
}

KListModel::Cell figure(const ChartKind &kind, double value)
{
    return {kind.isMoney ? DToMoney(value) : DToMoney(value, 0), value};
}

}

CDlgCharts::CDlgCharts(QWidget *parent)
    : CDlgCharts(OfficeSettings::read(), parent)
{
}

CDlgCharts::CDlgCharts(const OfficeSettings &settings, QWidget *parent)
    : ChartWindow(chartsForm, u"نمودارها"_s, chartsSection, parent)
    , m_kind(new KDropDown)
    , m_brand(new KDropDown)
    , m_chart(new BarChart)
    , m_sum(new QLabel)
{
    build({.chart = m_chart, .listWidth = 480, .chartWidth = 620, .foot = {m_sum}}, settings);
    m_empty = new KEmptyState(list());
    LookMarks::setButton(okButton(), LookMarks::Button::Normal);
    LookMarks::setButton(searchButton(), LookMarks::Button::Primary);
    for (KDropDown *choice : {m_kind, m_brand})
        connect(choice, &QComboBox::currentIndexChanged, this, &CDlgCharts::search);
    search();
    m_kind->setFocus();
}

CDlgCharts::~CDlgCharts() = default;

void CDlgCharts::Show(QWidget *parent)
{
    if (mayOpen(chartsForm))
        CDlgCharts(parent).exec();
}

void CDlgCharts::addBeforeDays(QHBoxLayout *line)
{
    for (const ChartKind &kind : chartKinds)
        m_kind->addItem(kind.caption.toString());
    addLabelled(line, u"نمودار :"_s, m_kind);
}

void CDlgCharts::addBehindDays(QHBoxLayout *line)
{
    m_brand->addItem(u"همه"_s, 0);
    CTblCarBrands brands;
    brands.SetColumns({u"sName"_s});
    brands.m_sort = "sName";
    for (brands.Open(true, true, true); !brands.IsEOF(); brands.MoveNext())
        m_brand->addItem(brands.m_sName, brands.m_iID);
    addLabelled(line, u"برند :"_s, m_brand);
}

CDlgCharts::Kind CDlgCharts::kind() const
{
    return Kind(std::max(0, m_kind->currentIndex()));
}

void CDlgCharts::choose(Kind kind)
{
    m_kind->setCurrentIndex(int(kind));
}

void CDlgCharts::search()
{
    const ChartKind &kind = chartKinds[int(this->kind())];
    for (KDateEdit *edit : {fromDate(), toDate()})
        edit->setEnabled(kind.hasRange);
    m_brand->setEnabled(kind.hasBrand);
    if (kind.hasRange && !checkDays())
        return;
    const KWaitCursor wait;
    m_bars = kind.read({fromDate()->dateTime(), toDate()->dateTime(), m_brand->currentData().toInt()});
    showBars();
}

void CDlgCharts::showBars()
{
    const ChartKind &kind = chartKinds[int(this->kind())];
    QVector<KListModel::Row> rows;
    double first = 0;
    double second = 0;
    for (const ChartFigures::Bar &bar : std::as_const(m_bars)) {
        KListModel::Row row{.key = int(rows.size()) + 1, .cells = {{bar.name}}};
        if (!kind.countTitle.isEmpty())
            row.cells.append({QString::number(bar.count), bar.count});
        row.cells.append(figure(kind, bar.first));
        if (!kind.second.isEmpty())
            row.cells.append(figure(kind, bar.second));
        rows.append(row);
        first += bar.first;
        second += bar.second;
    }
    list()->setColumns(columnsOf(kind));
    list()->setRows(std::move(rows));
    list()->selectRow(0);
    countLabel()->setText(SuiteMessages::count(m_bars.size()));
    const QString sum = kind.second.isEmpty() ? u"جمع : %1"_s.arg(figure(kind, first).text) : u"جمع : %1 و %2"_s.arg(figure(kind, first).text, figure(kind, second).text);
    m_sum->setText(kind.isSummed ? sum : QString());
    m_chart->setBars({kind.caption.toString(), kind.first.toString(), kind.second.toString()}, m_bars);
    m_chart->setVisible(!m_bars.isEmpty());
    if (m_bars.isEmpty())
        m_empty->say(u":/icons/table.svg"_s, u"در این بازه چیزی برای نمودار نیست."_s);
    else
        m_empty->dismiss();
}

QString CDlgCharts::rangeText() const
{
    if (!chartKinds[int(kind())].hasRange)
        return u"امروز"_s;
    QStringList words;
    if (const QString from = shamsiText(fromDate()->dateTime().date()); !from.isEmpty())
        words.append(u"از %1"_s.arg(from));
    if (const QString to = shamsiText(toDate()->dateTime().date()); !to.isEmpty())
        words.append(u"تا %1"_s.arg(to));
    return words.join(u' ');
}

ListReport CDlgCharts::listReport() const
{
    const QString caption = chartKinds[int(kind())].caption.toString();
    ListReport report(u"Charts"_s, caption);
    report.setText(u"RightTop"_s, u"گالری اتومبیل"_s);
    report.setText(u"RightCenter"_s, rangeText());
    report.setText(u"LeftBottom"_s, u"تاریخ چاپ : "_s + shamsiText(GetDBSetting()->GetDBServerDate().date()));
    report.setText(u"Count"_s, countLabel()->text());
    report.setText(u"Sum"_s, m_sum->text());
    report.setText(u"Title"_s, caption);
    report.setTable(u"List"_s, list());
    if (!report.loadLayout())
        report.buildStandard(caption);
    return report;
}

void CDlgCharts::drawChart(QPainter &painter, const QRectF &rectangle) const
{
    m_chart->draw(painter, rectangle, rangeText());
}
