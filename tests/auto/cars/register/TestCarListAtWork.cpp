// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CDlgAddAutomobilInformation.h"
#include "auto/cars/register/editor/CDlgAddAutomobilInformationBase.h"
#include "auto/cars/register/CDlgAutomobilInformations.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/lists/KListBar.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/ObservedStatements.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QLineEdit>
#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

using Car = CTblAutomobilInformations;
using Page = CDlgAutomobilInformations;
using Editor = CDlgAddAutomobilInformation;

constexpr QStringView plateColumn = u"plate";

}

// The car list as its users work in it all day: keys, focus, what each command leaves behind.
class TestCarListAtWork : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<QWidget> m_window;
    int m_owner = 0;

    QString value(const QString &statement) { return m_office->database().value(statement); }

    int addNamed(const QString &plate, const std::function<void(Car &)> &set = {})
    {
        return m_office->addCar([&](Car &car) {
            car.m_iPersonID = m_owner;
            car.m_sNumOfPlates = plate;
            if (set)
                set(car);
        });
    }

    Page &shownPage()
    {
        m_window = std::make_unique<QWidget>();
        auto *page = new Page(m_window.get());
        auto *layout = new QVBoxLayout(m_window.get());
        layout->addWidget(page);
        // Room for the open filter.
        m_window->resize(LookSizes::scaled(1300), LookSizes::scaled(700));
        m_window->show();
        page->setFocus();
        m_window->activateWindow();
        if (!QTest::qWaitForWindowActive(m_window.get()))
            qFatal("the page did not become active");
        return *page;
    }

    // Fills in and confirms the editor that opens, with that plate.
    void whenEditor(const QString &plate)
    {
        TestOffice::whenModal("CDlgAddAutomobilInformation", [this, plate](QWidget *window) {
            auto &editor = static_cast<Editor &>(*window);
            editor.basePage()->owner()->setPersonID(m_owner);
            editor.basePage()->form()->edit(u"sNumOfPlates"_s)->setText(plate);
            editor.accept();
            if (editor.isVisible()) {
                QTest::qFail(qPrintable(g_pDlgWarning->takeShown().join(u'|')), __FILE__, __LINE__);
                editor.reject();
            }
        });
    }

    static void whenEditorCancels(const std::function<void(Editor &)> &look = {})
    {
        TestOffice::whenModal("CDlgAddAutomobilInformation", [look](QWidget *window) {
            if (look)
                look(static_cast<Editor &>(*window));
            static_cast<QDialog *>(window)->reject();
        });
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_owner = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
    }
    void cleanup() { m_window.reset(); }

    // --- New ---

    void newCarBeginsAsAPlaceholderWithTheNextCodeTheServersDateAndTheYear()
    {
        addNamed(u"old"_s, [](Car &c) { c.m_iCode = 40; });
        auto &page = shownPage();
        QString row;
        whenEditorCancels([&](Editor &editor) {
            QCOMPARE(editor.windowTitle(), u"گالري اتومبيل- جدید"_s);
            row = value(u"SELECT CONCAT_WS('|',iCode,DATE(dateCreate)=DATE(NOW()),iYear,iUserID,iPersonID,dAmount,iStatus)"
                        " FROM AutomobilInformations ORDER BY iID DESC LIMIT 1"_s);
        });
        QTest::keyClick(page.list(), Qt::Key_Insert);
        QCOMPARE(row, u"41|1|%1|0|0|0|0"_s.arg(GetShamsiYearOfToday()));
    }

    void cancellingANewCarLeavesNoRowBehind()
    {
        auto &page = shownPage();
        whenEditorCancels([this](Editor &) {
            const QString key = value(u"SELECT MAX(iID) FROM AutomobilInformations"_s);
            m_office->database().run(
                u"INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (68,%1,'a'),(69,%1,'b')"_s.arg(key));
            m_office->database().run(
                u"INSERT INTO CustomFieldRecords (iFieldID,iTable,iRecordID,sValue) VALUES (1,68,%1,'v')"_s.arg(key));
        });
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilInformations"_s), u"0"_s);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iTable) FROM FileDocs"_s), u"69"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM CustomFieldRecords"_s), u"0"_s);
        QCOMPARE(page.list()->count(), 0);
    }

    void placeholderThatSomebodyElseDeletedIsNoTrouble()
    {
        auto &page = shownPage();
        whenEditorCancels([this](Editor &) { m_office->database().run(u"DELETE FROM AutomobilInformations"_s); });
        QVERIFY(page.runCommand(u"new"));
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void confirmingANewCarKeepsTheCodeTakenAtCreation()
    {
        addNamed(u"old"_s);
        auto &page = shownPage();
        TestOffice::whenModal("CDlgAddAutomobilInformation", [this](QWidget *window) {
            auto &editor = static_cast<Editor &>(*window);
            // Another user adds one meanwhile.
            addNamed(u"theirs"_s, [](Car &c) { c.m_iCode = 90; });
            editor.basePage()->owner()->setPersonID(m_owner);
            editor.basePage()->form()->edit(u"sNumOfPlates"_s)->setText(u"mine"_s);
            editor.accept();
        });
        QTest::keyClick(page.list(), Qt::Key_Insert);
        QCOMPARE(value(u"SELECT iCode FROM AutomobilInformations WHERE sNumOfPlates='mine'"_s), u"2"_s);
        QCOMPARE(page.list()->count(), 3);
        QCOMPARE(page.list()->cellText(page.list()->currentRow(), plateColumn), u"mine"_s);
    }

    // Unlike a contract, a car may be entered by any user who may open the list.
    void newCarAsksNoRightBeyondTheOpenDatabase()
    {
        m_office->logInAs(u"clerk"_s, u"AutomobilInformations"_s, KSecurity::Access);
        auto &page = shownPage();
        whenEditor(u"new"_s);
        QVERIFY(page.runCommand(u"new"));
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(page.list()->count(), 1);
    }

    // --- Edit and show ---

    void editedCarIsListedAsItWasSaved()
    {
        addNamed(u"before"_s);
        auto &page = shownPage();
        whenEditor(u"after"_s);
        QTest::keyClick(page.list(), Qt::Key_F2);
        QCOMPARE(page.list()->cellText(0, plateColumn), u"after"_s);
        QCOMPARE(page.list()->currentRow(), 0);
    }

    void enterOnARowShowsTheCar()
    {
        addNamed(u"a"_s);
        auto &page = shownPage();
        QString title;
        whenEditorCancels([&title](Editor &editor) { title = editor.windowTitle(); });
        QTest::keyClick(page.list(), Qt::Key_Return);
        QCOMPARE(title, u"گالري اتومبيل - نمایش"_s);
        whenEditorCancels([&title](Editor &editor) { title = editor.windowTitle() + u'!'; });
        QVERIFY(page.runCommand(u"show"));
        QCOMPARE(title, u"گالري اتومبيل - نمایش!"_s);
    }

    void carTakenOutOfTheArchiveInTheEditorLeavesTheListOfArchivedOnes_data()
    {
        QTest::addColumn<QString>("command");
        QTest::newRow("edit") << u"edit"_s;
        QTest::newRow("show") << u"show"_s;
    }

    void carTakenOutOfTheArchiveInTheEditorLeavesTheListOfArchivedOnes()
    {
        QFETCH(QString, command);
        addNamed(u"a"_s, [this](Car &c) { c.m_iArchiveUserID = m_office->adminID(); });
        auto &page = shownPage();
        page.filters().set(u"archive", 2);
        page.refill();
        QCOMPARE(page.list()->count(), 1);
        TestOffice::whenModal("CDlgAddAutomobilInformation", [](QWidget *window) { static_cast<Editor *>(window)->unarchive(); });
        QVERIFY(page.runCommand(command));
        QCOMPARE(value(u"SELECT iArchiveUserID FROM AutomobilInformations"_s), u"0"_s);
        QCOMPARE(page.list()->count(), 0);
    }

    void cancelledEditDoesNotSearchAgain()
    {
        addNamed(u"a"_s);
        auto &page = shownPage();
        whenEditorCancels();
        addNamed(u"b"_s);
        QVERIFY(page.runCommand(u"edit"));
        QCOMPARE(page.list()->count(), 1);
    }

    // --- Windows that open from the list ---

    void newBrandAndColorAreOfferedWhenTheirWindowsClose()
    {
        auto &page = shownPage();
        TestOffice::whenModal("CDlgCarsAll", [this](QWidget *window) {
            m_office->addBrand(u"پژو"_s);
            static_cast<QDialog *>(window)->reject();
        });
        QVERIFY(page.runCommand(u"catalog"));
        QCOMPARE(page.filters().control<QComboBox>(u"type")->count(), 2);
        QCOMPARE(page.filters().control<QComboBox>(u"type")->itemText(1), u"پژو"_s);
        TestOffice::whenModal("KDialogHolder", [this](QWidget *window) {
            m_office->addItem(CTblItems::typeColor, u"سفید"_s);
            static_cast<QDialog *>(window)->reject();
        });
        QVERIFY(page.runCommand(u"inputParameters"));
        QCOMPARE(page.filters().control<QComboBox>(u"color")->count(), 2);
    }

    void chosenTypeStaysChosenWhenTheTypesAreReadAnew()
    {
        m_office->addBrand(u"پژو"_s);
        const int brand = m_office->addBrand(u"سمند"_s);
        auto &page = shownPage();
        page.filters().set(u"type", brand);
        page.filters().readChoices(u"type");
        QCOMPARE(page.filters().value(u"type").toInt(), brand);
        m_office->database().run(u"DELETE FROM CarBrands WHERE iID=%1"_s.arg(brand));
        page.filters().readChoices(u"type");
        QCOMPARE(page.filters().control<QComboBox>(u"type")->currentIndex(), 0);
    }

    void customersOfACarOpenForTheSelectedOne()
    {
        addNamed(u"a"_s);
        auto &page = shownPage();
        QVERIFY(page.button(u"matchingDemands")->isEnabled());
        TestOffice::whenModal("CDlgMatches", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        QVERIFY(page.runCommand(u"matchingDemands"));
    }

    // --- Keys ---

    void keysReachFilterSearchAndCommands()
    {
        addNamed(u"a"_s, [](Car &c) { c.m_sChassisNum = u"NAS1"_s; });
        addNamed(u"b"_s);
        auto &page = shownPage();
        QCOMPARE(page.list()->count(), 2);
        QTest::keyClick(page.list(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(page.bar()->quickFilter()->hasFocus());
        QTest::keyClick(page.bar()->quickFilter(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(page.filters().control<KEdit>(u"chassis")->hasFocus());
        QTest::keyClicks(page.filters().control<KEdit>(u"chassis"), u"NAS"_s);
        QTest::keyClick(page.filters().control<KEdit>(u"chassis"), Qt::Key_Return);
        QCOMPARE(page.list()->count(), 1);
        page.filters().control<KEdit>(u"chassis")->clear();
        QTest::keyClick(page.filters().control<KEdit>(u"chassis"), Qt::Key_F5);
        QCOMPARE(page.list()->count(), 2);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        page.list()->setFocus();
        QTest::keyClick(page.list(), Qt::Key_Delete);
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
    }

    void firstShownCommandBeginsAtTheEdgeInSelectModeToo()
    {
        for (const bool select : {false, true}) {
            QWidget window;
            auto *page = new Page(&window);
            page->setSelectMode(select);
            auto *layout = new QVBoxLayout(&window);
            layout->addWidget(page);
            window.resize(1300, 700);
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            const QPushButton *first = page->button(select ? u"print" : u"new");
            const QRect row = first->parentWidget()->rect();
            const bool mirrored = first->layoutDirection() == Qt::RightToLeft;
            QCOMPARE(mirrored ? row.right() - first->geometry().right() : first->x(), 0);
        }
    }

    void defaultsStandBesideTheSearchButton()
    {
        auto &page = shownPage();
        const QPushButton *defaults = page.button(u"reset");
        const QPushButton *search = nullptr;
        for (const QPushButton *button : page.findChildren<QPushButton *>()) {
            if (button->text() == u"جستجو"_s)
                search = button;
        }
        QVERIFY(search && defaults->isVisible());
        QCOMPARE(defaults->parentWidget(), search->parentWidget());
        QCOMPARE(defaults->y(), search->y());
    }
};

static const RegisteredTest<TestCarListAtWork, KApplication> registeredCarListAtWork;
#include "TestCarListAtWork.moc"
