// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CDBSetting.h"

#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/office/CTblDepartments.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/OfficeSession.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/frame/KTabPage.h"
#include "suite/utility/values/Money.h"

#include <QLoggingCategory>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcSetting, "tz.setting")

constexpr char serverTime[] = "SELECT NOW()";

void write(const OfficeSettings::Key &key, int value)
{
    CTblProperties::DBWriteSettingInt(key.section.toString(), key.key.toString(), value);
}

void write(const OfficeSettings::Key &key, const QString &value)
{
    CTblProperties::DBWriteSetting(key.section.toString(), key.key.toString(), value);
}

}

CDBSetting::CDBSetting() = default;

CDBSetting::~CDBSetting() = default;

CDBSetting *GetDBSetting()
{
    static CDBSetting setting;
    return &setting;
}

bool CDBSetting::Login(int userID)
{
    CTblUsers user;
    if (!user.IsRecordExist(u"iID"_s, userID) || user.m_iStatus != 0)
        return false;
    m_userID = user.m_iID;
    m_userName = user.m_sUser;
    m_userFullName = user.m_sName.isEmpty() ? user.m_sUser : user.m_sName;
    m_admin = user.m_bAdmin != 0;
    KSecurity::setUser(m_userID, m_admin);
    KChangeLog::setAuthor(m_userID);
    KConnection::setIdentity(u"کاربر «\u2068%1\u2069» روی رایانه «\u2068%2\u2069»"_s.arg(m_userName, QSysInfo::machineHostName()));
    setDefaultMoneyDecimals(MoneyDecimals());
    KTransaction::removeOldTokens();
    // From now on others see that somebody is at work here.
    (void)OfficeSession::key();
    return true;
}

void CDBSetting::Logout()
{
    m_userID = 0;
    m_userName.clear();
    m_userFullName.clear();
    m_admin = false;
    KSecurity::setUser(m_userID, m_admin);
    KChangeLog::setAuthor(0);
    OfficeSession::end();
    KConnection::setIdentity({});
}

bool CDBSetting::IsClosedDB() const
{
    return IsClosed(0);
}

bool CDBSetting::IsClosed(int database)
{
    return OfficeSettings::read({}, database).isClosed();
}

void CDBSetting::SetClosedDB(bool closed)
{
    write(OfficeSettings::closed, closed ? 1 : 0);
}

void CDBSetting::RequireOpenDB() const
{
    OfficeSettings::read().requireOpen();
}

bool CDBSetting::IsCatalogLocked() const
{
    return OfficeSettings::read().isCatalogLocked();
}

void CDBSetting::SetCatalogLocked(bool locked)
{
    write(OfficeSettings::catalogLocked, locked ? 1 : 0);
}

QDateTime CDBSetting::GetDBServerDate() const
{
    CTblTemp temp;
    temp.Open(true, false, true);
    temp.ExecuteQuery(serverTime, true, true);
    return temp.GetDateFieldValue(0);
}

void CDBSetting::ExpectDBServerDate()
{
    KReadAhead::expect(KSql(serverTime));
}

QString CDBSetting::MoneyUnitName() const
{
    return OfficeSettings::read().moneyUnitName();
}

void CDBSetting::SetMoneyUnitName(const QString &name)
{
    write(OfficeSettings::moneyUnit, name);
}

int CDBSetting::MoneyDecimals() const
{
    return OfficeSettings::read().moneyDecimals();
}

void CDBSetting::SetMoneyDecimals(int decimals)
{
    const int kept = std::clamp(decimals, 0, OfficeSettings::mostDecimals);
    write(OfficeSettings::decimals, kept);
    setDefaultMoneyDecimals(kept);
}

bool CDBSetting::NaturalPersonByMark() const
{
    return OfficeSettings::read().isNaturalPersonByMark();
}

void CDBSetting::SetNaturalPersonByMark(bool on)
{
    write(OfficeSettings::naturalByMark, on ? 1 : 0);
}

int CDBSetting::FiscalYear() const
{
    return OfficeSettings::read().fiscalYear();
}

void CDBSetting::SetFiscalYear(int shamsiYear)
{
    write(OfficeSettings::year, shamsiYear);
}

QDateTime CDBSetting::FiscalYearOpeningDate() const
{
    return OfficeSettings::read().fiscalYearOpeningDate();
}

void CDBSetting::SetFiscalYearOpeningDate(const QDateTime &date)
{
    write(OfficeSettings::opening, date.date().toString(Qt::ISODate));
}

QDateTime CDBSetting::FiscalYearClosingDate() const
{
    return OfficeSettings::read().fiscalYearClosingDate();
}

void CDBSetting::SetFiscalYearClosingDate(const QDateTime &date)
{
    write(OfficeSettings::closing, date.date().toString(Qt::ISODate));
}

QList<CDBSetting::Department> CDBSetting::Departments() const
{
    CTblDepartments set;
    set.m_sort = "iID";
    QList<Department> departments;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        departments.append({set.m_iID, set.m_sName});
    return departments;
}

void CDBSetting::expectDepartments()
{
    CTblDepartments set;
    set.m_sort = "iID";
    set.expectOpen();
}

int CDBSetting::GetDepartmentID() const
{
    const QList<Department> departments = Departments();
    return departments.isEmpty() ? 0 : departments.constFirst().id;
}

void CDBSetting::AddDialogToTabPage_(KTabPage *page, int, int)
{
    std::unique_ptr<KTabPage> owned(page);
    if (!owned || !owned->OnAccess())
        return;
    if (!m_tabHost) {
        qCWarning(lcSetting) << "a page was opened, but there is no place for tab pages";
        return;
    }
    owned.release()->showIn(*m_tabHost);
}

bool CDBSetting::CashFromPersonMulti(int personID, double amount, const QString &desc, QWidget *parent, const ReceiptPurpose &purpose)
{
    KSecurity security;
    security.SetFormName(u"Receipts"_s);
    if (!security.CheckWriteSecurity())
        return false;
    if (IsClosedDB()) {
        g_pDlgWarning->Show(OfficeSettings::closedMessage(), parent);
        return false;
    }
    if (!m_receiptWindow) {
        qCWarning(lcSetting) << "an amount was to be received, but there is no window for it";
        return false;
    }
    return m_receiptWindow(personID, amount, desc, parent, purpose);
}
