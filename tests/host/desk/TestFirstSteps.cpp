// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/FirstSteps.h"

#include "host/today/FirstStepRow.h"
#include "host/today/HostSteps.h"
#include "host/keeping/BackupsHere.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/accounting/today/FirstStepList.h"
#include "suite/utility/look/KChip.h"
#include "suite/utility/look/LookMarks.h"
#include "tests/host/desk/MainWindowTest.h"
#include "tests/support/ObservedStatements.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

namespace {

const QStringList allSteps{u"company"_s, u"commission"_s, u"catalog"_s, u"person"_s, u"car"_s, u"contract"_s, u"backup"_s};

QStringList ids(const FirstStepState &state, bool onlyDone)
{
    QStringList found;
    for (const FirstStepState::Step &step : state.steps) {
        if (step.isDone || !onlyDone)
            found.append(step.step.id);
    }
    return found;
}

void setCommission(double percent, double tax)
{
    const QString section = u"AutomobilContracts"_s;
    CTblProperties::DBWriteSetting(section, u"dTransactionAmount"_s, 1e9);
    CTblProperties::DBWriteSetting(section, u"dPercentCommission"_s, percent);
    CTblProperties::DBWriteSetting(section, u"dPrecentTax"_s, tax);
}

}

// The steps of an office that begins, and the page that leads along them.
class TestFirstSteps : public MainWindowTest
{
    Q_OBJECT

    void run(const QString &statement) { m_office.database.run(statement); }

    static QList<FirstStepRow *> rows(const FirstSteps &steps)
    {
        return steps.findChildren<FirstStepRow *>();
    }

    static QList<FirstStepRow::State> states(const FirstSteps &steps)
    {
        QList<FirstStepRow::State> found;
        for (const FirstStepRow *row : rows(steps))
            found.append(row->state());
        return found;
    }

private Q_SLOTS:
    void initTestCase() { loadModule(); }
    void cleanupTestCase() { unloadModule(); }
    void init()
    {
        begin();
        HostSteps::enter(DataFolder(m_folder.path()));
    }
    void freshOfficeHasAllBeforeIt();
    void stepIsDoneByWhatItIsAbout_data();
    void stepIsDoneByWhatItIsAbout();
    void whatIsBeingEnteredIsNotThereYet();
    void stepsAreThoseOfTheUsersRights();
    void readingTakesTwoStatements();
    void nextStepHasTheOnlyPrimaryButton();
    void hiddenStepsStayHiddenUntilAskedFor();
    void officeAtWorkIsLedNoMore();
    void stepTakenMovesTheFocusOn();
    void silentDatabaseLeavesWhatIsShown();
    void stepsStandOnTheFirstPageUntilTheOfficeHasBegun();
};

void TestFirstSteps::freshOfficeHasAllBeforeIt()
{
    const FirstStepState state = FirstStepList::read();
    QCOMPARE(ids(state, false), allSteps);
    QCOMPARE(ids(state, true), QStringList());
    QCOMPARE(state.next(), 0);
    QVERIFY(!state.hasBegun);
}

void TestFirstSteps::stepIsDoneByWhatItIsAbout_data()
{
    QTest::addColumn<QString>("statement");
    QTest::addColumn<QStringList>("done");
    const auto row = [](const char *name, const QString &statement, const QStringList &done) { QTest::newRow(name) << statement << done; };
    row("name of the office", u"INSERT INTO Properties(sSection,sKey,sValue) VALUES('Company','name1','نمایشگاه')"_s, {u"company"_s});
    row("only its telephone", u"INSERT INTO Properties(sSection,sKey,sValue) VALUES('Company','telephone','02188')"_s, {});
    row("brand", u"INSERT INTO CarBrands(sName) VALUES('پژو')"_s, {u"catalog"_s});
    row("person", u"INSERT INTO Persons(sName2) VALUES('رضا')"_s, {u"person"_s});
    row("car", u"INSERT INTO AutomobilInformations(iCode) VALUES(1)"_s, {u"car"_s});
    row("contract", u"INSERT INTO AutomobilContracts(iCode) VALUES(1)"_s, {u"contract"_s});
}

