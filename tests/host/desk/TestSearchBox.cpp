// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/MainWindow.h"

#include "auto/CAutoDBSetting.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/subjects/AutoSearch.h"
#include "auto/subjects/AutoWindows.h"
#include "host/books/BookWindows.h"
#include "host/finding/SearchBox.h"
#include "host/finding/SearchHits.h"
#include "host/finding/SearchPopup.h"
#include "host/desk/WorkArea.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/lists/KListPage.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/accounting/search/OfficeSearch.h"
#include "suite/accounting/search/SearchIndex.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/subjects/CrmSearch.h"
#include "suite/crm/subjects/CrmSubjects.h"
#include "suite/crm/subjects/CrmWindows.h"
#include "suite/treasury/subjects/TreasurySearch.h"
#include "suite/treasury/subjects/TreasuryWindows.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "tests/auto/ModuleTables.h"
#include "tests/support/Hand.h"
#include "tests/support/RegisteredTest.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

// The search in the main window's bar, by the keyboard.
class TestSearchBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void keyOpensFromAnywhereAndEscGivesBack();
    void hitsAreShownByKind();
    void accessibleListSaysEverything();
    void arrowsGoOverHits();
    void enterShowsTheRecord();
    void enterBeforeTheAnswerOpensTheFirst();
    void controlEnterEdits();
    void actionsAreOfferedByKeys();
    void storyIsToldByItsKey();
    void allOpensTheListOfThem();
    void factsOfTheChosenCar();
    void factsFollowTheRights();
    void onlyWhatTheUserMaySee();
    void deletedMeanwhileIsTold();
    void officeFromBeforeGetsItsKeys();
    void nothingIsSaid_data();
    void nothingIsSaid();

private:
    SearchBox *box() const { return m_window->findChild<SearchBox *>(); }
    QListView *list() const { return box()->popup()->list(); }
    int rows() const { return list()->model()->rowCount(); }
    QString chosen() const { return list()->currentIndex().data().toString(); }
    // What is found by it is on the screen.
    void look(const QString &typed);

    TestDatabase m_database;
    QTemporaryDir m_folder;
    std::unique_ptr<MainWindow> m_window;
    int m_person = 0;
    int m_car = 0;
    int m_contract = 0;
};

namespace {

template <class Record, class Set>
int added(const Set &set)
{
    Record record;
    record.Open(false, false, true);
    record.AddNew();
    set(record);
    record.Update(true);
    return static_cast<int>(record.GetLastInsertedID());
}

}

void TestSearchBox::initTestCase()
{
    CTblUsers::setHashCost(CTblUsers::leastCost());
    prepareModuleTables(m_database);
    setSettingsFile(m_folder.filePath(u"settings.ini"_s));
    for (KMessageDialog *dialog : {g_pDlgWarning, g_pDlgMessage, g_pDlgYesNo})
        dialog->answerAll(true);
    CrmSubjects::enter();
    OfficeSearch::enter();
    CrmSearch::enter();
    TreasurySearch::enter();
    AutoSearch::enter();
    CrmWindows::enter();
    TreasuryWindows::enter();
    BookWindows::enter();
    AutoWindows::enter();
    GetDBSetting()->Login(CTblUsers::create(u"admin"_s, u"secret"_s, u"مدیر"_s, true));
    m_person = added<CTblPersons>([](CTblPersons &person) {
        person.m_iCode = 41;
        person.m_sName = u"مجید"_s;
        person.m_sFamily = u"کشاورز"_s;
        person.m_sMobile = u"09121006327"_s;
    });
    m_car = added<CTblAutomobilInformations>([this](CTblAutomobilInformations &car) {
        car.m_iCode = 7;
        car.m_iPersonID = m_person;
        car.m_sNumOfPlates = u"12 ب 345 ایران 67"_s;
        car.m_dAmount = 8500000000;
    });
    m_contract = added<CTblAutomobilContracts>([this](CTblAutomobilContracts &contract) {
        contract.m_iCode = 134;
        contract.m_iPersonFirstID = m_person;
        contract.m_sName2 = u"سمیرا رستمی"_s;
        contract.m_sNumOfPlates = u"12ب34567"_s;
    });
}

