// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblCarContracts.h"
#include "tests/auto/cars/register/CarListTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// What the list of cars does: its commands, their rights, the archive, another desk.
class TestCarListCommands : public CarListTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- Commands ---

    void closedDatabaseAndSelectModeHideWhatChangesData_data()
    {
        QTest::addColumn<bool>("closed");
        QTest::newRow("closed database") << true;
        QTest::newRow("select mode") << false;
    }

    void closedDatabaseAndSelectModeHideWhatChangesData()
    {
        QFETCH(bool, closed);
        const int key = addNamed(u"a"_s);
        GetDBSetting()->SetClosedDB(closed);
        Page page;
        page.setSelectMode(!closed);
        page.open();
        for (const QString &command : changeCommands) {
            QVERIFY2(page.button(command)->isHidden(), qPrintable(command));
            QVERIFY(!page.runCommand(command));
        }
        // What changes data is refused by the command itself too.
        for (const QString &command : {u"new"_s, u"edit"_s, u"delete"_s, u"archive"_s})
            page.button(command)->click();
        GetDBSetting()->SetClosedDB(false);
        QVERIFY(!page.button(u"search"));
        QVERIFY(!page.button(u"print")->isHidden());
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(value(u"SELECT CONCAT(COUNT(*),SUM(iArchiveUserID)) FROM AutomobilInformations"_s),
                 u"10"_s);
        QVERIFY(key > 0);
    }

    void deletingAsksFirstAndAnsweringNoChangesNothing()
    {
        addNamed(u"a"_s);
        Page page;
        page.open();
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{u"آیا از حذف این رکورد اطمینان دارید؟"_s});
        QCOMPARE(page.list()->count(), 1);
    }

    void deletingACarOfContractsAsksAboutThem_data()
    {
        QTest::addColumn<bool>("goesOn");
        QTest::newRow("deleted") << true;
        QTest::newRow("kept") << false;
    }

    void deletingACarOfContractsAsksAboutThem()
    {
        QFETCH(bool, goesOn);
        const int car = addNamed(u"a"_s);
        CTblCarContracts::set(m_office->addContract(), car);
        Page page;
        page.open();
        g_pDlgYesNo->takeShown();
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        g_pDlgYesNo->answerNext(goesOn ? KMessageDialog::Yes : KMessageDialog::No);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown().filter(u"از این خودرو 1 قرارداد"_s).size(), 1);
        QCOMPARE(page.list()->count(), goesOn ? 0 : 1);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilInformations"_s), goesOn ? u"0"_s : u"1"_s);
        m_office->database().run(u"DELETE FROM CarContracts"_s);
    }

    void afterDeletingTheLastRowTheSelectionMovesToTheNewLastRow()
    {
        addNamed(u"a"_s);
        addNamed(u"b"_s);
        const int last = addNamed(u"c"_s);
        m_office->database().run(u"INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (68,%1,'a'),(69,%1,'b')"_s.arg(last));
        m_office->database().run(u"INSERT INTO CustomFieldRecords (iFieldID,iTable,iRecordID,sValue) VALUES (1,68,%1,'v')"_s.arg(last));
        Page page;
        page.open();
        page.list()->selectKey(last);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(plates(page), (QStringList{u"a"_s, u"b"_s}));
        QCOMPARE(page.list()->currentRow(), 1);
        QCOMPARE(page.countText(), u"تعداد : 2"_s);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iTable) FROM FileDocs"_s), u"69"_s);
        QCOMPARE(value(u"SELECT COUNT(*) FROM CustomFieldRecords"_s), u"0"_s);
    }

    void archivingNeedsItsOwnRight()
    {
        addNamed(u"a"_s);
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights);
        KSecurity::setRights(GetDBSetting()->GetUserID(), archiveForm, 0);
        KSecurity::forgetRights();
        Page page;
        page.open();
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"شما اجازه بایگانی کردن نامه ها را ندارید."_s});
        QCOMPARE(value(u"SELECT iArchiveUserID FROM AutomobilInformations"_s), u"0"_s);
    }

    void archivingAnArchivedCarWarnsAndWritesNothing()
    {
        addNamed(u"a"_s, [](Car &c) {
            c.m_iArchiveUserID = 77;
            c.m_dateArchive = day(2020, 1, 1);
        });
        Page page;
        page.open();
        page.filters().set(u"archive", 0);
        page.refill();
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این قرارداد قبلا بایگانی شده است."_s});
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QCOMPARE(value(u"SELECT CONCAT(iArchiveUserID,DATE(dateArchive)) FROM AutomobilInformations"_s),
                 u"772020-01-01"_s);
    }

    void archivedCarLeavesTheListAndTellsWhoAndWhen()
    {
        addNamed(u"a"_s);
        addNamed(u"b"_s);
        Page page;
        page.open();
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"بایگانی شد."_s});
        QCOMPARE(plates(page), QStringList{u"b"_s});
        QCOMPARE(value(u"SELECT CONCAT(iArchiveUserID,'|',dateArchive>NOW()-INTERVAL 1 MINUTE) FROM"
                       " AutomobilInformations WHERE sNumOfPlates='a'"_s),
                 u"%1|1"_s.arg(m_office->adminID()));
        page.filters().set(u"archive", 2);
        page.refill();
        QCOMPARE(plates(page), QStringList{u"a"_s});
        QCOMPARE(page.list()->cellText(0, u"archived"), u"بلی"_s);
    }

    void everyCommandAsksItsOwnRight_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("missing");
        QTest::newRow("edit") << u"edit"_s << int(KSecurity::Modify);
        QTest::newRow("show") << u"show"_s << int(KSecurity::Read);
        QTest::newRow("delete") << u"delete"_s << int(KSecurity::Delete);
        QTest::newRow("print") << u"print"_s << int(KSecurity::PrintList);
        QTest::newRow("catalog") << u"catalog"_s << int(KSecurity::Access);
        QTest::newRow("input parameters") << u"inputParameters"_s << int(KSecurity::Access);
    }

    void everyCommandAsksItsOwnRight()
    {
        QFETCH(QString, command);
        QFETCH(int, missing);
        addNamed(u"a"_s);
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights & ~missing);
        Page page;
        page.open();
        QVERIFY(page.runCommand(command));
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{KSecurity::refusalText(rightsForm, static_cast<KSecurity::Right>(missing))});
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilInformations"_s), u"1"_s);
    }

    void pageIsRefusedToAUserWithoutAccess()
    {
        m_office->logInAs(u"clerk"_s, rightsForm, 0);
        Page page;
        QVERIFY(!page.OnAccess());
        QCOMPARE(Page::SelectCar(nullptr), 0);
    }

    void carThatVanishedIsLeftAlone()
    {
        const int key = addNamed(u"a"_s);
        Page page;
        page.open();
        Page other;
        other.open();
        m_office->database().run(u"DELETE FROM AutomobilInformations WHERE iID=%1"_s.arg(key));
        QVERIFY(page.runCommand(u"edit"));
        QVERIFY(other.runCommand(u"delete"));
        QCOMPARE(other.list()->count(), 0);
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        // Whoever archives is told why it is not done, and the list is read anew.
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"کاربر دیگری این ردیف را در این میان حذف کرده است. چیزی ذخیره نشد."_s});
        QCOMPARE(page.list()->count(), 0);
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
    }

    void carOfAnOpenEditorIsNotListedAndThatOfADeadProgramIsRemoved()
    {
        const int saved = addNamed(u"a"_s);
        Page::addPlaceholder();
        const int left = Page::addPlaceholder();
        m_office->database().run(u"UPDATE Placeholders SET sSession='a program that died' WHERE iRecordID=%1"_s.arg(left));
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(page.list()->currentKey(), saved);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilInformations"_s), u"2"_s);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM Placeholders"_s), u"1"_s);
    }

    void selectModePicksACarAndBeginsAtTheOneChosenBefore()
    {
        const int first = addNamed(u"a"_s);
        const int second = addNamed(u"b"_s);
        int preselected = 0;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = window->findChild<Page *>();
            preselected = page->list()->currentKey();
            page->list()->selectKey(first);
            Q_EMIT page->list()->rowActivated(first);
        });
        QCOMPARE(Page::SelectCar(nullptr, second), first);
        QCOMPARE(preselected, second);
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        QCOMPARE(Page::SelectCar(nullptr, second), 0);
    }

    void printShowsTheListInItsReport()
    {
        addNamed(u"a"_s);
        addNamed(u"b"_s);
        Page page;
        page.open();
        bool shown = false;
        TestOffice::whenModal("CDlgReportGenerator", [&](QWidget *window) {
            const ListReport &report = static_cast<CDlgReportGenerator *>(window)->report();
            shown = true;
            QCOMPARE(report.group(), u"گالری اتومبیل"_s);
            QCOMPARE(report.shownTitle(), u"لیست گالری اتومبیل"_s);
            QCOMPARE(report.text(u"RightTop"_s), u"گالری اتومبیل"_s);
            QCOMPARE(report.text(u"LeftBottom"_s), u"تاریخ چاپ : "_s + shamsiText(QDate::currentDate()));
            QCOMPARE(report.text(u"Count"_s), u"تعداد : 2"_s);
            QCOMPARE(report.rows().size(), 2);
            // What the list does not show is not printed.
            QCOMPARE(report.shownColumns().size(), columnCount - 1);
            window->close();
        });
        QVERIFY(page.runCommand(u"print"));
        QVERIFY(shown);
    }
};

static const RegisteredTest<TestCarListCommands, KApplication> registeredCarListCommands;

#include "TestCarListCommands.moc"
