// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/income/CDlgAutoFullReport.h"

#include "auto/reports/income/IncomeChart.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/entries/EntryRange.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/frame/KWaitCursor.h"
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
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString section = u"AutoFullReport"_s;
const QString printCaption = u"چاپ"_s;
const QString chartPrintCaption = u"چاپ نمودار"_s;

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
    : KDialog(parent)
    , m_from(new KDateEdit)
    , m_to(new KDateEdit)
    , m_list(new KExtListCtrl)
    , m_chart(new IncomeChart(settings.moneyUnitName()))
    , m_count(new QLabel(u"تعداد : -"_s))
{
    SetFormName(u"AutoFullReport"_s);
    CheckSecurity();
    setWindowTitle(u"گزارش جامع"_s);
    SetSettingName(section);
    m_list->setAccessibleName(windowTitle());
    m_list->setColumns(listColumns());
    m_list->SetSettingName(section + QLatin1String("\\List"));
    connect(m_list, &KExtListCtrl::columnClicked, this, &CDlgAutoFullReport::sortBy);
    connect(m_list, &KExtListCtrl::rowActivated, this, &CDlgAutoFullReport::activated);

    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    column->setSpacing(LookSizes::cardGap);
    column->addWidget(buildFilter());
    column->addWidget(buildBoth(), 1);
    QDialogButtonBox *buttons = createButtons(u"بازگشت"_s, u"انصراف"_s);
    setAsksBeforeDropping(false);
    m_ok = buttons->findChildren<QPushButton *>().constFirst();
    setContent(content, buttons, Content::Fills);
    addCommands();
    resize(LookSizes::scaled(1100), LookSizes::scaled(640));

    m_from->setDateTime(settings.fiscalYearOpeningDate());
    m_to->setDateTime(settings.fiscalYearClosingDate());
    setChoiceMode(false);
    readSettings();
    search();
    m_list->setFocus();
}

CDlgAutoFullReport::~CDlgAutoFullReport() = default;

void CDlgAutoFullReport::Show(QWidget *parent)
{
    KSecurity security;
    security.SetFormName(u"AutoFullReport"_s);
    security.CheckSecurity();
    if (security.CheckAccessSecurity())
        CDlgAutoFullReport(parent).exec();
}

QWidget *CDlgAutoFullReport::buildFilter()
{
    auto *box = new QGroupBox(u"فيلتر جستجو"_s);
    auto *line = new QHBoxLayout(box);
    line->setContentsMargins(LookSizes::cardPadding, LookSizes::unit, LookSizes::cardPadding, LookSizes::unit);
    line->setSpacing(LookSizes::unit);
    addLabelled(line, u"تاريخ :"_s, m_from);
    nameControl(m_to, u"تاريخ تا :"_s);
    addLabelled(line, u"تا :"_s, m_to);
    m_search = addButton(line, u"جستجو"_s, u":/icons/search.svg"_s);
    connect(m_search, &QPushButton::clicked, this, &CDlgAutoFullReport::search);
    // Queued: Enter moves to the next field first, and a wrong entry must have the focus in the end.
    for (KDateEdit *edit : {m_from, m_to})
        connect(edit, &QLineEdit::returnPressed, this, &CDlgAutoFullReport::search, Qt::QueuedConnection);
    connect(new QShortcut(QKeySequence(QKeySequence::Find), this), &QShortcut::activated, m_from,
            [this] { m_from->setFocus(Qt::ShortcutFocusReason); });
    line->addStretch(1);
    LookMarks::setTall(box);
    return box;
}

// The list beside the chart. In a low window the chart, whose bars and names need their room, scrolls.
QWidget *CDlgAutoFullReport::buildBoth()
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
    auto *accounts = new KListCard(m_list, both);
    accounts->addToFoot(m_count);
    both->addWidget(accounts);
    both->addWidget(card);
    both->setChildrenCollapsible(false);
    both->setHandleWidth(LookSizes::sideGap);
    both->setStretchFactor(0, 1);
    both->setStretchFactor(1, 1);
    both->setSizes({620, 480});
    return both;
}

