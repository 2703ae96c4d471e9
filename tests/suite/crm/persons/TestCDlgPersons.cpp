// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/persons/CDlgPersons.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/support/Hand.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

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
    void sortsByAClickedColumn();
    void pickerByKeyboardAlone();
    void pickerEnterBeforeThePauseIsOver();
    void pickerPreselectsTheCurrentPersonBeyondTheLimit();
    void pickerPreselectsAnInactiveCurrentPerson();
    void pickerOffersOnlyActivePersons();
    void pickerCancelledGivesZero();
    void pickerWithNobodyFoundStaysOpen();
    void pickerOfAnotherModeGivesZero();
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
        names.append(page.list()->cellText(row, 1));
    return names;
}

KEdit *TestCDlgPersons::search(QWidget *window)
{
    return Hand::named<KEdit>(window, QStringLiteral("جستجو :"));
}

void TestCDlgPersons::addMany(int count)
{
    m_office.db.run(QStringLiteral("INSERT INTO Persons(sName2,iCode) SELECT CONCAT('کاربر ', seq), seq FROM seq_1001_to_%1")
                        .arg(1000 + count));
}

void TestCDlgPersons::listsActivePersonsByTheAlphabet()
{
    Office::addPerson(QStringLiteral("گیتی"), {});
    Office::addPerson(QStringLiteral("کامران"), {});
    Office::addPerson(QStringLiteral("پرویز"), {});
    Office::addPerson(QStringLiteral("آرش"), {}, [](CTblPersons &person) { person.m_iStatus = 1; });
    CDlgPersons page;
    QCOMPARE(page.title(), QStringLiteral("اشخاص"));
    QVERIFY(page.OnAccess());
    page.show();
    QCOMPARE(names(page), QStringList({QStringLiteral("پرویز"), QStringLiteral("کامران"), QStringLiteral("گیتی")}));
    QCOMPARE(page.countText(), QStringLiteral("تعداد : 3"));
    QAbstractItemModelTester tester(page.list()->listModel(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    page.refill();
}

void TestCDlgPersons::inactivePersonsOnRequest()
{
    Office::addPerson(QStringLiteral("پرویز"), {});
    Office::addPerson(QStringLiteral("آرش"), {}, [](CTblPersons &person) { person.m_iStatus = 1; });
    CDlgPersons page;
    page.show();
    page.findChild<QCheckBox *>()->setChecked(true);
    QCOMPARE(names(page), QStringList({QStringLiteral("آرش"), QStringLiteral("پرویز")}));
}

void TestCDlgPersons::searchesWhileTyping()
{
    Office::addPerson(QStringLiteral("علی"), QStringLiteral("رضایی"));
    const int karimi = Office::addPerson(QStringLiteral("مریم"), QStringLiteral("کریمی"));
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    QCOMPARE(Hand::focus(), search(&page));
    Hand::type(QStringLiteral("كريمي"));
    QTRY_COMPARE(names(page), QStringList{QStringLiteral("مریم کریمی")});
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
        searches += statement.contains(QStringLiteral("RLIKE")) ? 1 : 0;
    });
    Hand::type(QStringLiteral("کاربر 101"));
    QTRY_COMPARE(page.list()->count(), 10);
    KConnection::setStatementObserver(nullptr);
    QCOMPARE(searches, 1);
}

void TestCDlgPersons::exactCodeStandsFirst()
{
    addMany(30);
    Office::addPerson(QStringLiteral("یاسمن"), {}, [](CTblPersons &person) { person.m_iCode = 10; });
    CDlgPersons page;
    page.show();
    search(&page)->setText(QStringLiteral("۱۰"));
    QTRY_COMPARE(page.list()->cellText(0, 1), QStringLiteral("یاسمن"));
    QCOMPARE(page.list()->cellText(0, 0), QStringLiteral("10"));
    QCOMPARE(names(page).count(QStringLiteral("یاسمن")), 1);
    QVERIFY(page.list()->count() > 1);
}

void TestCDlgPersons::tellsWhenTheLimitCutsTheList()
{
    addMany(30);
    CDlgPersons page;
    page.show();
    QVERIFY(!page.findChild<QLabel *>(QStringLiteral("notice"))->isVisible());
    Hand::named<KEdit>(&page, QStringLiteral("تعداد نمايش :"))->setText(QStringLiteral("20"));
    page.refill();
    QCOMPARE(page.list()->count(), 20);
    QVERIFY(page.findChild<QLabel *>(QStringLiteral("notice"))->isVisible());
}

void TestCDlgPersons::tellsWhenNobodyIsFound()
{
    Office::addPerson(QStringLiteral("الف"), {});
    CDlgPersons page;
    page.show();
    auto *notice = page.findChild<QLabel *>(QStringLiteral("notice"));
    search(&page)->setText(QStringLiteral("زصضط"));
    QTRY_VERIFY(notice->isVisible());
    QVERIFY(notice->text().contains(QStringLiteral("جديد")));
    search(&page)->clear();
    QTRY_VERIFY(!notice->isVisible());
}

