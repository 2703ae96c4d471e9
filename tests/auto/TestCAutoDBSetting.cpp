// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/CAutoDBSetting.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/SuiteSchema.h"
#include "suite/utility/frame/KDialogTabPage.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Takes the pages as the host's tabbed work area does.
class TabHost : public KTabHost
{
public:
    ~TabHost() override { qDeleteAll(m_pages); }
    void addPage(KDialogTabPage *page) override { m_pages.append(page); }
    QList<KDialogTabPage *> pages() const { return m_pages; }

private:
    QList<KDialogTabPage *> m_pages;
};

}

using Operation = void (CAutoDBSetting::*)();

Q_DECLARE_METATYPE(Operation)

class TestCAutoDBSetting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void getAutoDBSettingReturnsTheSameAddressOnEveryCall();
    void assignmentGivesBackThisObject();
    void archivesHasNoEffectAlsoBeforeUpdateDB();
    void isAClosedDBTellsTheSuitesFlag();
    void listOpenedTwiceIsTwoIndependentPages_data();
    void listOpenedTwiceIsTwoIndependentPages();
    void listWithoutTheAccessRightIsNotShown_data();
    void listWithoutTheAccessRightIsNotShown();
    void seasonalReportWithoutTheAccessRightOpensNothing();

private:
    void logIn(bool admin, const QString &grantedForm = {});

    TestDatabase m_database;
};

void TestCAutoDBSetting::init()
{
    m_database.recreate();
    g_pDlgWarning->answerAll(true);
    g_pDlgMessage->answerAll(true);
}

void TestCAutoDBSetting::cleanup()
{
    GetDBSetting()->SetTabHost(nullptr);
    GetDBSetting()->Logout();
    g_pDlgWarning->answerAll(false);
    g_pDlgMessage->answerAll(false);
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void TestCAutoDBSetting::logIn(bool admin, const QString &grantedForm)
{
    SuiteSchema::upgrade();
    double reached = 0;
    QCOMPARE(GetAutoDBSetting()->UpdateDB(0, 0, reached, true), 1);
    SuiteSchema::afterModuleUpgrade();
    m_database.run(u"INSERT INTO Users (sUser, bAdmin) VALUES ('test', %1)"_s.arg(admin ? 1 : 0));
    const int user = m_database.value(u"SELECT MAX(iID) FROM Users"_s).toInt();
    if (!grantedForm.isEmpty())
        KSecurity::setRights(user, grantedForm, KSecurity::Access);
    QVERIFY(GetDBSetting()->Login(user));
}

void TestCAutoDBSetting::getAutoDBSettingReturnsTheSameAddressOnEveryCall()
{
    CAutoDBSetting *const first = GetAutoDBSetting();
    QVERIFY(first);
    QCOMPARE(GetAutoDBSetting(), first);
}

void TestCAutoDBSetting::assignmentGivesBackThisObject()
{
    CAutoDBSetting one;
    CAutoDBSetting other;
    QCOMPARE(&(one = other), &one);
}

void TestCAutoDBSetting::archivesHasNoEffectAlsoBeforeUpdateDB()
{
    int statements = 0;
    KConnection::setStatementObserver([&statements](const QString &) { ++statements; });
    GetAutoDBSetting()->Archives();
    KConnection::setStatementObserver(nullptr);
    QCOMPARE(statements, 0);
}

void TestCAutoDBSetting::isAClosedDBTellsTheSuitesFlag()
{
    SuiteSchema::upgrade();
    QCOMPARE(GetAutoDBSetting()->IsAClosedDB(), 0);
    GetDBSetting()->SetClosedDB(true);
    QCOMPARE(GetAutoDBSetting()->IsAClosedDB(), 1);
    GetDBSetting()->SetClosedDB(false);
    QCOMPARE(GetAutoDBSetting()->IsAClosedDB(), 0);
}

void TestCAutoDBSetting::listOpenedTwiceIsTwoIndependentPages_data()
{
    QTest::addColumn<Operation>("open");
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("title");
    QTest::newRow("contracts") << Operation(&CAutoDBSetting::ShowAutomobilContractDlg) << u"AutomobilContracts"_s
                               << u"قرارداد"_s;
    QTest::newRow("demands") << Operation(&CAutoDBSetting::ShowAutomobilDemandsDlg) << u"AutomobilDemands"_s
                             << u"تقاضا"_s;
    QTest::newRow("cars") << Operation(&CAutoDBSetting::ShowAutomobilInformationsDlg) << u"AutomobilInformations"_s
                          << u"گالري اتومبيل"_s;
    QTest::newRow("overdue desk") << Operation(&CAutoDBSetting::ShowAutomobilPaymentsDlg) << u"AutomobilPayments"_s
                                  << u"اقساط و سررسیدها"_s;
}

void TestCAutoDBSetting::listOpenedTwiceIsTwoIndependentPages()
{
    QFETCH(Operation, open);
    QFETCH(QString, form);
    QFETCH(QString, title);
    logIn(false, form);
    TabHost host;
    GetDBSetting()->SetTabHost(&host);
    (GetAutoDBSetting()->*open)();
    (GetAutoDBSetting()->*open)();
    QCOMPARE(host.pages().size(), 2);
    QVERIFY(host.pages()[0] != host.pages()[1]);
    QCOMPARE(host.pages()[0]->title(), title);
    QCOMPARE(host.pages()[1]->title(), title);
}

void TestCAutoDBSetting::listWithoutTheAccessRightIsNotShown_data()
{
    listOpenedTwiceIsTwoIndependentPages_data();
}

void TestCAutoDBSetting::listWithoutTheAccessRightIsNotShown()
{
    QFETCH(Operation, open);
    logIn(false);
    TabHost host;
    GetDBSetting()->SetTabHost(&host);
    (GetAutoDBSetting()->*open)();
    QVERIFY(host.pages().isEmpty());
}

void TestCAutoDBSetting::seasonalReportWithoutTheAccessRightOpensNothing()
{
    logIn(false);
    GetAutoDBSetting()->ShowAutomobilReportSeasonsDlg();
    QVERIFY(!QApplication::activeModalWidget());
    // The one message is the refusal of the rights service, not of the module.
    const QStringList shown = g_pDlgWarning->takeShown() + g_pDlgMessage->takeShown();
    QCOMPARE(shown, QStringList(KSecurity::refusalText(u"AutomobilReportSeasons"_s, KSecurity::Access)));
}

static const RegisteredTest<TestCAutoDBSetting, QApplication> registeredCAutoDBSetting;
#include "TestCAutoDBSetting.moc"
