// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/CDlgReportGenerator.h"

#include "suite/accounting/changes/OfficeEvents.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/reports/CDlgReportLayout.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/reports/KWndReportGen.h"
#include "suite/accounting/reports/ReportFile.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/accounting/reports/ReportProgressWindow.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/frame/TabOrder.h"
#include "suite/utility/look/LookSizes.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

// In the history.
QString nameOf(const ListReport &report)
{
    const QString title = report.shownTitle();
    return title.isEmpty() ? report.report() : title;
}

constexpr std::array scales{0.5, 0.75, 1.0, 1.25, 1.5, 2.0};
constexpr int fitWidthChoice = 0;
constexpr int fitPageChoice = 1;

}

CDlgReportGenerator::CDlgReportGenerator(const QString &group, const QString &report, QWidget *parent)
    : CDlgReportGenerator(ListReport(group, report), parent)
{
}

CDlgReportGenerator::CDlgReportGenerator(const ListReport &report, QWidget *parent)
    : KDialog(parent)
    , m_report(report)
{
    SetSettingName(u"ReportGenerator"_s);
    resize(LookSizes::scaled(1000), LookSizes::scaled(720));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    build();
}

CDlgReportGenerator::~CDlgReportGenerator() = default;

void CDlgReportGenerator::build()
{
    m_pages = new KWndReportGen(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(buildCommands());
    layout->addWidget(m_pages, 1);
    layout->addWidget(buildNavigation());
    tabInLayoutOrder(this);
    connect(m_pages, &KWndReportGen::pageChanged, this, &CDlgReportGenerator::showPosition);
}

QHBoxLayout *CDlgReportGenerator::makeBar(LookMarks::Bar kind)
{
    auto *bar = new QWidget(this);
    LookMarks::setBar(bar, kind);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    row->setSpacing(LookSizes::unit);
    return row;
}

QWidget *CDlgReportGenerator::buildCommands()
{
    QHBoxLayout *row = makeBar(LookMarks::Bar::Top);
    QPushButton *print = addButton(row, u"چاپ"_s, u":/icons/print.svg"_s);
    QPushButton *pdf = addButton(row, u"ذخیره PDF"_s, u":/icons/save.svg"_s);
    QPushButton *sheet = addButton(row, u"صفحه گسترده"_s, u":/icons/document.svg"_s);
    QPushButton *arrange = addButton(row, u"چیدمان گزارش"_s, u":/icons/settings.svg"_s);
    row->addStretch(1);
    QPushButton *close = addButton(row, u"بازگشت"_s, u":/icons/close.svg"_s);
    print->setShortcut(QKeySequence::Print);
    // A layout is data of the office.
    arrange->setVisible(!GetDBSetting()->IsClosedDB());
    connect(print, &QPushButton::clicked, this, &CDlgReportGenerator::choosePrinter);
    connect(pdf, &QPushButton::clicked, this, [this] { askAndSavePdf(m_report, this); });
    connect(sheet, &QPushButton::clicked, this, [this] { askAndSaveSpreadsheet(m_report, this); });
    connect(arrange, &QPushButton::clicked, this, &CDlgReportGenerator::arrangeLayout);
    connect(close, &QPushButton::clicked, this, &CDlgReportGenerator::reject);
    LookMarks::setButton(print, LookMarks::Button::Primary);
    return row->parentWidget();
}

QWidget *CDlgReportGenerator::buildNavigation()
{
    QHBoxLayout *row = makeBar(LookMarks::Bar::Bottom);
    m_first = addButton(row, u"ابتدا"_s);
    m_previous = addButton(row, u"قبلی"_s);
    m_page = new QSpinBox;
    m_page->setKeyboardTracking(false);
    m_pageCount = new QLabel;
    addLabelled(row, u"صفحه"_s, m_page);
    row->addWidget(m_pageCount);
    m_next = addButton(row, u"بعدی"_s);
    m_last = addButton(row, u"انتها"_s);
    row->addStretch(1);
    m_zoom = new KDropDown;
    m_zoom->addItems({u"عرض صفحه"_s, u"تمام صفحه"_s});
    for (const double scale : scales)
        m_zoom->addItem(u"%1%"_s.arg(qRound(scale * 100)));
    addLabelled(row, u"بزرگنمایی :"_s, m_zoom);

    connect(m_first, &QPushButton::clicked, this, [this] { m_pages->showPage(0); });
    connect(m_previous, &QPushButton::clicked, this, [this] { m_pages->showPage(m_pages->currentPage() - 1); });
    connect(m_next, &QPushButton::clicked, this, [this] { m_pages->showPage(m_pages->currentPage() + 1); });
    connect(m_last, &QPushButton::clicked, this, [this] { m_pages->showPage(m_pages->pageCount() - 1); });
    connect(m_page, &QSpinBox::valueChanged, this, [this](int page) { m_pages->showPage(page - 1); });
    connect(m_zoom, &QComboBox::activated, this, &CDlgReportGenerator::applyZoom);
    LookMarks::setTall(row->parentWidget());
    return row->parentWidget();
}

void CDlgReportGenerator::applyZoom(int choice)
{
    if (choice == fitWidthChoice)
        m_pages->setFit(KWndReportGen::FitWidth);
    else if (choice == fitPageChoice)
        m_pages->setFit(KWndReportGen::FitPage);
    else
        m_pages->setScale(scales.at(static_cast<size_t>(choice) - 2));
}

bool CDlgReportGenerator::layOut()
{
    ReportProgressWindow progress(u"در حال صفحه بندی ..."_s, this);
    if (!m_pages->setReport(m_report, progress.callback()))
        return false;
    setWindowTitle(u"پیش نمایش چاپ - %1"_s.arg(m_report.shownTitle()));
    showPosition();
    return true;
}

void CDlgReportGenerator::showPosition()
{
    const int page = m_pages->currentPage(), count = m_pages->pageCount();
    const QSignalBlocker quiet(m_page);
    m_page->setRange(1, count);
    m_page->setValue(page + 1);
    m_pageCount->setText(u"از %1"_s.arg(count));
    m_first->setEnabled(page > 0);
    m_previous->setEnabled(page > 0);
    m_next->setEnabled(page + 1 < count);
    m_last->setEnabled(page + 1 < count);
}

void CDlgReportGenerator::ShowReport()
{
    if (!layOut())
        return;
    m_pages->setFocus();
    exec();
}

bool CDlgReportGenerator::savePdf(const ListReport &report, const QString &path, QWidget *parent)
{
    ReportProgressWindow progress(u"در حال نوشتن فایل PDF ..."_s, parent);
    if (!ReportOutput::writePdf(report, path, progress.callback()))
        return false;
    OfficeEvents::noteExport(nameOf(report), u"PDF"_s, report.rows().size());
    return true;
}

bool CDlgReportGenerator::saveSpreadsheet(const ListReport &report, const QString &path, QWidget *parent)
{
    ReportProgressWindow progress(u"در حال نوشتن صفحه گسترده ..."_s, parent);
    if (!ReportOutput::writeSpreadsheet(report, path, progress.callback()))
        return false;
    OfficeEvents::noteExport(nameOf(report), u"صفحه گسترده"_s, report.rows().size());
    return true;
}

bool CDlgReportGenerator::print(const ListReport &report, QPrinter &printer, QWidget *parent)
{
    ReportProgressWindow progress(u"در حال چاپ ..."_s, parent);
    if (!ReportOutput::print(report, printer, progress.callback()))
        return false;
    OfficeEvents::noteExport(nameOf(report), u"چاپ"_s, report.rows().size());
    return true;
}

void CDlgReportGenerator::askAndSavePdf(const ListReport &report, QWidget *parent)
{
    const QString path = ReportFile::ask(report.report(), u"فایل PDF"_s, u"pdf"_s, parent);
    if (!path.isEmpty() && savePdf(report, path, parent))
        ReportFile::tellWritten(path, parent);
}

QString CDlgReportGenerator::fileName(const ListReport &report, const QString &suffix)
{
    return ReportFile::name(report.report(), suffix);
}

void CDlgReportGenerator::askAndSaveSpreadsheet(const ListReport &report, QWidget *parent)
{
    const QString path = ReportFile::ask(report.report(), u"صفحه گسترده"_s, u"xlsx"_s, parent);
    if (!path.isEmpty() && saveSpreadsheet(report, path, parent))
        ReportFile::tellWritten(path, parent);
}

bool CDlgReportGenerator::arrange(ListReport &report, QWidget *parent)
{
    CDlgReportLayout dialog(report, parent);
    if (dialog.exec() != QDialog::Accepted)
        return dialog.storedChanged();
    report.setLayout(dialog.layoutOfFields());
    return true;
}

void CDlgReportGenerator::choosePrinter()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(ReportPainter(m_report).paper());
    QPrintDialog dialog(&printer, this);
    dialog.setMinMax(1, m_pages->pageCount());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() == QDialog::Accepted)
        (void)print(m_report, printer, this);
}

void CDlgReportGenerator::arrangeLayout()
{
    const ReportLayout before = m_report.layout();
    if (!arrange(m_report, this) || m_report.layout() == before)
        return;
    if (layOut())
        return;
    // Stopped: the pages on screen are those of the layout before.
    m_report.setLayout(before);
}
