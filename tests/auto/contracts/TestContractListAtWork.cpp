// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/editor/CDlgAddAutomobilContractBase.h"
#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/editor/ContractPartyGroup.h"
#include "auto/settings/ContractSettings.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/db/KConnection.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/values/KSettings.h"
#include "tests/auto/contracts/MatterPageFilled.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

using Contract = CTblAutomobilContracts;
using Editor = CDlgAddAutomobilContract;

const QString section = QStringLiteral("AutomobilContracts");

KEdit *rowLimit(const QWidget &page)
{
    for (KEdit *edit : page.findChildren<KEdit *>()) {
        if (edit->accessibleName() == QStringLiteral("تعداد نمايش :"))
            return edit;
    }
    return nullptr;
}

QPushButton *searchButton(const QWidget &page)
{
    for (QPushButton *button : page.findChildren<QPushButton *>()) {
        if (button->text() == QStringLiteral("جستجو"))
            return button;
    }
    return nullptr;
}

QList<KDateEdit *> dateFilters(const CDlgAutomobilContracts &page)
{
    QList<KDateEdit *> dates;
    for (const QString &key : {u"contractFrom"_s, u"contractTo"_s, u"expirationFrom"_s, u"expirationTo"_s})
        dates << page.filters().control<KDateEdit>(key);
    return dates;
}

}

