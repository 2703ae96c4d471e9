// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/recovery/CDlgDamage.h"

#include "host/backup/BackupPointInTime.h"
#include "host/backup/BackupRestoring.h"
#include "host/frame/StartupClock.h"
#include "host/keeping/BackupProgress.h"
#include "host/keeping/BackupsHere.h"
#include "host/recovery/BackupColumns.h"
#include "host/recovery/CDlgBackupUnlock.h"
#include "host/recovery/RestoreQuestions.h"
#include "host/server/ServerError.h"
#include "host/server/ServerOptions.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/FolderChoice.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/LookFonts.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

CDlgDamage::CDlgDamage(const DataFolder &folder, const QString &what, QWidget *parent)
    : KDialog(parent)
    , m_folder(folder)
    , m_place(new QLabel)
    , m_list(new KExtListCtrl)
{
    setWindowTitle(u"پایگاه داده آسیب دیده است"_s);
    SetSettingName(u"Damage"_s);
    build(what);
    resize(LookSizes::scaled(1000), LookSizes::scaled(560));
    fill();
    m_list->setFocus();
}

void CDlgDamage::build(const QString &what)
{
    m_list->setAccessibleName(u"پشتیبان‌هایی که می‌توان به آنها بازگشت"_s);
    m_list->setColumns(BackupColumns::columns());
    m_list->SetSettingName(u"Damage\\List"_s);
    m_empty = new KEmptyState(m_list);
    connect(m_empty, &KEmptyState::pressed, this, &CDlgDamage::chooseFolder);
    connect(m_list, &KExtListCtrl::rowActivated, this, &CDlgDamage::restoreSelected);

    auto *cards = new CardPage(1000);
    FormGrid *grid = cards->addForm(u"چه شده است"_s, FormGrid::Extent::Full);
    auto *text = new QLabel(what, this);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    grid->addLine(text);
    auto *way = new QLabel(u"به یکی از پشتیبان‌های زیر بازگردید. پایگاه داده آسیب دیده کنار گذاشته می‌شود و چیزی از آن پاک نمی‌شود."_s, this);
    way->setWordWrap(true);
    LookFonts::apply(way, LookFonts::Use::Strong);
    grid->addLine(way);
    cards->addList(m_list)->addToFoot(m_place);
    setContent(cards, createButtons({}, u"بستن برنامه"_s), Content::Fills);
    m_restore = addButton(footer(), u"بازگرداندن این پشتیبان"_s, u":/icons/refresh.svg"_s);
    LookMarks::setButton(m_restore, LookMarks::Button::Primary);
    connect(m_restore, &QPushButton::clicked, this, &CDlgDamage::restoreSelected);
    QPushButton *other = addButton(footer(), u"پوشه‌ای دیگر"_s, u":/icons/database.svg"_s);
    connect(other, &QPushButton::clicked, this, &CDlgDamage::chooseFolder);
}

void CDlgDamage::fill()
{
    const bool isOwn = m_shownFolder.isEmpty();
    const QString folder = isOwn ? m_folder.backupsPath() : m_shownFolder;
    m_entries = BackupListing::verifiedFirst(
        BackupListing::of(folder, isOwn ? BackupsHere::secondFolder() : QString(), ServerOptions::databaseName()));
    m_list->setRows(BackupColumns::rows(m_entries));
    m_list->selectRow(0);
    m_restore->setEnabled(!m_entries.isEmpty());
    m_place->setText(u"پوشه : %1"_s.arg(ServerError::shownPath(folder)));
    if (m_entries.isEmpty())
        m_empty->say(u":/icons/database.svg"_s, u"در این پوشه پشتیبانی نیست."_s, u"پوشه‌ای دیگر"_s, u":/icons/database.svg"_s);
    else
        m_empty->dismiss();
}

void CDlgDamage::chooseFolder()
{
    const QString folder = ShowBrowseForFolder(this, u"پوشه پشتیبان‌ها"_s);
    if (!folder.isEmpty())
        showFolder(folder);
}

void CDlgDamage::showFolder(const QString &folder)
{
    m_shownFolder = folder;
    fill();
}

void CDlgDamage::restoreSelected()
{
    const int key = m_list->currentKey();
    if (key <= 0)
        return;
    const BackupFile file = m_entries.at(key - 1).file;
    const std::optional<QString> passphrase = CDlgBackupUnlock::passphraseFor(file, m_folder, this);
    if (!passphrase)
        return;
    const std::optional<RestoreExtent> extent = RestoreQuestions::extent(file, m_folder, this);
    if (!extent)
        return;
    QString said = extent->words();
    if (!extent->lastMinute || !extent->reach.upToNow)
        said += (said.isEmpty() ? u""_s : u" "_s) + u"آنچه پس از آن ثبت شده است از دست می‌رود."_s;
    const QString question = u"اطلاعات دفتر به %1 بازگردانده می‌شود. %2 بازگردانده شود؟"_s.arg(BackupListing::whenText(file), said);
    if (g_pDlgYesNo->Ask(question, this) == KMessageDialog::Yes && restore({file, *passphrase, extent->lastMinute}))
        done(Accepted);
}

bool CDlgDamage::restore(const RestoreRequest &request)
{
    const BackupFile file = request.file;
    const auto broughtForward = request.lastMinute ? BackupPointInTime(m_folder).ontoNew(file, {.lastMinute = true})
                                                   : std::function<void(const KConnectionSettings &)>();
    try {
        QString aside;
        BackupProgress window(u"بازگرداندن پشتیبان"_s, u"ساختن پایگاه داده تازه از پشتیبان %1…"_s.arg(BackupListing::whenText(file)), this);
        window.run([&](const BackupProgress::Progress &progress) {
            aside = BackupRestoring::intoNewFolder(m_folder, file, request.passphrase, progress, {}, broughtForward);
        });
        QString text = u"پایگاه داده به %1 بازگردانده شد."_s.arg(BackupListing::whenText(file));
        if (!aside.isEmpty())
            text += u"\nپایگاه داده آسیب دیده در این پوشه ماند:\n%1"_s.arg(ServerError::shownPath(aside));
        qCInfo(lcHost).noquote() << "restored into a new folder:" << file.path() << "aside:" << aside;
        g_pDlgMessage->Show(text, this);
        return true;
    } catch (const ServerError &error) {
        qCWarning(lcHost).noquote() << "restore:" << error.detail();
        if (error.kind() != ServerError::Kind::Cancelled)
            g_pDlgWarning->Show(error.userMessage(), this);
        return false;
    }
}
