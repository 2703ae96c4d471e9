// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/CDlgBackupPassphrase.h"

#include "host/frame/StartupClock.h"
#include "host/server/ServerError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/look/LookMarks.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

CDlgBackupPassphrase::CDlgBackupPassphrase(const DataFolder &folder, QWidget *parent)
    : KDialog(parent)
    , m_passphrase(folder)
{
    setWindowTitle(u"رمز پشتیبان‌ها"_s);
    auto *page = new CardPage(520, this);
    FormGrid *grid = page->addForm();
    m_first = addLine(grid, u"رمز پشتیبان‌ها :"_s);
    m_repeated = addLine(grid, u"تکرار رمز :"_s);
    auto *note = new QLabel(u"پشتیبان‌هایی که از این پس گرفته شود با این رمز رمزنگاری می‌شود. بدون رمز هیچ‌کس، پشتیبانی هم، نمی‌تواند آنها را "
                            "باز کند: آن را جایی بیرون از این رایانه یادداشت کنید. پشتیبان‌های پیشین با رمز زمان خود باز می‌شوند. برای پشتیبان خودکار، "
                            "رمز در پوشه اطلاعات همین رایانه می‌ماند و فقط کاربر همین رایانه آن را می‌خواند."_s,
                            this);
    note->setWordWrap(true);
    grid->addLine(note);
    connect(m_first, &KEdit::textChanged, this, [this](const QString &typed) {
        FieldNote::of(m_first)->setOwnText(BackupPassphrase::strength(typed));
    });
    setContent(page, createButtons());
    if (m_passphrase.isSet()) {
        m_first->setPlaceholderText(u"بدون تغییر"_s);
        QPushButton *button = addButton(footer(), u"برداشتن رمز"_s);
        LookMarks::setButton(button, LookMarks::Button::Danger);
        connect(button, &QPushButton::clicked, this, &CDlgBackupPassphrase::removePassphrase);
    }
    m_first->setFocus();
}

KEdit *CDlgBackupPassphrase::addLine(FormGrid *grid, const QString &caption)
{
    auto *edit = new KEdit(this);
    edit->setMaxLength(200);
    edit->setEchoMode(QLineEdit::Password);
    addLabelled(grid, caption, edit, 2);
    return edit;
}

void CDlgBackupPassphrase::removePassphrase()
{
    const QString question = u"پشتیبان‌هایی که از این پس گرفته شود رمز نخواهد داشت و هر کس به پرونده آنها دست یابد می‌تواند همه اطلاعات دفتر را بخواند. "
                             "رمز برداشته شود؟"_s;
    if (g_pDlgYesNo->Ask(question, this) != KMessageDialog::Yes)
        return;
    try {
        m_passphrase.remove();
        done(Accepted);
    } catch (const ServerError &error) {
        qCWarning(lcHost).noquote() << "passphrase:" << error.detail();
        g_pDlgWarning->Show(error.userMessage(), this);
    }
}

bool CDlgBackupPassphrase::OnOK()
{
    const QString problem = BackupPassphrase::problem(m_first->text(), m_repeated->text());
    if (!problem.isEmpty()) {
        g_pDlgWarning->Show(problem, this);
        (m_first->text().size() < BackupPassphrase::shortest ? m_first : m_repeated)->setFocus();
        return false;
    }
    try {
        m_passphrase.store(m_first->text());
        return true;
    } catch (const ServerError &error) {
        qCWarning(lcHost).noquote() << "passphrase:" << error.detail();
        g_pDlgWarning->Show(error.userMessage(), this);
        return false;
    }
}
