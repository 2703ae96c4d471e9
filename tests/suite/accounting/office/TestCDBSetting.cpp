// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/CTblTemp.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/books/CDlgDocCreated.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/frame/KDialogTabPage.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QPointer>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

class Page : public KDialogTabPage
{
public:
    explicit Page(bool access)
        : m_access(access)
    {
    }
    bool OnAccess() override { return m_access; }

private:
    bool m_access;
};

class Host : public KTabHost
{
public:
    void addPage(KDialogTabPage *page) override { pages.append(page); }
    ~Host() override { qDeleteAll(pages); }
    QList<KDialogTabPage *> pages;
};

}

class TestCDBSetting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void sameObjectOnEveryCall();
    void nullPageShowsNothing();
    void refusedPageIsDestroyedAndNotShown();
    void grantedPageGoesToTheHost();
    void pageWithoutAHostIsDestroyed();
    void withoutAReceiptWindowNothingIsReceived();
    void receiptWindowGetsWhatIsToBeReceived();
    void closedFlagIsSeenByEveryUser();
    void closedDatabaseIsRefused();
    void serverDateIsNow();
    void loginTellsWhoWorks();
    void loginRemovesTheTokensOfUnitsThatNobodyAsksFor();
    void moneyUnitAndDecimals();
    void fiscalYearOpensOnItsFirstDay();
    void openingDateIsKept();
    void departments();
    void recordKinds();
    void sharedTexts();
    void documentNotice();

private:
    TestOffice m_office;
};

void TestCDBSetting::cleanup()
{
    GetDBSetting()->SetTabHost(nullptr);
    GetDBSetting()->SetClosedDB(false);
    GetDBSetting()->Login(m_office.admin);
}

void TestCDBSetting::sameObjectOnEveryCall()
{
    QCOMPARE(GetDBSetting(), GetDBSetting());
}

void TestCDBSetting::nullPageShowsNothing()
{
    Host host;
    GetDBSetting()->SetTabHost(&host);
    GetDBSetting()->AddDialogToTabPage_(nullptr, 1, 0);
    QVERIFY(host.pages.isEmpty());
}

void TestCDBSetting::refusedPageIsDestroyedAndNotShown()
{
    Host host;
    GetDBSetting()->SetTabHost(&host);
    const QPointer<Page> page = new Page(false);
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
    QVERIFY(host.pages.isEmpty());
    QVERIFY(page.isNull());
}

void TestCDBSetting::grantedPageGoesToTheHost()
{
    Host host;
    GetDBSetting()->SetTabHost(&host);
    auto *page = new Page(true);
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
    QCOMPARE(host.pages, QList<KDialogTabPage *>{page});
}

void TestCDBSetting::pageWithoutAHostIsDestroyed()
{
    const QPointer<Page> page = new Page(true);
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
    QVERIFY(page.isNull());
}

void TestCDBSetting::withoutAReceiptWindowNothingIsReceived()
{
    QTest::ignoreMessage(QtWarningMsg, "an amount was to be received, but there is no window for it");
    QVERIFY(!GetDBSetting()->CashFromPersonMulti(7, 1250000, u"کمسیون"_s, nullptr));
}

void TestCDBSetting::receiptWindowGetsWhatIsToBeReceived()
{
    QStringList received;
    const auto window = [&received](int personID, double amount, const QString &desc, QWidget *, const ReceiptPurpose &) {
        received.append(u"%1 %2 %3"_s.arg(personID).arg(amount).arg(desc));
        return amount > 1;
    };
    GetDBSetting()->SetReceiptWindow(window);
    QVERIFY(GetDBSetting()->CashFromPersonMulti(7, 50, u"کمسیون"_s, nullptr));
    QVERIFY(!GetDBSetting()->CashFromPersonMulti(8, 1, QString(), nullptr));
    GetDBSetting()->SetReceiptWindow({});
    QCOMPARE(received, (QStringList{u"7 50 کمسیون"_s, u"8 1 "_s}));
}

void TestCDBSetting::closedFlagIsSeenByEveryUser()
{
    QVERIFY(!GetDBSetting()->IsClosedDB());
    m_office.database.run(u"REPLACE INTO Properties(sSection,sKey,sValue) VALUES('Database','bClosed','1')"_s);
    QVERIFY(GetDBSetting()->IsClosedDB());
    GetDBSetting()->SetClosedDB(false);
    QCOMPARE(m_office.database.value(u"SELECT sValue FROM Properties WHERE sKey='bClosed'"_s), u"0"_s);
}

void TestCDBSetting::closedDatabaseIsRefused()
{
    GetDBSetting()->RequireOpenDB();
    GetDBSetting()->SetClosedDB(true);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, GetDBSetting()->RequireOpenDB());
}

void TestCDBSetting::serverDateIsNow()
{
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime wallClock(now.date(), now.time(), Qt::UTC);
    const QDateTime server = GetDBSetting()->GetDBServerDate();
    QCOMPARE(server.timeSpec(), Qt::UTC);
    QVERIFY2(qAbs(server.secsTo(wallClock)) <= 5, qPrintable(server.toString(Qt::ISODate)));
}

