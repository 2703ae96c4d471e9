// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/editor/CDlgAddAutomobilContractBase.h"
#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/contracts/editor/ContractPartyGroup.h"
#include "auto/settings/ContractSettings.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblCarContracts.h"
#include "suite/accounting/lists/KListBar.h"
#include "suite/accounting/books/CDlgDocCreated.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/db/connection/KConnection.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/KSettings.h"
#include "tests/auto/contracts/MatterPageFilled.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QLineEdit>
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

const QString contractsForm = u"AutomobilContracts"_s;

KEdit *rowLimit(const QWidget &page)
{
    for (KEdit *edit : page.findChildren<KEdit *>()) {
        if (edit->accessibleName() == u"تعداد نمايش :"_s)
            return edit;
    }
    return nullptr;
}

QPushButton *searchButton(const QWidget &page)
{
    for (QPushButton *button : page.findChildren<QPushButton *>()) {
        if (button->text() == u"جستجو"_s)
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
            contract.m_sName1 = u"a"_s;
            contract.m_sName2 = u"b"_s;
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
        // Room for the open filter and for all commands.
        m_window->resize(LookSizes::scaled(1400), LookSizes::scaled(700));
        m_window->show();
        page->setFocus();
        m_window->activateWindow();
        if (!QTest::qWaitForWindowActive(m_window.get()))
            qFatal("the page did not become active");
        return *page;
    }

    // Fills in and confirms the editor that opens, with that explanation.
    static void whenEditor(const QString &explanation)
    {
        TestOffice::whenModal("CDlgAddAutomobilContract", [explanation](QWidget *window) {
            auto &editor = static_cast<Editor &>(*window);
            for (ContractPartyGroup *party : {editor.basePage()->firstParty(), editor.basePage()->secondParty()}) {
                party->setKind(PartyKind::Other);
                party->personField()->nameEdit()->setText(party->title());
            }
            KForm *form = editor.basePage()->form();
            form->edit(u"dAmount"_s)->setText(u"700"_s);
            form->edit(u"sExplain"_s)->setText(explanation);
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
        addNamed(u"old"_s);
        auto &page = shownPage();
        whenEditor(u"new"_s);
        QTest::keyClick(page.list(), Qt::Key_Insert);
        QCOMPARE(page.list()->count(), 2);
        QCOMPARE(page.list()->cellText(page.list()->currentRow(), u"explanation"), u"new"_s);
        QCOMPARE(page.countText(), u"تعداد : 2"_s);
    }

    // Both parties typed by hand and nothing to charge: its document has no rows.
    void contractWithoutMoneyIsNotCalledPosted()
    {
        addNamed(u"old"_s);
        auto &page = shownPage();
        whenEditor(u"new"_s);
        QTest::keyClick(page.list(), Qt::Key_Insert);
        const int document = value(u"SELECT MAX(iDocNum) FROM AutomobilContracts"_s).toInt();
        QVERIFY(document > 0);
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{CDlgDocCreated::emptyText(document, GetDBSetting()->FiscalYear())});
    }

    void newContractThatTheFilterLeavesOutKeepsTheSelectionWhereItWas()
    {
        const int first = addNamed(u"first"_s);
        addNamed(u"second"_s);
        auto &page = shownPage();
        page.filters().set(u"explanation", u"s"_s);
        page.refill();
        page.list()->selectKey(first);
        whenEditor(u"new"_s);
        QVERIFY(page.runCommand(u"new"));
        QCOMPARE(page.list()->count(), 2);
        QCOMPARE(page.list()->currentKey(), first);
    }

    void cancelledNewContractLeavesTheListAlone()
    {
        addNamed(u"old"_s);
        auto &page = shownPage();
        whenEditorCancels();
        QTest::keyClick(page.list(), Qt::Key_Insert);
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"1"_s);
    }

    void editedContractIsReadAgainAndStaysSelected()
    {
        addNamed(u"first"_s);
        const int second = addNamed(u"second"_s);
        auto &page = shownPage();
        page.list()->selectKey(second);
        whenEditor(u"changed"_s);
        QTest::keyClick(page.list(), Qt::Key_F2);
        QCOMPARE(page.list()->currentKey(), second);
        QCOMPARE(page.list()->cellText(1, u"explanation"), u"changed"_s);
    }

    void contractMadeVoidLeavesTheList()
    {
        addNamed(u"a"_s);
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
        addNamed(u"a"_s, [this](Contract &c) { c.m_iArchiveUserID = m_office->adminID(); });
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
        addNamed(u"a"_s);
        auto &page = shownPage();
        QString title;
        whenEditorCancels(&title);
        QTest::keyClick(page.list(), Qt::Key_Return);
        QCOMPARE(title, u"قرارداد مبایعه نامه - نمایش"_s);
        whenEditorCancels(&title);
        QTest::mouseDClick(page.list()->viewport(), Qt::LeftButton, {}, page.list()->viewport()->rect().bottomRight() - QPoint(5, 5));
        QCOMPARE(title, u"قرارداد مبایعه نامه- جدید"_s);
    }

    void doubleClickNeedsTheRightToRead()
    {
        addNamed(u"a"_s);
        m_office->logInAs(u"clerk"_s, contractsForm, KSecurity::allRights & ~KSecurity::Read);
        auto &page = shownPage();
        QTest::keyClick(page.list(), Qt::Key_Return);
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(contractsForm, KSecurity::Read)});
    }

    void databaseThatIsClosedWhileTheListIsOpenIsNotChanged()
    {
        addNamed(u"a"_s);
        auto &page = shownPage();
        GetDBSetting()->SetClosedDB(true);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_F2, Qt::Key_Delete})
            QTest::keyClick(page.list(), key);
        page.runCommand(u"archive");
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QCOMPARE(value(u"SELECT CONCAT(COUNT(*),'/',SUM(iArchiveUserID)) FROM AutomobilContracts"_s),
                 u"1/0"_s);
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
        addNamed(u"a"_s);
        auto &page = shownPage();
        QCOMPARE(page.focusWidget(), page.list());
        QTest::keyClick(page.list(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(page.focusWidget(), page.bar()->quickFilter());
        QTest::keyClick(page.focusWidget(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(page.focusWidget(), page.filters().control<KEdit>(u"description"));
        QTest::keyClick(page.focusWidget(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(page.focusWidget(), page.bar()->quickFilter());
    }

    void findOpensAFoldedFilterAndItsKeyFoldsItAgain()
    {
        addNamed(u"a"_s);
        auto &page = shownPage();
        m_window->resize(LookSizes::scaled(900), LookSizes::scaled(600));
        QTRY_VERIFY(page.filterBox()->isFolded());
        page.bar()->quickFilter()->setFocus();
        QTest::keyClick(page.bar()->quickFilter(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(!page.filterBox()->isFolded());
        QCOMPARE(page.focusWidget(), page.filters().control<KEdit>(u"description"));
        QTest::keyClick(page.focusWidget(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(page.filterBox()->isFolded());
        // It was asked for by the user, so that the list comes back like that.
        m_window->resize(LookSizes::scaled(1400), LookSizes::scaled(600));
        QCoreApplication::processEvents();
        QVERIFY(page.filterBox()->isFolded());
        page.filterBox()->toggle();
    }

    void onANarrowPageEveryCommandIsInSightOrInTheMenu()
    {
        addNamed(u"a"_s);
        auto &page = shownPage();
        m_window->resize(LookSizes::scaled(900), LookSizes::scaled(600));
        QCOMPARE(m_window->width(), LookSizes::scaled(900));
        QTRY_VERIFY(page.commandLine()->moreButton() && page.commandLine()->moreButton()->isVisible());
        QVERIFY(!page.button(u"fullReport")->isVisible());
        QVERIFY(page.isOffered(u"fullReport"));
        bool opened = false;
        TestOffice::whenModal("CDlgAutomobilContractSetting", [&opened](QWidget *window) {
            opened = true;
            static_cast<QDialog *>(window)->reject();
        });
        QVERIFY(page.runCommand(u"settings"));
        QVERIFY(opened);
    }

    void templatesOpenFromTheSettings()
    {
        auto &page = shownPage();
        bool opened = false;
        TestOffice::whenModal("CDlgAutomobilContractSetting", [&opened](QWidget *window) {
            TestOffice::whenModal("CDlgContractTemplates", [&opened](QWidget *templates) {
                opened = true;
                static_cast<QDialog *>(templates)->reject();
            });
            for (auto *button : window->findChildren<QPushButton *>()) {
                if (button->accessibleName() == u"قالب‌های قرارداد"_s)
                    button->click();
            }
            static_cast<QDialog *>(window)->reject();
        });
        QVERIFY(page.runCommand(u"settings"));
        QVERIFY(opened);
    }

    void tabGoesThroughTheFilterTheRowsAndTheCommandsAndRoundAgain()
    {
        addNamed(u"a"_s);
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
        QCOMPARE(met, (QStringList{u"فروشنده :"_s, u"فروشنده : ..."_s, u"وضعيت بايگاني :"_s, u"تاريخ عقد از :"_s, u"تاريخ عقد از :"_s, u"تاريخ عقد تا :"_s, u"تاريخ عقد تا :"_s, u"خريدار :"_s, u"خريدار : ..."_s, u"برگشتي :"_s, u"تاريخ انقضاء از :"_s, u"تاريخ انقضاء از :"_s, u"تاريخ انقضاء تا :"_s, u"تاريخ انقضاء تا :"_s, u"توضيحات :"_s, u"شرح قرارداد :"_s, u"نمايش غير فعال ها"_s, u"تعداد نمايش :"_s, u"جستجو"_s, u"نمودارها"_s, u"پالایش سریع در فهرست"_s, u"فیلترها"_s, u"ستون‌ها"_s, u"قرارداد"_s, u"جديد"_s, u"ويرايش"_s, u"حذف"_s, u"نمايش"_s, u"بايگاني شد"_s, u"چاپ"_s, u"خروجی های دیگر"_s, u"چاپ قرارداد "_s, u"تسويه با فروشنده"_s, u"تسويه با خريدار"_s, u"تنظيمات"_s, u"گزارش جامع"_s, u"باز و بسته کردن فيلتر"_s}));
    }

    void deleteKeyDeletesOnTheListAndACharacterInAnEntry()
    {
        addNamed(u"a"_s);
        auto &page = shownPage();
        page.filters().set(u"description", u"xy"_s);
        page.filters().control<KEdit>(u"description")->setFocus();
        page.filters().control<KEdit>(u"description")->setCursorPosition(0);
        QTest::keyClick(page.filters().control<KEdit>(u"description"), Qt::Key_Delete);
        QCOMPARE(page.filters().control<KEdit>(u"description")->text(), u"y"_s);
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        page.list()->setFocus();
        QTest::keyClick(page.list(), Qt::Key_Delete);
        QCOMPARE(page.list()->count(), 0);
    }

    void enterInAFilterSearches()
    {
        addNamed(u"one"_s);
        addNamed(u"two"_s);
        auto &page = shownPage();
        page.filters().control<KEdit>(u"explanation")->setFocus();
        QTest::keyClicks(page.filters().control<KEdit>(u"explanation"), u"tw"_s);
        QTest::keyClick(page.filters().control<KEdit>(u"explanation"), Qt::Key_Return);
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(page.focusWidget(), page.filters().control<KEdit>(u"explanation"));
    }

    void commandKeepsTheFocusOnItsButtonWhenTheListWasReadAgain()
    {
        addNamed(u"a"_s);
        auto &page = shownPage();
        QPushButton *edit = page.button(u"edit");
        edit->setFocus();
        whenEditor(u"b"_s);
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(page.list()->cellText(0, u"explanation"), u"b"_s);
        QCOMPARE(page.focusWidget(), edit);
    }

    void deleteOfTheLastRowLeavesTheFocusOnTheList()
    {
        addNamed(u"a"_s);
        addNamed(u"b"_s);
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

    // --- The car of a contract that is deleted ---

    void deletionAsksWhetherTheSaleOfItsCarGoesBack_data()
    {
        QTest::addColumn<bool>("back");
        QTest::newRow("the sale goes back") << true;
        QTest::newRow("the sale stays") << false;
    }

    void deletionAsksWhetherTheSaleOfItsCarGoesBack()
    {
        QFETCH(bool, back);
        const int key = addNamed(u"a"_s);
        const int car = m_office->addCar([](CTblAutomobilInformations &c) { c.m_bSold = 1; c.m_dSoldAmount = 5; });
        CTblCarContracts::set(key, car);
        auto &page = shownPage();
        g_pDlgYesNo->takeShown();
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        g_pDlgYesNo->answerNext(back ? KMessageDialog::Yes : KMessageDialog::No);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown().filter(u"صفحه فروش خودروی این قرارداد"_s).size(), 1);
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(m_office->database().value(u"SELECT bSold FROM AutomobilInformations"_s), back ? u"0"_s : u"1"_s);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM CarContracts WHERE iContractID=%1"_s.arg(key)), u"0"_s);
    }

    void ofAContractWithoutASaleNothingMoreIsAsked()
    {
        CTblCarContracts::set(addNamed(u"a"_s), m_office->addCar());
        auto &page = shownPage();
        g_pDlgYesNo->takeShown();
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(page.list()->count(), 0);
    }

    // --- Entries of the filter ---

    void filterEntryThatIsNoneIsRefusedAndTheListStays()
    {
        addNamed(u"a"_s);
        auto &page = shownPage();
        page.filters().control<KDateEdit>(u"contractFrom")->setText(u"1405/13/40"_s);
        searchButton(page)->click();
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{u"تاريخ عقد از : تاریخ نادرست است. نمونه : 1405/08/29"_s});
        QCOMPARE(page.focusWidget(), page.filters().control<KDateEdit>(u"contractFrom"));
        QCOMPARE(page.list()->count(), 1);
        page.filters().control<KDateEdit>(u"contractFrom")->setChecked(false);
        searchButton(page)->click();
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void rangeThatEndsBeforeItBeginsIsRefusedAndTheListStays()
    {
        addNamed(u"a"_s);
        auto &page = shownPage();
        for (const char *key : {"expirationFrom", "expirationTo"})
            page.filters().control<KDateEdit>(QString::fromLatin1(key))->setChecked(true);
        page.filters().control<KDateEdit>(u"expirationFrom")->setText(u"1405/08/02"_s);
        page.filters().control<KDateEdit>(u"expirationTo")->setText(u"1405/08/01"_s);
        searchButton(page)->click();
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{u"«تاريخ انقضاء از» بزرگتر از «تاريخ انقضاء تا» است. لطفا اصلاح نمایید."_s});
        QCOMPARE(page.focusWidget(), page.filters().control<KDateEdit>(u"expirationFrom"));
        QCOMPARE(page.list()->count(), 1);
        // One that is not ticked asks for nothing.
        page.filters().control<KDateEdit>(u"expirationTo")->setChecked(false);
        searchButton(page)->click();
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void rowLimitOutOfRangeIsRefusedAndNotKept_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::newRow("empty") << QString();
        QTest::newRow("0") << u"0"_s;
        QTest::newRow("10001") << u"10001"_s;
    }

    void rowLimitOutOfRangeIsRefusedAndNotKept()
    {
        QFETCH(QString, typed);
        WriteSetting(contractsForm, u"iMaxRows"_s, 40);
        auto &page = shownPage();
        rowLimit(page)->setText(typed);
        searchButton(page)->click();
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"تعداد نمايش : مقدار باید بین 1 و 10000 باشد."_s});
        QCOMPARE(page.focusWidget(), rowLimit(page));
        page.OnClosing();
        QCOMPARE(ReadSetting(contractsForm, u"iMaxRows"_s, 0), 40);
    }

    void filterControlsBeginAsTheyShould()
    {
        auto &page = shownPage();
        for (const KDateEdit *date : dateFilters(page)) {
            QVERIFY(date->isCheckable());
            QVERIFY(!date->isChecked());
        }
        QCOMPARE(page.filters().control<QComboBox>(u"archive")->currentText(), u"بایگانی نشده"_s);
        QCOMPARE(page.filters().control<QComboBox>(u"returned")->currentText(), u"برگشت نشده"_s);
        QCOMPARE(page.filters().control<QComboBox>(u"type")->currentText(), u"همه"_s);
        QVERIFY(page.filters().control<QComboBox>(u"type")->isHidden());
        QVERIFY(!page.filters().control<QCheckBox>(u"inactive")->isChecked());
        QCOMPARE(page.rowLimit(), 1000);
        QCOMPARE(page.filters().control<KEdit>(u"description")->maxLength(), 50);
        QCOMPARE(page.filters().control<KEdit>(u"explanation")->maxLength(), 250);
        QVERIFY(page.button(u"reset")->isHidden());
        QStringList types;
        for (int i = 0; i < page.filters().control<QComboBox>(u"type")->count(); ++i)
            types << page.filters().control<QComboBox>(u"type")->itemText(i);
        QCOMPARE(types, (QStringList{u"همه"_s, u"مبایعه نامه"_s, u"قرارداد اجاره"_s, u"فروش اقساطی"_s, u"قرارداد نامه"_s}));
        QStringList archive;
        for (int i = 0; i < page.filters().control<QComboBox>(u"archive")->count(); ++i)
            archive << page.filters().control<QComboBox>(u"archive")->itemText(i);
        QCOMPARE(archive, (QStringList{u"همه"_s, u"بایگانی نشده"_s, u"بایگانی شده"_s, u"بایگانی شده دیگران"_s}));
        QStringList returned;
        for (int i = 0; i < page.filters().control<QComboBox>(u"returned")->count(); ++i)
            returned << page.filters().control<QComboBox>(u"returned")->itemText(i);
        QCOMPARE(returned,
                 (QStringList{u"همه"_s, u"برگشت نشده"_s, u"برگشت شده"_s}));
    }

    void resetEmptiesWhatItMayAndOnlyThat()
    {
        const int person = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        auto &page = shownPage();
        page.filters().set(u"seller", person);
        page.filters().set(u"buyer", person);
        page.filters().set(u"description", u"x"_s);
        page.filters().set(u"explanation", u"y"_s);
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
        const int seller = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        const int buyer = m_office->addPerson(u"رضا"_s, u"احمدی"_s);
        auto &page = shownPage();
        page.filters().set(u"seller", seller);
        page.filters().set(u"buyer", buyer);
        page.filters().set(u"description", u"d'_"_s);
        page.filters().set(u"explanation", u"e"_s);
        page.filters().set(u"type", 4);
        page.filters().set(u"archive", 3);
        page.filters().set(u"returned", 2);
        int day = 0;
        for (KDateEdit *date : dateFilters(page)) {
            date->setDate(QDate(2026, 5, ++day));
            date->setChecked(true);
        }
        QCOMPARE(page.filters().condition(m_office->adminID()).text(),
                 u"iStatus = 0 AND iPersonFirstID=%1 AND bReturn=1 AND iArchiveUserID<>0 AND iArchiveUserID<>%2"
                 " AND iPersonSecondID=%3 AND iContractType = 3 AND dateContract>='2026-05-01'"
                 " AND dateContract<='2026-05-03' AND sDesc LIKE '%d\\'\\\\_%' AND sExplain LIKE '%e%'"
                 " AND dateExpiration>='2026-05-03' AND dateExpiration <= '2026-05-05'"_s
                     .arg(seller)
                     .arg(m_office->adminID())
                     .arg(buyer));
    }

    void rowsTellTypeDocumentDatesAndArchive()
    {
        addNamed(u"شرح"_s, [](Contract &c) {
            c.m_iContractType = 3;
            c.m_iDocNum = 12;
            c.m_dateContract = QDateTime(QDate(2026, 3, 21), QTime(0, 0), Qt::UTC);
            c.m_dateExpiration = QDateTime(QDate(2027, 3, 21), QTime(0, 0), Qt::UTC);
            c.m_sDesc = u"توضیح"_s;
        });
        auto &page = shownPage();
        QStringList cells;
        for (int column = 0; column < 10; ++column)
            cells << page.list()->cellText(0, column);
        QCOMPARE(cells, (QStringList{u"1"_s, u"قرارداد نامه"_s, u"a"_s, u"b"_s, u"12"_s, u"شرح"_s, u"1405/01/01"_s, u"1406/01/01"_s, u"توضیح"_s, u"-"_s}));
    }

    void personIsPickedIntoTheFilterAndClearedAgain()
    {
        const int person = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        auto &page = shownPage();
        QPushButton *clear = nullptr;
        QPushButton *pick = nullptr;
        for (QPushButton *button : page.filters().control<KPersonField>(u"seller")->findChildren<QPushButton *>()) {
            QCOMPARE(button->text(), u"..."_s);
            (button->accessibleName().endsWith(u"حذف"_s) ? clear : pick) = button;
        }
        QVERIFY(pick && clear && !clear->isEnabled());
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
        pick->click();
        QCOMPARE(page.filters().value(u"seller").toInt(), person);
        QCOMPARE(page.filters().control<KPersonField>(u"seller")->name(), u"سارا کریمی"_s);
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
        addNamed(u"a"_s);
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
        addNamed(u"b"_s);
        addNamed(u"a"_s);
        auto &page = shownPage();
        m_office->database().run(u"RENAME TABLE AutomobilContracts TO Elsewhere"_s);
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"explanation"));
        m_office->database().run(u"RENAME TABLE Elsewhere TO AutomobilContracts"_s);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(page.sortExpression(), u"iCode"_s);
        QVERIFY(!page.list()->model()->headerData(page.list()->columnOf(u"explanation"), Qt::Horizontal).toString().endsWith(u'*'));
        QCOMPARE(page.list()->cellText(0, u"explanation"), u"b"_s);
    }

    void columnWidthsAreKeptUnderTheListsName()
    {
        {
            CDlgAutomobilContracts page;
            page.open();
            page.list()->header()->resizeSection(page.list()->columnOf(u"explanation"), 321);
        }
        QVERIFY(!ReadSetting(u"AutomobilContracts\\List\\Users\\"_s + GetDBSetting()->GetUserName(), u"sWidths"_s, QString()).isEmpty());
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
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"0"_s);
        QVERIFY(!QApplication::activeModalWidget());
    }

    void preselectedContractThatIsNotListedLeavesTheFirstRowSelected()
    {
        const int listed = addNamed(u"a"_s);
        const int unlisted = addNamed(u"b"_s, [](Contract &c) { c.m_iStatus = 1; });
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
        addNamed(u"one"_s);
        addNamed(u"two"_s);
        auto *page = new CDlgAutomobilContracts;
        page->setSelectMode(true);
        KDialogHolder holder(page);
        TestOffice::whenModal("KDialogHolder", [page](QWidget *window) {
            page->filterBox()->open();
            page->filters().control<KEdit>(u"explanation")->setFocus();
            QTest::keyClicks(page->filters().control<KEdit>(u"explanation"), u"tw"_s);
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
        QCOMPARE(page->list()->cellText(page->list()->currentRow(), u"explanation"), u"two"_s);
    }
};

static const RegisteredTest<TestContractListAtWork, KApplication> registeredContractListAtWork;

#include "TestContractListAtWork.moc"