void TestSearchBox::init()
{
    m_window = std::make_unique<MainWindow>(DataFolder(m_folder.path()), GetAutoDBSetting());
    m_window->setLayoutDirection(Qt::RightToLeft);
    m_window->setWindowState(Qt::WindowNoState);
    m_window->resize(1366, 768);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void TestSearchBox::cleanup()
{
    m_window.reset();
    QCOMPARE(g_pDlgWarning->takeShown(), QStringList());
}

void TestSearchBox::cleanupTestCase()
{
    GetDBSetting()->Logout();
    setSettingsFile({});
}

void TestSearchBox::look(const QString &typed)
{
    QTest::keyClick(m_window.get(), Qt::Key_K, Qt::ControlModifier);
    QVERIFY(box()->edit()->hasFocus());
    Hand::type(typed);
    QTRY_VERIFY(rows() > 0);
}

void TestSearchBox::keyOpensFromAnywhereAndEscGivesBack()
{
    QWidget *before = QApplication::focusWidget();
    QVERIFY(before && before != box()->edit());
    QTest::keyClick(before, Qt::Key_K, Qt::ControlModifier);
    QVERIFY(box()->edit()->hasFocus() && box()->popup()->isVisible());
    QCOMPARE(box()->edit()->accessibleName(), u"جستجو در همه"_s);
    QTest::keyClick(box()->edit(), Qt::Key_Escape);
    QVERIFY(!box()->popup()->isVisible());
    QCOMPARE(QApplication::focusWidget(), before);
}

void TestSearchBox::hitsAreShownByKind()
{
    look(u"كشاورز"_s);
    QStringList shown;
    for (int row = 0; row < rows(); ++row)
        shown.append(list()->model()->index(row, 0).data().toString().section(u'،', 0, 0));
    QCOMPARE(shown, (QStringList{u"اشخاص"_s, u"مجید کشاورز"_s, u"قراردادها"_s, u"قرارداد 134"_s, u"خودروها"_s, u"خودرو 7"_s}));
    QCOMPARE(chosen(), u"مجید کشاورز"_s);
}

void TestSearchBox::accessibleListSaysEverything()
{
    look(u"کشاورز"_s);
    QAccessibleInterface *shown = QAccessible::queryAccessibleInterface(list());
    QCOMPARE(shown->text(QAccessible::Name), u"یافته‌ها"_s);
    QCOMPARE(shown->childCount(), rows());
    QCOMPARE(shown->child(1)->text(QAccessible::Name), u"مجید کشاورز، موبایل 09121006327، شخص 41"_s);
}

void TestSearchBox::arrowsGoOverHits()
{
    look(u"کشاورز"_s);
    Hand::press(Qt::Key_Down);
    QCOMPARE(chosen().section(u'،', 0, 0), u"قرارداد 134"_s);
    Hand::press(Qt::Key_Down);
    Hand::press(Qt::Key_Down);
    QCOMPARE(chosen(), u"خودرو 7"_s);
    Hand::press(Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(chosen().section(u'،', 0, 0), u"قرارداد 134"_s);
    Hand::press(Qt::Key_Up);
    Hand::press(Qt::Key_Up);
    QCOMPARE(chosen(), u"مجید کشاورز"_s);
}

void TestSearchBox::enterShowsTheRecord()
{
    look(u"۱۲ب۳۴۵"_s);
    Hand::press(Qt::Key_Down);
    QCOMPARE(chosen(), u"خودرو 7"_s);
    QString title;
    Hand::inNextWindow([&](QDialog *dialog) { title = dialog->windowTitle(); });
    Hand::press(Qt::Key_Return);
    QVERIFY2(title.contains(u"نمایش"), qPrintable(title));
    QVERIFY(!box()->popup()->isVisible());
}

// Somebody types a number and Enter at once.
void TestSearchBox::enterBeforeTheAnswerOpensTheFirst()
{
    QTest::keyClick(m_window.get(), Qt::Key_K, Qt::ControlModifier);
    bool opened = false;
    Hand::inNextWindow([&](QDialog *) { opened = true; });
    Hand::type(u"134"_s);
    Hand::press(Qt::Key_Return);
    QTRY_VERIFY(opened);
}

void TestSearchBox::controlEnterEdits()
{
    look(u"مجید"_s);
    QString title;
    Hand::inNextWindow([&](QDialog *dialog) { title = dialog->windowTitle(); });
    Hand::press(Qt::Key_Return, Qt::ControlModifier);
    QVERIFY2(!title.isEmpty(), "no editor came");
}

void TestSearchBox::actionsAreOfferedByKeys()
{
    look(u"مجید کشاورز"_s);
    QStringList offered;
    QTimer::singleShot(0, this, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        for (const QAction *action : menu->actions()) {
            if (!action->isSeparator())
                offered.append(action->text());
        }
        menu->close();
    });
    Hand::press(Qt::Key_Return, Qt::AltModifier);
    QCOMPARE(offered.mid(0, 2), (QStringList{u"نمایش"_s, u"ویرایش"_s}));
    for (const QString &text : {u"صورتحساب"_s, u"دریافت از این شخص"_s, u"پرداخت به این شخص"_s, u"همه اشخاص یافته شده"_s})
        QVERIFY2(offered.contains(text), qPrintable(offered.join(u'|')));
    QVERIFY(box()->popup()->isVisible());
}

void TestSearchBox::storyIsToldByItsKey()
{
    int told = 0;
    const QString table = u"AutomobilInformations"_s;
    RecordWindows::removeAction(table, u"story"_s);
    const auto before = RecordWindows::actionsOf(table, m_car);
    RecordWindows::addAction(table, {.id = u"story"_s, .text = u"سرگذشت"_s, .icon = {}, .form = table, .run = [&](qint32 key, QWidget *) { told = key; }});
    look(u"12ب345"_s);
    Hand::press(Qt::Key_Down);
    Hand::press(Qt::Key_T, Qt::ControlModifier);
    QCOMPARE(told, m_car);
    QVERIFY(!box()->popup()->isVisible());
    RecordWindows::removeAction(table, u"story"_s);
    QCOMPARE(RecordWindows::actionsOf(table, m_car).size(), before.size());
}

void TestSearchBox::allOpensTheListOfThem()
{
    look(u"کشاورز"_s);
    Hand::press(Qt::Key_Down);
    Hand::press(Qt::Key_Return, Qt::ShiftModifier);
    auto *page = qobject_cast<KListPage *>(m_window->workArea()->currentPage());
    QVERIFY(page);
    QCOMPARE(page->list()->count(), 1);
    QCOMPARE(page->list()->currentKey(), m_contract);
    QVERIFY(page->request().conditionText.contains(u"کشاورز"_s));
}

void TestSearchBox::factsOfTheChosenCar()
{
    look(u"12ب345"_s);
    Hand::press(Qt::Key_Down);
    const auto *facts = m_window->findChild<QLabel *>(u"searchFacts"_s);
    QTRY_VERIFY(facts->isVisible());
    for (const QString &text : {u"مالک: مجید کشاورز، 09121006327"_s, u"متقاضیان: 0"_s, u"قرارداد: 134"_s})
        QVERIFY2(facts->text().contains(text), qPrintable(facts->text()));
}

void TestSearchBox::factsFollowTheRights()
{
    const int admin = GetDBSetting()->GetUserID();
    const int clerk = CTblUsers::create(u"of cars alone"_s, u"secret"_s, {}, false);
    KSecurity::setRights(clerk, u"AutomobilInformations"_s, KSecurity::Access | KSecurity::Read);
    GetDBSetting()->Login(clerk);
    look(u"12ب345"_s);
    const auto *facts = m_window->findChild<QLabel *>(u"searchFacts"_s);
    QTRY_VERIFY(facts->isVisible());
    const QString text = facts->text();
    Hand::press(Qt::Key_Escape);
    GetDBSetting()->Login(admin);
    QVERIFY2(text.contains(u"مالک: مجید کشاورز"_s), qPrintable(text));
    for (const QString &withheld : {u"متقاضیان"_s, u"قرارداد"_s})
        QVERIFY2(!text.contains(withheld), qPrintable(text));
}

void TestSearchBox::onlyWhatTheUserMaySee()
{
    const int admin = GetDBSetting()->GetUserID();
    const int clerk = CTblUsers::create(u"clerk"_s, u"secret"_s, {}, false);
    KSecurity::setRights(clerk, u"Persons"_s, KSecurity::Access | KSecurity::Read);
    GetDBSetting()->Login(clerk);
    look(u"کشاورز"_s);
    QCOMPARE(rows(), 2);
    QCOMPARE(chosen(), u"مجید کشاورز"_s);
    Hand::press(Qt::Key_Escape);
    // Not by another way either.
    RecordWindows::open(u"AutomobilContracts"_s, m_contract, false, m_window.get());
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
    QStringList offered;
    for (const RecordAction &action : RecordWindows::actionsOf(u"Persons"_s, m_person))
        offered.append(action.id);
    GetDBSetting()->Login(admin);
    // What only reads the person.
    QCOMPARE(offered, QStringList{u"story"_s});
}

void TestSearchBox::deletedMeanwhileIsTold()
{
    const int person = added<CTblPersons>([](CTblPersons &one) { one.m_sFamily = u"رفتنی"_s; });
    look(u"رفتنی"_s);
    m_database.run(u"DELETE FROM Persons WHERE iID=%1"_s.arg(person));
    g_pDlgMessage->takeShown();
    Hand::press(Qt::Key_Return);
    const QStringList told = g_pDlgMessage->takeShown();
    QCOMPARE(told.size(), 1);
    QVERIFY2(told.constFirst().contains(u"دیگر در دفتر نیست"), qPrintable(told.constFirst()));
}

void TestSearchBox::officeFromBeforeGetsItsKeys()
{
    m_database.run(u"DELETE FROM SearchKeys"_s);
    m_database.run(u"DELETE FROM Properties WHERE sSection='Search'"_s);
    m_window->makeSearchable();
    QTRY_VERIFY(SearchIndex::isBuilt());
    look(u"12ب345"_s);
    QCOMPARE(rows(), 4);
}

void TestSearchBox::nothingIsSaid_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("said");
    QTest::newRow("nothing typed") << QString() << u"پلاک"_s;
    QTest::newRow("nothing found") << u"زززز"_s << u"چیزی با «زززز» پیدا نشد."_s;
}

void TestSearchBox::nothingIsSaid()
{
    QFETCH(QString, typed);
    QFETCH(QString, said);
    QTest::keyClick(m_window.get(), Qt::Key_K, Qt::ControlModifier);
    Hand::type(typed);
    const auto isSaid = [&] {
        for (const QLabel *label : box()->popup()->findChildren<QLabel *>()) {
            if (label->isVisible() && label->text().contains(said))
                return true;
        }
        return false;
    };
    QTRY_VERIFY(isSaid());
    QCOMPARE(rows(), 0);
}

static const RegisteredTest<TestSearchBox, KApplication> registeredSearchBox;
#include "TestSearchBox.moc"
