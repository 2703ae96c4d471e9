// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/persons/CDlgPersons.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/support/Hand.h"
#include "tests/support/ObservedStatements.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

class TestCDlgPersons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    void init() { m_office.reset(); }
    void listsActivePersonsByTheAlphabet();
    void inactivePersonsOnRequest();
    void searchesWhileTyping();
    void typingAtSpeedSearchesOnce();
    void exactCodeStandsFirst();
    void tellsWhenTheLimitCutsTheList();
    void tellsWhenNobodyIsFound();
    void clearingTheFilterSearchesOnce();
    void sortsByAClickedColumn();
    void pickerByKeyboardAlone();
    void pickerEnterBeforeThePauseIsOver();
    void pickerPreselectsTheCurrentPersonBeyondTheLimit();
    void pickerPreselectsAnInactiveCurrentPerson();
    void pickerOffersOnlyActivePersons();
    void pickerCancelledGivesZero();
    void pickerWithNobodyFoundStaysOpen();
    void pickerOfAnotherModeGivesZero();
    void statementOfTheSelectedPerson();
    void pickerShowsAStatementAndStaysOpen();
    void arrowsMoveFromTheSearchLine();
    void typingInTheListGoesOnWithTheSearch();
    void insertAddsAPersonOnTheWayAndEnterPicksIt();
    void addedPersonThatTheSearchDoesNotFindIsShownAnyway();
    void f2EditsTheSelectedPerson();
    void userWithoutAccessSeesNoPicker();
    void userWithoutWriteRightIsToldAndAddsNothing();
    void enterInThePageOpensThePersonReadOnlyWithoutModifyRight();
    void closedDatabaseHidesAddAndEdit();
    void everyControlHasAName();
    void tabReachesListAndCommands();

private:
    static QStringList names(const CDlgPersons &page);
    static KEdit *search(QWidget *window);
    void addMany(int count);

    Office m_office;
};

QStringList TestCDlgPersons::names(const CDlgPersons &page)
{
    QStringList names;
    for (int row = 0; row < page.list()->count(); ++row)
        names.append(page.list()->cellText(row, u"name"));
    return names;
}

KEdit *TestCDlgPersons::search(QWidget *window)
{
    return Hand::named<KEdit>(window, u"جستجو :"_s);
}

void TestCDlgPersons::addMany(int count)
{
    m_office.db.run(u"INSERT INTO Persons(sName2,iCode) SELECT CONCAT('کاربر ', seq), seq FROM seq_1001_to_%1"_s
                        .arg(1000 + count));
}

