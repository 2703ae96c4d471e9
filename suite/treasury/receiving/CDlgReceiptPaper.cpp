// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/CDlgReceiptPaper.h"

#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/reports/KWndReportGen.h"
#include "suite/accounting/reports/ReportFile.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/frame/TabOrder.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString paperSection = u"ReceiptPaper"_s;
const QString sizeKey = u"iSize"_s;

}

CDlgReceiptPaper::CDlgReceiptPaper(const QList<ReceiptDetails> &receipts, QWidget *parent)
    : KDialog(parent)
    , m_receipts(receipts)
    , m_office(CompanyDetails::read())
    , m_moneyUnit(OfficeSettings::read().moneyUnitName())
{
    SetSettingName(paperSection);
    setWindowTitle(u"پیش نمایش چاپ - %1"_s.arg(receipts.isEmpty() ? QString() : ReceiptPaper::titleOf(receipts.constFirst())));
    resize(LookSizes::scaled(860), LookSizes::scaled(700));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    build();
    showPaper();
    m_pages->setFocus();
}

CDlgReceiptPaper::~CDlgReceiptPaper() = default;

void CDlgReceiptPaper::show(const QList<int> &receiptIDs, QWidget *parent)
{
    KSecurity security;
    security.SetFormName(u"Receipts"_s);
    if (!security.CheckReadSecurity())
        return;
    QList<ReceiptDetails> receipts;
    for (const int id : receiptIDs) {
        if (const std::optional<ReceiptDetails> found = ReceiptDetails::read(id))
            receipts.append(*found);
    }
    if (receipts.isEmpty()) {
        g_pDlgWarning->Show(u"این رسید دیگر وجود ندارد."_s, parent);
        return;
    }
    CDlgReceiptPaper(receipts, parent).exec();
}

void CDlgReceiptPaper::build()
{
    m_pages = new KWndReportGen(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(buildBar());
    layout->addWidget(m_pages, 1);
    tabInLayoutOrder(this);
    connect(m_pages, &KWndReportGen::pageChanged, this, &CDlgReceiptPaper::showPosition);
}

QWidget *CDlgReceiptPaper::buildBar()
{
    auto *bar = new QWidget(this);
    LookMarks::setBar(bar, LookMarks::Bar::Top);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    row->setSpacing(LookSizes::unit);
    QPushButton *print = addButton(row, u"چاپ"_s, u":/icons/print.svg"_s);
    QPushButton *pdf = addButton(row, u"ذخیره PDF"_s, u":/icons/save.svg"_s);
    m_size = new KDropDown;
    m_size->addItem(u"A5"_s, int(ReceiptPaper::Size::A5));
    m_size->addItem(u"A4 (دو نسخه)"_s, int(ReceiptPaper::Size::A4));
    addLabelled(row, u"کاغذ :"_s, m_size);
    m_previous = addButton(row, u"قبلی"_s);
    m_next = addButton(row, u"بعدی"_s);
    m_position = new QLabel;
    row->addWidget(m_position);
    row->addStretch(1);
    QPushButton *close = addButton(row, u"بازگشت"_s, u":/icons/close.svg"_s);
    print->setShortcut(QKeySequence::Print);
    LookMarks::setButton(print, LookMarks::Button::Primary);
    m_size->setCurrentIndex(std::max(0, m_size->findData(ReadSetting(paperSection, sizeKey, int(ReceiptPaper::Size::A5)))));
    connect(print, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { choosePrinter(); }); });
    connect(pdf, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { askAndSavePdf(); }); });
    connect(close, &QPushButton::clicked, this, &CDlgReceiptPaper::reject);
    connect(m_size, &QComboBox::activated, this, [this] {
        WriteSetting(paperSection, sizeKey, int(size()));
        showPaper();
    });
    connect(m_previous, &QPushButton::clicked, this, [this] { m_pages->showPage(m_pages->currentPage() - 1); });
    connect(m_next, &QPushButton::clicked, this, [this] { m_pages->showPage(m_pages->currentPage() + 1); });
    LookMarks::setTall(bar);
    return bar;
}

ReceiptPaper::Size CDlgReceiptPaper::size() const
{
    return static_cast<ReceiptPaper::Size>(m_size->currentData().toInt());
}

ReceiptPaper CDlgReceiptPaper::paper() const
{
    return {m_receipts, m_office, m_moneyUnit, size()};
}

void CDlgReceiptPaper::showPaper()
{
    const int page = m_pages->currentPage();
    m_pages->setPages(std::make_unique<ReceiptPaper>(paper()));
    m_pages->showPage(page);
    showPosition();
}

void CDlgReceiptPaper::showPosition()
{
    const int page = m_pages->currentPage();
    const int count = m_pages->pageCount();
    for (QWidget *control : {static_cast<QWidget *>(m_previous), static_cast<QWidget *>(m_next), static_cast<QWidget *>(m_position)})
        control->setVisible(count > 1);
    m_previous->setEnabled(page > 0);
    m_next->setEnabled(page + 1 < count);
    m_position->setText(u"رسید %1 از %2"_s.arg(page + 1).arg(count));
}

void CDlgReceiptPaper::savePdf(const QString &path) const
{
    (void)ReportOutput::writePagesPdf(paper(), ReceiptPaper::titleOf(m_receipts.constFirst()), path);
}

void CDlgReceiptPaper::askAndSavePdf()
{
    const ReceiptDetails &first = m_receipts.constFirst();
    const QString name = u"%1 %2"_s.arg(ReceiptPaper::titleOf(first)).arg(first.number);
    const QString path = ReportFile::ask(name, u"فایل PDF"_s, u"pdf"_s, this);
    if (path.isEmpty())
        return;
    savePdf(path);
    ReportFile::tellWritten(path, this);
}

void CDlgReceiptPaper::choosePrinter()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(paper().paper());
    QPrintDialog dialog(&printer, this);
    dialog.setMinMax(1, m_pages->pageCount());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() == QDialog::Accepted)
        (void)ReportOutput::printPages(paper(), ReceiptPaper::titleOf(m_receipts.constFirst()), printer);
}
