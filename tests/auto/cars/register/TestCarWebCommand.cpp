// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/gallery/CarFace.h"
#include "auto/cars/register/gallery/CarGallery.h"
#include "auto/cars/web/PublicCars.h"
#include "suite/utility/lists/KCardView.h"
#include "tests/auto/cars/register/CarListTest.h"
#include "tests/support/RegisteredTest.h"

#include <QAccessible>
#include <QMenu>

using namespace Qt::StringLiterals;

// "نمایش در وب" in the list of cars: in the menu of a row and of a card, as a column, as a filter.
class TestCarWebCommand : public CarListTest
{
    Q_OBJECT

    // The command's entry in the menu of the selected row, as it comes up.
    static QAction *entryOf(Page &page)
    {
        Q_EMIT page.list()->rowMenuRequested({});
        for (QMenu *menu : page.findChildren<QMenu *>()) {
            for (QAction *action : menu->actions()) {
                if (action->text() == u"نمایش در وب"_s && menu->isVisible())
                    return action;
            }
        }
        return nullptr;
    }
    static bool showsTick(Page &page)
    {
        QAction *entry = entryOf(page);
        if (!entry || !entry->isCheckable())
            qFatal("the row's menu has no such entry");
        const bool isOn = entry->isChecked();
        closeMenus(page);
        return isOn;
    }
    static void closeMenus(Page &page)
    {
        for (QMenu *menu : page.findChildren<QMenu *>())
            menu->hide();
    }
    static void mark(Page &page, int first, int last)
    {
        page.list()->selectRow(first);
        QItemSelection rows(page.list()->model()->index(first, 0), page.list()->model()->index(last, 0));
        page.list()->selectionModel()->select(rows, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    QString ticked() { return value(u"SELECT COALESCE(GROUP_CONCAT(c.sNumOfPlates ORDER BY c.iCode),'') FROM PublicCars p JOIN AutomobilInformations c ON c.iID=p.iCarID"_s); }

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    void menuTicksTheRowAndShowsIt()
    {
        addNamed(u"a"_s);
        const int b = addNamed(u"b"_s);
        Page page;
        page.open();
        page.list()->selectKey(b);
        QVERIFY(!page.list()->isColumnShown(u"web"));
        QVERIFY(!showsTick(page));
        entryOf(page)->trigger();
        closeMenus(page);
        QCOMPARE(ticked(), u"b"_s);
        // Seen at once, and the row is still the selected one.
        QCOMPARE(cells(page, u"web"), (QStringList{u"-"_s, u"بلی"_s}));
        QCOMPARE(page.list()->currentKey(), b);
        QVERIFY(showsTick(page));
        QVERIFY(page.runCommand(u"web"));
        QCOMPARE(ticked(), QString());
        QCOMPARE(cells(page, u"web"), (QStringList{u"-"_s, u"-"_s}));
        // What is off is not read.
        page.list()->setColumnShown(u"web", false);
        const ObservedStatements statements({u"SELECT"_s});
        page.refresh();
        QCOMPARE(statements.taken().filter(u"PublicCars"_s), QStringList());
    }

    // Some of them ticked: all are; all of them: none is.
    void allMarkedRowsAreTicked()
    {
        addNamed(u"a"_s);
        PublicCars::set({addNamed(u"b"_s)}, true);
        addNamed(u"c"_s);
        addNamed(u"d"_s);
        Page page;
        page.open();
        mark(page, 0, 2);
        QVERIFY(!showsTick(page));
        QVERIFY(page.runCommand(u"web"));
        QCOMPARE(ticked(), u"a,b,c"_s);
        mark(page, 0, 2);
        QVERIFY(showsTick(page));
        QVERIFY(page.runCommand(u"web"));
        QCOMPARE(ticked(), QString());
    }

    // The user saw an empty tick and sets it; that another desk set it in between does not make this a taking away.
    void whatWasSeenIsSwitched()
    {
        const int a = addNamed(u"a"_s);
        Page page;
        page.open();
        QAction *entry = entryOf(page);
        QVERIFY(!entry->isChecked());
        PublicCars::set({a}, true);
        entry->trigger();
        closeMenus(page);
        QCOMPARE(ticked(), u"a"_s);
    }

    void deletedMeanwhileIsTold()
    {
        const int a = addNamed(u"a"_s);
        addNamed(u"b"_s);
        Page page;
        page.open();
        mark(page, 0, 1);
        m_office->database().run(u"DELETE FROM AutomobilInformations WHERE iID=%1"_s.arg(a));
        QVERIFY(page.runCommand(u"web"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"1 خودرو را در این میان کاربر دیگری حذف کرده است."_s});
        QCOMPARE(ticked(), u"b"_s);
        QCOMPARE(plates(page), QStringList{u"b"_s});
    }

    void whoMayNotChangeCarsIsRefused()
    {
        addNamed(u"a"_s);
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights & ~KSecurity::Modify);
        Page page;
        page.open();
        QVERIFY(page.runCommand(u"web"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(rightsForm, KSecurity::Modify)});
        QCOMPARE(ticked(), QString());
    }

    void selectModeAndAClosedDatabaseDoNotOfferIt()
    {
        addNamed(u"a"_s);
        Page picker;
        picker.setSelectMode(true);
        picker.open();
        QVERIFY(!picker.isOffered(u"web"));
        GetDBSetting()->SetClosedDB(true);
        Page closed;
        closed.open();
        QVERIFY(!closed.isOffered(u"web"));
        GetDBSetting()->SetClosedDB(false);
    }

    void filterLeavesTheTickedOnes()
    {
        PublicCars::set({addNamed(u"a"_s)}, true);
        addNamed(u"b"_s);
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 2);
        page.filters().set(u"web", true);
        page.refill();
        QCOMPARE(plates(page), QStringList{u"a"_s});
        page.resetFilter();
        page.refill();
        QCOMPARE(page.list()->count(), 2);
    }

    // A card says so to the eye and to a screen reader, and its menu switches it; rows that are marked in the table are not meant.
    void cardsShowTheTickAndSwitchTheirOwn()
    {
        addNamed(u"a"_s);
        addNamed(u"b"_s);
        Page page;
        page.resize(1200, 700);
        page.show();
        page.open();
        mark(page, 0, 1);
        page.list()->selectionModel()->setCurrentIndex(page.list()->model()->index(1, 0), QItemSelectionModel::NoUpdate);
        page.gallery()->showCards(true);
        const auto nameOf = [&](int row) { return page.gallery()->cards()->model()->index(row, 0).data(Qt::AccessibleTextRole).toString(); };
        QVERIFY(!nameOf(1).contains(u"نمایش در وب"_s));
        const QImage before = page.gallery()->cards()->grab().toImage();
        QVERIFY(page.runCommand(u"web"));
        QCOMPARE(ticked(), u"b"_s);
        QVERIFY(!page.list()->isColumnShown(u"web"));
        page.gallery()->readCards();
        QVERIFY(nameOf(1).contains(u"نمایش در وب"_s));
        QVERIFY(!nameOf(0).contains(u"نمایش در وب"_s));
        QVERIFY(page.gallery()->cards()->grab().toImage() != before);
        QVERIFY(showsTick(page));
    }
};

static const RegisteredTest<TestCarWebCommand, KApplication> registeredCarWebCommand;

#include "TestCarWebCommand.moc"
