// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/papers/CDlgPaper.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/reports/KWndReportGen.h"
#include "suite/accounting/reports/ReportFile.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/accounting/reports/ReportProgressWindow.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/frame/KWaitCursor.h"
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

// Of the papers' windows the size is one's own, the place on the screen all's.
const QString windowSection = u"Paper"_s;
const QString sizeKey = u"iSize"_s;

}

CDlgPaper::CDlgPaper(const QList<PaperSheet> &sheets, QWidget *parent)
    : KDialog(parent)
    , m_sheets(sheets)
    , m_office(Letterhead::read())
{
    SetSettingName(windowSection);
    setWindowTitle(u"پیش نمایش چاپ - %1"_s.arg(sheets.isEmpty() ? QString() : sheets.constFirst().title));
    resize(LookSizes::scaled(860), LookSizes::scaled(700));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    build();
    showPaper();
    m_pages->setFocus();
}

CDlgPaper::~CDlgPaper() = default;

void CDlgPaper::run(const QString &form, KSecurity::Right right, const Make &make, const QString &gone, QWidget *parent)
{
    KSecurity security;
    security.SetFormName(form);
    if (!security.CheckReadSecurity() || (right == KSecurity::PrintList && !security.CheckPrintListSecurity()))
        return;
    QList<PaperSheet> sheets;
    {
        const KWaitCursor wait;
        sheets = make();
    }
    if (sheets.isEmpty())
        g_pDlgWarning->Show(gone, parent);
    else
        CDlgPaper(sheets, parent).exec();
}

void CDlgPaper::build()
{
    m_pages = new KWndReportGen(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(buildBar());
    layout->addWidget(m_pages, 1);
    tabInLayoutOrder(this);
    connect(m_pages, &KWndReportGen::pageChanged, this, &CDlgPaper::showPosition);
}

QWidget *CDlgPaper::buildBar()
{
    auto *bar = new QWidget(this);
    LookMarks::setBar(bar, LookMarks::Bar::Top);
    auto *row = new QHBoxLayout(bar);
    row->setContentsMargins(LookSizes::windowMargin, LookSizes::unit, LookSizes::windowMargin, LookSizes::unit);
    row->setSpacing(LookSizes::unit);
    QPushButton *print = addButton(row, u"چاپ"_s, u":/icons/print.svg"_s);
    QPushButton *pdf = addButton(row, u"ذخیره PDF"_s, u":/icons/save.svg"_s);
    const PaperSheet &first = m_sheets.constFirst();
    m_fileButton = addButton(row, u"بایگانی"_s, u":/icons/archive.svg"_s);
    m_fileButton->hide();
    m_size = new KDropDown;
    m_size->addItem(u"A5"_s, int(SheetPages::Size::A5));
    m_size->addItem(first.isSlip ? u"A4 (دو نسخه)"_s : u"A4"_s, int(SheetPages::Size::A4));
    addLabelled(row, u"کاغذ :"_s, m_size);
    m_previous = addButton(row, u"قبلی"_s);
    m_next = addButton(row, u"بعدی"_s);
    m_position = new QLabel;
    row->addWidget(m_position);
    row->addStretch(1);
    QPushButton *close = addButton(row, u"بازگشت"_s, u":/icons/close.svg"_s);
    print->setShortcut(QKeySequence::Print);
    LookMarks::setButton(print, LookMarks::Button::Primary);
    m_size->setCurrentIndex(std::max(0, m_size->findData(ReadSetting(first.kind, sizeKey, int(first.isSlip ? SheetPages::Size::A5 : SheetPages::Size::A4)))));
    connect(print, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { choosePrinter(); }); });
    connect(pdf, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { askAndSavePdf(); }); });
    connect(m_fileButton, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { fileSheets(); }); });
    connect(close, &QPushButton::clicked, this, &CDlgPaper::reject);
    connect(m_size, &QComboBox::activated, this, [this] {
        WriteSetting(m_sheets.constFirst().kind, sizeKey, int(size()));
        showPaper();
    });
    connect(m_previous, &QPushButton::clicked, this, [this] { m_pages->showPage(m_pages->currentPage() - 1); });
    connect(m_next, &QPushButton::clicked, this, [this] { m_pages->showPage(m_pages->currentPage() + 1); });
    LookMarks::setTall(bar);
    return bar;
}