void TestCDlgPersons::listsActivePersonsByTheAlphabet()
{
    Office::addPerson(u"گیتی"_s, {});
    Office::addPerson(u"کامران"_s, {});
    Office::addPerson(u"پرویز"_s, {});
    Office::addPerson(u"آرش"_s, {}, [](CTblPersons &person) { person.m_iStatus = 1; });
    CDlgPersons page;
    QCOMPARE(page.title(), u"اشخاص"_s);
    QVERIFY(page.OnAccess());
    page.show();
    QCOMPARE(names(page), QStringList({u"پرویز"_s, u"کامران"_s, u"گیتی"_s}));
    QCOMPARE(page.countText(), u"تعداد : 3"_s);
    QAbstractItemModelTester tester(page.list()->listModel(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    page.refill();
}

void TestCDlgPersons::inactivePersonsOnRequest()
{
    Office::addPerson(u"پرویز"_s, {});
    Office::addPerson(u"آرش"_s, {}, [](CTblPersons &person) { person.m_iStatus = 1; });
    CDlgPersons page;
    page.show();
    page.filters().set(u"inactive", true);
    QCOMPARE(names(page), QStringList({u"آرش"_s, u"پرویز"_s}));
}

void TestCDlgPersons::searchesWhileTyping()
{
    Office::addPerson(u"علی"_s, u"رضایی"_s);
    const int karimi = Office::addPerson(u"مریم"_s, u"کریمی"_s);
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    QCOMPARE(Hand::focus(), search(&page));
    Hand::type(u"كريمي"_s);
    QTRY_COMPARE(names(page), QStringList{u"مریم کریمی"_s});
    QCOMPARE(page.list()->currentKey(), karimi);
    search(&page)->clear();
    QTRY_COMPARE(page.list()->count(), 2);
}

void TestCDlgPersons::typingAtSpeedSearchesOnce()
{
    addMany(50);
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    int searches = 0;
    KConnection::setStatementObserver([&searches](const QString &statement) {
        searches += statement.contains(u"RLIKE"_s) ? 1 : 0;
    });
    Hand::type(u"کاربر 101"_s);
    QTRY_COMPARE(page.list()->count(), 10);
    KConnection::setStatementObserver(nullptr);
    QCOMPARE(searches, 1);
}

void TestCDlgPersons::exactCodeStandsFirst()
{
    addMany(30);
    Office::addPerson(u"یاسمن"_s, {}, [](CTblPersons &person) { person.m_iCode = 10; });
    CDlgPersons page;
    page.show();
    search(&page)->setText(u"۱۰"_s);
    QTRY_COMPARE(page.list()->cellText(0, u"name"), u"یاسمن"_s);
    QCOMPARE(page.list()->cellText(0, u"code"), u"10"_s);
    QCOMPARE(names(page).count(u"یاسمن"_s), 1);
    QVERIFY(page.list()->count() > 1);
}

void TestCDlgPersons::tellsWhenTheLimitCutsTheList()
{
    addMany(30);
    CDlgPersons page;
    page.show();
    QVERIFY(!page.findChild<QLabel *>(u"notice"_s)->isVisible());
    Hand::named<KEdit>(&page, u"تعداد نمايش :"_s)->setText(u"20"_s);
    page.refill();
    QCOMPARE(page.list()->count(), 20);
    QVERIFY(page.findChild<QLabel *>(u"notice"_s)->isVisible());
}

void TestCDlgPersons::tellsWhenNobodyIsFound()
{
    Office::addPerson(u"الف"_s, {});
    CDlgPersons page;
    page.show();
    auto *notice = page.findChild<QLabel *>(u"notice"_s);
    search(&page)->setText(u"زصضط"_s);
    QTRY_VERIFY(page.emptyState()->isVisible());
    // What can be done stands in the list alone.
    QVERIFY(!notice->isVisible());
    search(&page)->clear();
    QTRY_VERIFY(!page.emptyState()->isVisible());
}

void TestCDlgPersons::clearingTheFilterSearchesOnce()
{
    Office::addPerson(u"الف"_s, {});
    CDlgPersons page;
    page.show();
    page.filters().set(u"inactive", true);
    search(&page)->setText(u"زصضط"_s);
    QTRY_VERIFY(page.emptyState()->isVisible());
    const ObservedStatements read({u"SELECT"_s});
    page.emptyState()->button()->click();
    QCOMPARE(page.list()->count(), 1);
    QVERIFY(search(&page)->text().isEmpty());
    QVERIFY(!page.filters().value(u"inactive").toBool());
    // Longer than the pause after the last letter.
    QTest::qWait(400);
    QCOMPARE(read.taken().size(), 1);
}

void TestCDlgPersons::sortsByAClickedColumn()
{
    Office::addPerson(u"الف"_s, {}, [](CTblPersons &person) { person.m_iCode = 9; });
    Office::addPerson(u"ب"_s, {}, [](CTblPersons &person) { person.m_iCode = 10; });
    Office::addPerson(u"پ"_s, {}, [](CTblPersons &person) { person.m_iCode = 8; });
    CDlgPersons page;
    page.show();
    Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"code"));
    QCOMPARE(names(page).join(QString()), u"پالفب"_s);
    Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"code"));
    QCOMPARE(names(page).join(QString()), u"بالفپ"_s);
}

void TestCDlgPersons::pickerByKeyboardAlone()
{
    Office::addPerson(u"علی"_s, u"رضایی"_s);
    const int karimi = Office::addPerson(u"مریم"_s, u"کریمی"_s);
    Hand::inNextWindow([](QDialog *dialog) {
        Hand::type(u"کریمی"_s);
        QTRY_COMPARE(dialog->findChild<KExtListCtrl *>()->count(), 1);
        Hand::press(Qt::Key_Return);
    });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0), karimi);
}

void TestCDlgPersons::pickerEnterBeforeThePauseIsOver()
{
    Office::addPerson(u"علی"_s, u"رضایی"_s);
    const int karimi = Office::addPerson(u"مریم"_s, u"کریمی"_s);
    Hand::inNextWindow([](QDialog *) {
        Hand::type(u"کریمی"_s);
        Hand::press(Qt::Key_Return);
    });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0), karimi);
}

void TestCDlgPersons::pickerPreselectsTheCurrentPersonBeyondTheLimit()
{
    addMany(1200);
    const int last = Office::addPerson(u"یونس"_s, u"یاوری"_s);
    int selected = 0;
    int rows = 0;
    Hand::inNextWindow([&](QDialog *dialog) {
        rows = dialog->findChild<KExtListCtrl *>()->count();
        selected = dialog->findChild<KExtListCtrl *>()->currentKey();
        Hand::press(Qt::Key_Return);
    });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, last), last);
    QCOMPARE(selected, last);
    QVERIFY(rows < 1200);
}

