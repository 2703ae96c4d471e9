// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgUsers.h"

#include "host/administration/CDlgAddUser.h"
#include "host/administration/CDlgUserRights.h"
#include "host/administration/UserFilter.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"

#include <QCheckBox>
#include <QGridLayout>

namespace {

constexpr int statusActive = 0;
constexpr int statusInactive = 1;

}

CDlgUsers::CDlgUsers(QWidget *parent)
    : KListPage(QStringLiteral("کاربران و دسترسی‌ها"), QStringLiteral("Users"), QStringLiteral("Users"), parent)
{
    build();
}

QVector<KListModel::Column> CDlgUsers::listColumns() const
{
    return {
        {QStringLiteral("ردیف"), Qt::AlignHCenter, 30, {}},
        {QStringLiteral("نام کاربری"), Qt::AlignRight, 100, QStringLiteral("sUser")},
        {QStringLiteral("نام"), Qt::AlignRight, 160, QStringLiteral("sName")},
        {QStringLiteral("مدیر"), Qt::AlignHCenter, 50, QStringLiteral("bAdmin")},
        {QStringLiteral("وضعیت"), Qt::AlignHCenter, 60, QStringLiteral("iStatus")},
    };
}

std::vector<KListCommand> CDlgUsers::commands()
{
    constexpr int onRow = KListCommand::NeedsRow | KListCommand::HiddenInReadOnly;
    return {
        {QStringLiteral("new"), QStringLiteral("جدید"), KListCommand::HiddenInReadOnly, [this] { addUser(); }, QKeySequence(Qt::Key_Insert),
         QStringLiteral(":/icons/new.svg")},
        {QStringLiteral("edit"), QStringLiteral("ویرایش"), onRow, [this] { editUser(); }, QKeySequence(Qt::Key_F2), QStringLiteral(":/icons/edit.svg")},
        {QStringLiteral("rights"), QStringLiteral("دسترسی‌ها"), onRow | KListCommand::StartsGroup, [this] { editRights(); }, QKeySequence(Qt::Key_F4),
         QStringLiteral(":/icons/settings.svg")},
        {QStringLiteral("toggleActive"), QStringLiteral("فعال / غیرفعال"), onRow, [this] { toggleActive(); }, {}, QStringLiteral(":/icons/user.svg")},
    };
}

void CDlgUsers::buildFilters(QGridLayout *grid)
{
    m_name = new KEdit(KEdit::Kind::QueryText, this);
    m_inactive = new QCheckBox(QStringLiteral("نمایش غیرفعال‌ها"), this);
    m_inactive->setAccessibleName(m_inactive->text());
    m_inactive->setChecked(true);
    addFilter(grid, 0, 0, QStringLiteral("نام :"), m_name);
    grid->addWidget(m_inactive, 0, 2);
}

std::unique_ptr<KMySQL> CDlgUsers::makeRecords() const
{
    return std::make_unique<CTblUsers>();
}

QStringList CDlgUsers::fetchedColumns() const
{
    return {QStringLiteral("sUser"), QStringLiteral("sName"), QStringLiteral("iStatus"), QStringLiteral("bAdmin")};
}

QString CDlgUsers::filterClauses() const
{
    return userFilter({m_name->queryText(), !m_inactive->isChecked()});
}

KListModel::Row CDlgUsers::makeRow(KMySQL &record, int number)
{
    const auto &user = static_cast<const CTblUsers &>(record);
    return {user.m_iID,
            {{QString::number(number), number},
             {user.m_sUser},
             {user.m_sName},
             {user.m_bAdmin ? QStringLiteral("بله") : QStringLiteral("خیر"), user.m_bAdmin},
             {user.m_iStatus == statusActive ? QStringLiteral("فعال") : QStringLiteral("غیرفعال"), user.m_iStatus}}};
}

void CDlgUsers::activated(int)
{
    runCommand(QStringLiteral("ویرایش"));
}

void CDlgUsers::emptyAreaActivated()
{
    runCommand(QStringLiteral("جدید"));
}

QWidget *CDlgUsers::firstFilterControl() const
{
    return m_name;
}

void CDlgUsers::addUser()
{
    if (!CheckWriteSecurity())
        return;
    CDlgAddUser dialog(0, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    refill();
    list()->selectKey(dialog.userID());
}

bool CDlgUsers::mayTouch(bool needsAdmin)
{
    if (!needsAdmin || GetDBSetting()->IsAdmin())
        return true;
    g_pDlgWarning->Show(QStringLiteral("این کار فقط برای مدیر برنامه مجاز است."), this);
    return false;
}

void CDlgUsers::editUser()
{
    CTblUsers user;
    if (!CheckModifySecurity() || !loadSelected(user) || !mayTouch(user.m_bAdmin != 0))
        return;
    CDlgAddUser dialog(user.m_iID, this);
    if (dialog.exec() == QDialog::Accepted)
        refill();
}

void CDlgUsers::editRights()
{
    CTblUsers user;
    // Whoever hands out rights could hand them to themselves.
    if (CheckModifySecurity() && loadSelected(user) && mayTouch(true))
        CDlgUserRights(user.m_iID, this).exec();
}

void CDlgUsers::toggleActive()
{
    CTblUsers user;
    if (!CheckModifySecurity() || !loadSelected(user) || !mayTouch(user.m_bAdmin != 0))
        return;
    const bool deactivates = user.m_iStatus == statusActive;
    if (deactivates && user.m_iID == GetDBSetting()->GetUserID()) {
        g_pDlgWarning->Show(QStringLiteral("کاربری که با آن وارد شده‌اید را نمی‌توان غیرفعال کرد."), this);
        return;
    }
    if (deactivates && user.m_bAdmin && !CTblUsers::hasOtherAdmin(user.m_iID)) {
        g_pDlgWarning->Show(QStringLiteral("برنامه باید دست‌کم یک مدیر فعال داشته باشد."), this);
        return;
    }
    user.Edit();
    user.m_iStatus = deactivates ? statusInactive : statusActive;
    user.Update(true);
    refill();
}