void TestFirstSteps::stepIsDoneByWhatItIsAbout()
{
    QFETCH(QString, statement);
    QFETCH(QStringList, done);
    run(statement);
    const FirstStepState state = FirstStepList::read();
    QCOMPARE(ids(state, true), done);
    QCOMPARE(state.doneCount(), int(done.size()));
    QCOMPARE(state.hasBegun, done.contains(u"contract"_s));
    BackupsHere::setSecondFolder(m_folder.path());
    QCOMPARE(ids(FirstStepList::read(), true), done + QStringList{u"backup"_s});
    // Tiers alone are half of it.
    setCommission(1, 0);
    QVERIFY(!ids(FirstStepList::read(), true).contains(u"commission"_s));
    setCommission(0, 9);
    QVERIFY(!ids(FirstStepList::read(), true).contains(u"commission"_s));
    setCommission(1, 9);
    QVERIFY(ids(FirstStepList::read(), true).contains(u"commission"_s));
}

void TestFirstSteps::whatIsBeingEnteredIsNotThereYet()
{
    run(u"INSERT INTO AutomobilContracts(iID,iCode) VALUES(7,1)"_s);
    run(u"INSERT INTO AutomobilInformations(iID,iCode) VALUES(7,1)"_s);
    Placeholders::add({u"AutomobilContracts"_s, 7}, u"another desk"_s);
    Placeholders::add({u"AutomobilInformations"_s, 7}, u"another desk"_s);
    QCOMPARE(ids(FirstStepList::read(), true), QStringList());
    QVERIFY(!FirstStepList::read().hasBegun);
    Placeholders::confirm(u"AutomobilContracts"_s, 7);
    QCOMPARE(ids(FirstStepList::read(), true), QStringList{u"contract"_s});
}

void TestFirstSteps::stepsAreThoseOfTheUsersRights()
{
    const int clerk = m_office.loginClerk();
    QCOMPARE(ids(FirstStepList::read(), false), QStringList());
    FirstSteps steps;
    steps.refresh();
    QVERIFY(!steps.isOffered());
    KSecurity::setRights(clerk, u"Persons"_s, KSecurity::Access | KSecurity::Write);
    KSecurity::setRights(clerk, u"AutomobilInformations"_s, KSecurity::Access | KSecurity::Read);
    KSecurity::forgetRights();
    QCOMPARE(ids(FirstStepList::read(), false), QStringList{u"person"_s});
    steps.refresh();
    QVERIFY(steps.isOffered());
    // Somebody else's contract ends it for everybody.
    run(u"INSERT INTO AutomobilContracts(iCode) VALUES(1)"_s);
    QVERIFY(FirstStepList::read().hasBegun);
    steps.refresh();
    QVERIFY(!steps.isOffered());
}

void TestFirstSteps::readingTakesTwoStatements()
{
    QVERIFY(KSecurity::IsGranted(u"Persons"_s, KSecurity::Read));
    const ObservedStatements observed({u"SELECT"_s});
    FirstStepList::read();
    QCOMPARE(observed.taken().size(), 2);
}

void TestFirstSteps::nextStepHasTheOnlyPrimaryButton()
{
    run(u"INSERT INTO Persons(sName2) VALUES('رضا')"_s);
    CTblProperties::DBWriteSetting(u"Company"_s, u"name1"_s, u"نمایشگاه"_s);
    FirstSteps steps;
    steps.refresh();
    using enum FirstStepRow::State;
    QCOMPARE(states(steps), (QList<FirstStepRow::State>{Done, Next, Open, Done, Open, Open, Open}));
    QCOMPARE(steps.findChild<KChip *>()->text(), u"2 از 7"_s);
    QStringList names;
    int primary = 0;
    for (const FirstStepRow *row : rows(steps)) {
        QCOMPARE(row->button()->isHidden(), row->state() == Done);
        QCOMPARE(row->accessibleDescription() == u"انجام شد"_s, row->state() == Done);
        primary += LookMarks::button(row->button()) == LookMarks::Button::Primary && !row->button()->isHidden();
        if (row->state() != Done)
            names.append(row->button()->accessibleName());
    }
    QCOMPARE(primary, 1);
    QCOMPARE(names, (QStringList{u"شروع مالیات، عوارض و کمیسیون"_s, u"باز کردن نام خودروها"_s, u"باز کردن نخستین خودرو"_s, u"باز کردن نخستین قرارداد"_s, u"باز کردن پشتیبان‌گیری"_s}));
}

