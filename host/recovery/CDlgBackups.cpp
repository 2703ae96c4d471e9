// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/recovery/CDlgBackups.h"

#include "host/backup/BackupRestoring.h"
#include "host/backup/BackupScratch.h"
#include "host/frame/StartupClock.h"
#include "host/keeping/BackupKeeper.h"
#include "host/keeping/BackupProgress.h"
#include "host/keeping/BackupsHere.h"
#include "host/recovery/Backup.h"
#include "host/recovery/BackupColumns.h"
#include "host/recovery/BackupViewer.h"
#include "host/recovery/CDlgBackupUnlock.h"
#include "host/recovery/RestoreLoss.h"
#include "host/recovery/RestoreQuestions.h"
#include "host/server/ServerError.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KListCommands.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/accounting/recovery/CDlgRestoreRecords.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

CDlgBackups::CDlgBackups(const DataFolder &folder, BackupKeeper *keeper, QWidget *parent)
    : KDialog(parent)
    , m_folder(folder)
    , m_keeper(keeper)
    , m_list(new KExtListCtrl)
    , m_count(new QLabel)
{
    setWindowTitle(u"پشتیبان‌ها"_s);
    SetSettingName(u"Backups"_s);
    build();
    resize(LookSizes::scaled(1100), LookSizes::scaled(560));
    refill();
    m_list->setFocus();
    if (m_keeper)
        connect(m_keeper, &BackupKeeper::standingChanged, this, &CDlgBackups::refill);
}

RestoreRequest CDlgBackups::choose(const DataFolder &folder, BackupKeeper *keeper, QWidget *parent)
{
    try {
        CTblUsers::requireAdministrator();
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), parent);
        return {};
    }
    CDlgBackups dialog(folder, keeper, parent);
    dialog.exec();
    return dialog.request();
}

void CDlgBackups::build()
{
    m_list->setAccessibleName(windowTitle());
    m_list->setColumns(BackupColumns::columns());
    m_list->SetSettingName(u"Backups\\List"_s);
    m_empty = new KEmptyState(m_list);
    connect(m_empty, &KEmptyState::pressed, this, [this] { runCommand(u"take"); });
    connect(m_list, &KExtListCtrl::rowActivated, this, [this] { runCommand(u"lookInto"); });

    auto *cards = new CardPage(1100);
    cards->addList(m_list)->addToFoot(m_count);
    m_commands = new KListCommands(
        commands(), {.list = m_list, .guard = [this](const std::function<void()> &work) { guarded(work); }}, cards);
    cards->addLine()->addWidget(m_commands, 1);
    m_commands->setMode(false, false);
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, [this](int key) { m_commands->setRowSelected(key > 0); });
    setContent(cards, createButtons({}, u"بستن"_s), Content::Fills);
}

std::vector<KListCommand> CDlgBackups::commands()
{
    constexpr int onRow = KListCommand::NeedsRow;
    return {
        {u"take"_s, u"پشتیبان‌گیری"_s, 0, [this] { takeNow(); }, QKeySequence(Qt::Key_Insert), u":/icons/save.svg"_s},
        {u"verify"_s, u"آزمون بازگرداندن"_s, onRow, [this] { verifySelected(); }, {}, u":/icons/check.svg"_s},
        {u"lookInto"_s, u"نمایش"_s, onRow | KListCommand::StartsGroup, [this] { lookInto(); }, {}, u":/icons/show.svg"_s},
        {u"restore"_s, u"بازگرداندن"_s, onRow, [this] { restoreSelected(); }, {}, u":/icons/refresh.svg"_s},
        {u"records"_s, u"بازگرداندن موردها"_s, onRow, [this] { restoreRecords(); }, {}, u":/icons/unarchive.svg"_s},
        {u"folder"_s, u"باز کردن پوشه"_s, KListCommand::StartsGroup, [this] { openFolder(); }, {}, u":/icons/database.svg"_s},
        {u"print"_s, u"چاپ"_s, 0, [this] { print(); }, QKeySequence(QKeySequence::Print), u":/icons/print.svg"_s},
        {u"delete"_s, u"حذف"_s, onRow | KListCommand::StartsGroup, [this] { removeSelected(); }, QKeySequence(QKeySequence::Delete),
         u":/icons/delete.svg"_s},
    };
}

bool CDlgBackups::runCommand(QStringView id)
{
    return m_commands->run(id);
}