SheetPages::Size CDlgPaper::size() const
{
    return static_cast<SheetPages::Size>(m_size->currentData().toInt());
}

SheetPages CDlgPaper::paper() const
{
    return {m_sheets, m_office, size()};
}

void CDlgPaper::showPaper()
{
    const int page = m_pages->currentPage();
    m_pages->setPages(std::make_unique<SheetPages>(paper()));
    m_pages->showPage(page);
    showPosition();
}

void CDlgPaper::showPosition()
{
    const int page = m_pages->currentPage();
    const int count = m_pages->pageCount();
    for (QWidget *control : {static_cast<QWidget *>(m_previous), static_cast<QWidget *>(m_next), static_cast<QWidget *>(m_position)})
        control->setVisible(count > 1);
    m_previous->setEnabled(page > 0);
    m_next->setEnabled(page + 1 < count);
    m_position->setText(u"صفحه %1 از %2"_s.arg(page + 1).arg(count));
}

void CDlgPaper::savePdf(const QString &path)
{
    (void)ReportOutput::writePagesPdf(paper(), m_sheets.constFirst().title, path);
    m_isHandedOut = true;
}

void CDlgPaper::offerFiling(const File &file, const QString &done)
{
    m_file = file;
    m_filedWords = done;
    m_fileButton->show();
}

void CDlgPaper::fileSheets()
{
    if (!m_file || m_filed.size() == m_sheets.size())
        return;
    const qsizetype before = m_filed.size();
    const QStringList failures = fileEach();
    if (m_filed.size() == m_sheets.size()) {
        m_isHandedOut = true;
        m_fileButton->setEnabled(false);
    }
    if (!failures.isEmpty())
        g_pDlgWarning->Show(failures.join(u'\n'), this);
    if (m_filed.size() > before)
        g_pDlgMessage->Show(m_filedWords.arg(m_filed.size() - before), this);
}

// Each is a unit of its own: one that cannot be filed keeps none of the others back. Why not, of those.
QStringList CDlgPaper::fileEach()
{
    constexpr qsizetype most = 6; // a message that names more is not read
    const KWaitCursor wait;
    ReportProgressWindow progress(u"برگه‌ها بایگانی می‌شوند..."_s, this);
    const ReportProgress goOn = progress.callback();
    QStringList failures;
    for (qsizetype i = 0; i < m_sheets.size(); ++i) {
        if (m_filed.contains(i))
            continue;
        if (!goOn(int(i), int(m_sheets.size())))
            break;
        try {
            m_file(i, ReportOutput::pagesPdf(SheetPages({m_sheets.at(i)}, m_office, size()), m_sheets.at(i).title));
            m_filed.insert(i);
        } catch (const KAccountingError &error) {
            failures.append(error.userMessage());
        }
    }
    if (failures.size() > most) {
        const qsizetype rest = failures.size() - most;
        failures = failures.mid(0, most) + QStringList{u"و %1 مورد دیگر"_s.arg(rest)};
    }
    return failures;
}

void CDlgPaper::askAndSavePdf()
{
    const QString path = ReportFile::ask(m_sheets.constFirst().fileName, u"فایل PDF"_s, u"pdf"_s, this);
    if (path.isEmpty())
        return;
    savePdf(path);
    ReportFile::tellWritten(path, this);
}

void CDlgPaper::choosePrinter()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(paper().paper());
    QPrintDialog dialog(&printer, this);
    dialog.setMinMax(1, m_pages->pageCount());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() == QDialog::Accepted)
        m_isHandedOut = ReportOutput::printPages(paper(), m_sheets.constFirst().title, printer) || m_isHandedOut;
}
