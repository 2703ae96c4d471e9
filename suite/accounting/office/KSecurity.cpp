// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/KSecurity.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/office/CTblUserRights.h"
#include "suite/accounting/frame/KMessageDialog.h"

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

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

// The rights of a user are known to the log by the user's key, and a form's bits are one value.
void noteRights(int userID, const QHash<QString, int> &before, const QHash<QString, int> &after)
{
    QList<KChangedValue> values;
    for (const KSecurity::Form &form : KSecurity::forms()) {
        const int had = before.value(form.name);
        const int has = after.value(form.name);
        if (had != has)
            values.append({form.name, had, has});
    }
    if (!values.isEmpty())
        KChangeLog::note(u"Rights"_s, userID, KChange::Kind::Changed, 0, values);
}

KSql userAndForm(int userID, const QString &form)
{
    return KSql::formatted("iUserID=%1 AND sForm=%2", userID, KSql::quoted(form));
}

}

const QList<KSecurity::Form> &KSecurity::forms()
{
    static const QList<Form> list{
        {u"AutomobilContracts"_s, u"قرارداد"_s, false},
        {u"AutomobilContractArchive"_s, u"بایگانی قرارداد"_s, true},
        {u"AutomobilDemands"_s, u"تقاضا"_s, false},
        {u"AutomobilDemandArchive"_s, u"بایگانی تقاضا"_s, true},
        {u"AutomobilInformations"_s, u"گالری اتومبیل"_s, false},
        {u"AutomobilInformationArchive"_s, u"بایگانی گالری اتومبیل"_s, true},
        {u"AutomobilReportSeasons"_s, u"گزارش فصلی"_s, false},
        {u"AutoFullReport"_s, u"گزارش جامع"_s, false},
        {u"CarsAll"_s, u"نام خودرو"_s, false},
        {u"InputParameters"_s, u"پارامترهای ورودی"_s, false},
        {u"AutomobilTariffs"_s, u"هزینه های تعرفه های محضر"_s, false},
        {u"Persons"_s, u"اشخاص"_s, false},
        {u"Factors"_s, u"فاکتورها"_s, false},
        {u"Services"_s, u"خدمات"_s, false},
        {u"Documents"_s, u"اسناد حسابداری"_s, false},
        {u"ChartOfAccounts"_s, u"سرفصل حساب‌ها"_s, false},
        {u"Receipts"_s, u"دریافت‌ها و پرداخت‌ها"_s, false},
        {u"Cheques"_s, u"چک‌ها"_s, false},
        {u"AutomobilPayments"_s, u"اقساط و سررسیدها"_s, false},
        {u"CustomFields"_s, u"تعریف فیلدهای اضافی"_s, false},
        {u"MessageTexts"_s, u"متن پیام‌ها"_s, false},
        {u"Users"_s, u"کاربران و دسترسی ها"_s, false},
        {u"Settings"_s, u"تنظیمات"_s, false},
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
        return u"دسترسی"_s;
    case Read:
        return u"مشاهده"_s;
    case Write:
        return u"ثبت"_s;
    case Modify:
        return u"ویرایش"_s;
    case Delete:
        return u"حذف"_s;
    case PrintList:
        return u"چاپ لیست"_s;
    }
    Q_UNREACHABLE();
}

QString KSecurity::refusalText(const QString &form, Right right)
{
    return u"شما اجازه «%1» در «%2» را ندارید."_s.arg(rightCaption(right), formCaption(form));
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
    set.m_filter = KSql::formatted("iUserID=%1", userID);
    QHash<QString, int> rights;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        rights.insert(set.m_sForm, set.m_iRights & allRights);
    return rights;
}

void KSecurity::setRights(int userID, const QString &form, int rights)
{
    KTransaction transaction;
    CTblUserRights set;
    set.m_filter = userAndForm(userID, form);
    set.Open(true, true, true);
    noteRights(userID, {{form, set.IsEOF() ? 0 : set.m_iRights}}, {{form, rights & allRights}});
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
    transaction.commit();
    forgetRights();
}

void KSecurity::copyRights(int fromUserID, int toUserID)
{
    if (fromUserID == toUserID)
        return;
    KTransaction transaction;
    noteRights(toUserID, storedRights(toUserID), storedRights(fromUserID));
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