void TestCDBSetting::loginRemovesTheTokensOfUnitsThatNobodyAsksFor()
{
    CTblTemp statement;
    statement.Open(false, false, true);
    statement.ExecuteQuery("INSERT INTO UnitTokens(sToken,dateCreate) VALUES('old',NOW()-INTERVAL 8 DAY)", true, true);
    QVERIFY(GetDBSetting()->Login(m_office.admin));
    statement.ExecuteQuery("SELECT COUNT(*) FROM UnitTokens WHERE sToken='old'", true, true);
    QCOMPARE(statement.GetLongFieldValue(0), 0);
}

void TestCDBSetting::loginTellsWhoWorks()
{
    QCOMPARE(GetDBSetting()->GetUserID(), m_office.admin);
    QCOMPARE(GetDBSetting()->GetUserName(), u"admin"_s);
    QCOMPARE(GetDBSetting()->GetUserFullName(), u"مدیر"_s);
    QVERIFY(GetDBSetting()->Login(m_office.clerk));
    QVERIFY(!GetDBSetting()->IsAdmin());
    QCOMPARE(GetDBSetting()->GetUserFullName(), u"clerk"_s);
    QVERIFY(!GetDBSetting()->Login(999));
    QCOMPARE(GetDBSetting()->GetUserID(), m_office.clerk);
    GetDBSetting()->Logout();
    QVERIFY(!GetDBSetting()->IsLoggedIn());
    QCOMPARE(GetDBSetting()->GetUserID(), 0);
}

void TestCDBSetting::moneyUnitAndDecimals()
{
    QCOMPARE(GetDBSetting()->MoneyUnitName(), u"ریال"_s);
    GetDBSetting()->SetMoneyUnitName(u"تومان"_s);
    QCOMPARE(GetDBSetting()->MoneyUnitName(), u"تومان"_s);
    QCOMPARE(GetDBSetting()->MoneyDecimals(), 0);
    GetDBSetting()->SetMoneyDecimals(2);
    QCOMPARE(DToMoney(1234.5), u"1,234.50"_s);
    GetDBSetting()->SetMoneyDecimals(9);
    QCOMPARE(GetDBSetting()->MoneyDecimals(), 4);
    GetDBSetting()->SetMoneyDecimals(0);
}

void TestCDBSetting::fiscalYearOpensOnItsFirstDay()
{
    QCOMPARE(GetDBSetting()->FiscalYear(), GetShamsi(GetDBSetting()->GetDBServerDate().date()).year);
    GetDBSetting()->SetFiscalYear(1405);
    QCOMPARE(GetDBSetting()->FiscalYear(), 1405);
    QCOMPARE(GetDBSetting()->FiscalYearOpeningDate(), QDateTime(QDate(2026, 3, 21), QTime(0, 0), Qt::UTC));
}

void TestCDBSetting::openingDateIsKept()
{
    const QDateTime opening(QDate(2026, 4, 1), QTime(0, 0), Qt::UTC);
    GetDBSetting()->SetFiscalYearOpeningDate(opening);
    QCOMPARE(GetDBSetting()->FiscalYearOpeningDate(), opening);
    GetDBSetting()->SetFiscalYearOpeningDate(QDateTime());
    QCOMPARE(GetDBSetting()->FiscalYearOpeningDate().date(), QDate(2026, 3, 21));
}

void TestCDBSetting::departments()
{
    QCOMPARE(GetDBSetting()->Departments().size(), 1);
    QCOMPARE(GetDBSetting()->GetDepartmentID(), 1);
    m_office.database.run(u"INSERT INTO Departments(sName) VALUES('شعبه دو')"_s);
    QCOMPARE(GetDBSetting()->Departments().constLast().name, u"شعبه دو"_s);
    QCOMPARE(GetDBSetting()->GetDepartmentID(), 1);
}

void TestCDBSetting::recordKinds()
{
    QCOMPARE(int(RecordKind::names().size()), 79);
    QCOMPARE(int(RecordKind::AutomobilInformation), 68);
    QCOMPARE(int(RecordKind::AutomobilContract), 69);
    QCOMPARE(int(RecordKind::AutomobilDemandReminder), 70);
    for (const int kind : {68, 69, 70})
        QVERIFY(!RecordKind::names().at(static_cast<std::size_t>(kind)).isEmpty());
    QVERIFY(RecordKind::names().at(0).isEmpty());
}

void TestCDBSetting::sharedTexts()
{
    QCOMPARE(SuiteMessages::count(12), u"تعداد : 12"_s);
    QCOMPARE(SuiteMessages::deleteQuestion(), u"آیا از حذف این رکورد اطمینان دارید؟"_s);
}

// A document without rows has posted nothing, and is not said to have.
void TestCDBSetting::documentNotice()
{
    g_pDlgMessage->takeShown();
    m_office.database.run(u"INSERT INTO Docs(iDocNum,iFiscalYear,dBed) VALUES(17,1405,5)"_s);
    CDlgDocCreated::Show(17, 1405);
    CDlgDocCreated::Show(0, 1405);
    QCOMPARE(g_pDlgMessage->takeShown(), QStringList{CDlgDocCreated::text(17, 1405)});
    CDlgDocCreated::Show(17, 1404);
    const QStringList shown = g_pDlgMessage->takeShown();
    QCOMPARE(shown, QStringList{CDlgDocCreated::emptyText(17, 1404)});
    QVERIFY(shown.constFirst().contains(u"17"_s) && !shown.constFirst().contains(u"ثبت شد."_s));
}

static const RegisteredTest<TestCDBSetting, QApplication> registeredCDBSetting;
#include "TestCDBSetting.moc"
