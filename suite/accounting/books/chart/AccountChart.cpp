// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/chart/AccountChart.h"

#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KLookup.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/books/chart/AccountCode.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/accounting/books/chart/CTblHesabKol.h"
#include "suite/accounting/books/chart/CTblHesabMoeen.h"
#include "suite/accounting/books/chart/CTblHesabTafsily.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/values/TextStandard.h"

#include <QSet>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using AccountChart::Account;

constexpr int inactive = 1;

QString codeText(int code)
{
    return QString::number(code);
}

const KSql orderOfCodes = "iCode";

template <class Records, class Parent>
QList<Account> readAll(int database, Parent parentOf)
{
    Records set(database);
    set.m_sort = orderOfCodes;
    QList<Account> accounts;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        accounts.append({set.m_iCode, set.m_sName, parentOf(set), set.m_iStatus == 0});
    return accounts;
}

const Account *find(const QList<Account> &accounts, int code)
{
    const auto found = std::find_if(accounts.cbegin(), accounts.cend(), [code](const Account &a) { return a.code == code; });
    return found == accounts.cend() ? nullptr : &*found;
}

AccountLevel levelAbove(AccountLevel level)
{
    return level == AccountLevel::Tafsily ? AccountLevel::Moeen : AccountLevel::Kol;
}

void requireOpen(int database)
{
    if (database == 0)
        GetDBSetting()->RequireOpenDB();
}

QString requireName(const QList<Account> &accounts, const QString &name, int parent, int ownCode)
{
    QString kept = ConvertToStandard(name);
    if (kept.isEmpty())
        throw FieldRefused(u"لطفا نام حساب را وارد نمایید."_s, u"sName"_s);
    for (const Account &other : accounts) {
        if (other.code != ownCode && other.parent == parent && searchKey(other.name) == searchKey(kept))
            throw FieldRefused(u"حساب %1 همین نام را دارد."_s.arg(codeText(other.code)), u"sName"_s);
    }
    return kept;
}

void requireCode(AccountLevel level, const QList<Account> &accounts, int code, int parent)
{
    switch (AccountCode::check(level, code, parent)) {
    case AccountCode::Problem::WrongLength:
        throw KAccountingError(level == AccountLevel::Kol         ? u"کد حساب کل باید چهار رقم باشد."_s
                                   : level == AccountLevel::Moeen ? u"کد حساب معین باید شش رقم باشد."_s
                                                                  : u"کد حساب تفصیلی باید هفت تا نه رقم باشد."_s);
    case AccountCode::Problem::NotUnderParent:
        throw KAccountingError(u"کد حساب باید با %1 آغاز شود."_s.arg(codeText(parent)));
    case AccountCode::Problem::None:
        break;
    }
    if (find(accounts, code))
        throw KAccountingError(u"حساب %1 وجود دارد."_s.arg(codeText(code)));
}

bool hasRowsOfItsOwn(int moeen, int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    query.FormatAndExecuteQuery("SELECT 1 FROM Docs WHERE iHesabMoeenCode=%d AND iHesabTafsilyCode=0 LIMIT 1", moeen);
    return query.HasResultRow();
}

void requireParent(AccountLevel level, int parent, int database)
{
    if (level == AccountLevel::Kol)
        return;
    const QList<Account> above = AccountChart::read(levelAbove(level), database);
    const Account *account = find(above, parent);
    if (!account)
        throw KAccountingError(u"حساب بالاتر وجود ندارد."_s);
    if (!account->active)
        throw KAccountingError(u"حساب «%1» غیرفعال است."_s.arg(account->name));
    if (level != AccountLevel::Tafsily)
        return;
    if (AccountCode::isUndivided(parent))
        throw KAccountingError(
            u"برنامه خودش روی حساب «%1» سند می‌زند و زیر آن حساب تفصیلی ساخته نمی‌شود."_s.arg(account->name));
    if (hasRowsOfItsOwn(parent, database))
        throw KAccountingError(
            u"حساب «%1» خودش گردش دارد و زیر آن حساب تفصیلی ساخته نمی‌شود."_s.arg(account->name));
}

void requireDeactivatable(AccountLevel level, int code, int database)
{
    if (AccountCode::isFixed(code))
        throw KAccountingError(u"برنامه خودش روی این حساب سند می‌زند و غیرفعال نمی‌شود."_s);
    if (level == AccountLevel::Tafsily)
        return;
    const AccountLevel below = level == AccountLevel::Kol ? AccountLevel::Moeen : AccountLevel::Tafsily;
    for (const Account &account : AccountChart::read(below, database)) {
        if (account.parent == code && account.active)
            throw KAccountingError(u"ابتدا حساب «%1» را که زیر این حساب است غیرفعال نمایید."_s.arg(account.name));
    }
}

void requireActivatable(AccountLevel level, int code, int database)
{
    if (level == AccountLevel::Kol)
        return;
    const QList<Account> above = AccountChart::read(levelAbove(level), database);
    const Account *parent = find(above, AccountCode::parentOf(code));
    if (!parent)
        return;
    if (!parent->active)
        throw KAccountingError(u"ابتدا حساب «%1» را فعال نمایید."_s.arg(parent->name));
    // Rows went to it while none of its detail accounts was active.
    if (level == AccountLevel::Tafsily && hasRowsOfItsOwn(parent->code, database))
        throw KAccountingError(
            u"حساب «%1» خودش گردش دارد و حساب تفصیلی زیر آن فعال نمی‌شود."_s.arg(parent->name));
}

}

