// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/tariffs/CDlgAddAutomobilTariff.h"
#include "auto/catalog/tariffs/CDlgAutomobilTariffs.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/reports/KWndReportGen.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/entries/KTextArea.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/ObservedStatements.h"
#include "tests/office/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {

const QString rightsForm = QStringLiteral("AutomobilTariffs");
const QString section = QStringLiteral("AutomobilTariff");
const QString newCaption = QStringLiteral("جديد");
const QString editCaption = QStringLiteral("ويرايش");
const QString deleteCaption = QStringLiteral("حذف");

QString headerText(const CDlgAutomobilTariffs &page, int column)
{
    return page.list()->model()->headerData(column, Qt::Horizontal).toString();
}

QStringList titles(const CDlgAutomobilTariffs &page)
{
    QStringList texts;
    for (int row = 0; row < page.list()->count(); ++row)
        texts << page.list()->cellText(row, 1);
    return texts;
}

QPushButton *pushButton(const QWidget &window, const QString &caption)
{
    for (QPushButton *button : window.findChildren<QPushButton *>()) {
        if (button->text() == caption)
            return button;
    }
    return nullptr;
}

KForm *formOf(QWidget *editor)
{
    return editor->findChild<KForm *>();
}

// Types a name and an amount into the editor that comes up, and confirms it.
void whenEditor(const QString &title, const QString &amount)
{
    TestOffice::whenModal("CDlgAddAutomobilTariff", [title, amount](QWidget *editor) {
        formOf(editor)->edit(QStringLiteral("sTitle"))->setText(title);
        formOf(editor)->edit(QStringLiteral("dAmount"))->setText(amount);
        static_cast<CDlgAddAutomobilTariff *>(editor)->accept();
    });
}

}