void TestFirstSteps::hiddenStepsStayHiddenUntilAskedFor()
{
    FirstSteps steps;
    const QSignalSpy told(&steps, &FirstSteps::offeredChanged);
    QVERIFY(!steps.isOffered());
    steps.refresh();
    QVERIFY(steps.isOffered());
    named<QPushButton>(steps, u"پنهان کردن گام‌های نخست"_s)->click();
    QVERIFY(!steps.isOffered());
    QCOMPARE(told.size(), 2);
    FirstSteps later;
    later.refresh();
    QVERIFY(!later.isOffered());
    // Another user has not hidden them.
    GetDBSetting()->Login(CTblUsers::create(u"second"_s, u"second1"_s, {}, true));
    FirstSteps others;
    others.refresh();
    QVERIFY(others.isOffered());
    GetDBSetting()->Login(m_office.admin);
    later.bringBack();
    QVERIFY(later.isOffered());
    FirstSteps again;
    again.refresh();
    QVERIFY(again.isOffered());
}

void TestFirstSteps::officeAtWorkIsLedNoMore()
{
    FirstSteps steps;
    steps.refresh();
    QVERIFY(steps.isOffered());
    run(u"INSERT INTO AutomobilContracts(iCode) VALUES(1)"_s);
    steps.refresh();
    QVERIFY(!steps.isOffered());
    const ObservedStatements observed({u"SELECT"_s});
    steps.refresh();
    QCOMPARE(observed.taken().size(), 0);
    // Who wants to see them does.
    steps.bringBack();
    QVERIFY(steps.isOffered());
    QCOMPARE(steps.findChild<KChip *>()->text(), u"1 از 7"_s);
}

void TestFirstSteps::stepTakenMovesTheFocusOn()
{
    int opened = 0;
    FirstStepList::enter({.id = u"first"_s,
                          .place = 1,
                          .title = u"نخست"_s,
                          .rows = "EXISTS (SELECT 1 FROM CarBrands)",
                          .open = [&](QWidget *) {
                              ++opened;
                              run(u"INSERT INTO CarBrands(sName) VALUES('پژو')"_s);
                          }});
    const auto removed = qScopeGuard([] { FirstStepList::remove(u"first"_s); });
    FirstSteps steps;
    steps.setLayoutDirection(Qt::RightToLeft);
    steps.refresh();
    steps.resize(1200, 600);
    steps.show();
    QVERIFY(QTest::qWaitForWindowActive(&steps));
    steps.focusFirst();
    QVERIFY(rows(steps).constFirst()->button()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(opened, 1);
    QCOMPARE(rows(steps).constFirst()->state(), FirstStepRow::State::Done);
    QCOMPARE(rows(steps).at(1)->state(), FirstStepRow::State::Next);
    QVERIFY(rows(steps).at(1)->button()->hasFocus());
}

void TestFirstSteps::silentDatabaseLeavesWhatIsShown()
{
    FirstSteps steps;
    steps.refresh();
    run(u"RENAME TABLE CarBrands TO CarBrandsAway"_s);
    steps.refresh();
    QVERIFY(steps.isOffered());
    QCOMPARE(rows(steps).size(), allSteps.size());
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestFirstSteps::stepsStandOnTheFirstPageUntilTheOfficeHasBegun()
{
    {
        MainWindow window(DataFolder(m_folder.path()), m_module.entry());
        showAt(window, 1366);
        const auto *steps = window.findChild<FirstSteps *>();
        QVERIFY(steps && steps->isVisible());
        named<QPushButton>(*steps, u"پنهان کردن گام‌های نخست"_s)->click();
        QVERIFY(!steps->isVisible());
    }
    run(u"INSERT INTO AutomobilContracts(iCode) VALUES(1)"_s);
    MainWindow window(DataFolder(m_folder.path()), m_module.entry());
    showAt(window, 1366);
    const auto *steps = window.findChild<FirstSteps *>();
    QVERIFY(!steps->isVisible());
    action(window, u"گام‌های نخست"_s)->trigger();
    QVERIFY(steps->isVisible());
    QVERIFY(rows(*steps).constFirst()->button()->hasFocus());
}

#include "TestFirstSteps.moc"

static const RegisteredTest<TestFirstSteps, QApplication> registeredFirstSteps;
