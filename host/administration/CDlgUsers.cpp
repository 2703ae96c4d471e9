// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgUsers.h"

#include "host/administration/CDlgAddUser.h"
#include "host/administration/CDlgUserRights.h"
#include "host/administration/UserFilter.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/lists/KExtListCtrl.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int statusActive = 0;

KListColumn::Cell adminCell(const QVariant &value)
{
    return {value.toInt() != 0 ? u"بله"_s : u"خیر"_s, value};
}

KListColumn::Cell statusCell(const QVariant &value)
{
    return {value.toInt() == statusActive ? u"فعال"_s : u"غیرفعال"_s, value};
}

}

CDlgUsers::CDlgUsers(QWidget *parent)
    : KListPage(u"کاربران و دسترسی‌ها"_s, u"Users"_s, u"Users"_s, parent)
{
    build();
}

QList<KListColumn> CDlgUsers::columnTable() const
{
    return {
        KListColumn::rowNumber(30),
        {.key = u"user"_s, .title = u"نام کاربری"_s, .width = 100, .alignment = Qt::AlignRight, .sortKey = u"sUser"_s, .column = u"sUser"_s},
        {.key = u"name"_s, .title = u"نام"_s, .width = 160, .alignment = Qt::AlignRight, .sortKey = u"sName"_s, .column = u"sName"_s},
        {.key = u"admin"_s, .title = u"مدیر"_s, .width = 50, .sortKey = u"bAdmin"_s, .column = u"bAdmin"_s, .show = adminCell},
        {.key = u"status"_s, .title = u"وضعیت"_s, .width = 60, .sortKey = u"iStatus"_s, .column = u"iStatus"_s, .show = statusCell},
    };
}

QList<KListFilter> CDlgUsers::filterTable() const
{
    return userFilters();
}

std::vector<KListCommand> CDlgUsers::commands()
{
    constexpr int onRow = KListCommand::NeedsRow | KListCommand::HiddenInReadOnly;
    return {
        {u"new"_s, u"جدید"_s, KListCommand::HiddenInReadOnly, [this] { addUser(); }, QKeySequence(Qt::Key_Insert),
         u":/icons/new.svg"_s, Write},
        {u"edit"_s, u"ویرایش"_s, onRow, [this] { editUser(); }, QKeySequence(Qt::Key_F2), u":/icons/edit.svg"_s, Modify},
        {u"rights"_s, u"دسترسی‌ها"_s, onRow | KListCommand::StartsGroup, [this] { editRights(); }, QKeySequence(Qt::Key_F4),
         u":/icons/settings.svg"_s, Modify},
        {u"toggleActive"_s, u"فعال / غیرفعال"_s, onRow, [this] { toggleActive(); }, {}, u":/icons/user.svg"_s, Modify},
    };
}

std::unique_ptr<KMySQL> CDlgUsers::makeRecords() const
{
    return std::make_unique<CTblUsers>();
}

void CDlgUsers::activated(int)
{
    runCommand(u"edit");
}

void CDlgUsers::emptyAreaActivated()
{
    runCommand(u"new");
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
    g_pDlgWarning->Show(u"این کار فقط برای مدیر برنامه مجاز است."_s, this);
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
    // A user who may grant rights could grant them to themselves.
    if (CheckModifySecurity() && loadSelected(user) && mayTouch(true))
        CDlgUserRights(user.m_iID, this).exec();
}

// What the list shows is what the user wants to be otherwise.
void CDlgUsers::toggleActive()
{
    const bool deactivates = list()->cellText(list()->currentRow(), u"status") == statusCell(statusActive).text;
    CTblUsers user;
    if (!CheckModifySecurity() || !loadSelected(user) || !mayTouch(user.m_bAdmin != 0))
        return;
    if (deactivates && user.m_iID == GetDBSetting()->GetUserID()) {
        g_pDlgWarning->Show(u"کاربری که با آن وارد شده‌اید را نمی‌توان غیرفعال کرد."_s, this);
        return;
    }
    // The last administrator is refused through the page's error boundary.
    guarded([&] { CTblUsers::setActive(user.m_iID, !deactivates); });
    refill();
}