void TestCDlgPersons::sortsByAClickedColumn()
{
    Office::addPerson(QStringLiteral("الف"), {}, [](CTblPersons &person) { person.m_iCode = 9; });
    Office::addPerson(QStringLiteral("ب"), {}, [](CTblPersons &person) { person.m_iCode = 10; });
    Office::addPerson(QStringLiteral("پ"), {}, [](CTblPersons &person) { person.m_iCode = 8; });
    CDlgPersons page;
    page.show();
    Q_EMIT page.list()->columnClicked(0);
    QCOMPARE(names(page).join(QString()), QStringLiteral("پالفب"));
    Q_EMIT page.list()->columnClicked(0);
    QCOMPARE(names(page).join(QString()), QStringLiteral("بالفپ"));
}

void TestCDlgPersons::pickerByKeyboardAlone()
{
    Office::addPerson(QStringLiteral("علی"), QStringLiteral("رضایی"));
    const int karimi = Office::addPerson(QStringLiteral("مریم"), QStringLiteral("کریمی"));
    Hand::inNextWindow([](QDialog *dialog) {
        Hand::type(QStringLiteral("کریمی"));
        QTRY_COMPARE(dialog->findChild<KExtListCtrl *>()->count(), 1);
        Hand::press(Qt::Key_Return);
    });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0), karimi);
}

void TestCDlgPersons::pickerEnterBeforeThePauseIsOver()
{
    Office::addPerson(QStringLiteral("علی"), QStringLiteral("رضایی"));
    const int karimi = Office::addPerson(QStringLiteral("مریم"), QStringLiteral("کریمی"));
    Hand::inNextWindow([](QDialog *) {
        Hand::type(QStringLiteral("کریمی"));
        Hand::press(Qt::Key_Return);
    });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0), karimi);
}

void TestCDlgPersons::pickerPreselectsTheCurrentPersonBeyondTheLimit()
{
    addMany(1200);
    const int last = Office::addPerson(QStringLiteral("یونس"), QStringLiteral("یاوری"));
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
    Office::addPerson(QStringLiteral("الف"), {});
    const int old = Office::addPerson(QStringLiteral("ب"), {}, [](CTblPersons &person) { person.m_iStatus = 1; });
    Hand::inNextWindow([](QDialog *) { Hand::press(Qt::Key_Return); });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, old), old);
}

void TestCDlgPersons::pickerOffersOnlyActivePersons()
{
    Office::addPerson(QStringLiteral("الف"), {}, [](CTblPersons &person) { person.m_iStatus = 1; });
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
    const int id = Office::addPerson(QStringLiteral("الف"), {});
    Hand::inNextWindow([](QDialog *) { Hand::press(Qt::Key_Escape); });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, id), 0);
}

void TestCDlgPersons::pickerWithNobodyFoundStaysOpen()
{
    Office::addPerson(QStringLiteral("الف"), {});
    bool stayed = false;
    Hand::inNextWindow([&stayed](QDialog *dialog) {
        Hand::type(QStringLiteral("زصضط"));
        Hand::press(Qt::Key_Return);
        stayed = dialog->isVisible();
    });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0), 0);
    QVERIFY(stayed);
}

void TestCDlgPersons::pickerOfAnotherModeGivesZero()
{
    const int id = Office::addPerson(QStringLiteral("الف"), {});
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, 1, id), 0);
    QVERIFY(!QApplication::activeModalWidget());
}

void TestCDlgPersons::arrowsMoveFromTheSearchLine()
{
    Office::addPerson(QStringLiteral("الف"), {});
    const int second = Office::addPerson(QStringLiteral("ب"), {});
    Hand::inNextWindow([](QDialog *) {
        Hand::press(Qt::Key_Down);
        Hand::press(Qt::Key_Return);
    });
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0), second);
}

void TestCDlgPersons::typingInTheListGoesOnWithTheSearch()
{
    Office::addPerson(QStringLiteral("علی"), {});
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    Hand::type(QStringLiteral("ع"));
    page.list()->setFocus();
    Hand::type(QStringLiteral("ل"));
    QCOMPARE(search(&page)->text(), QStringLiteral("عل"));
    QCOMPARE(Hand::focus(), search(&page));
}