void TestCDlgPersons::pickerPreselectsAnInactiveCurrentPerson()
{
    Office::addPerson(u"الف"_s, {});
    const int old = Office::addPerson(u"ب"_s, {}, [](CTblPersons &person) { person.m_iStatus = 1; });
    Hand::inNextWindow([](QDialog *) { Hand::press(Qt::Key_Return); });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, old), old);
}

void TestCDlgPersons::pickerOffersOnlyActivePersons()
{
    Office::addPerson(u"الف"_s, {}, [](CTblPersons &person) { person.m_iStatus = 1; });
    int rows = -1;
    bool boxShown = true;
    Hand::inNextWindow([&](QDialog *dialog) {
        rows = dialog->findChild<KExtListCtrl *>()->count();
        boxShown = dialog->findChild<QCheckBox *>()->isVisible();
    });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0), 0);
    QCOMPARE(rows, 0);
    QVERIFY(!boxShown);
}

void TestCDlgPersons::pickerCancelledGivesZero()
{
    const int id = Office::addPerson(u"الف"_s, {});
    Hand::inNextWindow([](QDialog *) { Hand::press(Qt::Key_Escape); });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, id), 0);
}

void TestCDlgPersons::pickerWithNobodyFoundStaysOpen()
{
    Office::addPerson(u"الف"_s, {});
    bool stayed = false;
    Hand::inNextWindow([&stayed](QDialog *dialog) {
        Hand::type(u"زصضط"_s);
        Hand::press(Qt::Key_Return);
        stayed = dialog->isVisible();
    });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0), 0);
    QVERIFY(stayed);
}

void TestCDlgPersons::pickerOfAnotherModeGivesZero()
{
    const int id = Office::addPerson(u"الف"_s, {});
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, 1, id), 0);
    QVERIFY(!QApplication::activeModalWidget());
}

void TestCDlgPersons::statementOfTheSelectedPerson()
{
    Office::addPerson(u"علی"_s, u"رضایی"_s);
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    QString title;
    Hand::inNextWindow([&title](QDialog *dialog) { title = dialog->windowTitle(); });
    Hand::press(Qt::Key_F6);
    QVERIFY2(title.startsWith(u"صورتحساب علی رضایی"_s), qPrintable(title));
}

void TestCDlgPersons::pickerShowsAStatementAndStaysOpen()
{
    const int id = Office::addPerson(u"مریم"_s, u"کریمی"_s);
    QString title;
    bool stayed = false;
    Hand::inNextWindow([&](QDialog *dialog) {
        Hand::inNextWindow([&title](QDialog *statement) { title = statement->windowTitle(); });
        Hand::press(Qt::Key_F6);
        stayed = dialog->isVisible();
        dialog->activateWindow(); // the offscreen platform has no window manager to do it
        QTRY_COMPARE(Hand::focus(), search(dialog));
        Hand::press(Qt::Key_Return);
    });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0), id);
    QVERIFY2(title.startsWith(u"صورتحساب مریم کریمی"_s), qPrintable(title));
    QVERIFY(stayed);
}

void TestCDlgPersons::arrowsMoveFromTheSearchLine()
{
    Office::addPerson(u"الف"_s, {});
    const int second = Office::addPerson(u"ب"_s, {});
    Hand::inNextWindow([](QDialog *) {
        Hand::press(Qt::Key_Down);
        Hand::press(Qt::Key_Return);
    });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0), second);
}

void TestCDlgPersons::typingInTheListGoesOnWithTheSearch()
{
    Office::addPerson(u"علی"_s, {});
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    Hand::type(u"ع"_s);
    page.list()->setFocus();
    Hand::type(u"ل"_s);
    QCOMPARE(search(&page)->text(), u"عل"_s);
    QCOMPARE(Hand::focus(), search(&page));
}

void TestCDlgPersons::insertAddsAPersonOnTheWayAndEnterPicksIt()
{
    Office::addPerson(u"آرش"_s, {});
    Hand::inNextWindow([](QDialog *dialog) {
        Hand::type(u"نرگس صابری"_s);
        Hand::inNextWindow([](QDialog *editor) {
            QCOMPARE(Hand::named<KEdit>(editor, u"نام :"_s)->text(), u"نرگس"_s);
            QCOMPARE(Hand::named<KEdit>(editor, u"نام خانوادگی :"_s)->text(), u"صابری"_s);
            Hand::press(Qt::Key_Return, Qt::ControlModifier);
        });
        Hand::press(Qt::Key_Insert);
        dialog->activateWindow(); // the offscreen platform has no window manager to do it
        QTRY_COMPARE(Hand::focus(), search(dialog));
        Hand::press(Qt::Key_Return);
    });
    const int chosen = CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0);
    CTblPersons person;
    QVERIFY(person.IsRecordExist(u"iID"_s, chosen));
    QCOMPARE(person.m_sName2, u"نرگس صابری"_s);
    QCOMPARE(person.m_iCode, 2);
}

