// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgAddUser.h"

#include "suite/db/KTransaction.h"
#include "host/start/CDlgFirstStart.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/values/TextStandard.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

CDlgAddUser::CDlgAddUser(int userID, QWidget *parent)
    : KDialog(parent)
    , m_userID(userID)
    , m_admin(new QCheckBox(u"مدیر برنامه (همه دسترسی‌ها)"_s, this))
    , m_active(new QCheckBox(u"فعال"_s, this))
{
    setWindowTitle(userID == 0 ? u"کاربر جدید"_s : u"ویرایش کاربر"_s);
    auto *form = new QFormLayout;
    m_user = addEdit(form, u"نام کاربری :"_s, 50);
    m_name = addEdit(form, u"نام :"_s, 100);
    m_password = addEdit(form, u"کلمه عبور :"_s, 200);
    m_repeated = addEdit(form, u"تکرار کلمه عبور :"_s, 200);
    for (KEdit *edit : {m_password, m_repeated}) {
        edit->setEchoMode(QLineEdit::Password);
        if (userID != 0)
            edit->setPlaceholderText(u"بدون تغییر"_s);
    }
    form->addRow(QString(), m_admin);
    form->addRow(QString(), m_active);
    auto *column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(createButtons());
    m_active->setChecked(true);
    // Only an administrator can create another one.
    m_admin->setEnabled(GetDBSetting()->IsAdmin());
    load();
    m_user->setFocus();
}

KEdit *CDlgAddUser::addEdit(QFormLayout *form, const QString &caption, int maxLength)
{
    auto *edit = new KEdit(this);
    edit->setMaxLength(maxLength);
    edit->setMinimumWidth(fontMetrics().averageCharWidth() * 30);
    addLabelled(form, caption, edit);
    return edit;
}

void CDlgAddUser::load()
{
    CTblUsers user;
    if (m_userID == 0 || !user.IsRecordExist(u"iID"_s, m_userID))
        return;
    m_user->setText(user.m_sUser);
    m_name->setText(user.m_sName);
    m_admin->setChecked(user.m_bAdmin != 0);
    m_active->setChecked(user.m_iStatus == 0);
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
    const bool keepsPassword = m_userID != 0 && m_password->text().isEmpty() && m_repeated->text().isEmpty();
    const QString problem = keepsPassword ? QString() : CDlgFirstStart::passwordProblem(m_password->text(), m_repeated->text());
    if (!problem.isEmpty())
        return refuse(problem, m_password);
    if (m_userID == 0)
        return true;
    if (m_userID == GetDBSetting()->GetUserID() && !m_active->isChecked())
        return refuse(u"کاربری که با آن وارد شده‌اید را نمی‌توان غیرفعال کرد."_s, m_active);
    if ((!m_admin->isChecked() || !m_active->isChecked()) && !CTblUsers::hasOtherAdmin(m_userID))
        return refuse(u"برنامه باید دست‌کم یک مدیر فعال داشته باشد."_s, m_admin);
    return true;
}

void CDlgAddUser::store()
{
    KTransaction transaction;
    if (m_userID == 0)
        m_userID = CTblUsers::create(m_user->text(), m_password->text(), m_name->text(), m_admin->isChecked());
    else if (!m_password->text().isEmpty())
        CTblUsers::setPassword(m_userID, m_password->text());
    CTblUsers user;
    if (user.IsRecordExist(u"iID"_s, m_userID)) {
        user.Edit();
        user.m_sUser = ConvertToStandard(m_user->text());
        user.m_sName = ConvertToStandard(m_name->text());
        user.m_bAdmin = m_admin->isChecked() ? 1 : 0;
        user.m_iStatus = m_active->isChecked() ? 0 : 1;
        user.Update(true);
    }
    transaction.commit();
}

bool CDlgAddUser::OnOK()
{
    if (!validate())
        return false;
    const int before = m_userID;
    try {
        const KWaitCursor wait;
        store();
    } catch (...) {
        m_userID = before;
        throw;
    }
    return true;
}
