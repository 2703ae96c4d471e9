// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/office/ReceiptPurpose.h"
#include "suite/utility/frame/KTabHost.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <functional>

class KTabPage;
class QWidget;

// The open database as the windows see it: current user, fiscal year, money unit, and whether changes are allowed.
// What all its users share is read on each call, so that a change by another user counts at once; a window that has
// several to read when it is opened uses OfficeSettings instead. Used on the user-interface thread.
class TZACCOUNTINGDATA_EXPORT CDBSetting
{
public:
    struct Department
    {
        int id = 0;
        QString name;
    };

    CDBSetting();
    ~CDBSetting();
    CDBSetting(const CDBSetting &) = delete;
    CDBSetting &operator=(const CDBSetting &) = delete;

    // Makes the user the current one (CTblUsers::verify checks the login). False when there is no such active user.
    bool Login(int userID);
    void Logout();
    bool IsLoggedIn() const { return m_userID > 0; }
    // 0 and empty before a login.
    int GetUserID() const { return m_userID; }
    // The name that the user types to log in.
    QString GetUserName() const { return m_userName; }
    // The user's own name; the login name when there is none.
    QString GetUserFullName() const { return m_userFullName; }
    bool IsAdmin() const { return m_admin; }

    // A closed database is only read: every command that changes data is hidden or refused.
    bool IsClosedDB() const;
    static bool IsClosed(int database);
    void SetClosedDB(bool closed);
    // Throws KAccountingError when the database is closed.
    void RequireOpenDB() const;
    // The office can take the editing of the car catalog away from everybody: it is then only read and chosen from.
    bool IsCatalogLocked() const;
    void SetCatalogLocked(bool locked);

    // Now, by the server's clock. Wall-clock time held in Qt::UTC, as record sets hold it.
    QDateTime GetDBServerDate() const;
    // That it will be asked (KReadAhead).
    static void ExpectDBServerDate();

    // For example "ریال".
    QString MoneyUnitName() const;
    void SetMoneyUnitName(const QString &name);
    // Decimals that amounts are shown with, 0 to 4. Setting it makes it DToMoney's default in this program too.
    int MoneyDecimals() const;
    void SetMoneyDecimals(int decimals);

    // Whether a person's own mark (Persons.bNatural), and not the kind, makes it a natural one for the tax authority.
    bool NaturalPersonByMark() const;
    void SetNaturalPersonByMark(bool on);

    // The Shamsi year whose documents are written now; the current Shamsi year until one is set.
    int FiscalYear() const;
    void SetFiscalYear(int shamsiYear);
    // The day on which the fiscal year's books open; the first day of FiscalYear() until one is set.
    QDateTime FiscalYearOpeningDate() const;
    void SetFiscalYearOpeningDate(const QDateTime &date);
    // The fiscal year's last day; the last day of FiscalYear() until one after the opening is set.
    QDateTime FiscalYearClosingDate() const;
    void SetFiscalYearClosingDate(const QDateTime &date);

    QList<Department> Departments() const;
    // That they will be asked (KReadAhead).
    static void expectDepartments();
    // The department that new records belong to: the first one; 0 when there is none.
    int GetDepartmentID() const;

    void SetTabHost(KTabHost *host) { m_tabHost = host; }
    KTabHost *TabHost() const { return m_tabHost; }
    // Shows the page as a tab of the host, which owns it from then on. A null page shows nothing. A page whose OnAccess
    // refuses, or for which there is no host, is destroyed without being shown. The two numbers are kept for callers
    // that distinguish them; this suite opens every page the same way.
    void AddDialogToTabPage_(KTabPage *page, int kind, int reserved);

    // The window that receives an amount from a person in cash or to a bank account; true when a receipt was saved.
    using ReceiptWindow =
        std::function<bool(int personID, double amount, const QString &desc, QWidget *parent, const ReceiptPurpose &purpose)>;
    // The host passes it in, once for the program.
    void SetReceiptWindow(const ReceiptWindow &window) { m_receiptWindow = window; }
    // Opens that window. False without the right to write receipts or in a closed database (the user is told), and
    // when no window was passed in.
    bool CashFromPersonMulti(int personID, double amount, const QString &desc, QWidget *parent, const ReceiptPurpose &purpose = {});

private:
    int m_userID = 0;
    QString m_userName;
    QString m_userFullName;
    bool m_admin = false;
    KTabHost *m_tabHost = nullptr;
    ReceiptWindow m_receiptWindow;
};

// The one object of the program.
TZACCOUNTINGDATA_EXPORT CDBSetting *GetDBSetting();