void TestCDlgPersons::addedPersonThatTheSearchDoesNotFindIsShownAnyway()
{
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    Hand::type(u"نرگس"_s);
    Hand::inNextWindow([](QDialog *editor) {
        Hand::named<KEdit>(editor, u"نام :"_s)->setText(u"مینا"_s);
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
    });
    page.addPerson();
    QCOMPARE(names(page), QStringList{u"مینا"_s});
    QVERIFY(page.list()->currentKey() > 0);
    QCOMPARE(search(&page)->text(), QString());
}

void TestCDlgPersons::f2EditsTheSelectedPerson()
{
    Office::addPerson(u"الف"_s, {});
    const int second = Office::addPerson(u"ب"_s, {});
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    page.list()->selectKey(second);
    Hand::inNextWindow([](QDialog *editor) {
        Hand::named<KEdit>(editor, u"نام :"_s)->setText(u"ی"_s);
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
    });
    Hand::press(Qt::Key_F2);
    QTRY_COMPARE(names(page), QStringList({u"الف"_s, u"ی"_s}));
    QCOMPARE(page.list()->currentKey(), second);
}

void TestCDlgPersons::userWithoutAccessSeesNoPicker()
{
    const int id = Office::addPerson(u"الف"_s, {});
    m_office.loginClerk();
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, id), 0);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Persons"_s, KSecurity::Access)});
}

void TestCDlgPersons::userWithoutWriteRightIsToldAndAddsNothing()
{
    KSecurity::setRights(m_office.clerk(), u"Persons"_s, KSecurity::Access | KSecurity::Read);
    m_office.loginClerk();
    CDlgPersons page;
    QVERIFY(page.OnAccess());
    page.show();
    page.addPerson();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(u"Persons"_s, KSecurity::Write)});
    QCOMPARE(m_office.db.value(u"SELECT COUNT(*) FROM Persons"_s), u"0"_s);
}

void TestCDlgPersons::enterInThePageOpensThePersonReadOnlyWithoutModifyRight()
{
    Office::addPerson(u"الف"_s, {});
    KSecurity::setRights(m_office.clerk(), u"Persons"_s, KSecurity::Access | KSecurity::Read);
    m_office.loginClerk();
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    bool readOnly = false;
    Hand::inNextWindow([&readOnly](QDialog *window) {
        readOnly = Hand::named<KEdit>(window, u"نام :"_s)->isReadOnly();
    });
    Hand::press(Qt::Key_Return);
    QVERIFY(readOnly);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestCDlgPersons::closedDatabaseHidesAddAndEdit()
{
    Office::addPerson(u"الف"_s, {});
    GetDBSetting()->SetClosedDB(true);
    CDlgPersons page;
    page.show();
    QVERIFY(!page.button(u"new")->isVisible());
    QVERIFY(!page.button(u"edit")->isVisible());
    QVERIFY(page.button(u"show")->isVisible());
    page.addPerson();
    page.editPerson();
    QVERIFY(!QApplication::activeModalWidget());
}

void TestCDlgPersons::everyControlHasAName()
{
    CDlgPersons page;
    page.show();
    QVERIFY(search(&page));
    QVERIFY(Hand::named<KEdit>(&page, u"تعداد نمايش :"_s));
    QVERIFY(Hand::named<KExtListCtrl>(&page, u"اشخاص"_s));
    for (const QString &caption : {u"جديد"_s, u"ويرايش"_s, u"نمايش"_s})
        QVERIFY(Hand::named<QPushButton>(&page, caption));
}

void TestCDlgPersons::tabReachesListAndCommands()
{
    m_office.addPerson(u"علی"_s, u"احمدی"_s);
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    page.filters().control<KEdit>(u"search")->setFocus();
    QWidgetList met;
    while (met.size() < 30 && !met.contains(page.focusWidget())) {
        met << page.focusWidget();
        QTest::keyClick(page.focusWidget(), Qt::Key_Tab);
    }
    QVERIFY(met.contains(page.list()));
    QVERIFY(met.contains(page.button(u"new")));
}

static const RegisteredTest<TestCDlgPersons, QApplication> registeredCDlgPersons;
#include "TestCDlgPersons.moc"
