// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/CDlgImport.h"

#include "suite/accounting/bin/RowDeleting.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/imported/CDlgImportedFiles.h"
#include "suite/accounting/importing/ImportCheckPage.h"
#include "suite/accounting/importing/ImportColumnsPage.h"
#include "suite/accounting/importing/ImportFilePage.h"
#include "suite/accounting/importing/ImportSample.h"
#include "suite/accounting/importing/ImportTexts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/accounting/reports/ReportFile.h"
#include "suite/accounting/waiting/LongWaiting.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/sheets/SheetFile.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCryptographicHash>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLoggingCategory>
#include <QPushButton>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcImport, "tz.import")

// Devices, pipes and folders are refused; never more than the bound is read.
std::optional<QByteArray> readBounded(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray content = file.read(SheetFile::maxBytes + 1);
    return file.error() == QFileDevice::NoError ? std::optional(content) : std::nullopt;
}

const ImportKind &knownKind(const QString &id)
{
    const ImportKind *kind = ImportKinds::of(id);
    Q_ASSERT(kind);
    return *kind;
}

}

CDlgImport::CDlgImport(const QString &kind, QWidget *parent)
    : KDialog(parent)
    , m_kind(knownKind(kind))
    , m_steps(new QStackedWidget)
    , m_file(new ImportFilePage(m_kind))
    , m_columns(new ImportColumnsPage(m_kind.fields()))
    , m_check(new ImportCheckPage)
{
    SetSettingName(u"Import"_s);
    for (QWidget *page : {static_cast<QWidget *>(m_file), static_cast<QWidget *>(m_columns), static_cast<QWidget *>(m_check)})
        m_steps->addWidget(page);
    QDialogButtonBox *buttons = createButtons(u"ادامه"_s);
    for (QAbstractButton *button : buttons->buttons()) {
        if (buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
            m_next = button;
    }
    setContent(m_steps, buttons, Content::Fills);
    setAsksBeforeDropping(false); // the file keeps what the window holds
    m_back = addButton(footer(), u"گام پیشین"_s, u":/icons/fold.svg"_s);
    resize(LookSizes::scaled(900), LookSizes::scaled(600));
    const auto guarded = [this](const std::function<void()> &work) { return [this, work] { KErrorBoundary::guarded(this, work); }; };
    connect(m_back, &QPushButton::clicked, this, guarded([this] { back(); }));
    connect(m_file, &ImportFilePage::fileWanted, this, guarded([this] { chooseFile(); }));
    connect(m_file, &ImportFilePage::sampleWanted, this, guarded([this] { saveSample(); }));
    connect(m_file, &ImportFilePage::earlierWanted, this, guarded([this] { m_tookBack = CDlgImportedFiles::run(m_kind, this) || m_tookBack; }));
    connect(m_columns, &ImportColumnsPage::keepWanted, this, guarded([this] { keepColumns(); }));
    connect(m_columns, &ImportColumnsPage::dropWanted, this, [this](const CTblImportMappings::Entry &entry) { KErrorBoundary::guarded(this, [&] { dropColumns(entry.name); }); });
    connect(m_check, &ImportCheckPage::twinWanted, this, [this](qint32 key) { KErrorBoundary::guarded(this, [&] { RecordWindows::open(m_kind.table(), key, false, this); }); });
    goTo(File);
}

CDlgImport::~CDlgImport() = default;

bool CDlgImport::run(const QString &kind, QWidget *parent)
{
    GetDBSetting()->RequireOpenDB();
    const QString form = knownKind(kind).form();
    if (!KSecurity::IsGranted(form, KSecurity::Write)) {
        g_pDlgWarning->Show(KSecurity::refusalText(form, KSecurity::Write), parent);
        return false;
    }
    CDlgImport dialog(kind, parent);
    return dialog.exec() == Accepted || dialog.m_tookBack;
}

CDlgImport::Step CDlgImport::step() const
{
    return static_cast<Step>(m_steps->currentIndex());
}

void CDlgImport::goTo(Step step)
{
    static const QStringList names{u"فایل"_s, u"ستون‌ها"_s, u"بررسی"_s};
    m_steps->setCurrentIndex(step);
    setWindowTitle(u"ورود از فایل، %1، گام %2 از 3: %3"_s.arg(m_kind.title()).arg(step + 1).arg(names.at(step)));
    m_back->setEnabled(step != File);
    const QString caption = step == Check ? u"ورود"_s : u"ادامه"_s;
    m_next->setText(caption);
    m_next->setAccessibleName(caption);
    if (step == File)
        m_file->chooseButton()->setFocus();
    else if (step == Check)
        m_check->list()->setFocus();
}

void CDlgImport::back()
{
    if (step() != File)
        goTo(static_cast<Step>(step() - 1));
}

bool CDlgImport::refuse(const QString &message, QWidget *focus)
{
    g_pDlgWarning->Show(message, this);
    if (focus)
        focus->setFocus();
    return false;
}

void CDlgImport::chooseFile()
{
    QFileDialog dialog(this, u"فایل را انتخاب کنید"_s, m_folder);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({u"صفحه گسترده و متن (*.xlsx *.csv *.txt *.tsv)"_s, u"همه فایل‌ها (*)"_s});
    if (dialog.exec() == Accepted)
        openFile(dialog.selectedFiles().value(0));
}

bool CDlgImport::openFile(const QString &path)
{
    QList<Sheet> sheets;
    std::optional<QByteArray> content;
    try {
        const KWaitCursor wait;
        content = readBounded(path);
        if (content)
            sheets = SheetFile::read(*content);
    } catch (const SheetError &error) {
        qCInfo(lcImport, "a file was not read: %s", error.what());
        return refuse(ImportTexts::trouble(error), m_file->chooseButton());
    }
    if (!content)
        return refuse(u"این فایل باز نشد."_s, m_file->chooseButton());
    m_folder = QFileInfo(path).path();
    m_content = {QFileInfo(path).fileName(), QString::fromLatin1(QCryptographicHash::hash(*content, QCryptographicHash::Sha256).toHex())};
    m_file->showFile(path, sheets);
    goTo(File);
    m_next->setFocus();
    return true;
}

void CDlgImport::saveSample()
{
    const QString path = ReportFile::ask(u"نمونه "_s + m_kind.title(), u"صفحه گسترده"_s, u"xlsx"_s, this);
    if (path.isEmpty())
        return;
    if (ImportSample::write(m_kind, path))
        ReportFile::tellWritten(path, this);
    else
        g_pDlgWarning->Show(u"فایل نمونه نوشته نشد. پوشه دیگری انتخاب کنید."_s, this);
}

void CDlgImport::keepColumns()
{
    try {
        CTblImportMappings::keep(m_kind.id(), m_columns->keepName(), m_columns->mapping());
    } catch (const FieldRefused &refused) {
        refuse(refused.userMessage(), m_columns->keepEdit());
        return;
    }
    m_columns->showKept(CTblImportMappings::entries(m_kind.id()), m_columns->keepName().trimmed());
    g_pDlgMessage->Show(u"ستون‌ها ذخیره شد."_s, this);
}

void CDlgImport::dropColumns(const QString &name)
{
    CTblImportMappings record;
    record.m_filter = KSql::formatted("sKind=%1 AND sName=%2", KSql::quoted(m_kind.id()), KSql::quoted(name));
    record.Open(true, true, true);
    if (!record.IsEOF() && g_pDlgYesNo->Ask(u"آیا از حذف ستون‌های «%1» اطمینان دارید؟"_s.arg(name), this) == KMessageDialog::Yes) {
        try {
            RowDeleting::run(record);
        } catch (const RowDeleting::Refused &refused) {
            g_pDlgWarning->Show(refused.userMessage(), this);
        }
    }
    m_columns->showKept(CTblImportMappings::entries(m_kind.id()), {});
}

bool CDlgImport::OnOK()
{
    switch (step()) {
    case File:
        if (!m_file->hasFile())
            return refuse(u"لطفا فایل را انتخاب نمایید."_s, m_file->chooseButton());
        m_columns->showSheet(m_file->sheet(), m_file->titleRow(), CTblImportMappings::entries(m_kind.id()));
        goTo(Columns);
        return false;
    case Columns:
        if (const ImportField *missing = m_columns->missing())
            return refuse(u"لطفا ستون «%1» را انتخاب نمایید."_s.arg(missing->title), m_columns->choice(missing->key));
        if (m_columns->columns().isEmpty())
            return refuse(u"لطفا دست کم یک ستون را انتخاب نمایید."_s, m_columns->choice(m_kind.fields().constFirst().key));
        if (checkRows())
            goTo(Check);
        return false;
    case Check:
        break;
    }
    return mayImport() && importRows();
}

bool CDlgImport::checkRows()
{
    m_parsed = ImportMapping::rows(m_file->sheet(), m_file->titleRow(), m_kind.fields(), m_columns->columns());
    if (m_parsed.isEmpty())
        return refuse(u"زیر عنوان‌ها سطری نیست."_s, m_columns->choice(m_kind.fields().constFirst().key));
    Importing::Checked checked;
    try {
        LongWaiting::run(u"فایل بررسی می‌شود."_s, this, [&](const Importing::Progress &progress) { checked = Importing::check(m_kind, m_content, m_parsed, progress); });
    } catch (const Importing::Stopped &) {
        return false;
    }
    m_check->showChecked(checked);
    return true;
}

bool CDlgImport::mayImport()
{
    const Importing::Checked &checked = m_check->checked();
    if (checked.bad() > 0)
        return refuse(u"%1 سطر خطا دارد. فایل را اصلاح کنید و دوباره انتخاب کنید؛ همه فایل با هم وارد می‌شود."_s.arg(checked.bad()), m_check->list());
    if (!checked.problem.isEmpty())
        return refuse(checked.problem, m_check->list());
    if (checked.written() == 0)
        return refuse(u"سطری برای ورود نیست: همه تکراری است."_s, m_check->list());
    if (!KSecurity::IsGranted(m_kind.form(), KSecurity::Write))
        return refuse(KSecurity::refusalText(m_kind.form(), KSecurity::Write), m_check->list());
    if (checked.earlier && g_pDlgYesNo->Ask(ImportTexts::earlier(*checked.earlier), this) != KMessageDialog::Yes)
        return false;
    return checked.question.isEmpty() || g_pDlgYesNo->Ask(checked.question, this) == KMessageDialog::Yes;
}

bool CDlgImport::importRows()
{
    const Importing::Checked agreed = m_check->checked();
    int written = 0;
    try {
        LongWaiting::run(u"ردیف‌ها وارد می‌شوند."_s, this,
                           [&](const Importing::Progress &progress) { written = Importing::write(m_kind, m_content, m_parsed, agreed, progress); });
    } catch (const Importing::Stopped &) {
        return refuse(u"ورود متوقف شد و چیزی وارد نشد."_s, m_check->list());
    } catch (const Importing::Changed &changed) {
        m_check->showChecked(changed.now);
        return refuse(u"در این میان چیزی در برنامه تغییر کرده است و چیزی وارد نشد. نتیجه تازه بررسی را ببینید."_s, m_check->list());
    }
    g_pDlgMessage->Show(ImportTexts::outcome(written, agreed.rows.size() - written), this);
    return true;
}
