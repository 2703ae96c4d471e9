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
#include "tests/support/NamedWidget.h"
#include "tests/support/RegisteredTest.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString rightsForm = u"AutomobilTariffs"_s;
const QString section = u"AutomobilTariff"_s;
const QString newCaption = u"جديد"_s;
const QString editCaption = u"ويرايش"_s;
const QString deleteCaption = u"حذف"_s;

QString headerText(const CDlgAutomobilTariffs &page, int column)
{
    return page.list()->model()->headerData(column, Qt::Horizontal).toString();
}

QString headerText(const CDlgAutomobilTariffs &page, QStringView column)
{
    return headerText(page, page.list()->columnOf(column));
}

QStringList titles(const CDlgAutomobilTariffs &page)
{
    QStringList texts;
    for (int row = 0; row < page.list()->count(); ++row)
        texts << page.list()->cellText(row, u"title");
    return texts;
}

KForm *formOf(QWidget *editor)
{
    return editor->findChild<KForm *>();
}

// Types a name and an amount into the editor that comes up, and confirms it.
void whenEditor(const QString &title, const QString &amount)
{
    TestOffice::whenModal("CDlgAddAutomobilTariff", [title, amount](QWidget *editor) {
        formOf(editor)->edit(u"sTitle"_s)->setText(title);
        formOf(editor)->edit(u"dAmount"_s)->setText(amount);
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
        m_office->database().run(u"DELETE FROM AutomobilTariffs"_s);
    }

    // --- What the window shows ---

    void everyLabelAndTitleIsToTheLetter()
    {
        CDlgAutomobilTariffs page;
        page.open();
        QCOMPARE(page.title(), u"هزينه هاي تعرفه هاي محضر"_s);
        QCOMPARE(page.findChild<QGroupBox *>()->title(), u"فيلتر جستجو"_s);
        QCOMPARE(page.filters().control<KEdit>(u"name")->accessibleName(), u"نام :"_s);
        QCOMPARE(page.filters().control<QCheckBox>(u"inactive")->text(), u"غير فعال ها را نيز نمايش بده"_s);
        QStringList captions;
        for (const QPushButton *button : page.findChildren<QPushButton *>())
            captions << button->text();
        QCOMPARE(captions, (QStringList{u"جستجو"_s, newCaption, editCaption, deleteCaption, u"چاپ"_s}));
        QStringList shown;
        for (int column = 0; column < page.list()->model()->columnCount(); ++column)
            shown << headerText(page, column);
        QCOMPARE(shown, (QStringList{u"ردیف"_s, u"نام*"_s, u"مبلغ"_s, u"توضیحات"_s}));
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
        QVERIFY(!page.filters().control<QCheckBox>(u"inactive")->isVisible());
        QVERIFY(!page.filters().control<QCheckBox>(u"inactive")->isChecked());
    }

    void thereIsNoRowLimitAndEveryRowIsRead()
    {
        m_office->database().run(
            u"INSERT INTO AutomobilTariffs(sTitle,iStatus) SELECT CONCAT('t',seq),0 FROM seq_1_to_1200"_s);
        CDlgAutomobilTariffs page;
        page.open();
        QCOMPARE(page.list()->count(), 1200);
        for (const QLabel *label : page.findChildren<QLabel *>())
            QVERIFY(label->text() != u"تعداد نمايش :"_s);
        page.OnClosing();
        QCOMPARE(ReadSetting(section, u"iMaxRows"_s, -1), -1);
    }

    void countReadsADashUntilTheFirstFill()
    {
        addTariff(u"a"_s);
        CDlgAutomobilTariffs page;
        QCOMPARE(page.countText(), u"تعداد : -"_s);
        page.open();
        QCOMPARE(page.countText(), u"تعداد : 1"_s);
    }

    void rowsShowNumberTitleAmountAsMoneyAndDescription()
    {
        const int first = addTariff(u"سند قطعی"_s, 1250000, 0, u"با مالیات"_s);
        addTariff(u"وکالت"_s, 0);
        CDlgAutomobilTariffs page;
        page.open();
        QCOMPARE(page.list()->count(), 2);
        QCOMPARE(page.list()->cellText(0, u"row"), u"1"_s);
        QCOMPARE(page.list()->cellText(0, u"title"), u"سند قطعی"_s);
        QCOMPARE(page.list()->cellText(0, u"amount"), DToMoney(1250000));
        QCOMPARE(page.list()->cellText(0, u"description"), u"با مالیات"_s);
        QCOMPARE(page.list()->cellText(1, u"row"), u"2"_s);
        QCOMPARE(page.list()->listModel()->keyAt(0), first);
    }

    // --- Filter ---

    void inactiveTariffsAreListedOnlyWhenAskedFor()
    {
        addTariff(u"on"_s);
        addTariff(u"off"_s, 0, 1);
        CDlgAutomobilTariffs page;
        page.open();
        QCOMPARE(titles(page), QStringList{u"on"_s});
        page.filters().set(u"inactive", true);
        page.refill();
        QCOMPARE(titles(page), (QStringList{u"on"_s, u"off"_s}));
    }

    void withThatChoiceTickedAndNoNameTheStatementHasNoCondition()
    {
        CDlgAutomobilTariffs page;
        page.open();
        page.filters().set(u"inactive", true);
        const ObservedStatements observed({u"SELECT"_s});
        page.refill();
        QCOMPARE(observed.taken().size(), 1);
        QVERIFY2(!observed.taken().constFirst().contains(u"WHERE"_s), qPrintable(observed.taken().constFirst()));
    }

    void aNameWithAPercentSignIsTakenAsAPattern()
    {
        addTariff(u"سند اول"_s);
        addTariff(u"سند قطعی اول"_s);
        addTariff(u"وکالت"_s);
        CDlgAutomobilTariffs page;
        page.open();
        page.filters().set(u"name", u"سند%اول"_s);
        page.refill();
        QCOMPARE(titles(page), (QStringList{u"سند اول"_s, u"سند قطعی اول"_s}));
        page.filters().set(u"name", u"وکال_"_s);
        page.refill();
        QCOMPARE(titles(page), QStringList{u"وکالت"_s});
    }

    void aNameWithAQuoteIsLookedForAsItStands()
    {
        addTariff(u"a"_s);
        CDlgAutomobilTariffs page;
        page.open();
        page.filters().set(u"name", u"x%' OR 'a' LIKE 'a"_s);
        captioned<QPushButton>(page, u"جستجو"_s)->click();
        QVERIFY(titles(page).isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        page.filters().set(u"name", u"o'k"_s);
        captioned<QPushButton>(page, u"جستجو"_s)->click();
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(titles(page).isEmpty());
        QCOMPARE(page.filters().control<KEdit>(u"name")->text(), u"o'k"_s);
    }

    void aQuoteCannotBeginAStatementOfItsOwn()
    {
        addTariff(u"a"_s);
        CDlgAutomobilTariffs page;
        page.open();
        page.filters().set(u"name", u"'; DELETE FROM AutomobilTariffs; -- "_s);
        captioned<QPushButton>(page, u"جستجو"_s)->click();
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(titles(page).isEmpty());
        QCOMPARE(value(u"SELECT COUNT(*) FROM AutomobilTariffs"_s), u"1"_s);
    }

    void aUnionListsNoPasswords()
    {
        addTariff(u"a"_s);
        CDlgAutomobilTariffs page;
        page.open();
        for (const QString &text : {u"' UNION SELECT 1,sPasswordHash,sUser,0,1,1 FROM Users#"_s, u"%' UNION SELECT 1,sPasswordHash,0,1,1,1 FROM Users#"_s}) {
            page.filters().set(u"name", text.left(50));
            captioned<QPushButton>(page, u"جستجو"_s)->click();
            QVERIFY(titles(page).isEmpty());
            QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        }
    }

    void enterInTheNameSearches()
    {
        addTariff(u"a"_s);
        addTariff(u"b"_s);
        CDlgAutomobilTariffs page;
        page.show();
        page.filters().control<KEdit>(u"name")->setFocus();
        QTest::keyClicks(page.filters().control<KEdit>(u"name"), u"b"_s);
        QTest::keyClick(page.filters().control<KEdit>(u"name"), Qt::Key_Return);
        QCOMPARE(titles(page), QStringList{u"b"_s});
    }

    // --- Order ---

    void clickOnATitleThatCannotSortAsksNothingAndTheListStays_data()
    {
        QTest::addColumn<QString>("column");
        QTest::addColumn<QString>("sort");
        QTest::newRow("نام") << u"title"_s << u"iCode"_s;
        QTest::newRow("مبلغ") << u"amount"_s << u"sName"_s;
    }

    void clickOnATitleThatCannotSortAsksNothingAndTheListStays()
    {
        QFETCH(QString, column);
        QFETCH(QString, sort);
        addTariff(u"b"_s, 2);
        addTariff(u"a"_s, 1);
        CDlgAutomobilTariffs page;
        page.open();
        page.list()->selectRow(1);
        const QString before = page.sortExpression();
        const ObservedStatements observed({u"SELECT"_s});
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(column));
        QVERIFY(observed.taken().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(titles(page), (QStringList{u"b"_s, u"a"_s}));
        QCOMPARE(page.list()->currentRow(), 1);
        QCOMPARE(page.countText(), u"تعداد : 2"_s);
        QCOMPARE(page.sortExpression(), before);
        QCOMPARE(headerText(page, u"title"), u"نام*"_s);
        QCOMPARE(headerText(page, u"amount"), u"مبلغ"_s);
        page.OnClosing();
        QVERIFY(!ReadSetting(section, u"Sort"_s, QString()).contains(sort));
        QCOMPARE(ReadSetting(section, u"iLastCol"_s, 0), 1);
    }

    void anOrderThatDoesNotSortIsNotStoredWhileTheListIsEmptyEither()
    {
        CDlgAutomobilTariffs page;
        page.open();
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"amount"));
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        page.OnClosing();
        QVERIFY(!ReadSetting(section, u"Sort"_s, QString()).contains(u"sName"_s));
    }

    void clickOnColumnThreeLeavesTheSortUnchanged_data()
    {
        QTest::addColumn<QString>("column");
        QTest::newRow("ردیف") << u"row"_s;
        QTest::newRow("توضیحات") << u"description"_s;
    }

    void clickOnColumnThreeLeavesTheSortUnchanged()
    {
        QFETCH(QString, column);
        addTariff(u"a"_s);
        CDlgAutomobilTariffs page;
        page.open();
        const QString before = page.sortExpression();
        const ObservedStatements observed({u"SELECT"_s});
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(column));
        QCOMPARE(page.sortExpression(), before);
        QVERIFY(observed.taken().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(headerText(page, u"title"), u"نام*"_s);
    }

    // As a program before this one may have stored it.
    void aListWithAStoredOrderThatDoesNotSortOpens()
    {
        WriteSetting(section, u"Sort"_s, u"iCode DESC"_s);
        WriteSetting(section, u"iLastCol"_s, 2);
        addTariff(u"b"_s);
        addTariff(u"a"_s);
        CDlgAutomobilTariffs page;
        page.show();
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(titles(page), (QStringList{u"b"_s, u"a"_s}));
        QCOMPARE(headerText(page, u"amount"), u"مبلغ*"_s);
        page.OnClosing();
        QVERIFY(!ReadSetting(section, u"Sort"_s, QString()).contains(u"iCode"_s));
    }

    void aListThatCannotBeReadAtAllIsOneMessage()
    {
        WriteSetting(section, u"Sort"_s, u"iCode"_s);
        m_office->database().run(u"RENAME TABLE AutomobilTariffs TO Elsewhere"_s);
        CDlgAutomobilTariffs page;
        page.show();
        m_office->database().run(u"RENAME TABLE Elsewhere TO AutomobilTariffs"_s);
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
        WriteSetting(section, u"iLastCol"_s, stored);
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
            page.list()->header()->resizeSection(page.list()->columnOf(u"title"), 222);
            page.OnClosing();
        }
        QVERIFY(!ReadSetting(u"AutomobilTariffs\\List"_s, u"sWidths"_s, QString()).isEmpty());
        QCOMPARE(ReadSetting(section, u"iLastCol"_s, 0), 1);
        CDlgAutomobilTariffs page;
        page.open();
        QCOMPARE(page.list()->header()->sectionSize(page.list()->columnOf(u"title")), 222);
    }

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
        QTest::keyClick(page.list(), Qt::Key_F, Qt::ControlModifier);
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

    // --- On paper ---

    void printHasItsTitleDateAndCount()
    {
        addTariff(u"سند"_s, 1000, 0, u"شرح"_s);
        CDlgAutomobilTariffs page;
        page.open();
        bool shown = false;
        TestOffice::whenModal("CDlgReportGenerator", [&](QWidget *window) {
            const ListReport &report = static_cast<CDlgReportGenerator *>(window)->report();
            shown = true;
            QCOMPARE(report.shownTitle(), u"هزینه های تعرفه های محضر"_s);
            QCOMPARE(report.text(u"Title"_s), u"هزینه های تعرفه های محضر"_s);
            QCOMPARE(report.text(u"LeftBottom"_s),
                     u"تاریخ چاپ : "_s + shamsiText(QDate::currentDate()));
            QCOMPARE(report.text(u"Count"_s), u"تعداد : 1"_s);
            QCOMPARE(report.rows().size(), 1);
            QCOMPARE(report.rows().at(0).cells.at(2).text, DToMoney(1000));
            window->close();
        });
        QVERIFY(page.runCommand(u"print"));
        QVERIFY(shown);
    }

    void printingNeedsItsRight()
    {
        m_office->logInAs(u"clerk"_s, rightsForm, KSecurity::allRights & ~KSecurity::PrintList);
        CDlgAutomobilTariffs page;
        page.open();
        QVERIFY(page.runCommand(u"print"));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{KSecurity::refusalText(rightsForm, KSecurity::PrintList)});
    }
};

static const RegisteredTest<TestCDlgAutomobilTariffs, KApplication> registeredCDlgAutomobilTariffs;

#include "TestCDlgAutomobilTariffs.moc"
