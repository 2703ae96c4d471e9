// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/contracts/ContractListTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

// What the list of contracts does: its commands, their rights, the archive, another desk.
class TestContractListCommands : public ContractListTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- Commands ---

    void commandsOnARowAreEnabledExactlyWhileARowIsSelected()
    {
        CDlgAutomobilContracts page;
        page.open();
        for (const QString &command : rowCommands)
            QVERIFY2(!page.button(command)->isEnabled(), qPrintable(command));
        addNamed(u"a"_s);
        page.refill();
        QCOMPARE(page.list()->currentRow(), 0);
        for (const QString &command : rowCommands)
            QVERIFY2(page.button(command)->isEnabled(), qPrintable(command));
        page.list()->selectRow(-1);
        for (const QString &command : rowCommands)
            QVERIFY2(!page.button(command)->isEnabled(), qPrintable(command));
    }

    void readOnlyModeAndAClosedDatabaseHideTheSameEightButtons_data()
    {
        QTest::addColumn<bool>("closed");
        QTest::newRow("read-only mode") << false;
        QTest::newRow("closed database") << true;
    }

    void readOnlyModeAndAClosedDatabaseHideTheSameEightButtons()
    {
        QFETCH(bool, closed);
        addNamed(u"a"_s);
        if (closed)
            GetDBSetting()->SetClosedDB(true);
        CDlgAutomobilContracts page;
        page.setReadOnlyMode(!closed);
        page.open();
        QStringList hidden;
        // What stands in the row's menu alone has no button in sight in any mode.
        for (const QPushButton *button : page.commandLine()->withheld()) {
            QVERIFY(button->isHidden());
            if (button->text() != u"پيش فرض"_s)
                hidden << button->text();
        }
        hidden.sort();
        QStringList expected;
        for (const QString &command : rowCommands + QStringList{u"new"_s})
            expected << page.button(command)->text();
        expected.sort();
        QCOMPARE(hidden, expected);
        for (const QString &command : {u"new"_s, u"edit"_s, u"archive"_s})
            QVERIFY(!page.runCommand(command));
        Q_EMIT page.list()->emptyAreaActivated();
        Q_EMIT page.list()->rowRightClicked(page.list()->currentKey());
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"1"_s);
    }

    void selectModePicksOneActiveContract()
    {
        const int first = addNamed(u"a"_s, [](Contract &c) { c.m_sName1 = u"فروشنده یک"_s; });
        const int second = addNamed(u"b"_s, [](Contract &c) { c.m_sName1 = u"فروشنده دو"_s; });
        addNamed(u"void"_s, [](Contract &c) { c.m_iStatus = 1; });
        CDlgAutomobilContracts page;
        page.setSelectMode(true, second);
        page.open();
        QCOMPARE(page.list()->count(), 2);
        QCOMPARE(page.list()->currentKey(), second);
        QVERIFY(page.button(u"print")->isHidden());
        QVERIFY(page.filters().control<QCheckBox>(u"inactive")->isHidden());
        page.list()->selectKey(first);
        QVERIFY(page.OnOK());
        QCOMPARE(page.chosenKey(), first);
        QCOMPARE(page.chosenNumber(), 0);
        QCOMPARE(page.chosenName(), u"فروشنده یک"_s);
        page.list()->selectRow(-1);
        QVERIFY(!page.OnOK());
        page.list()->selectKey(first);
        Q_EMIT page.list()->rowRightClicked(first);
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QCOMPARE(page.list()->count(), 2);
    }

    void doubleClickInSelectModeClosesTheHoldingWindow()
    {
        const int key = addNamed(u"a"_s);
        auto *page = new CDlgAutomobilContracts;
        page->setSelectMode(true);
        KDialogHolder holder(page);
        TestOffice::whenModal("KDialogHolder", [page, key](QWidget *) {
            page->list()->selectKey(key);
            Q_EMIT page->list()->rowActivated(key);
        });
        QCOMPARE(holder.exec(), int(QDialog::Accepted));
        QCOMPARE(page->chosenKey(), key);
    }

    void deletingAsksFirstAndAnsweringNoKeepsTheRow()
    {
        addNamed(u"a"_s);
        addNamed(u"b"_s);
        CDlgAutomobilContracts page;
        page.open();
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{u"آیا از حذف این رکورد اطمینان دارید؟"_s});
        QCOMPARE(page.list()->count(), 2);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(explanations(page), QStringList{u"b"_s});
        QCOMPARE(page.countText(), u"تعداد : 1"_s);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"1"_s);
    }

    void rightClickOnARowRunsTheDeleteStepWithItsQuestion()
    {
        const int key = addNamed(u"a"_s);
        CDlgAutomobilContracts page;
        page.open();
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        Q_EMIT page.list()->rowRightClicked(key);
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(page.list()->count(), 0);
        QVERIFY(!page.button(u"delete")->isEnabled());
    }

    void contractThatVanishedIsSkippedWithoutAMessage()
    {
        const int key = addNamed(u"a"_s);
        CDlgAutomobilContracts page;
        page.open();
        m_office->database().run(u"DELETE FROM AutomobilContracts WHERE iID=%1"_s.arg(key));
        for (const QString &command : rowCommands) {
            if (command != u"archive"_s)
                page.runCommand(command);
        }
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
    }

    // --- Deleting, while another desk is at work ---

    void deletionSaysWhatAnotherDeskDidWhileItWasAsked_data()
    {
        QTest::addColumn<QString>("statement");
        QTest::addColumn<QString>("said");
        QTest::addColumn<int>("left");
        QTest::newRow("deleted") << u"DELETE FROM AutomobilContracts"_s << u"حذف کرده است"_s << 0;
        QTest::newRow("archived") << u"UPDATE AutomobilContracts SET iArchiveUserID=1"_s << u"بایگانی کرده است"_s << 0;
        QTest::newRow("got its document") << u"UPDATE AutomobilContracts SET iDocNum=5"_s << u"تغییر داده است"_s << 1;
    }

    void deletionSaysWhatAnotherDeskDidWhileItWasAsked()
    {
        QFETCH(QString, statement);
        QFETCH(QString, said);
        QFETCH(int, left);
        addNamed(u"a"_s);
        CDlgAutomobilContracts page;
        page.open();
        static std::function<void()> meanwhile;
        meanwhile = [this, statement] { m_office->database().run(statement); };
        // The question is asked for real, and the other desk is quicker than the answer.
        g_pDlgYesNo->answerAll(false);
        KMessageDialog::setBox([](KMessageDialog::Kind, const QString &, KMessageDialog::Buttons, QWidget *) {
            meanwhile();
            return KMessageDialog::Yes;
        });
        page.runCommand(u"delete");
        KMessageDialog::setBox(nullptr);
        g_pDlgYesNo->answerAll(true);
        const QStringList told = g_pDlgWarning->takeShown();
        QCOMPARE(told.size(), 1);
        QVERIFY2(told.constFirst().contains(said), qPrintable(told.constFirst()));
        QCOMPARE(page.list()->count(), left);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), said.startsWith(u"حذف"_s) ? u"0"_s : u"1"_s);
    }

    // --- Archiving ---

    void archivingNeedsItsOwnRight()
    {
        const int key = addNamed(u"a"_s);
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights);
        KSecurity::setRights(GetDBSetting()->GetUserID(), archiveForm, 0);
        KSecurity::forgetRights();
        CDlgAutomobilContracts page;
        page.open();
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"شما اجازه بایگانی کردن تقاضا را ندارید."_s});
        QCOMPARE(m_office->database().value(u"SELECT iArchiveUserID FROM AutomobilContracts WHERE iID=%1"_s.arg(key)),
                 u"0"_s);
    }

    void archivedContractLeavesTheDefaultListAndIsNotArchivedTwice()
    {
        const int key = addNamed(u"a"_s);
        CDlgAutomobilContracts page;
        page.open();
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"بایگانی شد."_s});
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(m_office->database().value(u"SELECT iArchiveUserID FROM AutomobilContracts WHERE iID=%1"_s.arg(key)),
                 QString::number(m_office->adminID()));
        QVERIFY(!m_office->database().value(u"SELECT dateArchive FROM AutomobilContracts"_s).isEmpty());
        page.filters().set(u"archive", 0);
        page.refill();
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این تقاضا قبلا بایگانی شده است."_s});
    }

    void contractThatAnotherDeskDeletedIsNotArchivedAndLeavesTheList()
    {
        const int key = addNamed(u"a"_s);
        CDlgAutomobilContracts page;
        page.open();
        m_office->database().run(u"DELETE FROM AutomobilContracts WHERE iID=%1"_s.arg(key));
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"کاربر دیگری این ردیف را در این میان حذف کرده است. چیزی ذخیره نشد."_s});
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QCOMPARE(page.list()->count(), 0);
    }

    // The list still shows it as it was; what counts is the row as it is when the command runs.
    void contractThatAnotherDeskArchivedKeepsItsArchiver()
    {
        const int key = addNamed(u"a"_s);
        CDlgAutomobilContracts page;
        page.open();
        m_office->database().run(u"UPDATE AutomobilContracts SET iArchiveUserID=77 WHERE iID=%1"_s.arg(key));
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"این تقاضا قبلا بایگانی شده است."_s});
        QCOMPARE(m_office->database().value(u"SELECT iArchiveUserID FROM AutomobilContracts"_s), u"77"_s);
        QCOMPARE(page.list()->count(), 0);
    }

    // The code was changed at another desk after the list was filled.
    void theRowIsArchivedThatWasSelectedWhateverItsCodeIsNow()
    {
        const int key = addNamed(u"a"_s);
        const int other = addNamed(u"b"_s);
        CDlgAutomobilContracts page;
        page.open();
        page.list()->selectKey(key);
        const QString code = m_office->database().value(u"SELECT iCode FROM AutomobilContracts WHERE iID=%1"_s.arg(key));
        m_office->database().run(u"UPDATE AutomobilContracts SET iCode=500 WHERE iID=%1"_s.arg(key));
        m_office->database().run(u"UPDATE AutomobilContracts SET iCode=%1 WHERE iID=%2"_s.arg(code).arg(other));
        page.runCommand(u"archive");
        QCOMPARE(m_office->database().value(u"SELECT GROUP_CONCAT(iID) FROM AutomobilContracts WHERE iArchiveUserID<>0"_s),
                 QString::number(key));
        const auto change = KChangeLog::last(u"AutomobilContracts"_s, key);
        QVERIFY(change);
        QCOMPARE(change->kind, KChange::Kind::Archived);
        QCOMPARE(change->userID, m_office->adminID());
    }

    void editingAnArchivedContractOpensItReadOnly()
    {
        addNamed(u"a"_s, [](Contract &c) { c.m_iArchiveUserID = 1; });
        CDlgAutomobilContracts page;
        page.open();
        page.filters().set(u"archive", 0);
        page.refill();
        QString title;
        TestOffice::whenModal("CDlgAddAutomobilContract", [&title](QWidget *window) {
            title = window->windowTitle();
            static_cast<QDialog *>(window)->reject();
        });
        QVERIFY(page.runCommand(u"edit"));
        QCOMPARE(title, u"قرارداد مبایعه نامه - نمایش"_s);
    }

    // --- Rights ---

    void everyCommandAsksItsOwnRight_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("missing");
        QTest::newRow("new") << u"new"_s << int(KSecurity::Write);
        QTest::newRow("edit") << u"edit"_s << int(KSecurity::Modify);
        QTest::newRow("delete") << u"delete"_s << int(KSecurity::Delete);
        QTest::newRow("show") << u"show"_s << int(KSecurity::Read);
    }

    void everyCommandAsksItsOwnRight()
    {
        QFETCH(QString, command);
        QFETCH(int, missing);
        addNamed(u"a"_s);
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights & ~missing);
        CDlgAutomobilContracts page;
        page.open();
        QVERIFY(page.runCommand(command));
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{KSecurity::refusalText(rightsForm, static_cast<KSecurity::Right>(missing))});
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"1"_s);
    }

    void pageIsRefusedToAUserWithoutAccess()
    {
        m_office->logInAs(u"clerk"_s, rightsForm, 0);
        CDlgAutomobilContracts page;
        QVERIFY(!page.OnAccess());
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::Access);
        CDlgAutomobilContracts allowed;
        QVERIFY(allowed.OnAccess());
    }
};

static const RegisteredTest<TestContractListCommands, KApplication> registeredContractListCommands;

#include "TestContractListCommands.moc"