void CDlgAutoFullReport::addCommands()
{
    QPushButton *printButton = addButton(footer(), printCaption, u":/icons/print.svg"_s);
    connect(printButton, &QPushButton::clicked, this, &CDlgAutoFullReport::print);
    auto *shortcut = new QShortcut(QKeySequence(QKeySequence::Print), this);
    connect(shortcut, &QShortcut::activated, printButton, &QPushButton::click);
    printButton->setToolTip(shortcut->key().toString(QKeySequence::NativeText));
    QPushButton *chartButton = addButton(footer(), chartPrintCaption, u":/icons/print.svg"_s);
    connect(chartButton, &QPushButton::clicked, this, &CDlgAutoFullReport::printChart);
}

void CDlgAutoFullReport::setChoiceMode(bool on)
{
    m_choiceMode = on;
    m_ok->setText(on ? u"انتخاب"_s : u"بازگشت"_s);
    m_ok->setAccessibleName(m_ok->text());
    // What the window is for: to pick an account, or to look.
    LookMarks::setButton(m_ok, on ? LookMarks::Button::Primary : LookMarks::Button::Normal);
    LookMarks::setButton(m_search, on ? LookMarks::Button::Normal : LookMarks::Button::Primary);
}

void CDlgAutoFullReport::readSettings()
{
    m_order.column = ReadSetting(section, u"iLastCol"_s, 0);
    if (m_order.column < 0 || m_order.column >= columnCount)
        m_order.column = 0;
    m_order.descending = KSortOrder::isDescending(ReadSetting(section, u"Sort"_s, QString()));
    m_list->setSortMark(m_order.column);
}

void CDlgAutoFullReport::done(int result)
{
    WriteSetting(section, u"iLastCol"_s, m_order.column);
    WriteSetting(section, u"Sort"_s, m_order.expression(listColumns().at(m_order.column).sortKey));
    KDialog::done(result);
}

bool CDlgAutoFullReport::warn(const QString &text, QWidget *field)
{
    g_pDlgWarning->Show(text, this);
    field->setFocus(Qt::OtherFocusReason);
    return false;
}

void CDlgAutoFullReport::search()
{
    if (const auto problem = problemOfDays(m_from, m_to)) {
        warn(problem->message, problem->line);
        return;
    }
    const KWaitCursor wait;
    m_report = ComprehensiveReport::read(m_from->dateTime(), m_to->dateTime());
    m_rangeStart = m_from->dateTime();
    m_rangeEnd = m_to->dateTime();
    m_chart->setReport(m_report);
    showRows();
}

void CDlgAutoFullReport::showRows()
{
    const int selected = m_list->currentKey();
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
    m_list->setRows(std::move(rows));
    if (selected == 0 || !m_list->selectKey(selected))
        m_list->selectRow(first);
    m_count->setText(SuiteMessages::count(m_report.income.accounts.size() + m_report.expenses.accounts.size()));
}

void CDlgAutoFullReport::sortBy(int column)
{
    if (column < 0 || column >= columnCount)
        return;
    m_order = m_order.clicked(column);
    m_list->setSortMark(column);
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
    m_chosenCode = m_list->currentKey();
    return m_chosenCode != 0 || warn(u"لطفا یک حساب را انتخاب نمایید."_s, m_list);
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
    report.setText(u"Count"_s, m_count->text());
    report.setTable(u"List"_s, m_list);
    if (!report.loadLayout())
        report.buildStandard(u"لیست گزارش جامع"_s);
    return report;
}

void CDlgAutoFullReport::print()
{
    if (CheckPrintListSecurity())
        CDlgReportGenerator(listReport(), this).ShowReport();
}

void CDlgAutoFullReport::printChart()
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
    const QString range = fromText() + u' ' + toText();
    m_chart->draw(painter, QRectF(painter.viewport()), windowTitle() + u' ' + range.trimmed());
}