// Each command asks anew who works here: an administrator may have become none since the window was opened.
void CDlgBackups::guarded(const std::function<void()> &work)
{
    try {
        CTblUsers::requireAdministrator();
        work();
    } catch (const ServerError &error) {
        qCWarning(lcHost).noquote() << "backups:" << error.detail();
        if (error.kind() != ServerError::Kind::Cancelled)
            g_pDlgWarning->Show(error.userMessage(), this);
    } catch (...) {
        KErrorBoundary::report(std::current_exception(), this);
    }
}

void CDlgBackups::refill()
{
    const BackupListing::Entry *before = selected();
    const QString path = before ? before->file.path() : QString();
    m_entries = BackupListing::of(m_folder.backupsPath(), BackupsHere::secondFolder(), KConnection::settings(0).database);
    m_list->setRows(BackupColumns::rows(m_entries));
    int chosen = 0;
    qint64 bytes = 0;
    for (int row = 0; row < m_entries.size(); ++row) {
        bytes += m_entries.at(row).file.size();
        if (m_entries.at(row).file.path() == path)
            chosen = row;
    }
    m_list->selectRow(chosen);
    m_commands->setRowSelected(m_list->currentKey() > 0);
    m_count->setText(u"تعداد : %1     حجم : %2"_s.arg(QString::number(m_entries.size()), BackupListing::sizeText(bytes)));
    if (m_entries.isEmpty())
        m_empty->say(u":/icons/save.svg"_s, u"هنوز پشتیبانی گرفته نشده است."_s, u"پشتیبان‌گیری"_s, u":/icons/save.svg"_s);
    else
        m_empty->dismiss();
}

const BackupListing::Entry *CDlgBackups::selected() const
{
    const int key = m_list->currentKey();
    return key > 0 && key <= m_entries.size() ? &m_entries.at(key - 1) : nullptr;
}

bool CDlgBackups::isIdle()
{
    if (!m_keeper || !m_keeper->isTaking())
        return true;
    g_pDlgMessage->Show(u"هم‌اکنون پشتیبانی گرفته می‌شود؛ پس از پایان آن دوباره تلاش نمایید."_s, this);
    return false;
}

std::optional<QString> CDlgBackups::passphraseOf(const BackupFile &file)
{
    return CDlgBackupUnlock::passphraseFor(file, m_folder, this);
}

void CDlgBackups::takeNow()
{
    if (!isIdle())
        return;
    Backup::takeNow(m_folder, m_keeper, this);
    refill();
}

void CDlgBackups::verifySelected()
{
    if (!selected())
        return;
    const BackupFile file = selected()->file;
    const std::optional<QString> passphrase = passphraseOf(file);
    if (!passphrase)
        return;
    if (m_keeper)
        m_keeper->stopVerifying();
    BackupProcess process(m_folder);
    std::optional<BackupProcess::Outcome> outcome;
    QString words;
    connect(&process, &BackupProcess::ended, this, [&](BackupProcess::Outcome ended, const QString &said) {
        outcome = ended;
        words = said;
    });
    process.verify(file, *passphrase);
    {
        BackupProgress window(u"آزمون بازگرداندن"_s,
                              u"پشتیبان %1 در جایی جدا بازگردانده و با اصل سنجیده می‌شود…"_s.arg(BackupListing::whenText(file)), this);
        if (!window.waitFor([&] { return outcome.has_value(); }))
            return;
    }
    qCInfo(lcHost).noquote() << "backup verified:" << file.path() << words;
    if (m_keeper)
        m_keeper->mirror(file.path());
    refill();
    const BackupManifest::Verification found = BackupFile(file.path()).verification();
    if (*outcome == BackupProcess::Outcome::Passed)
        g_pDlgMessage->Show(file.manifest() ? u"پشتیبان بازگردانده و با اصل سنجیده شد و درست بود."_s
                                            : u"پشتیبان بی‌خطا بازگردانده شد. شناسنامه‌ای ندارد که با آن سنجیده شود."_s,
                            this);
    else if (*outcome == BackupProcess::Outcome::Refuted)
        g_pDlgWarning->Show(u"این پشتیبان ایراد دارد.\n%1"_s.arg(found.problem), this);
    else
        g_pDlgWarning->Show(u"آزمون بازگرداندن انجام نشد؛ فضای دیسک و گزارش برنامه را بررسی نمایید."_s, this);
}

