// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/KSecurity.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

using Check = bool (KSecurity::*)(int) const;

struct RightOfCheck
{
    const char *name;
    Check check;
    KSecurity::Right right;
};

const RightOfCheck checks[] = {
    {"access", &KSecurity::CheckAccessSecurity, KSecurity::Access},
    {"read", &KSecurity::CheckReadSecurity, KSecurity::Read},
    {"write", &KSecurity::CheckWriteSecurity, KSecurity::Write},
    {"modify", &KSecurity::CheckModifySecurity, KSecurity::Modify},
    {"delete", &KSecurity::CheckDeletionSecurity, KSecurity::Delete},
    {"print list", &KSecurity::CheckPrintListSecurity, KSecurity::PrintList},
};

KSecurity securityOf(const char *form)
{
    KSecurity security;
    security.SetFormName(QString::fromLatin1(form));
    return security;
}

}

class TestKSecurity : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void eachRightOpensItsOwnCheckOnly_data();
    void eachRightOpensItsOwnCheckOnly();
    void administratorHasEveryRight();
    void withoutALoginEverythingIsRefused();
    void formWithoutRightsIsRefused();
    void unknownFormIsOpenToAdministratorsOnly();
    void refusalIsOneMessageNamingRightAndForm();
    void quietCheckShowsNothing();
    void archivePermissionAnswersEveryCheck();
    void changedRightsCountWhenAWindowOpens();
    void rightsOfTheLastUserDoNotStay();
    void copyMakesTheSecondUserTheSame();
    void zeroTakesTheRowOff();
    void everyFormHasACaptionAndStandsOnce();

private:
    TestOffice m_office;
};

void TestKSecurity::init()
{
    m_office.database.run(u"DELETE FROM UserRights"_s);
    QVERIFY(GetDBSetting()->Login(m_office.clerk));
    g_pDlgWarning->takeShown();
}

void TestKSecurity::eachRightOpensItsOwnCheckOnly_data()
{
    QTest::addColumn<int>("granted");
    QTest::addColumn<int>("asked");
    for (int granted = 0; granted < 6; ++granted) {
        for (int asked = 0; asked < 6; ++asked)
            QTest::addRow("%s granted, %s asked", checks[granted].name, checks[asked].name) << granted << asked;
    }
}

void TestKSecurity::eachRightOpensItsOwnCheckOnly()
{
    QFETCH(int, granted);
    QFETCH(int, asked);
    KSecurity::setRights(m_office.clerk, u"AutomobilContracts"_s, checks[granted].right);
    const KSecurity security = securityOf("AutomobilContracts");
    QCOMPARE((security.*checks[asked].check)(1), granted == asked);
    QCOMPARE(KSecurity::IsGranted(security.FormName(), checks[asked].right), granted == asked);
    QCOMPARE(g_pDlgWarning->takeShown().size(), granted == asked ? 0 : 1);
}

