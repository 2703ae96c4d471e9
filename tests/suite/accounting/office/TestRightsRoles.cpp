// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/RightsRoles.h"

#include "suite/accounting/office/KSecurity.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestRightsRoles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyRoleDecidesAboutEveryForm();
    void aRightComesWithAccess();
    void aPermissionIsGrantedOrNot();
    void aNameThatIsNoRoleGivesNothing();
    void whatEachMayDo_data();
    void whatEachMayDo();
};

void TestRightsRoles::everyRoleDecidesAboutEveryForm()
{
    QStringList forms;
    for (const KSecurity::Form &form : KSecurity::forms())
        forms.append(form.name);
    forms.sort();
    QCOMPARE(RightsRoles::names().size(), 5);
    for (const QString &role : RightsRoles::names()) {
        QStringList decided = RightsRoles::rightsOf(role).keys();
        decided.sort();
        QCOMPARE(decided, forms);
    }
}

void TestRightsRoles::aRightComesWithAccess()
{
    for (const QString &role : RightsRoles::names()) {
        const QHash<QString, int> rights = RightsRoles::rightsOf(role);
        for (auto form = rights.cbegin(); form != rights.cend(); ++form)
            QVERIFY2(form.value() == 0 || (form.value() & KSecurity::Access), qPrintable(role + u' ' + form.key()));
    }
}

void TestRightsRoles::aPermissionIsGrantedOrNot()
{
    for (const QString &role : RightsRoles::names()) {
        for (const KSecurity::Form &form : KSecurity::forms()) {
            const int rights = RightsRoles::rightsOf(role).value(form.name);
            QVERIFY2(!form.single || rights == 0 || rights == KSecurity::Access, qPrintable(role + u' ' + form.name));
        }
    }
}

void TestRightsRoles::aNameThatIsNoRoleGivesNothing()
{
    QVERIFY(RightsRoles::rightsOf(u"مدیر "_s).isEmpty());
    QVERIFY(RightsRoles::rightsOf({}).isEmpty());
}

void TestRightsRoles::whatEachMayDo_data()
{
    QTest::addColumn<QString>("role");
    QTest::addColumn<QString>("form");
    QTest::addColumn<int>("right");
    QTest::addColumn<bool>("may");
    const auto row = [](const char *name, const QString &role, const QString &form, KSecurity::Right right, bool may) {
        QTest::newRow(name) << role << form << int(right) << may;
    };
    const QString manager = u"مدیر"_s, clerk = u"کارمند فروش"_s, cashier = u"صندوقدار"_s, accountant = u"حسابدار"_s, viewer = u"بیننده"_s;
    row("the manager deletes contracts", manager, u"AutomobilContracts"_s, KSecurity::Delete, true);
    row("the manager gives rights", manager, u"Users"_s, KSecurity::Modify, true);
    row("a clerk writes contracts", clerk, u"AutomobilContracts"_s, KSecurity::Write, true);
    row("a clerk deletes no contract", clerk, u"AutomobilContracts"_s, KSecurity::Delete, false);
    row("a clerk archives no contract", clerk, u"AutomobilContractArchive"_s, KSecurity::Access, false);
    row("a clerk takes no money", clerk, u"Receipts"_s, KSecurity::Write, false);
    row("a clerk sees what is due", clerk, u"AutomobilPayments"_s, KSecurity::Read, true);
    row("a cashier takes money", cashier, u"Receipts"_s, KSecurity::Write, true);
    row("a cashier takes a slip back", cashier, u"Receipts"_s, KSecurity::Delete, true);
    row("a cashier looks into a contract", cashier, u"AutomobilContracts"_s, KSecurity::Read, true);
    row("a cashier changes no contract", cashier, u"AutomobilContracts"_s, KSecurity::Modify, false);
    row("a cashier writes no document by hand", cashier, u"Documents"_s, KSecurity::Write, false);
    row("an accountant writes documents", accountant, u"Documents"_s, KSecurity::Write, true);
    row("an accountant makes the season's return", accountant, u"AutomobilReportSeasons"_s, KSecurity::Access, true);
    row("an accountant changes no contract", accountant, u"AutomobilContracts"_s, KSecurity::Modify, false);
    row("a viewer sees contracts", viewer, u"AutomobilContracts"_s, KSecurity::Read, true);
    row("a viewer enters nothing", viewer, u"Persons"_s, KSecurity::Write, false);
    row("a viewer prints nothing", viewer, u"Persons"_s, KSecurity::PrintList, false);
    for (const QString &role : {clerk, cashier, accountant, viewer}) {
        row(qPrintable(role + u" gives no rights"_s), role, u"Users"_s, KSecurity::Access, false);
        row(qPrintable(role + u" changes no settings"_s), role, u"Settings"_s, KSecurity::Access, false);
    }
}

void TestRightsRoles::whatEachMayDo()
{
    QFETCH(QString, role);
    QFETCH(QString, form);
    QFETCH(int, right);
    QFETCH(bool, may);
    QCOMPARE((RightsRoles::rightsOf(role).value(form) & right) != 0, may);
}

static const RegisteredTest<TestRightsRoles, QCoreApplication> registeredRightsRoles;

#include "TestRightsRoles.moc"
