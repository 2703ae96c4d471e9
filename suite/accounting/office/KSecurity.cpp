// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/KSecurity.h"

#include "suite/db/CTblTemp.h"
#include "suite/db/KTransaction.h"
#include "suite/accounting/office/CTblUserRights.h"
#include "suite/accounting/frame/KMessageDialog.h"

#include <algorithm>
#include <optional>

namespace {

struct Worker
{
    int userID = 0;
    bool admin = false;
    std::optional<QHash<QString, int>> rights; // empty until they are asked for
};

Worker &worker()
{
    static Worker instance;
    return instance;
}

const KSecurity::Form *findForm(const QString &name)
{
    const QList<KSecurity::Form> &forms = KSecurity::forms();
    const auto found = std::find_if(forms.cbegin(), forms.cend(),
                                    [&name](const KSecurity::Form &form) { return form.name == name; });
    return found == forms.cend() ? nullptr : &*found;
}

QString userAndForm(int userID, const QString &form)
{
    return QStringLiteral("iUserID=%1 AND sForm=%2")
        .arg(QString::number(userID), QString::fromUtf8(KConnection::forThread(0).quoted(form)));
}

}

const QList<KSecurity::Form> &KSecurity::forms()
{
    static const QList<Form> list{
        {QStringLiteral("AutomobilContracts"), QStringLiteral("قرارداد"), false},
        {QStringLiteral("AutomobilContractArchive"), QStringLiteral("بایگانی قرارداد"), true},
        {QStringLiteral("AutomobilDemands"), QStringLiteral("تقاضا"), false},
        {QStringLiteral("AutomobilDemandArchive"), QStringLiteral("بایگانی تقاضا"), true},
        {QStringLiteral("AutomobilInformations"), QStringLiteral("گالری اتومبیل"), false},
        {QStringLiteral("AutomobilInformationArchive"), QStringLiteral("بایگانی گالری اتومبیل"), true},
        {QStringLiteral("AutomobilReportSeasons"), QStringLiteral("گزارش فصلی"), false},
        {QStringLiteral("AutoFullReport"), QStringLiteral("گزارش جامع"), false},
        {QStringLiteral("CarsAll"), QStringLiteral("نام خودرو"), false},
        {QStringLiteral("InputParameters"), QStringLiteral("پارامترهای ورودی"), false},
        {QStringLiteral("AutomobilTariffs"), QStringLiteral("هزینه های تعرفه های محضر"), false},
        {QStringLiteral("Persons"), QStringLiteral("اشخاص"), false},
        {QStringLiteral("Factors"), QStringLiteral("فاکتورها"), false},
        {QStringLiteral("Services"), QStringLiteral("خدمات"), false},
        {QStringLiteral("Documents"), QStringLiteral("اسناد حسابداری"), false},
        {QStringLiteral("ChartOfAccounts"), QStringLiteral("سرفصل حساب‌ها"), false},
        {QStringLiteral("Receipts"), QStringLiteral("دریافت نقدی"), false},
        {QStringLiteral("CustomFields"), QStringLiteral("تعریف فیلدهای اضافی"), false},
        {QStringLiteral("Users"), QStringLiteral("کاربران و دسترسی ها"), false},
        {QStringLiteral("Settings"), QStringLiteral("تنظیمات"), false},
    };
    return list;
}

QString KSecurity::formCaption(const QString &form)
{
    const Form *found = findForm(form);
    return found ? found->caption : form;
}

QString KSecurity::rightCaption(Right right)
{
    switch (right) {
    case Access:
        return QStringLiteral("دسترسی");
    case Read:
        return QStringLiteral("مشاهده");
    case Write:
        return QStringLiteral("ثبت");
    case Modify:
        return QStringLiteral("ویرایش");
    case Delete:
        return QStringLiteral("حذف");
    case PrintList:
        return QStringLiteral("چاپ لیست");
    }
    Q_UNREACHABLE();
}

QString KSecurity::refusalText(const QString &form, Right right)
{
    return QStringLiteral("شما اجازه «%1» در «%2» را ندارید.").arg(rightCaption(right), formCaption(form));
}

bool KSecurity::CheckSecurity()
{
    forgetRights();
    return IsGranted(m_form, Access);
}

bool KSecurity::IsGranted(const QString &form, Right right)
{
    Worker &user = worker();
    if (user.userID == 0)
        return false;
    if (user.admin)
        return true;
    if (!user.rights)
        user.rights = storedRights(user.userID);
    const Form *known = findForm(form);
    const int asked = known && known->single ? Access : right;
    return (user.rights->value(form) & asked) != 0;
}

bool KSecurity::check(Right right, int notice) const
{
    if (IsGranted(m_form, right))
        return true;
    if (notice != 0)
        g_pDlgWarning->Show(refusalText(m_form, right));
    return false;
}

bool KSecurity::CheckAccessSecurity(int notice) const
{
    return check(Access, notice);
}

bool KSecurity::CheckReadSecurity(int notice) const
{
    return check(Read, notice);
}

bool KSecurity::CheckWriteSecurity(int notice) const
{
    return check(Write, notice);
}

bool KSecurity::CheckModifySecurity(int notice) const
{
    return check(Modify, notice);
}

bool KSecurity::CheckDeletionSecurity(int notice) const
{
    return check(Delete, notice);
}

bool KSecurity::CheckPrintListSecurity(int notice) const
{
    return check(PrintList, notice);
}

QHash<QString, int> KSecurity::storedRights(int userID)
{
    CTblUserRights set;
    set.m_filter = QStringLiteral("iUserID=%1").arg(userID);
    QHash<QString, int> rights;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        rights.insert(set.m_sForm, set.m_iRights & allRights);
    return rights;
}

void KSecurity::setRights(int userID, const QString &form, int rights)
{
    CTblUserRights set;
    set.m_filter = userAndForm(userID, form);
    set.Open(true, true, true);
    if (rights == 0) {
        if (!set.IsEOF())
            set.Delete();
    } else {
        if (set.IsEOF())
            set.AddNew();
        else
            set.Edit();
        set.m_iUserID = userID;
        set.m_sForm = form;
        set.m_iRights = rights & allRights;
        set.Update(true);
    }
    forgetRights();
}

void KSecurity::copyRights(int fromUserID, int toUserID)
{
    if (fromUserID == toUserID)
        return;
    KTransaction transaction;
    CTblTemp temp;
    temp.Open(false, false, true);
    temp.FormatAndExecuteQuery("DELETE FROM UserRights WHERE iUserID=%d", toUserID);
    temp.FormatAndExecuteQuery("INSERT INTO UserRights(iUserID,sForm,iRights) "
                               "SELECT %d,sForm,iRights FROM UserRights WHERE iUserID=%d",
                               toUserID, fromUserID);
    transaction.commit();
    forgetRights();
}

void KSecurity::setUser(int userID, bool admin)
{
    worker() = {userID, admin, {}};
}

void KSecurity::forgetRights()
{
    worker().rights.reset();
}