// The contract list as its users work in it all day: keys, focus, what each command leaves behind.
class TestContractListAtWork : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<QWidget> m_window;

    QString value(const QString &statement) { return m_office->database().value(statement); }

    int addNamed(const QString &explanation, const std::function<void(Contract &)> &set = {})
    {
        return m_office->addContract([&](Contract &contract) {
            contract.m_sExplain = explanation;
            contract.m_sName1 = QStringLiteral("a");
            contract.m_sName2 = QStringLiteral("b");
            contract.m_dAmount = 5;
            if (set)
                set(contract);
        });
    }

    CDlgAutomobilContracts &shownPage()
    {
        m_window = std::make_unique<QWidget>();
        auto *page = new CDlgAutomobilContracts(m_window.get());
        auto *layout = new QVBoxLayout(m_window.get());
        layout->addWidget(page);
        m_window->show();
        page->setFocus();
        m_window->activateWindow();
        if (!QTest::qWaitForWindowActive(m_window.get()))
            qFatal("the page did not become active");
        return *page;
    }

    // Fills in and confirms the editor that comes up, with that explanation.
    static void whenEditor(const QString &explanation)
    {
        TestOffice::whenModal("CDlgAddAutomobilContract", [explanation](QWidget *window) {
            auto &editor = static_cast<Editor &>(*window);
            for (ContractPartyGroup *party : {editor.basePage()->firstParty(), editor.basePage()->secondParty()}) {
                party->setKind(PartyKind::Other);
                party->personField()->nameEdit()->setText(party->title());
            }
            KForm *form = editor.basePage()->form();
            form->edit(QStringLiteral("dAmount"))->setText(QStringLiteral("700"));
            form->edit(QStringLiteral("sExplain"))->setText(explanation);
            fillMatterPage(*editor.matterPage());
            editor.accept();
            if (editor.isVisible()) {
                QTest::qFail(qPrintable(g_pDlgWarning->takeShown().join(u'|')), __FILE__, __LINE__);
                editor.reject();
            }
        });
    }

    static void whenEditorCancels(QString *title = nullptr)
    {
        TestOffice::whenModal("CDlgAddAutomobilContract", [title](QWidget *window) {
            if (title)
                *title = window->windowTitle();
            static_cast<QDialog *>(window)->reject();
        });
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init() { m_office->clear(); }
    void cleanup() { m_window.reset(); }

    // --- What the commands leave behind ---

    void newContractIsListedAndSelected()
    {
        addNamed(QStringLiteral("old"));
        auto &page = shownPage();
        whenEditor(QStringLiteral("new"));
        QTest::keyClick(page.list(), Qt::Key_Insert);
        QCOMPARE(page.list()->count(), 2);
        QCOMPARE(page.list()->cellText(page.list()->currentRow(), u"explanation"), QStringLiteral("new"));
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 2"));
    }

    void newContractThatTheFilterLeavesOutKeepsTheSelectionWhereItWas()
    {
        const int first = addNamed(QStringLiteral("first"));
        addNamed(QStringLiteral("second"));
        auto &page = shownPage();
        page.filters().set(u"explanation", QStringLiteral("s"));
        page.refill();
        page.list()->selectKey(first);
        whenEditor(QStringLiteral("new"));
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(page.list()->count(), 2);
        QCOMPARE(page.list()->currentKey(), first);
    }

    void cancelledNewContractLeavesTheListAlone()
    {
        addNamed(QStringLiteral("old"));
        auto &page = shownPage();
        whenEditorCancels();
        QTest::keyClick(page.list(), Qt::Key_Insert);
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilContracts")), QStringLiteral("1"));
    }

    void editedContractIsReadAgainAndStaysSelected()
    {
        addNamed(QStringLiteral("first"));
        const int second = addNamed(QStringLiteral("second"));
        auto &page = shownPage();
        page.list()->selectKey(second);
        whenEditor(QStringLiteral("changed"));
        QTest::keyClick(page.list(), Qt::Key_F2);
        QCOMPARE(page.list()->currentKey(), second);
        QCOMPARE(page.list()->cellText(1, u"explanation"), QStringLiteral("changed"));
    }

    void contractMadeVoidLeavesTheList()
    {
        addNamed(QStringLiteral("a"));
        auto &page = shownPage();
        TestOffice::whenModal("CDlgAddAutomobilContract", [](QWidget *window) {
            static_cast<Editor *>(window)->activeBox()->setChecked(false);
            static_cast<Editor *>(window)->accept();
        });
        QVERIFY(page.runCommand(u"edit"));
        QCOMPARE(page.list()->count(), 0);
        QVERIFY(!page.button(u"edit")->isEnabled());
    }

    void contractTakenOutOfTheArchiveIsListedAtOnce()
    {
        addNamed(QStringLiteral("a"), [this](Contract &c) { c.m_iArchiveUserID = m_office->adminID(); });
        auto &page = shownPage();
        page.filters().set(u"archive", 2);
        page.refill();
        QCOMPARE(page.list()->count(), 1);
        TestOffice::whenModal("CDlgAddAutomobilContract",
                              [](QWidget *window) { static_cast<Editor *>(window)->unarchiveButton()->click(); });
        QTest::keyClick(page.list(), Qt::Key_Return);
        QCOMPARE(page.list()->count(), 0);
    }

    void enterOnARowShowsItAndADoubleClickBesideTheRowsBeginsANewOne()
    {
        addNamed(QStringLiteral("a"));
        auto &page = shownPage();
        QString title;
        whenEditorCancels(&title);
        QTest::keyClick(page.list(), Qt::Key_Return);
        QCOMPARE(title, QStringLiteral("قرارداد مبایعه نامه - نمایش"));
        whenEditorCancels(&title);
        QTest::mouseDClick(page.list()->viewport(), Qt::LeftButton, {}, page.list()->viewport()->rect().bottomRight() - QPoint(5, 5));
        QCOMPARE(title, QStringLiteral("قرارداد مبایعه نامه- جدید"));
    }

    void doubleClickNeedsTheRightToRead()
    {
        addNamed(QStringLiteral("a"));
        m_office->logInAs(QStringLiteral("clerk"), section, KSecurity::allRights & ~KSecurity::Read);
        auto &page = shownPage();
        QTest::keyClick(page.list(), Qt::Key_Return);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(section, KSecurity::Read)});
    }

    void databaseThatIsClosedWhileTheListIsOpenIsNotChanged()
    {
        addNamed(QStringLiteral("a"));
        auto &page = shownPage();
        GetDBSetting()->SetClosedDB(true);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_F2, Qt::Key_Delete})
            QTest::keyClick(page.list(), key);
        page.runCommand(u"archive");
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QCOMPARE(value(QStringLiteral("SELECT CONCAT(COUNT(*),'/',SUM(iArchiveUserID)) FROM AutomobilContracts")),
                 QStringLiteral("1/0"));
        QCOMPARE(page.list()->count(), 1);
    }

    void settingsOpenFromTheList()
    {
        auto &page = shownPage();
        bool opened = false;
        TestOffice::whenModal("CDlgAutomobilContractSetting", [&opened](QWidget *window) {
            opened = true;
            static_cast<QDialog *>(window)->reject();
        });
        QVERIFY(page.runCommand(u"settings"));
        QVERIFY(opened);
    }

    // --- Keys and focus ---

    void listHasTheFocusAtFirstAndFindGoesToTheFilter()
    {
        addNamed(QStringLiteral("a"));
        auto &page = shownPage();
        QCOMPARE(page.focusWidget(), page.list());
        QTest::keyClick(page.list(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(page.focusWidget(), page.filters().control<KEdit>(u"description"));
    }

    void tabGoesThroughTheFilterTheRowsAndTheCommandsAndRoundAgain()
    {
        addNamed(QStringLiteral("a"));
        auto &page = shownPage();
        page.filters().control<KPersonField>(u"seller")->setFocus();
        QStringList met;
        const QWidget *start = page.focusWidget();
        do {
            const auto *button = qobject_cast<QAbstractButton *>(page.focusWidget());
            const QString name = page.focusWidget()->accessibleName();
            met << (button && name.isEmpty() ? button->text() : name);
            QTest::keyClick(page.focusWidget(), Qt::Key_Tab);
        } while (page.focusWidget() != start && met.size() < 60);
        // A date's second stop is its check box.
        QCOMPARE(met, (QStringList{QStringLiteral("فروشنده :"), QStringLiteral("فروشنده : ..."), QStringLiteral("وضعيت بايگاني :"), QStringLiteral("تاريخ عقد از :"), QStringLiteral("تاريخ عقد از :"), QStringLiteral("تاريخ عقد تا :"), QStringLiteral("تاريخ عقد تا :"), QStringLiteral("خريدار :"), QStringLiteral("خريدار : ..."), QStringLiteral("برگشتي :"), QStringLiteral("تاريخ انقضاء از :"), QStringLiteral("تاريخ انقضاء از :"), QStringLiteral("تاريخ انقضاء تا :"), QStringLiteral("تاريخ انقضاء تا :"), QStringLiteral("توضيحات :"), QStringLiteral("شرح قرارداد :"), QStringLiteral("نمايش غير فعال ها"), QStringLiteral("تعداد نمايش :"), QStringLiteral("جستجو"), QStringLiteral("قرارداد"), QStringLiteral("جديد"), QStringLiteral("ويرايش"), QStringLiteral("حذف"), QStringLiteral("نمايش"), QStringLiteral("بايگاني شد"), QStringLiteral("چاپ"), QStringLiteral("خروجی های دیگر"), QStringLiteral("چاپ قرارداد "), QStringLiteral("تسويه با فروشنده"), QStringLiteral("تسويه با خريدار"), QStringLiteral("تنظيمات"), QStringLiteral("گزارش جامع")}));
    }

    void deleteKeyDeletesOnTheListAndACharacterInAnEntry()
    {
        addNamed(QStringLiteral("a"));
        auto &page = shownPage();
        page.filters().set(u"description", QStringLiteral("xy"));
        page.filters().control<KEdit>(u"description")->setFocus();
        page.filters().control<KEdit>(u"description")->setCursorPosition(0);
        QTest::keyClick(page.filters().control<KEdit>(u"description"), Qt::Key_Delete);
        QCOMPARE(page.filters().control<KEdit>(u"description")->text(), QStringLiteral("y"));
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        page.list()->setFocus();
        QTest::keyClick(page.list(), Qt::Key_Delete);
        QCOMPARE(page.list()->count(), 0);
    }

    void enterInAFilterSearches()
    {
        addNamed(QStringLiteral("one"));
        addNamed(QStringLiteral("two"));
        auto &page = shownPage();
        page.filters().control<KEdit>(u"explanation")->setFocus();
        QTest::keyClicks(page.filters().control<KEdit>(u"explanation"), QStringLiteral("tw"));
        QTest::keyClick(page.filters().control<KEdit>(u"explanation"), Qt::Key_Return);
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(page.focusWidget(), page.filters().control<KEdit>(u"explanation"));
    }

    void commandKeepsTheFocusOnItsButtonWhenTheListWasReadAgain()
    {
        addNamed(QStringLiteral("a"));
        auto &page = shownPage();
        QPushButton *edit = page.button(u"edit");
        edit->setFocus();
        whenEditor(QStringLiteral("b"));
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(page.list()->cellText(0, u"explanation"), QStringLiteral("b"));
        QCOMPARE(page.focusWidget(), edit);
    }

    void deleteOfTheLastRowLeavesTheFocusOnTheList()
    {
        addNamed(QStringLiteral("a"));
        addNamed(QStringLiteral("b"));
        auto &page = shownPage();
        QPushButton *button = page.button(u"delete");
        button->setFocus();
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        QTest::keyClick(button, Qt::Key_Return);
        QCOMPARE(page.focusWidget(), button);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        QTest::keyClick(button, Qt::Key_Return);
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(page.focusWidget(), page.list());
    }

    // --- Entries of the filter ---

    void filterEntryThatIsNoneIsRefusedAndTheListStays()
    {
        addNamed(QStringLiteral("a"));
        auto &page = shownPage();
        page.filters().control<KDateEdit>(u"contractFrom")->setText(QStringLiteral("1405/13/40"));
        searchButton(page)->click();
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{QStringLiteral("تاريخ عقد از : تاریخ نادرست است. نمونه : 1405/08/29")});
        QCOMPARE(page.focusWidget(), page.filters().control<KDateEdit>(u"contractFrom"));
        QCOMPARE(page.list()->count(), 1);
        page.filters().control<KDateEdit>(u"contractFrom")->setChecked(false);
        searchButton(page)->click();
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void rowLimitOutOfRangeIsRefusedAndNotKept_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("empty") << QString();
        QTest::newRow("0") << QStringLiteral("0");
        QTest::newRow("10001") << QStringLiteral("10001");
    }

    void rowLimitOutOfRangeIsRefusedAndNotKept()
    {
        QFETCH(QString, typed);
        WriteSetting(section, QStringLiteral("iMaxRows"), 40);
        auto &page = shownPage();
        rowLimit(page)->setText(typed);
        searchButton(page)->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("تعداد نمايش : مقدار باید بین 1 و 10000 باشد.")});
        QCOMPARE(page.focusWidget(), rowLimit(page));
        page.OnClosing();
        QCOMPARE(ReadSetting(section, QStringLiteral("iMaxRows"), 0), 40);
    }

    void filterControlsBeginAsTheyShould()
    {
        auto &page = shownPage();
        for (const KDateEdit *date : dateFilters(page)) {
            QVERIFY(date->isCheckable());
            QVERIFY(!date->isChecked());
        }
        QCOMPARE(page.filters().control<QComboBox>(u"archive")->currentText(), QStringLiteral("بایگانی نشده"));
        QCOMPARE(page.filters().control<QComboBox>(u"returned")->currentText(), QStringLiteral("برگشت نشده"));
        QCOMPARE(page.filters().control<QComboBox>(u"type")->currentText(), QStringLiteral("همه"));
        QVERIFY(page.filters().control<QComboBox>(u"type")->isHidden());
        QVERIFY(!page.filters().control<QCheckBox>(u"inactive")->isChecked());
        QCOMPARE(page.rowLimit(), 1000);
        QCOMPARE(page.filters().control<KEdit>(u"description")->maxLength(), 50);
        QCOMPARE(page.filters().control<KEdit>(u"explanation")->maxLength(), 250);
        QVERIFY(page.button(u"reset")->isHidden());
        QStringList types;
        for (int i = 0; i < page.filters().control<QComboBox>(u"type")->count(); ++i)
            types << page.filters().control<QComboBox>(u"type")->itemText(i);
        QCOMPARE(types, (QStringList{QStringLiteral("همه"), QStringLiteral("مبایعه نامه"), QStringLiteral("قرارداد اجاره"), QStringLiteral("فروش اقساطی"), QStringLiteral("قرارداد نامه")}));
        QStringList archive;
        for (int i = 0; i < page.filters().control<QComboBox>(u"archive")->count(); ++i)
            archive << page.filters().control<QComboBox>(u"archive")->itemText(i);
        QCOMPARE(archive, (QStringList{QStringLiteral("همه"), QStringLiteral("بایگانی نشده"), QStringLiteral("بایگانی شده"), QStringLiteral("بایگانی شده دیگران")}));
        QStringList returned;
        for (int i = 0; i < page.filters().control<QComboBox>(u"returned")->count(); ++i)
            returned << page.filters().control<QComboBox>(u"returned")->itemText(i);
        QCOMPARE(returned,
                 (QStringList{QStringLiteral("همه"), QStringLiteral("برگشت نشده"), QStringLiteral("برگشت شده")}));
    }

    void resetEmptiesWhatItMayAndOnlyThat()
    {
        const int person = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"));
        auto &page = shownPage();
        page.filters().set(u"seller", person);
        page.filters().set(u"buyer", person);
        page.filters().set(u"description", QStringLiteral("x"));
        page.filters().set(u"explanation", QStringLiteral("y"));
        page.filters().set(u"type", 2);
        page.filters().set(u"archive", 3);
        page.filters().set(u"returned", 2);
        page.filters().set(u"inactive", true);
        for (KDateEdit *date : dateFilters(page))
            date->setChecked(true);
        page.button(u"reset")->click();
        const KFilterValues asked = page.filters().values();
        QCOMPARE(asked[u"seller"_s].toInt(), 0);
        QCOMPARE(asked[u"buyer"_s].toInt(), 0);
        QVERIFY(asked[u"description"_s].toString().isEmpty());
        QVERIFY(asked[u"explanation"_s].toString().isEmpty());
        QCOMPARE(asked[u"type"_s].toInt(), 0);
        for (const QString &date : {u"contractFrom"_s, u"contractTo"_s, u"expirationFrom"_s, u"expirationTo"_s})
            QVERIFY(!asked[date].toDateTime().isValid());
        QCOMPARE(asked[u"archive"_s].toInt(), 3);
        QCOMPARE(asked[u"returned"_s].toInt(), 2);
        QVERIFY(asked[u"inactive"_s].toBool());
    }

    void everyFilterControlReachesItsCriterion()
    {
        const int seller = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"));
        const int buyer = m_office->addPerson(QStringLiteral("رضا"), QStringLiteral("احمدی"));
        auto &page = shownPage();
        page.filters().set(u"seller", seller);
        page.filters().set(u"buyer", buyer);
        page.filters().set(u"description", QStringLiteral("d'_"));
        page.filters().set(u"explanation", QStringLiteral("e"));
        page.filters().set(u"type", 4);
        page.filters().set(u"archive", 3);
        page.filters().set(u"returned", 2);
        int day = 0;
        for (KDateEdit *date : dateFilters(page)) {
            date->setDate(QDate(2026, 5, ++day));
            date->setChecked(true);
        }
        QCOMPARE(page.filters().condition(m_office->adminID()),
                 QStringLiteral("iStatus = 0 AND iPersonFirstID=%1 AND bReturn=1 AND iArchiveUserID<>0 AND iArchiveUserID<>%2"
                                " AND iPersonSecondID=%3 AND iContractType = 3 AND dateContract>='2026-05-01'"
                                " AND dateContract<='2026-05-03' AND sDesc LIKE '%d''\\_%' AND sExplain LIKE '%e%'"
                                " AND dateExpiration>='2026-05-03' AND dateExpiration <= '2026-05-05'")
                     .arg(seller)
                     .arg(m_office->adminID())
                     .arg(buyer));
    }

    void rowsTellTypeDocumentDatesAndArchive()
    {
        addNamed(QStringLiteral("شرح"), [](Contract &c) {
            c.m_iContractType = 3;
            c.m_iDocNum = 12;
            c.m_dateContract = QDateTime(QDate(2026, 3, 21), QTime(0, 0), Qt::UTC);
            c.m_dateExpiration = QDateTime(QDate(2027, 3, 21), QTime(0, 0), Qt::UTC);
            c.m_sDesc = QStringLiteral("توضیح");
        });
        auto &page = shownPage();
        QStringList cells;
        for (int column = 0; column < 10; ++column)
            cells << page.list()->cellText(0, column);
        QCOMPARE(cells, (QStringList{QStringLiteral("1"), QStringLiteral("قرارداد نامه"), QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("12"), QStringLiteral("شرح"), QStringLiteral("1405/01/01"), QStringLiteral("1406/01/01"), QStringLiteral("توضیح"), QStringLiteral("-")}));
    }

    void personIsPickedIntoTheFilterAndClearedAgain()
    {
        const int person = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"));
        auto &page = shownPage();
        QPushButton *clear = nullptr;
        QPushButton *pick = nullptr;
        for (QPushButton *button : page.filters().control<KPersonField>(u"seller")->findChildren<QPushButton *>()) {
            QCOMPARE(button->text(), QStringLiteral("..."));
            (button->accessibleName().endsWith(QStringLiteral("حذف")) ? clear : pick) = button;
        }
        QVERIFY(pick && clear && !clear->isEnabled());
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
        pick->click();
        QCOMPARE(page.filters().value(u"seller").toInt(), person);
        QCOMPARE(page.filters().control<KPersonField>(u"seller")->name(), QStringLiteral("سارا کریمی"));
        QVERIFY(page.filters().control<KPersonField>(u"seller")->nameEdit()->isReadOnly());
        QVERIFY(clear->isEnabled());
        clear->setFocus();
        clear->click();
        QCOMPARE(page.filters().value(u"seller").toInt(), 0);
        QVERIFY(!clear->isEnabled());
        QCOMPARE(page.focusWidget(), page.filters().control<KPersonField>(u"seller")->nameEdit());
    }

    // --- Reading ---

    void waitCursorShowsWhileTheListIsRead()
    {
        addNamed(QStringLiteral("a"));
        auto &page = shownPage();
        bool waiting = false;
        KConnection::setStatementObserver([&waiting](const QString &) {
            waiting = QApplication::overrideCursor() && QApplication::overrideCursor()->shape() == Qt::WaitCursor;
        });
        page.refill();
        KConnection::setStatementObserver({});
        QVERIFY(waiting);
        QVERIFY(!QApplication::overrideCursor());
    }

    void orderThatCouldNotBeReadIsNotKept()
    {
        addNamed(QStringLiteral("b"));
        addNamed(QStringLiteral("a"));
        auto &page = shownPage();
        m_office->database().run(QStringLiteral("RENAME TABLE AutomobilContracts TO Elsewhere"));
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"explanation"));
        m_office->database().run(QStringLiteral("RENAME TABLE Elsewhere TO AutomobilContracts"));
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(page.sortExpression(), QStringLiteral("iCode"));
        QVERIFY(!page.list()->model()->headerData(page.list()->columnOf(u"explanation"), Qt::Horizontal).toString().endsWith(u'*'));
        QCOMPARE(page.list()->cellText(0, u"explanation"), QStringLiteral("b"));
    }

    void columnWidthsAreKeptUnderTheListsName()
    {
        {
            CDlgAutomobilContracts page;
            page.open();
            page.list()->header()->resizeSection(page.list()->columnOf(u"explanation"), 321);
        }
        QVERIFY(!ReadSetting(QStringLiteral("AutomobilContracts\\List"), QStringLiteral("sWidths"), QString()).isEmpty());
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(page.list()->header()->sectionSize(page.list()->columnOf(u"explanation")), 321);
    }

    // --- Select mode ---

    void doubleClickBesideTheRowsBeginsNothingInSelectMode()
    {
        CDlgAutomobilContracts page;
        page.setSelectMode(true);
        page.open();
        Q_EMIT page.list()->emptyAreaActivated();
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilContracts")), QStringLiteral("0"));
        QVERIFY(!QApplication::activeModalWidget());
    }

    void preselectedContractThatIsNotListedLeavesTheFirstRowSelected()
    {
        const int listed = addNamed(QStringLiteral("a"));
        const int unlisted = addNamed(QStringLiteral("b"), [](Contract &c) { c.m_iStatus = 1; });
        CDlgAutomobilContracts page;
        page.setSelectMode(true, unlisted);
        page.open();
        QCOMPARE(page.list()->currentKey(), listed);
        page.filters().set(u"inactive", true);
        page.refill();
        QCOMPARE(page.list()->count(), 1);
    }

    void enterInAFilterOfTheHoldingWindowSearchesAndPicksNothing()
    {
        addNamed(QStringLiteral("one"));
        addNamed(QStringLiteral("two"));
        auto *page = new CDlgAutomobilContracts;
        page->setSelectMode(true);
        KDialogHolder holder(page);
        TestOffice::whenModal("KDialogHolder", [page](QWidget *window) {
            page->filters().control<KEdit>(u"explanation")->setFocus();
            QTest::keyClicks(page->filters().control<KEdit>(u"explanation"), QStringLiteral("tw"));
            QTest::keyClick(page->filters().control<KEdit>(u"explanation"), Qt::Key_Return);
            QCOMPARE(page->list()->count(), 1);
            QVERIFY(window->isVisible());
            rowLimit(*page)->setFocus();
            QTest::keyClick(rowLimit(*page), Qt::Key_Return);
            QVERIFY(window->isVisible());
            page->list()->setFocus();
            QTest::keyClick(page->list(), Qt::Key_Return);
        });
        QCOMPARE(holder.exec(), int(QDialog::Accepted));
        QCOMPARE(page->list()->cellText(page->list()->currentRow(), u"explanation"), QStringLiteral("two"));
    }
};

static const RegisteredTest<TestContractListAtWork, KApplication> registered;

#include "TestContractListAtWork.moc"