void TestKSecurity::administratorHasEveryRight()
{
    QVERIFY(GetDBSetting()->Login(m_office.admin));
    for (const RightOfCheck &check : checks)
        QVERIFY((securityOf("AutomobilContracts").*check.check)(1));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestKSecurity::withoutALoginEverythingIsRefused()
{
    GetDBSetting()->Logout();
    for (const RightOfCheck &check : checks)
        QVERIFY(!(securityOf("AutomobilContracts").*check.check)(1));
}

void TestKSecurity::formWithoutRightsIsRefused()
{
    KSecurity::setRights(m_office.clerk, u"AutomobilContracts"_s, KSecurity::allRights);
    QVERIFY(!securityOf("AutomobilDemands").CheckAccessSecurity());
}

void TestKSecurity::unknownFormIsOpenToAdministratorsOnly()
{
    QVERIFY(!KSecurity::IsGranted(u"NoSuchForm"_s, KSecurity::Access));
    QVERIFY(GetDBSetting()->Login(m_office.admin));
    QVERIFY(KSecurity::IsGranted(u"NoSuchForm"_s, KSecurity::Access));
}

void TestKSecurity::refusalIsOneMessageNamingRightAndForm()
{
    QVERIFY(!securityOf("AutomobilContracts").CheckDeletionSecurity());
    const QStringList shown = g_pDlgWarning->takeShown();
    QCOMPARE(shown.size(), 1);
    QVERIFY(shown.constFirst().contains(u"حذف"_s));
    QVERIFY(shown.constFirst().contains(u"قرارداد"_s));
}

void TestKSecurity::quietCheckShowsNothing()
{
    QVERIFY(!securityOf("AutomobilContracts").CheckDeletionSecurity(0));
    QVERIFY(!KSecurity::IsGranted(u"AutomobilContracts"_s, KSecurity::Delete));
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestKSecurity::archivePermissionAnswersEveryCheck()
{
    KSecurity::setRights(m_office.clerk, u"AutomobilContractArchive"_s, KSecurity::Access);
    for (const RightOfCheck &check : checks)
        QVERIFY((securityOf("AutomobilContractArchive").*check.check)(1));
    KSecurity::setRights(m_office.clerk, u"AutomobilContractArchive"_s, KSecurity::Write);
    QVERIFY(!securityOf("AutomobilContractArchive").CheckWriteSecurity());
}

void TestKSecurity::changedRightsCountWhenAWindowOpens()
{
    KSecurity security = securityOf("AutomobilContracts");
    QVERIFY(!security.CheckSecurity());
    // As another user's program does it.
    m_office.database.run(u"INSERT INTO UserRights(iUserID,sForm,iRights) VALUES(%1,'AutomobilContracts',3)"_s
                              .arg(m_office.clerk));
    QVERIFY(!security.CheckAccessSecurity(0));
    QVERIFY(security.CheckSecurity());
    QVERIFY(security.CheckReadSecurity());
    QVERIFY(!security.CheckWriteSecurity(0));
}

void TestKSecurity::rightsOfTheLastUserDoNotStay()
{
    KSecurity::setRights(m_office.clerk, u"AutomobilContracts"_s, KSecurity::allRights);
    QVERIFY(securityOf("AutomobilContracts").CheckAccessSecurity());
    const int other = CTblUsers::create(u"other"_s, u"x"_s, QString(), false);
    QVERIFY(GetDBSetting()->Login(other));
    QVERIFY(!securityOf("AutomobilContracts").CheckAccessSecurity());
}

void TestKSecurity::copyMakesTheSecondUserTheSame()
{
    const int other = CTblUsers::create(u"copied"_s, u"x"_s, QString(), false);
    KSecurity::setRights(m_office.clerk, u"AutomobilContracts"_s, 5);
    KSecurity::setRights(m_office.clerk, u"Persons"_s, 3);
    KSecurity::setRights(other, u"Users"_s, KSecurity::allRights);
    KSecurity::copyRights(m_office.clerk, other);
    QCOMPARE(KSecurity::storedRights(other), KSecurity::storedRights(m_office.clerk));
    QCOMPARE(KSecurity::storedRights(other).size(), 2);
    KSecurity::copyRights(other, other);
    QCOMPARE(KSecurity::storedRights(other).size(), 2);
}

void TestKSecurity::zeroTakesTheRowOff()
{
    KSecurity::setRights(m_office.clerk, u"Persons"_s, 3);
    KSecurity::setRights(m_office.clerk, u"Persons"_s, 0);
    QVERIFY(KSecurity::storedRights(m_office.clerk).isEmpty());
    KSecurity::setRights(m_office.clerk, u"Persons"_s, 0);
    QVERIFY(KSecurity::storedRights(m_office.clerk).isEmpty());
}

void TestKSecurity::everyFormHasACaptionAndStandsOnce()
{
    QStringList names;
    for (const KSecurity::Form &form : KSecurity::forms()) {
        QVERIFY(!form.caption.isEmpty());
        QVERIFY2(!names.contains(form.name), qPrintable(form.name));
        names.append(form.name);
    }
    for (const char *needed : {"AutomobilContracts", "AutomobilContractArchive", "AutomobilDemands", "AutomobilDemandArchive",
                               "AutomobilInformations", "AutomobilInformationArchive", "AutomobilReportSeasons", "CarsAll"})
        QVERIFY2(names.contains(QString::fromLatin1(needed)), needed);
}

static const RegisteredTest<TestKSecurity, QCoreApplication> registeredKSecurity;
#include "TestKSecurity.moc"