class TestCDlgAutomobilTariffs : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    QString value(const QString &statement) { return m_office->database().value(statement); }

    int addTariff(const QString &title, double amount = 0, int status = 0, const QString &description = {})
    {
        CTblAutomobilTariffs tariff;
        tariff.Open(false, false, true);
        tariff.AddNew();
        tariff.m_sTitle = title;
        tariff.m_dAmount = amount;
        tariff.m_iStatus = status;
        tariff.m_sDesc = description;
        tariff.Update(true);
        return static_cast<int>(tariff.GetLastInsertedID());
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init()
    {
        m_office->clear();
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilTariffs"));
    }

    // --- What the window shows ---

    void everyLabelAndTitleIsToTheLetter()
    {
        CDlgAutomobilTariffs page;
        page.open();
        QCOMPARE(page.title(), QStringLiteral("هزينه هاي تعرفه هاي محضر"));
        QCOMPARE(page.findChild<QGroupBox *>()->title(), QStringLiteral("فيلتر جستجو"));
        QCOMPARE(page.nameFilter()->accessibleName(), QStringLiteral("نام :"));
        QCOMPARE(page.inactiveFilter()->text(), QStringLiteral("غير فعال ها را نيز نمايش بده"));
        QStringList captions;
        for (const QPushButton *button : page.findChildren<QPushButton *>())
            captions << button->text();
        QCOMPARE(captions, (QStringList{QStringLiteral("جستجو"), newCaption, editCaption, deleteCaption, QStringLiteral("چاپ")}));
        QStringList shown;
        for (int column = 0; column < page.list()->model()->columnCount(); ++column)
            shown << headerText(page, column);
        QCOMPARE(shown, (QStringList{QStringLiteral("ردیف"), QStringLiteral("نام*"), QStringLiteral("مبلغ"), QStringLiteral("توضیحات")}));
        int column = 0;
        for (const int width : {40, 80, 80, 100}) {
            QCOMPARE(page.list()->listModel()->columns().at(column).width, width);
            QCOMPARE(page.list()->listModel()->columns().at(column++).alignment, Qt::Alignment(Qt::AlignCenter));
        }
    }

    void theChoiceOfInactiveTariffsIsKeptHidden()
    {
        CDlgAutomobilTariffs page;
        page.show();
        QVERIFY(page.isVisible());
        QVERIFY(!page.inactiveFilter()->isVisible());
        QVERIFY(!page.inactiveFilter()->isChecked());
    }

    void thereIsNoRowLimitAndEveryRowIsRead()
    {
        m_office->database().run(
            QStringLiteral("INSERT INTO AutomobilTariffs(sTitle,iStatus) SELECT CONCAT('t',seq),0 FROM seq_1_to_1200"));
        CDlgAutomobilTariffs page;
        page.open();
        QCOMPARE(page.list()->count(), 1200);
        for (const QLabel *label : page.findChildren<QLabel *>())
            QVERIFY(label->text() != QStringLiteral("تعداد نمايش :"));
        page.OnClosing();
        QCOMPARE(ReadSetting(section, QStringLiteral("iMaxRows"), -1), -1);
    }

    void countReadsADashUntilTheFirstFill()
    {
        addTariff(QStringLiteral("a"));
        CDlgAutomobilTariffs page;
        QCOMPARE(page.countText(), QStringLiteral("تعداد : -"));
        page.open();
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 1"));
    }

    void rowsShowNumberTitleAmountAsMoneyAndDescription()
    {
        const int first = addTariff(QStringLiteral("سند قطعی"), 1250000, 0, QStringLiteral("با مالیات"));
        addTariff(QStringLiteral("وکالت"), 0);
        CDlgAutomobilTariffs page;
        page.open();
        QCOMPARE(page.list()->count(), 2);
        QCOMPARE(page.list()->cellText(0, 0), QStringLiteral("1"));
        QCOMPARE(page.list()->cellText(0, 1), QStringLiteral("سند قطعی"));
        QCOMPARE(page.list()->cellText(0, 2), DToMoney(1250000));
        QCOMPARE(page.list()->cellText(0, 3), QStringLiteral("با مالیات"));
        QCOMPARE(page.list()->cellText(1, 0), QStringLiteral("2"));
        QCOMPARE(page.list()->listModel()->keyAt(0), first);
    }

    // --- Filter ---

    void inactiveTariffsAreListedOnlyWhenAskedFor()
    {
        addTariff(QStringLiteral("on"));
        addTariff(QStringLiteral("off"), 0, 1);
        CDlgAutomobilTariffs page;
        page.open();
        QCOMPARE(titles(page), QStringList{QStringLiteral("on")});
        page.inactiveFilter()->setChecked(true);
        page.refill();
        QCOMPARE(titles(page), (QStringList{QStringLiteral("on"), QStringLiteral("off")}));
    }

    void withThatChoiceTickedAndNoNameTheStatementHasNoCondition()
    {
        CDlgAutomobilTariffs page;
        page.open();
        page.inactiveFilter()->setChecked(true);
        const ObservedStatements observed({QStringLiteral("SELECT")});
        page.refill();
        QCOMPARE(observed.taken().size(), 1);
        QVERIFY2(!observed.taken().constFirst().contains(QStringLiteral("WHERE")), qPrintable(observed.taken().constFirst()));
    }

    void aNameWithAPercentSignIsTakenAsAPattern()
    {
        addTariff(QStringLiteral("سند اول"));
        addTariff(QStringLiteral("سند قطعی اول"));
        addTariff(QStringLiteral("وکالت"));
        CDlgAutomobilTariffs page;
        page.open();
        page.nameFilter()->setText(QStringLiteral("سند%اول"));
        page.refill();
        QCOMPARE(titles(page), (QStringList{QStringLiteral("سند اول"), QStringLiteral("سند قطعی اول")}));
        page.nameFilter()->setText(QStringLiteral("وکال_"));
        page.refill();
        QCOMPARE(titles(page), QStringList{QStringLiteral("وکالت")});
    }

    void aNameWithAQuoteIsOneMessageAndTheListKeepsItsRows()
    {
        addTariff(QStringLiteral("a"));
        CDlgAutomobilTariffs page;
        page.open();
        page.nameFilter()->setText(QStringLiteral("x%' OR 'a' LIKE 'a"));
        pushButton(page, QStringLiteral("جستجو"))->click();
        // As typed it is a condition that the database understands, and all that it does is find every row.
        QCOMPARE(titles(page), QStringList{QStringLiteral("a")});
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        page.nameFilter()->setText(QStringLiteral("o'k"));
        pushButton(page, QStringLiteral("جستجو"))->click();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(titles(page), QStringList{QStringLiteral("a")});
        QCOMPARE(page.nameFilter()->text(), QStringLiteral("o'k"));
    }

    void aQuoteCannotBeginAStatementOfItsOwn()
    {
        addTariff(QStringLiteral("a"));
        CDlgAutomobilTariffs page;
        page.open();
        page.nameFilter()->setText(QStringLiteral("'; DELETE FROM AutomobilTariffs; -- "));
        pushButton(page, QStringLiteral("جستجو"))->click();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilTariffs")), QStringLiteral("1"));
    }

    void enterInTheNameSearches()
    {
        addTariff(QStringLiteral("a"));
        addTariff(QStringLiteral("b"));
        CDlgAutomobilTariffs page;
        page.show();
        page.nameFilter()->setFocus();
        QTest::keyClicks(page.nameFilter(), QStringLiteral("b"));
        QTest::keyClick(page.nameFilter(), Qt::Key_Return);
        QCOMPARE(titles(page), QStringList{QStringLiteral("b")});
    }

    // --- Order ---

    void clickOnATitleIsRefusedOnceAndTheListKeepsRowsAndOrder_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("sort");
        QTest::newRow("نام") << 1 << QStringLiteral("iCode");
        QTest::newRow("مبلغ") << 2 << QStringLiteral("sName");
    }

    void clickOnATitleIsRefusedOnceAndTheListKeepsRowsAndOrder()
    {
        QFETCH(int, column);
        QFETCH(QString, sort);
        addTariff(QStringLiteral("b"), 2);
        addTariff(QStringLiteral("a"), 1);
        CDlgAutomobilTariffs page;
        page.open();
        page.list()->selectRow(1);
        const QString before = page.sortExpression();
        const ObservedStatements observed({QStringLiteral("SELECT")});
        Q_EMIT page.list()->columnClicked(column);
        QCOMPARE(observed.taken().size(), 1);
        QVERIFY2(observed.taken().constFirst().contains(QStringLiteral("ORDER BY ") + sort),
                 qPrintable(observed.taken().constFirst()));
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(titles(page), (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
        QCOMPARE(page.list()->currentRow(), 1);
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 2"));
        QCOMPARE(page.sortExpression(), before);
        QCOMPARE(headerText(page, 1), QStringLiteral("نام*"));
        QCOMPARE(headerText(page, 2), QStringLiteral("مبلغ"));
        page.OnClosing();
        QVERIFY(!ReadSetting(section, QStringLiteral("Sort"), QString()).contains(sort));
        QCOMPARE(ReadSetting(section, QStringLiteral("iLastCol"), 0), 1);
    }

    void anOrderRefusedWhileTheListIsEmptyIsNotStoredEither()
    {
        CDlgAutomobilTariffs page;
        page.open();
        Q_EMIT page.list()->columnClicked(2);
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        page.OnClosing();
        QVERIFY(!ReadSetting(section, QStringLiteral("Sort"), QString()).contains(QStringLiteral("sName")));
    }

    void clickOnColumnThreeLeavesTheSortUnchanged_data()
    {
        QTest::addColumn<int>("column");
        QTest::newRow("ردیف") << 0;
        QTest::newRow("توضیحات") << 3;
    }

    void clickOnColumnThreeLeavesTheSortUnchanged()
    {
        QFETCH(int, column);
        addTariff(QStringLiteral("a"));
        CDlgAutomobilTariffs page;
        page.open();
        const QString before = page.sortExpression();
        const ObservedStatements observed({QStringLiteral("SELECT")});
        Q_EMIT page.list()->columnClicked(column);
        QCOMPARE(page.sortExpression(), before);
        QVERIFY(observed.taken().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(headerText(page, 1), QStringLiteral("نام*"));
    }

    // As a program before this one may have stored it.
    void aStoredOrderThatTheTableRefusesIsSaidOnceAndTheListOpens()
    {
        WriteSetting(section, QStringLiteral("Sort"), QStringLiteral("iCode DESC"));
        WriteSetting(section, QStringLiteral("iLastCol"), 2);
        addTariff(QStringLiteral("b"));
        addTariff(QStringLiteral("a"));
        CDlgAutomobilTariffs page;
        page.show();
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(titles(page), (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
        QCOMPARE(headerText(page, 2), QStringLiteral("مبلغ*"));
        page.refill();
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        page.OnClosing();
        QVERIFY(!ReadSetting(section, QStringLiteral("Sort"), QString()).contains(QStringLiteral("iCode")));
    }

    void aListThatCannotBeReadAtAllIsOneMessage()
    {
        WriteSetting(section, QStringLiteral("Sort"), QStringLiteral("iCode"));
        m_office->database().run(QStringLiteral("RENAME TABLE AutomobilTariffs TO Elsewhere"));
        CDlgAutomobilTariffs page;
        page.show();
        m_office->database().run(QStringLiteral("RENAME TABLE Elsewhere TO AutomobilTariffs"));
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(page.list()->count(), 0);
    }

    void storedColumnOutOfRangeBecomesOne_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("used");
        QTest::newRow("4") << 4 << 1;
        QTest::newRow("40") << 40 << 1;
        QTest::newRow("-1") << -1 << 1;
        QTest::newRow("3") << 3 << 3;
    }

    void storedColumnOutOfRangeBecomesOne()
    {
        QFETCH(int, stored);
        QFETCH(int, used);
        WriteSetting(section, QStringLiteral("iLastCol"), stored);
        CDlgAutomobilTariffs page;
        page.open();
        for (int column = 0; column < 4; ++column)
            QCOMPARE(headerText(page, column).endsWith(u'*'), column == used);
    }

    void layoutAndOrderAreKeptUnderTheirOwnNames()
    {
        {
            CDlgAutomobilTariffs page;
            page.open();
            page.list()->header()->resizeSection(1, 222);
            page.OnClosing();
        }
        QVERIFY(!ReadSetting(QStringLiteral("AutomobilTariffs\\List"), QStringLiteral("sWidths"), QString()).isEmpty());
        QCOMPARE(ReadSetting(section, QStringLiteral("iLastCol"), 0), 1);
        CDlgAutomobilTariffs page;
        page.open();
        QCOMPARE(page.list()->header()->sectionSize(1), 222);
    }

    // --- Adding, editing, deleting ---

    void aSavedNewTariffIsListedAndSelected()
    {
        addTariff(QStringLiteral("a"));
        CDlgAutomobilTariffs page;
        page.open();
        whenEditor(QStringLiteral("b"), QStringLiteral("70"));
        QVERIFY(page.runCommand(newCaption));
        QCOMPARE(titles(page), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
        QCOMPARE(page.list()->currentRow(), 1);
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 2"));
    }

    void aCancelledNewTariffLeavesNothing()
    {
        CDlgAutomobilTariffs page;
        page.open();
        TestOffice::whenModal("CDlgAddAutomobilTariff", [](QWidget *editor) { static_cast<QDialog *>(editor)->reject(); });
        QVERIFY(page.runCommand(newCaption));
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilTariffs")), QStringLiteral("0"));
    }

    void anEditedTariffStaysSelected()
    {
        addTariff(QStringLiteral("a"));
        const int key = addTariff(QStringLiteral("b"));
        addTariff(QStringLiteral("c"));
        CDlgAutomobilTariffs page;
        page.open();
        page.list()->selectKey(key);
        whenEditor(QStringLiteral("changed"), QStringLiteral("5"));
        QVERIFY(page.runCommand(editCaption));
        QCOMPARE(titles(page), (QStringList{QStringLiteral("a"), QStringLiteral("changed"), QStringLiteral("c")}));
        QCOMPARE(page.list()->currentKey(), key);
        // Also where it stands in another place, because somebody else deleted the one before it.
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilTariffs WHERE sTitle='a'"));
        whenEditor(QStringLiteral("again"), QStringLiteral("5"));
        QVERIFY(page.runCommand(editCaption));
        QCOMPARE(titles(page), (QStringList{QStringLiteral("again"), QStringLiteral("c")}));
        QCOMPARE(page.list()->currentKey(), key);
    }

    void editingATariffThatAnotherUserDeletedChangesNothing()
    {
        const int key = addTariff(QStringLiteral("a"));
        CDlgAutomobilTariffs page;
        page.open();
        page.list()->selectKey(key);
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilTariffs"));
        whenEditor(QStringLiteral("b"), QStringLiteral("5"));
        QVERIFY(page.runCommand(editCaption));
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilTariffs")), QStringLiteral("0"));
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }

    void editAndDeleteNeedARow()
    {
        CDlgAutomobilTariffs page;
        page.open();
        QVERIFY(!page.button(editCaption)->isEnabled());
        QVERIFY(!page.button(deleteCaption)->isEnabled());
        QVERIFY(page.button(newCaption)->isEnabled());
        QVERIFY(!page.runCommand(editCaption));
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
        const int key = addTariff(QStringLiteral("a"));
        addTariff(QStringLiteral("b"));
        CDlgAutomobilTariffs page;
        page.setSelectMode(select, key);
        page.open();
        page.list()->selectKey(key);
        g_pDlgYesNo->answerNext(static_cast<KMessageDialog::Answer>(answer));
        QVERIFY(page.runCommand(deleteCaption));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{SuiteMessages::deleteQuestion()});
        QCOMPARE(page.list()->count(), deleted ? 1 : 2);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilTariffs WHERE iID=%1").arg(key)), deleted ? QStringLiteral("0") : QStringLiteral("1"));
        // The rows are numbered from 1 again.
        QCOMPARE(page.list()->cellText(0, 0), QStringLiteral("1"));
        QCOMPARE(page.list()->currentRow(), 0);
    }

    void deletingATariffThatIsGoneAsksNothing()
    {
        const int key = addTariff(QStringLiteral("a"));
        CDlgAutomobilTariffs page;
        page.open();
        page.list()->selectKey(key);
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilTariffs"));
        QVERIFY(page.runCommand(deleteCaption));
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
    }

    void keysWorkOnTheList()
    {
        const int key = addTariff(QStringLiteral("a"));
        CDlgAutomobilTariffs page;
        page.show();
        auto press = [&page](int pressed) {
            page.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&page));
            page.list()->setFocus();
            QTest::keyClick(page.list(), Qt::Key(pressed));
        };
        page.list()->selectKey(key);
        whenEditor(QStringLiteral("b"), QStringLiteral("1"));
        press(Qt::Key_Insert);
        QCOMPARE(titles(page), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
        whenEditor(QStringLiteral("c"), QStringLiteral("1"));
        press(Qt::Key_F2);
        QCOMPARE(titles(page), (QStringList{QStringLiteral("a"), QStringLiteral("c")}));
        press(Qt::Key_Delete);
        QCOMPARE(titles(page), QStringList{QStringLiteral("a")});
        whenEditor(QStringLiteral("d"), QStringLiteral("1"));
        press(Qt::Key_Return);
        QCOMPARE(titles(page), QStringList{QStringLiteral("d")});
        page.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        QTest::keyClick(page.list(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(page.focusWidget(), page.nameFilter());
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
        const int key = addTariff(QStringLiteral("a"));
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, rights);
        CDlgAutomobilTariffs page;
        page.open();
        page.list()->selectKey(key);
        auto run = [&](const QString &caption, bool allowed, KSecurity::Right right) {
            page.runCommand(caption);
            QCOMPARE(g_pDlgWarning->takeShown(),
                     allowed ? QStringList() : QStringList{KSecurity::refusalText(rightsForm, right)});
        };
        if (adds)
            whenEditor(QStringLiteral("b"), QStringLiteral("1"));
        run(newCaption, adds, KSecurity::Delete);
        QCOMPARE(page.list()->count(), adds ? 2 : 1);
        page.list()->selectKey(key);
        if (edits)
            whenEditor(QStringLiteral("c"), QStringLiteral("1"));
        run(editCaption, edits, KSecurity::Modify);
        QCOMPARE(value(QStringLiteral("SELECT sTitle FROM AutomobilTariffs WHERE iID=%1").arg(key)),
                 edits ? QStringLiteral("c") : QStringLiteral("a"));
        page.list()->selectKey(key);
        run(deleteCaption, deletes, KSecurity::Delete);
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilTariffs WHERE iID=%1").arg(key)),
                 deletes ? QStringLiteral("0") : QStringLiteral("1"));
    }

    void withTheDatabaseClosedNothingIsChanged()
    {
        const int key = addTariff(QStringLiteral("a"));
        GetDBSetting()->SetClosedDB(true);
        CDlgAutomobilTariffs page;
        page.show();
        page.list()->selectKey(key);
        for (const QString &caption : {newCaption, editCaption, deleteCaption}) {
            QVERIFY(!page.button(caption)->isVisible());
            QVERIFY(!page.runCommand(caption));
        }
        Q_EMIT page.list()->rowActivated(key);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilTariffs")), QStringLiteral("1"));
    }

    void aDatabaseClosedBehindTheOpenListChangesNothing()
    {
        const int key = addTariff(QStringLiteral("a"));
        CDlgAutomobilTariffs page;
        page.open();
        page.list()->selectKey(key);
        GetDBSetting()->SetClosedDB(true);
        for (const QString &caption : {newCaption, editCaption, deleteCaption})
            page.runCommand(caption);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(value(QStringLiteral("SELECT COUNT(*) FROM AutomobilTariffs")), QStringLiteral("1"));
    }

    // --- Choosing ---

    void choosingGivesTheSelectedTariff()
    {
        addTariff(QStringLiteral("a"));
        const int key = addTariff(QStringLiteral("b"));
        int preselected = 0;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = static_cast<CDlgAutomobilTariffs *>(static_cast<KDialogHolder *>(window)->page());
            preselected = page->list()->currentKey();
            page->list()->selectRow(0);
            QVERIFY(pushButton(*window, QStringLiteral("بازگشت")));
            QVERIFY(pushButton(*window, QStringLiteral("چاپ"))->isVisible());
            page->list()->selectKey(key);
            pushButton(*window, QStringLiteral("انتخاب"))->click();
        });
        QCOMPARE(CDlgAutomobilTariffs::Select(nullptr, key), key);
        QCOMPARE(preselected, key);
    }

    void aDoubleClickChoosesInSelectMode()
    {
        const int key = addTariff(QStringLiteral("a"));
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            auto *page = static_cast<CDlgAutomobilTariffs *>(static_cast<KDialogHolder *>(window)->page());
            Q_EMIT page->list()->rowActivated(key);
        });
        QCOMPARE(CDlgAutomobilTariffs::Select(nullptr), key);
    }

    void goingBackChoosesNothing()
    {
        const int key = addTariff(QStringLiteral("a"));
        TestOffice::whenModal("KDialogHolder", [](QWidget *window) { pushButton(*window, QStringLiteral("بازگشت"))->click(); });
        QCOMPARE(CDlgAutomobilTariffs::Select(nullptr, key), 0);
    }

    void choosingNeedsARow()
    {
        bool stayed = false;
        TestOffice::whenModal("KDialogHolder", [&](QWidget *window) {
            pushButton(*window, QStringLiteral("انتخاب"))->click();
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
            whenEditor(QStringLiteral("new"), QStringLiteral("9"));
            QVERIFY(page->runCommand(newCaption));
            pushButton(*window, QStringLiteral("انتخاب"))->click();
        });
        const int chosen = CDlgAutomobilTariffs::Select(nullptr);
        QCOMPARE(QString::number(chosen),
                 value(QStringLiteral("SELECT iID FROM AutomobilTariffs WHERE sTitle='new'")));
    }

    void theWindowNeedsTheAccessRight()
    {
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, KSecurity::allRights & ~KSecurity::Access);
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
            QCOMPARE(window->windowTitle(), QStringLiteral("هزينه هاي تعرفه هاي محضر"));
            QVERIFY(!pushButton(*window, QStringLiteral("انتخاب")));
            pushButton(*window, QStringLiteral("بازگشت"))->click();
        });
        CDlgAutomobilTariffs::Open(nullptr);
        QVERIFY(looked);
    }

    // --- On paper ---

    void printHasItsTitleDateAndCount()
    {
        addTariff(QStringLiteral("سند"), 1000, 0, QStringLiteral("شرح"));
        CDlgAutomobilTariffs page;
        page.open();
        bool shown = false;
        TestOffice::whenModal("CDlgReportGenerator", [&](QWidget *window) {
            const ListReport &report = static_cast<CDlgReportGenerator *>(window)->report();
            shown = true;
            QCOMPARE(report.shownTitle(), QStringLiteral("هزینه های تعرفه های محضر"));
            QCOMPARE(report.text(QStringLiteral("Title")), QStringLiteral("هزینه های تعرفه های محضر"));
            QCOMPARE(report.text(QStringLiteral("LeftBottom")),
                     QStringLiteral("تاریخ چاپ : ") + shamsiText(QDate::currentDate()));
            QCOMPARE(report.text(QStringLiteral("Count")), QStringLiteral("تعداد : 1"));
            QCOMPARE(report.rows().size(), 1);
            QCOMPARE(report.rows().at(0).cells.at(2).text, DToMoney(1000));
            window->close();
        });
        QVERIFY(page.runCommand(QStringLiteral("چاپ")));
        QVERIFY(shown);
    }

    void printingNeedsItsRight()
    {
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, KSecurity::allRights & ~KSecurity::PrintList);
        CDlgAutomobilTariffs page;
        page.open();
        QVERIFY(page.runCommand(QStringLiteral("چاپ")));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(rightsForm, KSecurity::PrintList)});
    }
};

static const RegisteredTest<TestCDlgAutomobilTariffs, KApplication> registered;

#include "TestCDlgAutomobilTariffs.moc"
