// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/recovery/CDlgBackupUnlock.h"

#include "host/backup/BackupReader.h"
#include "host/frame/StartupClock.h"
#include "host/keeping/BackupPassphrase.h"
#include "host/recovery/BackupListing.h"
#include "host/server/ServerError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KWaitCursor.h"

#include <QDialogButtonBox>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

bool opens(const BackupFile &file, const QString &passphrase)
{
    const KWaitCursor wait;
    return BackupReader::opensWith(file, passphrase);
}

}

CDlgBackupUnlock::CDlgBackupUnlock(const BackupFile &file, QWidget *parent)
    : KDialog(parent)
    , m_file(file)
    , m_passphrase(new KEdit(this))
{
    setWindowTitle(u"رمز پشتیبان"_s);
    m_passphrase->setEchoMode(QLineEdit::Password);
    auto *page = new CardPage(460, this);
    FormGrid *grid = page->addForm();
    auto *text = new QLabel(u"پشتیبان %1 رمزنگاری شده است."_s.arg(BackupListing::whenText(file)), this);
    text->setWordWrap(true);
    grid->addLine(text);
    addLabelled(grid, u"رمز پشتیبان :"_s, m_passphrase, 4);
    setContent(page, createButtons());
    setAsksBeforeDropping(false);
    m_passphrase->setFocus();
}

QString CDlgBackupUnlock::passphrase() const
{
    return m_passphrase->text();
}

bool CDlgBackupUnlock::OnOK()
{
    if (opens(m_file, passphrase()))
        return true;
    g_pDlgWarning->Show(u"این رمز پشتیبان را باز نمی‌کند."_s, this);
    m_passphrase->setFocus();
    return false;
}

std::optional<QString> CDlgBackupUnlock::passphraseFor(const BackupFile &file, const DataFolder &folder, QWidget *parent)
{
    if (!file.isEncrypted())
        return QString();
    try {
        if (QString own = BackupPassphrase(folder).read(); !own.isEmpty() && opens(file, own))
            return own;
        CDlgBackupUnlock dialog(file, parent);
        if (dialog.exec() == Accepted)
            return dialog.passphrase();
    } catch (const ServerError &error) {
        qCWarning(lcHost).noquote() << "passphrase:" << error.detail();
        g_pDlgWarning->Show(error.userMessage(), parent);
    }
    return std::nullopt;
}