void TestCDlgPersons::insertAddsAPersonOnTheWayAndEnterPicksIt()
{
    Office::addPerson(QStringLiteral("آرش"), {});
    Hand::inNextWindow([](QDialog *dialog) {
        Hand::type(QStringLiteral("نرگس صابری"));
        Hand::inNextWindow([](QDialog *editor) {
            QCOMPARE(Hand::named<KEdit>(editor, QStringLiteral("نام :"))->text(), QStringLiteral("نرگس"));
            QCOMPARE(Hand::named<KEdit>(editor, QStringLiteral("نام خانوادگی :"))->text(), QStringLiteral("صابری"));
            Hand::press(Qt::Key_Return, Qt::ControlModifier);
        });
        Hand::press(Qt::Key_Insert);
        dialog->activateWindow(); // the offscreen platform has no window manager to do it
        QTRY_COMPARE(Hand::focus(), search(dialog));
        Hand::press(Qt::Key_Return);
    });
    const int chosen = CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, 0);
    CTblPersons person;
    QVERIFY(person.IsRecordExist(QStringLiteral("iID"), chosen));
    QCOMPARE(person.m_sName2, QStringLiteral("نرگس صابری"));
    QCOMPARE(person.m_iCode, 2);
}

void TestCDlgPersons::addedPersonThatTheSearchDoesNotFindIsShownAnyway()
{
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    Hand::type(QStringLiteral("نرگس"));
    Hand::inNextWindow([](QDialog *editor) {
        Hand::named<KEdit>(editor, QStringLiteral("نام :"))->setText(QStringLiteral("مینا"));
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
    });
    page.addPerson();
    QCOMPARE(names(page), QStringList{QStringLiteral("مینا")});
    QVERIFY(page.list()->currentKey() > 0);
    QCOMPARE(search(&page)->text(), QString());
}

void TestCDlgPersons::f2EditsTheSelectedPerson()
{
    Office::addPerson(QStringLiteral("الف"), {});
    const int second = Office::addPerson(QStringLiteral("ب"), {});
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    page.list()->selectKey(second);
    Hand::inNextWindow([](QDialog *editor) {
        Hand::named<KEdit>(editor, QStringLiteral("نام :"))->setText(QStringLiteral("ی"));
        Hand::press(Qt::Key_Return, Qt::ControlModifier);
    });
    Hand::press(Qt::Key_F2);
    QTRY_COMPARE(names(page), QStringList({QStringLiteral("الف"), QStringLiteral("ی")}));
    QCOMPARE(page.list()->currentKey(), second);
}

void TestCDlgPersons::userWithoutAccessSeesNoPicker()
{
    const int id = Office::addPerson(QStringLiteral("الف"), {});
    m_office.loginClerk();
    QCOMPARE(CDlgPersons::SelectPerson(nullptr, CDlgPersons::modePickOne, id), 0);
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(QStringLiteral("Persons"), KSecurity::Access)});
}

void TestCDlgPersons::userWithoutWriteRightIsToldAndAddsNothing()
{
    KSecurity::setRights(m_office.clerk(), QStringLiteral("Persons"), KSecurity::Access | KSecurity::Read);
    m_office.loginClerk();
    CDlgPersons page;
    QVERIFY(page.OnAccess());
    page.show();
    page.addPerson();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(QStringLiteral("Persons"), KSecurity::Write)});
    QCOMPARE(m_office.db.value(QStringLiteral("SELECT COUNT(*) FROM Persons")), QStringLiteral("0"));
}

void TestCDlgPersons::enterInThePageOpensThePersonReadOnlyWithoutModifyRight()
{
    Office::addPerson(QStringLiteral("الف"), {});
    KSecurity::setRights(m_office.clerk(), QStringLiteral("Persons"), KSecurity::Access | KSecurity::Read);
    m_office.loginClerk();
    CDlgPersons page;
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    bool readOnly = false;
    Hand::inNextWindow([&readOnly](QDialog *window) {
        readOnly = Hand::named<KEdit>(window, QStringLiteral("نام :"))->isReadOnly();
    });
    Hand::press(Qt::Key_Return);
    QVERIFY(readOnly);
    QVERIFY(g_pDlgWarning->takeShown().isEmpty());
}

void TestCDlgPersons::closedDatabaseHidesAddAndEdit()
{
    Office::addPerson(QStringLiteral("الف"), {});
    GetDBSetting()->SetClosedDB(true);
    CDlgPersons page;
    page.show();
    QVERIFY(!page.button(QStringLiteral("جديد"))->isVisible());
    QVERIFY(!page.button(QStringLiteral("ويرايش"))->isVisible());
    QVERIFY(page.button(QStringLiteral("نمايش"))->isVisible());
    page.addPerson();
    page.editPerson();
    QVERIFY(!QApplication::activeModalWidget());
}

void TestCDlgPersons::everyControlHasAName()
{
    CDlgPersons page;
    page.show();
    QVERIFY(search(&page));
    QVERIFY(Hand::named<KEdit>(&page, QStringLiteral("تعداد نمايش :")));
    QVERIFY(Hand::named<KExtListCtrl>(&page, QStringLiteral("اشخاص")));
    for (const QString &caption : {QStringLiteral("جديد"), QStringLiteral("ويرايش"), QStringLiteral("نمايش")})
        QVERIFY(Hand::named<QPushButton>(&page, caption));
}

static const RegisteredTest<TestCDlgPersons, QApplication> registered;
#include "TestCDlgPersons.moc"
