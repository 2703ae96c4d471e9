// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/cars/demands/editor/DemandEditorTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// What the editor of a demand stores, beside the demand its reminder, and what it leaves when it is cancelled.
class TestDemandEditorSaving : public DemandEditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- Saving ---

    void everythingThatIsEnteredIsSaved()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        KForm *form = dialog->basePage()->form();
        edit(*dialog, "sAcquaintances")->setText(u"روزنامه"_s);
        form->setKey(u"iAutomobilType"_s, m_brand);
        form->setKey(u"iColor"_s, m_white);
        form->setKey(u"iFacilities"_s, m_abs);
        edit(*dialog, "dAmountFrom")->setText(u"4,000,000,000"_s);
        edit(*dialog, "dAmountUpTo")->setText(u"5000000000"_s);
        edit(*dialog, "iModelFrom")->setText(u"۱۳۹۵"_s);
        edit(*dialog, "iModelUpTo")->setText(u"1400"_s);
        form->dateEdit(u"dateReference"_s)->setText(u"1405/01/01"_s);
        form->dateEdit(u"dateMaxTimeNeed"_s)->setText(u"1405/02/01"_s);
        form->longText(u"sDesc"_s)->setPlainText(u"الف\nب"_s);
        edit(*dialog, "sDescSpecial")->setText(u"فوری"_s);
        dialog->accept();
        QCOMPARE(dialog->result(), int(QDialog::Accepted));
        Demand demand;
        load(demand, key);
        QCOMPARE(demand.m_iPersonID, m_person);
        QCOMPARE(demand.m_sAcquaintances, u"روزنامه"_s);
        QCOMPARE(demand.m_iAutomobilType, m_brand);
        QCOMPARE(demand.m_iColor, m_white);
        QCOMPARE(demand.m_iFacilities, m_abs);
        QCOMPARE(demand.m_dAmountFrom, 4e9);
        QCOMPARE(demand.m_dAmountUpTo, 5e9);
        QCOMPARE(demand.m_iModelFrom, 1395);
        QCOMPARE(demand.m_iModelUpTo, 1400);
        QCOMPARE(demand.m_dateReference.date(), QDate(2026, 3, 21));
        QCOMPARE(demand.m_dateMaxTimeNeed.date(), QDate(2026, 4, 21));
        QCOMPARE(demand.m_sDesc, u"الف\nب"_s);
        QCOMPARE(demand.m_sDescSpecial, u"فوری"_s);
        QCOMPARE(demand.m_iStatus, 0);
    }

    void savingAnOldDemandWithoutAUserStampsTheCurrentOneAndOneThatHasAUserKeepsIt()
    {
        const int without = addDemand();
        const int with = addDemand([](Demand &d) { d.m_iUserID = 77; });
        opened(without, EditorMode::Edit)->accept();
        opened(with, EditorMode::Edit)->accept();
        Demand demand;
        QCOMPARE(load(demand, without).m_iUserID, m_office->adminID());
        QCOMPARE(load(demand, with).m_iUserID, 77);
    }

    void aColourThatWasDeletedSinceIsKept()
    {
        const int key = addDemand([this](Demand &d) { d.m_iColor = m_black; });
        CTblMultiItems::deleteValue(m_black);
        const auto dialog = opened(key, EditorMode::Edit);
        edit(*dialog, "sDescSpecial")->setText(u"x"_s);
        dialog->accept();
        Demand demand;
        QCOMPARE(load(demand, key).m_iColor, m_black);
        QCOMPARE(demand.m_sDescSpecial, u"x"_s);
    }

    void aDemandIsMadeInactive()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        QVERIFY(dialog->activeBox()->isChecked());
        dialog->activeBox()->setChecked(false);
        dialog->accept();
        Demand demand;
        QCOMPARE(load(demand, key).m_iStatus, 1);
    }

    // --- Reminder ---

    void reminderGroupIsHiddenUntilTheDemandMayBeChanged()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        const DemandReminder *reminder = dialog->basePage()->reminder();
        QVERIFY(reminder->isVisible());
        QVERIFY(!reminder->remindBox()->isChecked());
        QVERIFY(!reminder->settingsButton()->isEnabled());
        CDlgAddAutomobilDemandBase unfilled(EditorMode::Edit);
        QVERIFY(unfilled.reminder()->isHidden());
    }

    void reminderIsAddedUnderTheDemandAndShown()
    {
        const int key = addDemand([this](Demand &d) { d.m_iAutomobilType = m_brand; });
        const auto dialog = opened(key, EditorMode::Edit);
        const DemandReminder *reminder = dialog->basePage()->reminder();
        confirmReminder();
        reminder->remindBox()->click();
        QCOMPARE(value(u"SELECT CONCAT_WS(',',iTable,iRecordID,iRecordID2) FROM Alarms"_s),
                 u"70,%1,1"_s.arg(key));
        const QString description = value(u"SELECT sDesc FROM Alarms"_s);
        QVERIFY(description.contains(u"سارا کریمی"_s));
        QVERIFY(description.contains(u"پژو"_s));
        QVERIFY(reminder->remindBox()->isChecked());
        QVERIFY(reminder->settingsButton()->isEnabled());
        QVERIFY(reminder->description().endsWith(description));
        Demand demand;
        QCOMPARE(load(demand, key).m_iAlarmID, reminder->alarmID());
        QVERIFY(reminder->alarmID() > 0);
        dialog->accept();
        QCOMPARE(load(demand, key).m_iAlarmID, reminder->alarmID());
    }

    void aReminderIsProposedWithWhatIsKnownOfTheDemand()
    {
        const auto dialog = opened(Dialog::addPlaceholder(), EditorMode::New);
        const auto proposed = [&dialog] {
            QString description;
            TestOffice::whenModal("CDlgAddAlarm", [&description](QWidget *window) {
                description = named<KEdit>(*window, u"شرح :"_s)->text();
                static_cast<QDialog *>(window)->reject();
            });
            dialog->basePage()->reminder()->remindBox()->click();
            return description;
        };
        QCOMPARE(proposed(), u"تقاضای 1"_s);
        dialog->basePage()->form()->setKey(u"iAutomobilType"_s, m_brand);
        QCOMPARE(proposed(), u"تقاضای 1 - پژو"_s);
        dialog->basePage()->person()->setPersonID(m_person);
        QCOMPARE(proposed(), u"تقاضای 1 - سارا کریمی، پژو"_s);
    }

    // As a screen reader ticks it: without a click.
    void aBoxThatIsToggledAsksForTheReminderToo()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        confirmReminder();
        dialog->basePage()->reminder()->remindBox()->toggle();
        QVERIFY(dialog->basePage()->reminder()->alarmID() > 0);
        QVERIFY(dialog->basePage()->reminder()->remindBox()->isChecked());
    }

    void cancelledReminderLeavesNone()
    {
        const auto dialog = opened(addDemand(), EditorMode::Edit);
        cancelReminder();
        dialog->basePage()->reminder()->remindBox()->click();
        QVERIFY(!dialog->basePage()->reminder()->remindBox()->isChecked());
        QCOMPARE(count("Alarms"), u"0"_s);
    }

    void aReminderThatIsThereIsChangedByBothControls()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        DemandReminder *reminder = dialog->basePage()->reminder();
        confirmReminder();
        reminder->remindBox()->click();
        for (QAbstractButton *control : {static_cast<QAbstractButton *>(reminder->remindBox()),
                                         static_cast<QAbstractButton *>(reminder->settingsButton())}) {
            const QString text = control->text();
            TestOffice::whenModal("CDlgAddAlarm", [&](QWidget *window) {
                QVERIFY(window->windowTitle().contains(u"ویرایش"_s));
                named<KEdit>(*window, u"شرح :"_s)->setText(text);
                static_cast<QDialog *>(window)->accept();
            });
            control->click();
            QVERIFY(reminder->description().contains(text.trimmed()));
            QVERIFY(reminder->remindBox()->isChecked());
        }
        QCOMPARE(count("Alarms"), u"1"_s);
    }

    void aReminderThatWasDeletedElsewhereIsAddedAnew()
    {
        const int key = addDemand([](Demand &d) { d.m_iAlarmID = 4711; });
        const auto dialog = opened(key, EditorMode::Edit);
        QVERIFY(!dialog->basePage()->reminder()->remindBox()->isChecked());
        confirmReminder();
        dialog->basePage()->reminder()->remindBox()->click();
        Demand demand;
        QCOMPARE(QString::number(load(demand, key).m_iAlarmID), value(u"SELECT iID FROM Alarms"_s));
    }

    void aReminderDeletedWhileItsDemandIsOpenIsAddedAnewToo()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        confirmReminder();
        dialog->basePage()->reminder()->remindBox()->click();
        m_office->database().run(u"DELETE FROM Alarms"_s);
        bool isNew = false;
        TestOffice::whenModal("CDlgAddAlarm", [&isNew](QWidget *window) {
            isNew = window->windowTitle().endsWith(u"جدید"_s);
            static_cast<QDialog *>(window)->accept();
        });
        dialog->basePage()->reminder()->settingsButton()->click();
        QVERIFY(isNew);
        Demand demand;
        QCOMPARE(QString::number(load(demand, key).m_iAlarmID), value(u"SELECT iID FROM Alarms"_s));
    }

    void cancelledEditLeavesTheReminderWithItsDemandAndNoneWithout()
    {
        const int key = addDemand();
        {
            const auto dialog = opened(key, EditorMode::Edit);
            confirmReminder();
            dialog->basePage()->reminder()->remindBox()->click();
            dialog->reject();
        }
        QCOMPARE(value(u"SELECT COUNT(*) FROM Alarms a JOIN AutomobilDemands d ON d.iAlarmID=a.iID"_s),
                 u"1"_s);
        QCOMPARE(count("Alarms"), u"1"_s);
    }

    void shownDemandShowsItsReminder()
    {
        const int key = addDemand();
        {
            const auto dialog = opened(key, EditorMode::Edit);
            confirmReminder();
            dialog->basePage()->reminder()->remindBox()->click();
        }
        const auto dialog = opened(key, EditorMode::Show);
        const DemandReminder *reminder = dialog->basePage()->reminder();
        QVERIFY(reminder->isVisible());
        QVERIFY(!reminder->description().isEmpty());
        QVERIFY(!reminder->remindBox()->isEnabled());
        QVERIFY(reminder->settingsButton()->isHidden());
    }

    // --- New ---

    void placeholderHasTheNextCodeAndIsOtherwiseEmpty()
    {
        addDemand([](Demand &d) { d.m_iCode = 41; });
        Demand demand;
        load(demand, Dialog::addPlaceholder());
        QCOMPARE(demand.m_iCode, 42);
        QCOMPARE(demand.m_dateCreate.date(), GetDBSetting()->GetDBServerDate().date());
        QCOMPARE(demand.m_iUserID, 0);
        QCOMPARE(demand.m_iPersonID, 0);
        QVERIFY(!demand.m_dateReference.isValid());
    }

    void confirmedNewDemandKeepsItsCodeAndIsTheCurrentUsers()
    {
        TestOffice::whenModal("CDlgAddAutomobilDemand", [this](QWidget *window) {
            auto *dialog = static_cast<Dialog *>(window);
            dialog->basePage()->person()->setPersonID(m_person);
            dialog->accept();
        });
        const int key = Dialog::NewDemand(nullptr);
        Demand demand;
        load(demand, key);
        QCOMPARE(demand.m_iCode, 1);
        QCOMPARE(demand.m_iPersonID, m_person);
        QCOMPARE(demand.m_iUserID, m_office->adminID());
    }

    void aNewDemandThatCannotBeOpenedLeavesNoRowAndItsError()
    {
        m_office->database().run(u"RENAME TABLE CarBrands TO CarBrandsAway"_s);
        bool thrown = false;
        try {
            Dialog::NewDemand(nullptr);
        } catch (const CMySQLException &) {
            thrown = true;
        }
        m_office->database().run(u"RENAME TABLE CarBrandsAway TO CarBrands"_s);
        QVERIFY(thrown);
        QCOMPARE(count("AutomobilDemands"), u"0"_s);
    }

    void cancelledNewDemandLeavesNoRowFileOrReminder()
    {
        const int other = addDemand();
        m_office->database().run(u"INSERT INTO Alarms (iTable,iRecordID,sDesc) VALUES (70,%1,'a')"_s.arg(other));
        TestOffice::whenModal("CDlgAddAutomobilDemand", [this](QWidget *window) {
            auto *dialog = static_cast<Dialog *>(window);
            m_office->database().run(
                u"INSERT INTO FileDocs (iTable,iRecordID,sName) VALUES (70,%1,'a')"_s.arg(dialog->key()));
            confirmReminder();
            dialog->basePage()->reminder()->remindBox()->click();
            QCOMPARE(count("Alarms"), u"2"_s);
            dialog->reject();
        });
        QCOMPARE(Dialog::NewDemand(nullptr), 0);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iID) FROM AutomobilDemands"_s), QString::number(other));
        QCOMPARE(count("FileDocs"), u"0"_s);
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iRecordID) FROM Alarms"_s), QString::number(other));
    }

    void noneIsAddedOrChangedInAClosedDatabase()
    {
        const int key = addDemand([](Demand &d) { d.m_iArchiveUserID = 3; });
        const auto dialog = opened(key, EditorMode::Show);
        GetDBSetting()->SetClosedDB(true);
        bool changed = false;
        QVERIFY_THROWS_EXCEPTION(KAccountingError, Dialog::NewDemand(nullptr));
        QVERIFY_THROWS_EXCEPTION(KAccountingError, Dialog::EditDemand(key, changed, nullptr));
        dialog->unarchiveButton()->click();
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QVERIFY(dialog->isVisible());
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iArchiveUserID) FROM AutomobilDemands"_s), u"3"_s);
    }

    void filePagesAreBoundToTheDemand()
    {
        const int key = addDemand();
        const auto dialog = opened(key, EditorMode::Edit);
        QTemporaryDir folder;
        QFile file(folder.filePath(u"a.txt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("a");
        file.close();
        const QList<CDlgFileDocs *> pages = dialog->findChildren<CDlgFileDocs *>();
        QCOMPARE(pages.size(), 2);
        for (CDlgFileDocs *page : pages)
            QVERIFY(page->addFile(file.fileName()));
        QCOMPARE(value(u"SELECT GROUP_CONCAT(iTable,',',iRecordID,',',iScope ORDER BY iScope SEPARATOR ' ') FROM FileDocs"_s),
                 u"70,%1,0 70,%1,1"_s.arg(key));
    }

    // --- Archive ---

    void unarchivingSetsTheArchiveUserToZeroByTheCodeNotTheKey()
    {
        const int key = addDemand([](Demand &d) { d.m_iCode = 50; d.m_iArchiveUserID = 3; });
        // A demand whose code is the other's key stays in the archive.
        const int other = addDemand([key](Demand &d) { d.m_iCode = key; d.m_iArchiveUserID = 3; });
        const auto dialog = opened(key, EditorMode::Show);
        QVERIFY(dialog->unarchiveButton()->isVisible());
        QVERIFY(dialog->basePage()->archiveLine()->isVisible());
        dialog->unarchiveButton()->click();
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"این نامه از حالت بایگانی خارج شد."_s});
        QVERIFY(dialog->refreshNeeded());
        QVERIFY(!dialog->isVisible());
        Demand demand;
        QCOMPARE(load(demand, key).m_iArchiveUserID, 0);
        QVERIFY(demand.m_dateArchive.isValid());
        QCOMPARE(load(demand, other).m_iArchiveUserID, 3);
    }

    void unarchivingNeedsItsRight()
    {
        const int key = addDemand([](Demand &d) { d.m_iArchiveUserID = 3; });
        m_office->logInAs(u"clerk"_s, u"AutomobilDemands"_s, KSecurity::allRights);
        const auto dialog = opened(key, EditorMode::Show);
        dialog->unarchiveButton()->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"شما اجازه تغییر دادن ندارید."_s});
        QVERIFY(dialog->isVisible());
        Demand demand;
        QCOMPARE(load(demand, key).m_iArchiveUserID, 3);
    }
};

static const RegisteredTest<TestDemandEditorSaving, KApplication> registeredDemandEditorSaving;

#include "TestDemandEditorSaving.moc"