QString AccountChart::table(AccountLevel level)
{
    switch (level) {
    case AccountLevel::Kol:
        return u"HesabKol"_s;
    case AccountLevel::Moeen:
        return u"HesabMoeen"_s;
    case AccountLevel::Tafsily:
        return u"HesabTafsily"_s;
    }
    Q_UNREACHABLE();
}

std::unique_ptr<KMySQL> AccountChart::records(AccountLevel level, int database)
{
    switch (level) {
    case AccountLevel::Kol:
        return std::make_unique<CTblHesabKol>(database);
    case AccountLevel::Moeen:
        return std::make_unique<CTblHesabMoeen>(database);
    case AccountLevel::Tafsily:
        return std::make_unique<CTblHesabTafsily>(database);
    }
    Q_UNREACHABLE();
}

QString AccountChart::docsColumn(AccountLevel level)
{
    return u"i%1Code"_s.arg(table(level));
}

QList<Account> AccountChart::read(AccountLevel level, int database)
{
    switch (level) {
    case AccountLevel::Kol:
        return readAll<CTblHesabKol>(database, [](const auto &) { return 0; });
    case AccountLevel::Moeen:
        return readAll<CTblHesabMoeen>(database, [](const auto &set) { return set.m_iHesabKolCode; });
    case AccountLevel::Tafsily:
        return readAll<CTblHesabTafsily>(database, [](const auto &set) { return set.m_iHesabMoeenCode; });
    }
    Q_UNREACHABLE();
}

void AccountChart::expectAll(int database)
{
    for (const AccountLevel level : {AccountLevel::Kol, AccountLevel::Moeen, AccountLevel::Tafsily}) {
        const std::unique_ptr<KMySQL> set = records(level, database);
        set->m_sort = orderOfCodes;
        set->expectOpen();
    }
}

QString AccountChart::nameOf(int code, int database)
{
    return KLookup::name({table(AccountCode::levelOf(code)), u"iCode"_s, u"sName"_s}, code, database);
}

QList<Account> AccountChart::postable(int database)
{
    const KReadAhead reading(database);
    expectAll(database);
    QSet<int> activeGeneral;
    for (const Account &account : read(AccountLevel::Kol, database)) {
        if (account.active)
            activeGeneral.insert(account.code);
    }
    QList<Account> subsidiary = read(AccountLevel::Moeen, database);
    subsidiary.removeIf([&](const Account &account) { return !account.active || !activeGeneral.contains(account.parent); });
    QList<Account> accounts;
    QSet<int> divided;
    for (const Account &account : read(AccountLevel::Tafsily, database)) {
        if (account.active && find(subsidiary, account.parent)) {
            accounts.append(account);
            divided.insert(account.parent);
        }
    }
    for (const Account &account : std::as_const(subsidiary)) {
        if (!divided.contains(account.code))
            accounts.append(account);
    }
    std::sort(accounts.begin(), accounts.end(),
              [](const Account &a, const Account &b) { return codeText(a.code) < codeText(b.code); });
    return accounts;
}

void AccountChart::add(AccountLevel level, int code, const QString &name, int parent, int database)
{
    requireOpen(database);
    KTransaction::runReplayable(
        [&] {
            NamedLock::take(lockName(), database);
            const QList<Account> accounts = read(level, database);
            requireParent(level, parent, database);
            requireCode(level, accounts, code, parent);
            const QString kept = requireName(accounts, name, parent, code);
            const std::unique_ptr<KMySQL> set = records(level, database);
            set->AddNew();
            set->setValue(u"iCode", code);
            set->setValue(u"sName", kept);
            if (level != AccountLevel::Kol)
                set->setValue(docsColumn(levelAbove(level)), parent);
            set->Update(true);
        },
        database);
}

// One change of the chart at a time: what it must keep to stands on three tables.
QString AccountChart::lockName()
{
    return u"ChartOfAccounts"_s;
}

void AccountChart::settleName(KMySQL &record)
{
    const int code = record.value(u"iCode").toInt();
    const QList<Account> accounts = read(AccountCode::levelOf(code), record.database());
    const QString typed = record.value(u"sName").toString();
    record.setValue(u"sName", requireName(accounts, typed, AccountCode::parentOf(code), code));
}

void AccountChart::setActive(int code, bool active, int database)
{
    requireOpen(database);
    KTransaction::runReplayable(
        [&] {
            NamedLock::take(lockName(), database);
            const AccountLevel level = AccountCode::levelOf(code);
            const std::unique_ptr<KMySQL> set = records(level, database);
            if (!set->IsRecordExist(u"iCode"_s, code))
                throw KAccountingError(u"این حساب دیگر وجود ندارد."_s);
            if (active)
                requireActivatable(level, code, database);
            else
                requireDeactivatable(level, code, database);
            set->Edit();
            set->setValue(u"iStatus", active ? 0 : inactive);
            set->Update(true);
        },
        database);
}
