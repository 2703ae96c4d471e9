// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CDBSetting.h"

#include "suite/db/CTblTemp.h"
#include "suite/accounting/office/CTblDepartments.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/frame/KTabPage.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QLoggingCategory>

#include <algorithm>
#include <memory>

namespace {

Q_LOGGING_CATEGORY(lcSetting, "tz.setting")

const QString databaseSection = QStringLiteral("Database");
const QString moneySection = QStringLiteral("Money");
const QString personsSection = QStringLiteral("Persons");
const QString yearSection = QStringLiteral("FiscalYear");

constexpr int mostDecimals = 4;

QString closedMessage()
{
    return QStringLiteral("این پایگاه داده بسته شده است و تغییر آن ممکن نیست.");
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
    if (!user.IsRecordExist(QStringLiteral("iID"), userID) || user.m_iStatus != 0)
        return false;
    m_userID = user.m_iID;
    m_userName = user.m_sUser;
    m_userFullName = user.m_sName.isEmpty() ? user.m_sUser : user.m_sName;
    m_admin = user.m_bAdmin != 0;
    KSecurity::setUser(m_userID, m_admin);
    setDefaultMoneyDecimals(MoneyDecimals());
    return true;
}

void CDBSetting::Logout()
{
    m_userID = 0;
    m_userName.clear();
    m_userFullName.clear();
    m_admin = false;
    KSecurity::setUser(m_userID, m_admin);
}

bool CDBSetting::IsClosedDB() const
{
    return IsClosed(0);
}

bool CDBSetting::IsClosed(int database)
{
    return CTblProperties::DBReadSettingInt(databaseSection, QStringLiteral("bClosed"), 0, database) != 0;
}

void CDBSetting::SetClosedDB(bool closed)
{
    CTblProperties::DBWriteSettingInt(databaseSection, QStringLiteral("bClosed"), closed ? 1 : 0);
}

void CDBSetting::RequireOpenDB() const
{
    if (IsClosedDB())
        throw KAccountingError(closedMessage());
}

bool CDBSetting::IsCatalogLocked() const
{
    return CTblProperties::DBReadSettingInt(databaseSection, QStringLiteral("bCatalogLocked"), 0) != 0;
}

void CDBSetting::SetCatalogLocked(bool locked)
{
    CTblProperties::DBWriteSettingInt(databaseSection, QStringLiteral("bCatalogLocked"), locked ? 1 : 0);
}

QDateTime CDBSetting::GetDBServerDate() const
{
    CTblTemp temp;
    temp.Open(true, false, true);
    temp.ExecuteQuery("SELECT NOW()", true, true);
    return temp.GetDateFieldValue(0);
}

QString CDBSetting::MoneyUnitName() const
{
    return CTblProperties::DBReadSetting(moneySection, QStringLiteral("sUnit"), QStringLiteral("ریال"));
}

void CDBSetting::SetMoneyUnitName(const QString &name)
{
    CTblProperties::DBWriteSetting(moneySection, QStringLiteral("sUnit"), name);
}

int CDBSetting::MoneyDecimals() const
{
    return std::clamp(CTblProperties::DBReadSettingInt(moneySection, QStringLiteral("iDecimals"), 0), 0, mostDecimals);
}

void CDBSetting::SetMoneyDecimals(int decimals)
{
    const int kept = std::clamp(decimals, 0, mostDecimals);
    CTblProperties::DBWriteSettingInt(moneySection, QStringLiteral("iDecimals"), kept);
    setDefaultMoneyDecimals(kept);
}

bool CDBSetting::NaturalPersonByMark() const
{
    return CTblProperties::DBReadSettingInt(personsSection, QStringLiteral("bNaturalByMark"), 0) != 0;
}

void CDBSetting::SetNaturalPersonByMark(bool on)
{
    CTblProperties::DBWriteSettingInt(personsSection, QStringLiteral("bNaturalByMark"), on ? 1 : 0);
}

int CDBSetting::FiscalYear() const
{
    const int stored = CTblProperties::DBReadSettingInt(yearSection, QStringLiteral("iFiscalYear"), 0);
    return stored > 0 ? stored : GetShamsi(GetDBServerDate().date()).year;
}

void CDBSetting::SetFiscalYear(int shamsiYear)
{
    CTblProperties::DBWriteSettingInt(yearSection, QStringLiteral("iFiscalYear"), shamsiYear);
}

QDateTime CDBSetting::FiscalYearOpeningDate() const
{
    const QString stored = CTblProperties::DBReadSetting(yearSection, QStringLiteral("dateOpening"), QString());
    QDate day = QDate::fromString(stored, Qt::ISODate);
    if (!day.isValid())
        day = ConvertToMiladi(FiscalYear(), 1, 1);
    return QDateTime(day, QTime(0, 0), Qt::UTC);
}

void CDBSetting::SetFiscalYearOpeningDate(const QDateTime &date)
{
    CTblProperties::DBWriteSetting(yearSection, QStringLiteral("dateOpening"), date.date().toString(Qt::ISODate));
}

QList<CDBSetting::Department> CDBSetting::Departments() const
{
    CTblDepartments set;
    set.m_sort = QStringLiteral("iID");
    QList<Department> departments;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        departments.append({set.m_iID, set.m_sName});
    return departments;
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

bool CDBSetting::CashFromPersonMulti(int personID, double amount, const QString &desc, QWidget *parent)
{
    KSecurity security;
    security.SetFormName(QStringLiteral("Receipts"));
    if (!security.CheckWriteSecurity())
        return false;
    if (IsClosedDB()) {
        g_pDlgWarning->Show(closedMessage(), parent);
        return false;
    }
    if (!m_receiptWindow) {
        qCWarning(lcSetting) << "an amount was to be received, but there is no window for it";
        return false;
    }
    return m_receiptWindow(personID, amount, desc, parent);
}
