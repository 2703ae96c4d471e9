// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/ChartWindow.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/utility/entries/EntryRange.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

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

using namespace Qt::StringLiterals;

ChartWindow::ChartWindow(const QString &form, const QString &title, const QString &section, QWidget *parent)
    : KDialog(parent)
    , m_from(new KDateEdit)
    , m_to(new KDateEdit)
    , m_list(new KExtListCtrl)
    , m_count(new QLabel(u"تعداد : -"_s))
{
    SetFormName(form);
    CheckSecurity();
    setWindowTitle(title);
    SetSettingName(section);
    m_list->setAccessibleName(title);
    m_list->SetSettingName(section + QLatin1String("\\List"));
}

ChartWindow::~ChartWindow() = default;

bool ChartWindow::mayOpen(const QString &form)
{
    KSecurity security;
    security.SetFormName(form);
    security.CheckSecurity();
    return security.CheckAccessSecurity();
}

void ChartWindow::build(const Parts &parts, const OfficeSettings &settings)
{
    auto *content = new QWidget(this);
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    column->setSpacing(LookSizes::cardGap);
    column->addWidget(buildFilter());
    column->addWidget(buildBoth(parts), 1);
    QDialogButtonBox *buttons = createButtons(u"بازگشت"_s, parts.cancel);
    setAsksBeforeDropping(false);
    m_ok = buttons->findChildren<QPushButton *>().constFirst();
    setContent(content, buttons, Content::Fills);
    addCommands();
    resize(LookSizes::scaled(1100), LookSizes::scaled(640));
    m_from->setDateTime(settings.fiscalYearOpeningDate());
    m_to->setDateTime(settings.fiscalYearClosingDate());
}

QWidget *ChartWindow::buildFilter()
{
    auto *box = new QGroupBox(u"فيلتر جستجو"_s);
    auto *line = new QHBoxLayout(box);
    line->setContentsMargins(LookSizes::cardPadding, LookSizes::unit, LookSizes::cardPadding, LookSizes::unit);
    line->setSpacing(LookSizes::unit);
    addBeforeDays(line);
    addLabelled(line, u"تاريخ :"_s, m_from);
    nameControl(m_to, u"تاريخ تا :"_s);
    addLabelled(line, u"تا :"_s, m_to);
    addBehindDays(line);
    m_search = addButton(line, u"جستجو"_s, u":/icons/search.svg"_s);
    connect(m_search, &QPushButton::clicked, this, &ChartWindow::search);
    // Queued: Enter moves to the next field first, and a wrong entry must have the focus in the end.
    for (KDateEdit *edit : {m_from, m_to})
        connect(edit, &QLineEdit::returnPressed, this, &ChartWindow::search, Qt::QueuedConnection);
    connect(new QShortcut(QKeySequence(QKeySequence::Find), this), &QShortcut::activated, m_from, [this] { m_from->setFocus(Qt::ShortcutFocusReason); });
    line->addStretch(1);
    LookMarks::setTall(box);
    return box;
}

// The list beside the chart. In a low window the chart, whose bars and names need their room, scrolls.
QWidget *ChartWindow::buildBoth(const Parts &parts)
{
    auto *card = new QGroupBox;
    auto *chart = new QScrollArea(card);
    chart->setWidget(parts.chart);
    chart->setWidgetResizable(true);
    chart->setFrameShape(QFrame::NoFrame);
    chart->setFocusPolicy(Qt::NoFocus);
    chart->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    chart->setMinimumWidth(parts.chart->minimumSizeHint().width());
    auto *inside = new QVBoxLayout(card);
    inside->setContentsMargins(LookSizes::unit, LookSizes::unit, LookSizes::unit, LookSizes::unit);
    inside->addWidget(chart);
    auto *both = new QSplitter;
    auto *figures = new KListCard(m_list, both);
    figures->addToFoot(m_count);
    for (QWidget *foot : parts.foot)
        figures->addToFoot(foot);
    both->addWidget(figures);
    both->addWidget(card);
    both->setChildrenCollapsible(false);
    both->setHandleWidth(LookSizes::sideGap);
    both->setStretchFactor(0, 1);
    both->setStretchFactor(1, 1);
    both->setSizes({parts.listWidth, parts.chartWidth});
    return both;
}

void ChartWindow::addCommands()
{
    QPushButton *printButton = addButton(footer(), u"چاپ"_s, u":/icons/print.svg"_s);
    connect(printButton, &QPushButton::clicked, this, &ChartWindow::print);
    auto *shortcut = new QShortcut(QKeySequence(QKeySequence::Print), this);
    connect(shortcut, &QShortcut::activated, printButton, &QPushButton::click);
    printButton->setToolTip(shortcut->key().toString(QKeySequence::NativeText));
    QPushButton *chartButton = addButton(footer(), u"چاپ نمودار"_s, u":/icons/print.svg"_s);
    connect(chartButton, &QPushButton::clicked, this, &ChartWindow::printChart);
}

bool ChartWindow::warn(const QString &text, QWidget *field)
{
    g_pDlgWarning->Show(text, this);
    field->setFocus(Qt::OtherFocusReason);
    return false;
}

bool ChartWindow::checkDays()
{
    const auto problem = problemOfDays(m_from, m_to);
    return !problem || warn(problem->message, problem->line);
}

void ChartWindow::print()
{
    if (CheckPrintListSecurity())
        CDlgReportGenerator(listReport(), this).ShowReport();
}

void ChartWindow::printChart()
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
    drawChart(painter, QRectF(painter.viewport()));
}
