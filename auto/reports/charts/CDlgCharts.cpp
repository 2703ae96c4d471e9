// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/charts/CDlgCharts.h"

#include "auto/db/CTblCarBrands.h"
#include "auto/reports/charts/BarChart.h"
#include "auto/reports/charts/ChartReading.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/utility/entries/EntryRange.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

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
    : KDialog(parent)
    , m_kind(new KDropDown)
    , m_from(new KDateEdit)
    , m_to(new KDateEdit)
    , m_brand(new KDropDown)
    , m_list(new KExtListCtrl)
    , m_chart(new BarChart)
    , m_count(new QLabel)
    , m_sum(new QLabel)
{
    SetFormName(chartsForm);
    CheckSecurity();
    setWindowTitle(u"نمودارها"_s);
    SetSettingName(chartsSection);
    m_list->setAccessibleName(windowTitle());
    m_list->SetSettingName(chartsSection + QLatin1String("\\List"));
    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    column->setSpacing(LookSizes::cardGap);
    column->addWidget(buildFilter());
    column->addWidget(buildBoth(), 1);
    QDialogButtonBox *buttons = createButtons(u"بازگشت"_s, {});
    setAsksBeforeDropping(false);
    LookMarks::setButton(buttons->findChildren<QPushButton *>().constFirst(), LookMarks::Button::Normal);
    setContent(content, buttons, Content::Fills);
    addCommands();
    resize(LookSizes::scaled(1100), LookSizes::scaled(640));
    m_from->setDateTime(settings.fiscalYearOpeningDate());
    m_to->setDateTime(settings.fiscalYearClosingDate());
    search();
    m_kind->setFocus();
}

CDlgCharts::~CDlgCharts() = default;

void CDlgCharts::Show(QWidget *parent)
{
    KSecurity security;
    security.SetFormName(chartsForm);
    security.CheckSecurity();
    if (security.CheckAccessSecurity())
        CDlgCharts(parent).exec();
}

QWidget *CDlgCharts::buildFilter()
{
    for (const ChartKind &kind : chartKinds)
        m_kind->addItem(kind.caption.toString());
    m_brand->addItem(u"همه"_s, 0);
    CTblCarBrands brands;
    brands.SetColumns({u"sName"_s});
    brands.m_sort = "sName";
    for (brands.Open(true, true, true); !brands.IsEOF(); brands.MoveNext())
        m_brand->addItem(brands.m_sName, brands.m_iID);
    auto *box = new QGroupBox(u"فيلتر جستجو"_s);
    auto *line = new QHBoxLayout(box);
    line->setContentsMargins(LookSizes::cardPadding, LookSizes::unit, LookSizes::cardPadding, LookSizes::unit);
    line->setSpacing(LookSizes::unit);
    addLabelled(line, u"نمودار :"_s, m_kind);
    addLabelled(line, u"تاريخ :"_s, m_from);
    nameControl(m_to, u"تاريخ تا :"_s);
    addLabelled(line, u"تا :"_s, m_to);
    addLabelled(line, u"برند :"_s, m_brand);
    QPushButton *go = addButton(line, u"جستجو"_s, u":/icons/search.svg"_s);
    LookMarks::setButton(go, LookMarks::Button::Primary);
    connect(go, &QPushButton::clicked, this, &CDlgCharts::search);
    // Queued: Enter moves to the next field first, and a wrong entry must have the focus in the end.
    for (KDateEdit *edit : {m_from, m_to})
        connect(edit, &QLineEdit::returnPressed, this, &CDlgCharts::search, Qt::QueuedConnection);
    for (KDropDown *choice : {m_kind, m_brand})
        connect(choice, &QComboBox::currentIndexChanged, this, &CDlgCharts::search);
    line->addStretch(1);
    LookMarks::setTall(box);
    return box;
}

QWidget *CDlgCharts::buildBoth()
{
    auto *card = new QGroupBox;
    auto *chart = new QScrollArea(card);
    chart->setWidget(m_chart);
    chart->setWidgetResizable(true);
    chart->setFrameShape(QFrame::NoFrame);
    chart->setFocusPolicy(Qt::NoFocus);
    chart->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    chart->setMinimumWidth(m_chart->minimumSizeHint().width());
    auto *inside = new QVBoxLayout(card);
    inside->setContentsMargins(LookSizes::unit, LookSizes::unit, LookSizes::unit, LookSizes::unit);
    inside->addWidget(chart);
    auto *both = new QSplitter;
    auto *figures = new KListCard(m_list, both);
    figures->addToFoot(m_count);
    figures->addToFoot(m_sum);
    m_empty = new KEmptyState(m_list);
    both->addWidget(figures);
    both->addWidget(card);
    both->setChildrenCollapsible(false);
    both->setHandleWidth(LookSizes::sideGap);
    both->setStretchFactor(0, 1);
    both->setStretchFactor(1, 1);
    both->setSizes({480, 620});
    return both;
}

void CDlgCharts::addCommands()
{
    QPushButton *printButton = addButton(footer(), u"چاپ"_s, u":/icons/print.svg"_s);
    connect(printButton, &QPushButton::clicked, this, &CDlgCharts::print);
    auto *shortcut = new QShortcut(QKeySequence(QKeySequence::Print), this);
    connect(shortcut, &QShortcut::activated, printButton, &QPushButton::click);
    printButton->setToolTip(shortcut->key().toString(QKeySequence::NativeText));
    QPushButton *chartButton = addButton(footer(), u"چاپ نمودار"_s, u":/icons/print.svg"_s);
    connect(chartButton, &QPushButton::clicked, this, &CDlgCharts::printChart);
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
    for (KDateEdit *edit : {m_from, m_to})
        edit->setEnabled(kind.hasRange);
    m_brand->setEnabled(kind.hasBrand);
    if (const auto problem = kind.hasRange ? problemOfDays(m_from, m_to) : std::nullopt) {
        g_pDlgWarning->Show(problem->message, this);
        problem->line->setFocus(Qt::OtherFocusReason);
        return;
    }
    const KWaitCursor wait;
    m_bars = kind.read({m_from->dateTime(), m_to->dateTime(), m_brand->currentData().toInt()});
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
    m_list->setColumns(columnsOf(kind));
    m_list->setRows(std::move(rows));
    m_list->selectRow(0);
    m_count->setText(SuiteMessages::count(m_bars.size()));
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
    if (const QString from = shamsiText(m_from->dateTime().date()); !from.isEmpty())
        words.append(u"از %1"_s.arg(from));
    if (const QString to = shamsiText(m_to->dateTime().date()); !to.isEmpty())
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
    report.setText(u"Count"_s, m_count->text());
    report.setText(u"Sum"_s, m_sum->text());
    report.setText(u"Title"_s, caption);
    report.setTable(u"List"_s, m_list);
    if (!report.loadLayout())
        report.buildStandard(caption);
    return report;
}

void CDlgCharts::print()
{
    if (CheckPrintListSecurity())
        CDlgReportGenerator(listReport(), this).ShowReport();
}

void CDlgCharts::printChart()
{
    if (!CheckPrintListSecurity())
        return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    printer.setDocName(windowTitle());
    QPainter painter;
    ReportOutput::begin(painter, printer);
    m_chart->draw(painter, QRectF(painter.viewport()), rangeText());
}
