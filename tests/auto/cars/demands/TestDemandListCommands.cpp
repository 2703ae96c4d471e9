// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/cars/demands/DemandListTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// What the list of demands does: its commands, their rights, the archive.
class TestDemandListCommands : public DemandListTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- Commands ---

    void commandsOnARowNeedOne()
    {
        Page page;
        page.open();
        const QStringList onRow = {u"edit"_s, u"delete"_s, u"archive"_s, u"show"_s, u"matchingCars"_s, u"carList"_s};
        for (const QString &command : onRow)
            QVERIFY2(!page.button(command)->isEnabled(), qPrintable(command));
        addDemand();
        page.refill();
        for (const QString &command : onRow)
            QVERIFY2(page.button(command)->isEnabled(), qPrintable(command));
    }

    void closedDatabaseHidesWhatChanges()
    {
        addDemand();
        GetDBSetting()->SetClosedDB(true);
        Page page;
        page.open();
        for (const QString &command : changing) {
            QVERIFY2(page.button(command)->isHidden(), qPrintable(command));
            QVERIFY(!page.runCommand(command));
        }
        Q_EMIT page.list()->emptyAreaActivated();
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilDemands"_s), u"1"_s);
        QVERIFY(!page.button(u"matchingCars")->isHidden());
    }

    void newDemandIsListedAndSelected()
    {
        addDemand();
        Page page;
        page.open();
        TestOffice::whenModal("CDlgAddAutomobilDemand", [this](QWidget *window) {
            auto *dialog = static_cast<CDlgAddAutomobilDemand *>(window);
            QCOMPARE(dialog->windowTitle(), u"تقاضا - جدید"_s);
            dialog->basePage()->person()->setPersonID(m_person);
            dialog->accept();
        });
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(codes(page), (QStringList{u"1"_s, u"2"_s}));
        QCOMPARE(page.list()->currentRow(), 1);
    }

    void cancelledNewDemandLeavesNoRow()
    {
        Page page;
        page.open();
        TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *window) { static_cast<QDialog *>(window)->reject(); });
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilDemands"_s), u"0"_s);
        QCOMPARE(page.list()->count(), 0);
    }

    void editedDemandIsReadAnew()
    {
        addDemand();
        Page page;
        page.open();
        TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *window) {
            auto *dialog = static_cast<CDlgAddAutomobilDemand *>(window);
            QCOMPARE(dialog->windowTitle(), u"تقاضا - ویرایش"_s);
            dialog->basePage()->form()->edit(u"sDescSpecial"_s)->setText(u"فوری"_s);
            dialog->accept();
        });
        QVERIFY(page.runCommand(u"edit"));
        QCOMPARE(page.list()->cellText(0, u"specialDescription"), u"فوری"_s);
    }

    void demandOfAnOpenEditorIsNotListedAndThatOfADeadProgramIsRemoved()
    {
        addDemand();
        const int open = CDlgAddAutomobilDemand::addPlaceholder();
        const int left = CDlgAddAutomobilDemand::addPlaceholder();
        // A person, without whom no demand is listed.
        m_office->database().run(u"UPDATE AutomobilDemands SET iPersonID=%1 WHERE iID IN (%2,%3)"_s.arg(m_person).arg(open).arg(left));
        m_office->database().run(u"UPDATE Placeholders SET sSession='a program that died' WHERE iRecordID=%1"_s.arg(left));
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilDemands"_s), u"2"_s);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM Placeholders"_s), u"1"_s);
    }

    void commandOnAVanishedDemandDoesNothing()
    {
        addDemand();
        Page page;
        page.open();
        Page other;
        other.open();
        m_office->database().run(u"DELETE FROM AutomobilDemands"_s);
        for (const QString &command : {u"edit"_s, u"show"_s, u"matchingCars"_s})
            QVERIFY2(page.runCommand(command), qPrintable(command));
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

    void shownDemandOpensReadOnlyByCommandAndByRow()
    {
        addDemand();
        Page page;
        page.open();
        const auto expectShown = [] {
            TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *window) {
                QCOMPARE(window->windowTitle(), u"تقاضا - نمایش"_s);
                static_cast<QDialog *>(window)->reject();
            });
        };
        expectShown();
        QVERIFY(page.runCommand(u"show"));
        expectShown();
        Q_EMIT page.list()->rowActivated(page.list()->currentKey());
    }

    void demandTakenOutOfTheArchiveIsReadAnew_data()
    {
        QTest::addColumn<QString>("command");
        QTest::newRow("from the editor") << u"edit"_s;
        QTest::newRow("while it is shown") << u"show"_s;
    }

    void demandTakenOutOfTheArchiveIsReadAnew()
    {
        QFETCH(QString, command);
        addDemand([this](Demand &d) { d.m_iArchiveUserID = m_office->adminID(); });
        Page page;
        page.open();
        page.filters().set(u"archive", 2);
        page.refill();
        QCOMPARE(page.list()->count(), 1);
        TestOffice::whenModal("CDlgAddAutomobilDemand", [](QWidget *window) {
            static_cast<CDlgAddAutomobilDemand *>(window)->unarchiveButton()->click();
        });
        QVERIFY(page.runCommand(command));
        QCOMPARE(page.list()->count(), 0);
    }

    void deletingAsksAndTakesFilesAndRemindersAlong()
    {
        const int key = addDemand();
        addDemand();
        m_office->database().run(u"INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (70,%1,'a')"_s.arg(key));
        m_office->database().run(u"INSERT INTO Alarms (iTable,iRecordID,sDesc) VALUES (70,%1,'a')"_s.arg(key));
        Page page;
        page.open();
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{u"آیا از حذف این رکورد اطمینان دارید؟"_s});
        QCOMPARE(page.list()->count(), 2);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(codes(page), QStringList{u"2"_s});
        QCOMPARE(page.list()->cellText(0, u"row"), u"1"_s);
        QCOMPARE(page.list()->currentRow(), 0);
        QCOMPARE(value(u"SELECT (SELECT COUNT(*) FROM FileDocs)+(SELECT COUNT(*) FROM Alarms)"_s), u"0"_s);
    }

    void afterDeletingTheLastRowTheNewLastIsSelected()
    {
        addDemand();
        addDemand();
        Page page;
        page.open();
        page.list()->selectRow(1);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(page.list()->currentRow(), 0);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(page.list()->count(), 0);
        QVERIFY(!page.button(u"delete")->isEnabled());
    }

    void archivingStampsTheUserAndSearchesAgain()
    {
        const int key = addDemand([](Demand &d) { d.m_iCode = 30; });
        Page page;
        page.open();
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"بایگانی شد."_s});
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(value(u"SELECT CONCAT(iArchiveUserID,',',dateArchive IS NOT NULL) FROM AutomobilDemands WHERE iID=%1"_s.arg(key)),
                 u"%1,1"_s.arg(m_office->adminID()));
    }

    void archivingAnArchivedDemandWarnsAndWritesNothing()
    {
        addDemand([](Demand &d) { d.m_iArchiveUserID = 4711; });
        Page page;
        page.open();
        page.filters().set(u"archive", 0);
        page.refill();
        const ObservedStatements statements({u"UPDATE"_s});
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این تقاضا قبلا بایگانی شده است."_s});
        QVERIFY(statements.taken().isEmpty());
        QCOMPARE(value(u"SELECT iArchiveUserID FROM AutomobilDemands"_s), u"4711"_s);
    }

    // --- Archiving what is old ---

    void oldDemandsAreArchivedQuietlyBeforeTheFirstSearch()
    {
        archiveDemandsAfter(30);
        addOldDemand();
        const int young = addDemand([](Demand &d) { d.m_dateCreate = GetDBSetting()->GetDBServerDate(); });
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(page.list()->currentKey(), young);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iArchiveUserID ORDER BY iID) FROM AutomobilDemands"_s),
                 u"%1,0"_s.arg(m_office->adminID()));
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        // An open list leaves alone what the user took out of the archive.
        m_office->database().run(u"UPDATE AutomobilDemands SET iArchiveUserID=0"_s);
        page.refill();
        QCOMPARE(page.list()->count(), 2);
    }

    void openingArchivesNothingWithoutTheRight()
    {
        archiveDemandsAfter(30);
        addOldDemand();
        m_office->logInAs(u"keeper"_s, rightsForm, KSecurity::allRights);
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        m_office->logInAs(u"keeper"_s, archiveForm, KSecurity::Access);
        Page next;
        next.open();
        QCOMPARE(next.list()->count(), 0);
    }

    void openingArchivesNothingInAClosedDatabase()
    {
        archiveDemandsAfter(30);
        addOldDemand();
        GetDBSetting()->SetClosedDB(true);
        Page page;
        page.open();
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(value(u"SELECT iArchiveUserID FROM AutomobilDemands"_s), u"0"_s);
    }

    void demandsThatCannotBeArchivedAreListedAllTheSame()
    {
        archiveDemandsAfter(30);
        addOldDemand();
        m_office->database().run(u"CREATE TRIGGER keepDemands BEFORE UPDATE ON AutomobilDemands FOR EACH ROW"
                                 " SIGNAL SQLSTATE '45000' SET MESSAGE_TEXT='not now'"_s);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"not now"_s));
        Page page;
        page.open();
        m_office->database().run(u"DROP TRIGGER keepDemands"_s);
        QCOMPARE(page.list()->count(), 1);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void archivingNeedsItsRight()
    {
        addDemand();
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights);
        Page page;
        page.open();
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"شما اجازه بایگانی کردن تقاضا را ندارید."_s});
        QCOMPARE(value(u"SELECT iArchiveUserID FROM AutomobilDemands"_s), u"0"_s);
        m_office->logInAs(u"clerk"_s, archiveForm, KSecurity::Access);
        QVERIFY(page.runCommand(u"archive"));
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"بایگانی شد."_s});
    }

    void everyCommandAsksForItsRight_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("right");
        QTest::newRow("new") << u"new"_s << int(KSecurity::Write);
        QTest::newRow("edit") << u"edit"_s << int(KSecurity::Modify);
        QTest::newRow("show") << u"show"_s << int(KSecurity::Read);
        QTest::newRow("delete") << u"delete"_s << int(KSecurity::Delete);
        QTest::newRow("print") << u"print"_s << int(KSecurity::PrintList);
    }

    void everyCommandAsksForItsRight()
    {
        QFETCH(QString, command);
        QFETCH(int, right);
        addDemand();
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights & ~right);
        Page page;
        page.open();
        QVERIFY(page.runCommand(command));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(rightsForm, KSecurity::Right(right))});
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilDemands"_s), u"1"_s);
    }

    void listIsPrintedWithItsTitleDateAndCount()
    {
        addDemand();
        Page page;
        page.open();
        bool shown = false;
        TestOffice::whenModal("CDlgReportGenerator", [&shown](QWidget *window) {
            const ListReport report = static_cast<CDlgReportGenerator *>(window)->report();
            QCOMPARE(report.shownTitle(), u"لیست تقاضاها"_s);
            QCOMPARE(report.group(), u"گالری اتومبیل"_s);
            QCOMPARE(report.text(u"RightTop"_s), u"گالری اتومبیل"_s);
            QCOMPARE(report.text(u"LeftBottom"_s), u"تاریخ چاپ : "_s + shamsiText(QDate::currentDate()));
            QCOMPARE(report.text(u"Count"_s), u"تعداد : 1"_s);
            QCOMPARE(report.rows().size(), 1);
            shown = true;
            static_cast<QDialog *>(window)->reject();
        });
        QVERIFY(page.runCommand(u"print"));
        QVERIFY(shown);
    }

    void fittingCarsOfTheSelectedDemandAreListed()
    {
        addDemand([this](Demand &d) { d.m_iAutomobilType = m_brand; });
        m_office->addCar([this](CTblAutomobilInformations &car) { car.m_iAutomobilType = m_brand; });
        m_office->addCar();
        Page page;
        page.open();
        TestOffice::whenModal("CDlgMatches", [](QWidget *window) {
            QCOMPARE(window->windowTitle(), u"خودروهای مناسب"_s);
            QCOMPARE(static_cast<CDlgMatches *>(window)->list()->count(), 1);
            static_cast<QDialog *>(window)->reject();
        });
        QVERIFY(page.runCommand(u"matchingCars"));
    }

    void carListOpensForTheSelectedDemand()
    {
        addDemand();
        TabHost host;
        Page page;
        page.open();
        QVERIFY(page.runCommand(u"carList"));
        QCOMPARE(host.pages().size(), 1);
        QCOMPARE(host.pages().constFirst()->title(), u"گالري اتومبيل"_s);
    }
};

static const RegisteredTest<TestDemandListCommands, KApplication> registeredDemandListCommands;

#include "TestDemandListCommands.moc"
