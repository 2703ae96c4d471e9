// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgAddUser.h"

#include "host/start/CDlgFirstStart.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/values/TextStandard.h"

#include <QCheckBox>
#include <QDialogButtonBox>

using namespace Qt::StringLiterals;

CDlgAddUser::CDlgAddUser(int userID, QWidget *parent)
    : KDialog(parent)
    , m_edit(m_record, userID)
    , m_admin(new QCheckBox(u"مدیر برنامه (همه دسترسی‌ها)"_s, this))
    , m_active(new QCheckBox(u"فعال"_s, this))
{
    setWindowTitle(userID == 0 ? u"کاربر جدید"_s : u"ویرایش کاربر"_s);
    auto *page = new CardPage(480, this);
    FormGrid *grid = page->addForm();
    m_user = addEdit(grid, u"نام کاربری :"_s, 50);
    m_name = addEdit(grid, u"نام :"_s, 100);
    grid->startRow();
    m_password = addEdit(grid, u"کلمه عبور :"_s, 200);
    m_repeated = addEdit(grid, u"تکرار کلمه عبور :"_s, 200);
    for (KEdit *edit : {m_password, m_repeated}) {
        edit->setEchoMode(QLineEdit::Password);
        if (userID != 0)
            edit->setPlaceholderText(u"بدون تغییر"_s);
    }
    for (QCheckBox *check : {m_admin, m_active}) {
        grid->startRow();
        grid->addCell(check, 4);
    }
    setContent(page, createButtons());
    HistoryButton::addTo(this, footer(), m_record.GetTableName(), userID);
    m_active->setChecked(true);
    // Only an administrator can create another one.
    m_admin->setEnabled(GetDBSetting()->IsAdmin());
    load();
    m_user->setFocus();
}

KEdit *CDlgAddUser::addEdit(FormGrid *grid, const QString &caption, int maxLength)
{
    auto *edit = new KEdit(this);
    edit->setMaxLength(maxLength);
    addLabelled(grid, caption, edit);
    return edit;
}

void CDlgAddUser::load()
{
    if (m_edit.isNew() || !m_record.IsRecordExist(u"iID"_s, m_edit.key()))
        return;
    m_user->setText(m_record.m_sUser);
    m_name->setText(m_record.m_sName);
    m_admin->setChecked(m_record.m_bAdmin != 0);
    m_active->setChecked(m_record.m_iStatus == 0);
    m_edit.remember([this] { write(); });
}

bool CDlgAddUser::refuse(const QString &message, QWidget *field)
{
    g_pDlgWarning->Show(message, this);
    field->setFocus();
    return false;
}

bool CDlgAddUser::validate()
{
    if (ConvertToStandard(m_user->text()).isEmpty())
        return refuse(u"لطفا نام کاربری را وارد نمایید."_s, m_user);
    const bool keepsPassword = !m_edit.isNew() && m_password->text().isEmpty() && m_repeated->text().isEmpty();
    const QString problem = keepsPassword ? QString() : CDlgFirstStart::passwordProblem(m_password->text(), m_repeated->text());
    if (!problem.isEmpty())
        return refuse(problem, m_password);
    if (!m_edit.isNew() && m_edit.key() == GetDBSetting()->GetUserID() && !m_active->isChecked())
        return refuse(u"کاربری که با آن وارد شده‌اید را نمی‌توان غیرفعال کرد."_s, m_active);
    return true;
}

void CDlgAddUser::write()
{
    m_record.m_sUser = m_user->text();
    m_record.m_sName = m_name->text();
    m_record.m_bAdmin = m_admin->isChecked() ? 1 : 0;
    m_record.m_iStatus = m_active->isChecked() ? 0 : 1;
    if (!m_hash.isEmpty())
        m_record.m_sPasswordHash = m_hash;
}

void CDlgAddUser::settle()
{
    const auto check = [this](const QString &column, void (CTblUsers::*rule)(qint32)) {
        try {
            (m_record.*rule)(m_edit.key());
        } catch (const KAccountingError &error) {
            throw FieldRefused(error.userMessage(), column);
        }
    };
    check(u"sUser"_s, &CTblUsers::requireFreeName);
    check(u"bAdmin"_s, &CTblUsers::requireAdminLeft);
    if (!m_edit.isNew())
        CTblUsers::requireMayChange(m_edit.key());
}

QWidget *CDlgAddUser::fieldOf(const QString &column) const
{
    const QHash<QString, QWidget *> fields{
        {u"sName"_s, m_name}, {u"bAdmin"_s, m_admin}, {u"iStatus"_s, m_active}, {u"sPasswordHash"_s, m_password}};
    return fields.value(column, m_user);
}

bool CDlgAddUser::save()
{
    const RowQuestions::Texts texts{
        .caption =
            [](const QString &column) {
                return column == u"iStatus" ? u"وضعیت"_s : column == u"sPasswordHash" ? u"کلمه عبور"_s
                                                                                      : QString();
            },
        .format = [this](const QString &column, const QVariant &value) -> std::optional<QString> {
            if (column == u"iStatus")
                return value.toInt() == 0 ? u"فعال"_s : u"غیرفعال"_s;
            if (column == u"sPasswordHash")
                return value.toString() == m_hash ? u"آنچه وارد کرده‌اید"_s : u"•••••"_s;
            return std::nullopt;
        },
        .goTo = [this](const QString &column) { fieldOf(column)->setFocus(); }};
    return RowQuestions::save(
               this, m_edit, texts, [this] { write(); }, [this] { settle(); })
        == RowQuestions::Outcome::Saved;
}

bool CDlgAddUser::OnOK()
{
    if (!validate())
        return false;
    {
        // Before the unit of work, in which others would wait for it.
        const KWaitCursor wait;
        m_hash = m_password->text().isEmpty() ? QString() : CTblUsers::hashOf(m_password->text());
    }
    return save();
}