void CDlgBackups::lookInto()
{
    if (!selected())
        return;
    const BackupFile file = selected()->file;
    if (const std::optional<QString> passphrase = passphraseOf(file))
        BackupViewer::open(m_folder, file, *passphrase);
}

// The work itself is done when no window uses the database any more.
void CDlgBackups::restoreSelected()
{
    if (!selected() || !isIdle())
        return;
    const BackupFile file = selected()->file;
    const bool isSecond = selected()->isSecond;
    const QStringList others = BackupRestoring(KConnection::settings(0)).othersAtWork();
    if (!others.isEmpty()) {
        g_pDlgWarning->Show(u"تا وقتی دیگران با این پایگاه داده کار می‌کنند نمی‌توان آن را بازگرداند. برنامه را روی این رایانه‌ها ببندید:\n%1"_s.arg(
                                others.join(u'\n')),
                            this);
        return;
    }
    const std::optional<QString> passphrase = passphraseOf(file);
    if (!passphrase)
        return;
    const std::optional<RestoreExtent> extent = RestoreQuestions::extent(file, m_folder, this);
    if (!extent)
        return;
    // Only the changes of this office can be counted.
    const QString question = isSecond ? RestoreLoss::warningOfOtherOffice() + RestoreLoss::question(file, std::nullopt, *extent)
                                      : RestoreLoss::question(file, RestoreLoss::changesSince(file), *extent);
    if (g_pDlgYesNo->Ask(question, this) != KMessageDialog::Yes)
        return;
    m_request = {file, *passphrase, extent->lastMinute};
    done(Accepted);
}

// The backup is database 1 for as long as the window of its records is open.
void CDlgBackups::restoreRecords()
{
    if (!selected())
        return;
    const BackupFile file = selected()->file;
    const std::optional<QString> passphrase = passphraseOf(file);
    if (!passphrase)
        return;
    BackupScratch scratch(m_folder);
    {
        BackupProgress window(u"بازگرداندن موردها"_s, u"باز کردن پشتیبان %1…"_s.arg(BackupListing::whenText(file)), this);
        scratch.load(file, *passphrase, window.here());
        window.hide();
    }
    const auto ended = qScopeGuard([] { KConnection::closeThreadConnections(); });
    constexpr int loaded = 1;
    KConnection::configure(loaded, scratch.settings());
    if (SuiteSchema::storedVersion(loaded) < SuiteSchema::currentVersion())
        SuiteSchema::upgrade(loaded);
    CDlgRestoreRecords(loaded, this).exec();
}

void CDlgBackups::openFolder()
{
    const BackupListing::Entry *entry = selected();
    Backup::showFolder(entry ? QFileInfo(entry->file.path()).path() : m_folder.backupsPath(), this);
}

// The list may be filled anew while the question is open.
void CDlgBackups::removeSelected()
{
    if (!selected())
        return;
    const BackupListing::Entry entry = *selected();
    using State = BackupManifest::Verification::State;
    const bool isProved = entry.file.verification().state == State::Passed;
    const auto proved = std::count_if(m_entries.cbegin(), m_entries.cend(), [](const BackupListing::Entry &other) {
        return other.file.verification().state == State::Passed;
    });
    QString question = u"پشتیبان %1 حذف شود؟ دیگر نمی‌توان به آن بازگشت."_s.arg(BackupListing::whenText(entry.file));
    if (isProved && proved == 1)
        question = u"این تنها پشتیبان آزموده شده است.\n"_s + question;
    if (g_pDlgYesNo->Ask(question, this) != KMessageDialog::Yes)
        return;
    const BackupFile now(entry.file.path());
    if (now.exists() && now.size() == entry.file.size()) {
        const bool isGone = now.remove() && (entry.otherCopy.isEmpty() || BackupFile(entry.otherCopy).remove());
        if (!isGone)
            g_pDlgWarning->Show(u"پشتیبان حذف نشد؛ اجازه نوشتن در پوشه آن را بررسی نمایید."_s, this);
    }
    refill();
}

void CDlgBackups::print()
{
    CDlgReportGenerator generator(u"Backups"_s, u"List"_s, this);
    generator.SetText(u"Title"_s, windowTitle());
    generator.SetTable(u"List"_s, m_list);
    if (!generator.LoadLayout())
        generator.BuildListReport(windowTitle());
    generator.ShowReport();
}
