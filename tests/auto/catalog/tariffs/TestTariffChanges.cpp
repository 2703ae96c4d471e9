// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/lists/KListBar.h"
#include "tests/auto/catalog/tariffs/TariffListTest.h"
#include "tests/support/RegisteredTest.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

// Tariffs that are added, changed, deleted and chosen, and by whom.
class TestTariffChanges : public TariffListTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- Adding, editing, deleting ---

    void aSavedNewTariffIsListedAndSelected()
    {
        addTariff(u"a"_s);
        CDlgAutomobilTariffs page;
        page.open();
        whenEditor(u"b"_s, u"70"_s);
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(titles(page), (QStringList{u"a"_s, u"b"_s}));
        QCOMPARE(page.list()->currentRow(), 1);
        QCOMPARE(page.countText(), u"تعداد : 2"_s);
    }

    void aCancelledNewTariffLeavesNothing()
    {
        CDlgAutomobilTariffs page;
        page.open();
        TestOffice::whenModal("CDlgAddAutomobilTariff", [](QWidget *editor) { static_cast<QDialog *>(editor)->reject(); });
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs"_s), u"0"_s);
    }

    void anEditedTariffStaysSelected()
    {
        addTariff(u"a"_s);
        const int key = addTariff(u"b"_s);
        addTariff(u"c"_s);
        CDlgAutomobilTariffs page;
        page.open();
        page.list()->selectKey(key);
        whenEditor(u"changed"_s, u"5"_s);
        QVERIFY(page.runCommand(u"edit"));
        QCOMPARE(titles(page), (QStringList{u"a"_s, u"changed"_s, u"c"_s}));
        QCOMPARE(page.list()->currentKey(), key);
        // Also where it stands in another place, because somebody else deleted the one before it.
        m_office->database().run(u"DELETE FROM AutomobilTariffs WHERE sTitle='a'"_s);
        whenEditor(u"again"_s, u"5"_s);
        QVERIFY(page.runCommand(u"edit"));
        QCOMPARE(titles(page), (QStringList{u"again"_s, u"c"_s}));
        QCOMPARE(page.list()->currentKey(), key);
    }

    void editingATariffThatAnotherUserDeletedChangesNothing()
    {
        const int key = addTariff(u"a"_s);
        CDlgAutomobilTariffs page;
        page.open();
        page.list()->selectKey(key);
        m_office->database().run(u"DELETE FROM AutomobilTariffs"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        whenEditor(u"b"_s, u"5"_s);
        QVERIFY(page.runCommand(u"edit"));
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs"_s), u"0"_s);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void editAndDeleteNeedARow()
    {
        CDlgAutomobilTariffs page;
        page.open();
        QVERIFY(!page.button(u"edit")->isEnabled());
        QVERIFY(!page.button(u"delete")->isEnabled());
        QVERIFY(page.button(u"new")->isEnabled());
        QVERIFY(!page.runCommand(u"edit"));
    }

    void anyAnswerButNoDeletes_data()
    {
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("select");
        QTest::addColumn<bool>("deleted");
        QTest::newRow("yes") << int(KMessageDialog::Yes) << false << true;
        QTest::newRow("no") << int(KMessageDialog::No) << false << false;
        QTest::newRow("cancel") << int(KMessageDialog::Cancel) << false << true;
        QTest::newRow("yes while choosing") << int(KMessageDialog::Yes) << true << true;
        QTest::newRow("no while choosing") << int(KMessageDialog::No) << true << false;
    }

    void anyAnswerButNoDeletes()
    {
        QFETCH(int, answer);
        QFETCH(bool, select);
        QFETCH(bool, deleted);
        const int key = addTariff(u"a"_s);
        addTariff(u"b"_s);
        CDlgAutomobilTariffs page;
        page.setSelectMode(select, key);
        page.open();
        page.list()->selectKey(key);
        g_pDlgYesNo->answerNext(static_cast<KMessageDialog::Answer>(answer));
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{SuiteMessages::deleteQuestion()});
        QCOMPARE(page.list()->count(), deleted ? 1 : 2);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs WHERE iID=%1"_s.arg(key)), deleted ? u"0"_s : u"1"_s);
        // The rows are numbered from 1 again.
        QCOMPARE(page.list()->cellText(0, u"row"), u"1"_s);
        QCOMPARE(page.list()->currentRow(), 0);
    }

    void deletingATariffThatIsGoneAsksNothing()
    {
        const int key = addTariff(u"a"_s);
        CDlgAutomobilTariffs page;
        page.open();
        page.list()->selectKey(key);
        m_office->database().run(u"DELETE FROM AutomobilTariffs"_s);
        QVERIFY(page.runCommand(u"delete"));
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
    }

    void keysWorkOnTheList()
    {
        const int key = addTariff(u"a"_s);
        CDlgAutomobilTariffs page;
        page.show();
        auto press = [&page](int pressed) {
            page.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&page));
            page.list()->setFocus();
            QTest::keyClick(page.list(), Qt::Key(pressed));
        };
        page.list()->selectKey(key);
        whenEditor(u"b"_s, u"1"_s);
        press(Qt::Key_Insert);
        QCOMPARE(titles(page), (QStringList{u"a"_s, u"b"_s}));
        whenEditor(u"c"_s, u"1"_s);
        press(Qt::Key_F2);
        QCOMPARE(titles(page), (QStringList{u"a"_s, u"c"_s}));
        press(Qt::Key_Delete);
        QCOMPARE(titles(page), QStringList{u"a"_s});
        whenEditor(u"d"_s, u"1"_s);
        press(Qt::Key_Return);
        QCOMPARE(titles(page), QStringList{u"d"_s});
        page.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        page.bar()->quickFilter()->setFocus();
        QTest::keyClick(page.bar()->quickFilter(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(page.focusWidget(), page.filters().control<KEdit>(u"name"));
    }

    // --- Rights and the closed database ---

    void addingNeedsTheDeletionRightEditingTheModificationRight_data()
    {
        QTest::addColumn<int>("rights");
        QTest::addColumn<bool>("adds");
        QTest::addColumn<bool>("edits");
        QTest::addColumn<bool>("deletes");
        const int seen = KSecurity::Access;
        QTest::newRow("access alone") << seen << false << false << false;
        QTest::newRow("write is not the right to add") << (seen | KSecurity::Write) << false << false << false;
        QTest::newRow("modify") << (seen | KSecurity::Modify) << false << true << false;
        QTest::newRow("delete adds and deletes") << (seen | KSecurity::Delete) << true << false << true;
        QTest::newRow("all") << KSecurity::allRights << true << true << true;
    }

    void addingNeedsTheDeletionRightEditingTheModificationRight()
    {
        QFETCH(int, rights);
        QFETCH(bool, adds);
        QFETCH(bool, edits);
        QFETCH(bool, deletes);
        const int key = addTariff(u"a"_s);
        m_office->logInAs(u"clerk"_s, rightsForm, rights);
        CDlgAutomobilTariffs page;
        page.open();
        page.list()->selectKey(key);
        auto run = [&](const QString &command, bool allowed, KSecurity::Right right) {
            page.runCommand(command);
            QCOMPARE(g_pDlgWarning->takeShown(),
                     allowed ? QStringList() : QStringList{KSecurity::refusalText(rightsForm, right)});
        };
        if (adds)
            whenEditor(u"b"_s, u"1"_s);
        run(u"new"_s, adds, KSecurity::Delete);
        QCOMPARE(page.list()->count(), adds ? 2 : 1);
        page.list()->selectKey(key);
        if (edits)
            whenEditor(u"c"_s, u"1"_s);
        run(u"edit"_s, edits, KSecurity::Modify);
        QCOMPARE(value(u"SELECT sTitle FROM AutomobilTariffs WHERE iID=%1"_s.arg(key)),
                 edits ? u"c"_s : u"a"_s);
        page.list()->selectKey(key);
        run(u"delete"_s, deletes, KSecurity::Delete);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs WHERE iID=%1"_s.arg(key)),
                 deletes ? u"0"_s : u"1"_s);
    }

    void withTheDatabaseClosedNothingIsChanged()
    {
        const int key = addTariff(u"a"_s);
        GetDBSetting()->SetClosedDB(true);
        CDlgAutomobilTariffs page;
        page.show();
        page.list()->selectKey(key);
        for (const QString &command : {u"new"_s, u"edit"_s, u"delete"_s}) {
            QVERIFY(!page.button(command)->isVisible());
            QVERIFY(!page.runCommand(command));
        }
        Q_EMIT page.list()->rowActivated(key);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs"_s), u"1"_s);
    }

    void aDatabaseClosedBehindTheOpenListChangesNothing()
    {
        const int key = addTariff(u"a"_s);
        CDlgAutomobilTariffs page;
        page.open();
        page.list()->selectKey(key);
        GetDBSetting()->SetClosedDB(true);
        for (const QString &command : {u"new"_s, u"edit"_s, u"delete"_s})
            page.runCommand(command);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs"_s), u"1"_s);
    }

    // --- Choosing ---

    void choosingGivesTheSelectedTariff()
    {
        addTariff(u"a"_s);
        const int key = addTariff(u"b"_s);
        int preselected = 0;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = static_cast<CDlgAutomobilTariffs *>(static_cast<KDialogHolder *>(window)->page());
            preselected = page->list()->currentKey();
            page->list()->selectRow(0);
            QVERIFY(captioned<QPushButton>(*window, u"بازگشت"_s));
            QVERIFY(captioned<QPushButton>(*window, u"چاپ"_s)->isVisible());
            page->list()->selectKey(key);
            captioned<QPushButton>(*window, u"انتخاب"_s)->click();
        });
        QCOMPARE(CDlgAutomobilTariffs::Select(nullptr, key), key);
        QCOMPARE(preselected, key);
    }

    void aDoubleClickChoosesInSelectMode()
    {
        const int key = addTariff(u"a"_s);
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = static_cast<CDlgAutomobilTariffs *>(static_cast<KDialogHolder *>(window)->page());
            Q_EMIT page->list()->rowActivated(key);
        });
        QCOMPARE(CDlgAutomobilTariffs::Select(nullptr), key);
    }

    void goingBackChoosesNothing()
    {
        const int key = addTariff(u"a"_s);
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) { captioned<QPushButton>(*window, u"بازگشت"_s)->click(); });
        QCOMPARE(CDlgAutomobilTariffs::Select(nullptr, key), 0);
    }

    void choosingNeedsARow()
    {
        bool stayed = false;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            captioned<QPushButton>(*window, u"انتخاب"_s)->click();
            stayed = window->isVisible();
            static_cast<QDialog *>(window)->reject();
        });
        QCOMPARE(CDlgAutomobilTariffs::Select(nullptr), 0);
        QVERIFY(stayed);
    }

    void aTariffCanBeAddedWhileChoosing()
    {
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) {
            auto *page = static_cast<CDlgAutomobilTariffs *>(static_cast<KDialogHolder *>(window)->page());
            whenEditor(u"new"_s, u"9"_s);
            QVERIFY(page->runCommand(u"new"));
            captioned<QPushButton>(*window, u"انتخاب"_s)->click();
        });
        const int chosen = CDlgAutomobilTariffs::Select(nullptr);
        QCOMPARE(QString::number(chosen),
                 value(u"SELECT iID FROM AutomobilTariffs WHERE sTitle='new'"_s));
    }

    void theWindowNeedsTheAccessRight()
    {
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights & ~KSecurity::Access);
        QCOMPARE(CDlgAutomobilTariffs::Select(nullptr), 0);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(rightsForm, KSecurity::Access)});
        CDlgAutomobilTariffs::Open(nullptr);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QVERIFY(KSecurity::formCaption(rightsForm) != rightsForm);
    }

    void openedToBeKeptItOffersNothingToChoose()
    {
        bool looked = false;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            looked = true;
            QCOMPARE(window->windowTitle(), u"هزينه هاي تعرفه هاي محضر"_s);
            QVERIFY(!captioned<QPushButton>(*window, u"انتخاب"_s));
            captioned<QPushButton>(*window, u"بازگشت"_s)->click();
        });
        CDlgAutomobilTariffs::Open(nullptr);
        QVERIFY(looked);
    }
};

static const RegisteredTest<TestTariffChanges, KApplication> registeredTariffChanges;

#include "TestTariffChanges.moc"
