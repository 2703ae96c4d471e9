// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/CDlgAddAutomobilContract.h"
#include "auto/contracts/CDlgAutomobilContracts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/accounting/reports/CTblReportLayouts.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/reports/KWndReportGen.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/frame/KDialogHolder.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/office/TestOffice.h"
#include "tests/support/Day.h"
#include "tests/support/RegisteredTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Contract = CTblAutomobilContracts;

const QString section = QStringLiteral("AutomobilContracts");
const QString rightsForm = QStringLiteral("AutomobilContracts");
const QString archiveForm = QStringLiteral("AutomobilContractArchive");

QStringList explanations(const CDlgAutomobilContracts &page)
{
    QStringList texts;
    for (int row = 0; row < page.list()->count(); ++row)
        texts << page.list()->cellText(row, u"explanation");
    return texts;
}

QString headerText(const CDlgAutomobilContracts &page, int column)
{
    return page.list()->model()->headerData(column, Qt::Horizontal).toString();
}

QString headerText(const CDlgAutomobilContracts &page, QStringView column)
{
    return headerText(page, page.list()->columnOf(column));
}

const QStringList rowCommands = {u"edit"_s, u"delete"_s, u"show"_s, u"archive"_s, u"printContract"_s, u"settleSeller"_s, u"settleBuyer"_s};

}

class TestCDlgAutomobilContracts : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;

    int addNamed(const QString &explanation, const std::function<void(Contract &)> &set = {})
    {
        return m_office->addContract([&](Contract &contract) {
            contract.m_sExplain = explanation;
            if (set)
                set(contract);
        });
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }
    void init() { m_office->clear(); }

    void everyLabelAndTitleIsToTheLetter()
    {
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(page.title(), QStringLiteral("قرارداد"));
        QStringList labels;
        for (const QLabel *label : page.findChildren<QLabel *>())
            labels << label->text();
        for (const QString &text :
             {QStringLiteral("فروشنده :"), QStringLiteral("وضعيت بايگاني :"), QStringLiteral("خريدار :"),
              QStringLiteral("برگشتي :"), QStringLiteral("تاريخ عقد از :"), QStringLiteral("تا :"),
              QStringLiteral("تاريخ انقضاء از :"), QStringLiteral("توضيحات :"), QStringLiteral("شرح قرارداد :"),
              QStringLiteral("تعداد نمايش :")})
            QVERIFY2(labels.contains(text), qPrintable(text));
        QStringList captions;
        for (const QPushButton *button : page.findChildren<QPushButton *>())
            captions << button->text();
        for (const QString &text :
             {QStringLiteral("جستجو"), QStringLiteral("پيش فرض"), QStringLiteral("جديد"), QStringLiteral("ويرايش"),
              QStringLiteral("حذف"), QStringLiteral("نمايش"), QStringLiteral("بايگاني شد"), QStringLiteral("چاپ"),
              QStringLiteral("چاپ قرارداد "), QStringLiteral("تنظيمات"), QStringLiteral("گزارش جامع"),
              QStringLiteral("تسويه با فروشنده"), QStringLiteral("تسويه با خريدار")})
            QVERIFY2(captions.contains(text), qPrintable(text));
        QCOMPARE(page.findChild<QGroupBox *>()->title(), QStringLiteral("فيلتر جستجو"));
        QCOMPARE(page.findChild<QCheckBox *>()->text(), QStringLiteral("نمايش غير فعال ها"));
        QStringList titles;
        for (int column = 0; column < 10; ++column)
            titles << headerText(page, column);
        QCOMPARE(titles, (QStringList{QStringLiteral("ردیف"), QStringLiteral("نوع قرارداد*"), QStringLiteral("فروشنده"), QStringLiteral("خریدار"), QStringLiteral("شماره سند"), QStringLiteral("شرح قرارداد"), QStringLiteral("تاریخ عقد"), QStringLiteral("تاریخ انقضاء"), QStringLiteral("توضیحات"), QStringLiteral("وضعیت بایگانی")}));
    }

    void countReadsADashUntilTheFirstFill()
    {
        CDlgAutomobilContracts page;
        QCOMPARE(page.countText(), QStringLiteral("تعداد : -"));
        page.open();
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 0"));
    }

    void defaultFiltersListOnlyContractsNotArchivedNotReturnedNotVoid()
    {
        addNamed(QStringLiteral("plain"));
        addNamed(QStringLiteral("archived"), [](Contract &c) { c.m_iArchiveUserID = 1; });
        addNamed(QStringLiteral("returned"), [](Contract &c) { c.m_bReturn = 1; });
        addNamed(QStringLiteral("void"), [](Contract &c) { c.m_iStatus = 1; });
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(explanations(page), QStringList{QStringLiteral("plain")});
        page.filters().set(u"inactive", true);
        page.refill();
        QCOMPARE(explanations(page), (QStringList{QStringLiteral("plain"), QStringLiteral("void")}));
        page.filters().set(u"returned", 2);
        page.refill();
        QCOMPARE(explanations(page), QStringList{QStringLiteral("returned")});
    }

    void archivedIsByTheCurrentUserAndArchivedByOthersByAnyOtherUser()
    {
        const int me = m_office->adminID();
        addNamed(QStringLiteral("mine"), [me](Contract &c) { c.m_iArchiveUserID = me; });
        addNamed(QStringLiteral("other"), [me](Contract &c) { c.m_iArchiveUserID = me + 1; });
        addNamed(QStringLiteral("third"), [me](Contract &c) { c.m_iArchiveUserID = me + 2; });
        addNamed(QStringLiteral("none"));
        CDlgAutomobilContracts page;
        page.open();
        page.filters().set(u"archive", 2);
        page.refill();
        QCOMPARE(explanations(page), QStringList{QStringLiteral("mine")});
        page.filters().set(u"archive", 3);
        page.refill();
        QCOMPARE(explanations(page), (QStringList{QStringLiteral("other"), QStringLiteral("third")}));
        page.filters().set(u"archive", 0);
        page.refill();
        QCOMPARE(page.list()->count(), 4);
        QCOMPARE(page.list()->cellText(0, u"archived"), QStringLiteral("بلی"));
        QCOMPARE(page.list()->cellText(3, u"archived"), QStringLiteral("-"));
    }

    void toDateOfAGivenDayAlsoListsContractsDatedOnTheNextDay()
    {
        addNamed(QStringLiteral("day"), [](Contract &c) { c.m_dateContract = day(2026, 5, 10); });
        addNamed(QStringLiteral("next"), [](Contract &c) { c.m_dateContract = day(2026, 5, 11); });
        addNamed(QStringLiteral("after"), [](Contract &c) { c.m_dateContract = day(2026, 5, 12); });
        CDlgAutomobilContracts page;
        page.open();
        page.filters().set(u"contractTo", QDate(2026, 5, 10));
        page.refill();
        QCOMPARE(explanations(page), (QStringList{QStringLiteral("day"), QStringLiteral("next")}));
        page.filters().set(u"contractFrom", QDate(2026, 5, 11));
        page.refill();
        QCOMPARE(explanations(page), QStringList{QStringLiteral("next")});
    }

    void uncheckedDateDoesNotFilter()
    {
        addNamed(QStringLiteral("a"));
        CDlgAutomobilContracts page;
        page.open();
        page.filters().control<KDateEdit>(u"contractFrom")->setDate(QDate(2030, 1, 1));
        page.refill();
        QCOMPARE(page.list()->count(), 1);
        QVERIFY(!page.filters().value(u"contractFrom").toDateTime().isValid());
    }

    void namesComeFromThePersonsAndElseFromTheContract()
    {
        const int person = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"));
        addNamed(QStringLiteral("a"), [person](Contract &c) {
            c.m_iPersonFirstID = person;
            c.m_sName1 = QStringLiteral("old name");
            c.m_iPersonSecondID = 999999;
            c.m_sName2 = QStringLiteral("نام دستی");
        });
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(page.list()->cellText(0, u"seller"), QStringLiteral("سارا کریمی"));
        QCOMPARE(page.list()->cellText(0, u"buyer"), QStringLiteral("نام دستی"));
    }

    void personFilterAndTextFiltersNarrowTheList()
    {
        const int person = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"));
        addNamed(QStringLiteral("100% پراید"), [person](Contract &c) { c.m_iPersonFirstID = person; });
        addNamed(QStringLiteral("100 پراید"), [person](Contract &c) { c.m_iPersonSecondID = person; });
        CDlgAutomobilContracts page;
        page.open();
        page.filters().set(u"seller", person);
        page.refill();
        QCOMPARE(explanations(page), QStringList{QStringLiteral("100% پراید")});
        page.resetFilter();
        page.filters().set(u"buyer", person);
        page.refill();
        QCOMPARE(explanations(page), QStringList{QStringLiteral("100 پراید")});
        page.resetFilter();
        page.filters().set(u"explanation", QStringLiteral("0%"));
        page.refill();
        QCOMPARE(explanations(page), QStringList{QStringLiteral("100% پراید")});
    }

    void resetKeepsArchiveAndReturnFilters()
    {
        CDlgAutomobilContracts page;
        page.open();
        page.filters().set(u"archive", 3);
        page.filters().set(u"returned", 2);
        page.filters().set(u"type", 2);
        page.filters().set(u"description", QStringLiteral("x"));
        page.filters().control<KDateEdit>(u"contractFrom")->setChecked(true);
        page.resetFilter();
        QCOMPARE(page.filters().control<QComboBox>(u"archive")->currentIndex(), 3);
        QCOMPARE(page.filters().control<QComboBox>(u"returned")->currentIndex(), 2);
        QCOMPARE(page.filters().control<QComboBox>(u"type")->currentIndex(), 0);
        QVERIFY(page.filters().control<KEdit>(u"description")->text().isEmpty());
        QVERIFY(!page.filters().control<KDateEdit>(u"contractFrom")->isChecked());
    }

    void clickOnNumberSellerOrBuyerDoesNotChangeTheOrder_data()
    {
        QTest::addColumn<QString>("column");
        QTest::newRow("ردیف") << u"row"_s;
        QTest::newRow("فروشنده") << u"seller"_s;
        QTest::newRow("خریدار") << u"buyer"_s;
    }

    void clickOnNumberSellerOrBuyerDoesNotChangeTheOrder()
    {
        QFETCH(QString, column);
        addNamed(QStringLiteral("b"));
        addNamed(QStringLiteral("a"));
        CDlgAutomobilContracts page;
        page.open();
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(column));
        QCOMPARE(page.sortExpression(), QStringLiteral("iCode"));
        QCOMPARE(explanations(page), (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
        QVERIFY(!headerText(page, column).endsWith(u'*'));
    }

    void secondClickSortsDescendingAndAThirdAscendingAgain()
    {
        addNamed(QStringLiteral("b"));
        addNamed(QStringLiteral("a"));
        CDlgAutomobilContracts page;
        page.open();
        const int column = page.list()->columnOf(u"explanation");
        Q_EMIT page.list()->columnClicked(column);
        QCOMPARE(page.sortExpression(), QStringLiteral("sExplain"));
        QCOMPARE(explanations(page), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
        QCOMPARE(headerText(page, column), QStringLiteral("شرح قرارداد*"));
        QCOMPARE(headerText(page, u"type"), QStringLiteral("نوع قرارداد"));
        Q_EMIT page.list()->columnClicked(column);
        QCOMPARE(page.sortExpression(), QStringLiteral("sExplain DESC"));
        QCOMPARE(explanations(page), (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
        QCOMPARE(headerText(page, column), QStringLiteral("شرح قرارداد*"));
        Q_EMIT page.list()->columnClicked(column);
        QCOMPARE(page.sortExpression(), QStringLiteral("sExplain"));
        QCOMPARE(explanations(page), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    }

    void storedLastColumnOutOfRangeFallsBackToColumnOne_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("used");
        QTest::newRow("above 9") << 10 << 1;
        QTest::newRow("far above") << 1000 << 1;
        QTest::newRow("below 0") << -1 << 1;
        QTest::newRow("9") << 9 << 9;
        QTest::newRow("0") << 0 << 0;
    }

    void storedLastColumnOutOfRangeFallsBackToColumnOne()
    {
        QFETCH(int, stored);
        QFETCH(int, used);
        WriteSetting(section, QStringLiteral("iLastCol"), stored);
        CDlgAutomobilContracts page;
        page.open();
        for (int column = 0; column < 10; ++column)
            QCOMPARE(headerText(page, column).endsWith(u'*'), column == used);
    }

    void settingsAreWrittenBackAndReadAgain()
    {
        {
            CDlgAutomobilContracts page;
            page.open();
            addNamed(QStringLiteral("a"));
            page.refill();
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"contractDate"));
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"contractDate"));
            for (KEdit *edit : page.findChildren<KEdit *>()) {
                if (edit->accessibleName() == QStringLiteral("تعداد نمايش :"))
                    edit->setNumber(25);
            }
            page.OnClosing();
        }
        QCOMPARE(ReadSetting(section, QStringLiteral("iMaxRows"), 0), 25);
        QCOMPARE(ReadSetting(section, QStringLiteral("iLastCol"), 0), 6);
        QCOMPARE(ReadSetting(section, QStringLiteral("Sort"), QString()), QStringLiteral("dateContract DESC"));
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(page.rowLimit(), 25);
        QCOMPARE(page.sortExpression(), QStringLiteral("dateContract DESC"));
        QCOMPARE(headerText(page, u"contractDate"), QStringLiteral("تاریخ عقد*"));
    }

    void storedSortThatNoColumnGivesIsNotTaken()
    {
        WriteSetting(section, QStringLiteral("Sort"), QStringLiteral("SLEEP(9)"));
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(page.sortExpression(), QStringLiteral("iCode"));
    }

    void rowLimitCapsTheList()
    {
        for (int i = 0; i < 5; ++i)
            addNamed(QString::number(i));
        WriteSetting(section, QStringLiteral("iMaxRows"), 3);
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(page.list()->count(), 3);
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 3"));
    }

    void commandsOnARowAreEnabledExactlyWhileARowIsSelected()
    {
        CDlgAutomobilContracts page;
        page.open();
        for (const QString &command : rowCommands)
            QVERIFY2(!page.button(command)->isEnabled(), qPrintable(command));
        addNamed(QStringLiteral("a"));
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
        addNamed(QStringLiteral("a"));
        if (closed)
            GetDBSetting()->SetClosedDB(true);
        CDlgAutomobilContracts page;
        page.setReadOnlyMode(!closed);
        page.open();
        QStringList hidden;
        for (const QPushButton *button : page.findChildren<QPushButton *>()) {
            if (button->isHidden() && button->text() != QStringLiteral("پيش فرض"))
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
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM AutomobilContracts")), QStringLiteral("1"));
    }

    void selectModePicksOneActiveContract()
    {
        const int first = addNamed(QStringLiteral("a"), [](Contract &c) { c.m_sName1 = QStringLiteral("فروشنده یک"); });
        const int second = addNamed(QStringLiteral("b"), [](Contract &c) { c.m_sName1 = QStringLiteral("فروشنده دو"); });
        addNamed(QStringLiteral("void"), [](Contract &c) { c.m_iStatus = 1; });
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
        QCOMPARE(page.chosenName(), QStringLiteral("فروشنده یک"));
        page.list()->selectRow(-1);
        QVERIFY(!page.OnOK());
        page.list()->selectKey(first);
        Q_EMIT page.list()->rowRightClicked(first);
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QCOMPARE(page.list()->count(), 2);
    }

    void doubleClickInSelectModeClosesTheHoldingWindow()
    {
        const int key = addNamed(QStringLiteral("a"));
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
        addNamed(QStringLiteral("a"));
        addNamed(QStringLiteral("b"));
        CDlgAutomobilContracts page;
        page.open();
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(g_pDlgYesNo->takeShown(), QStringList{QStringLiteral("آیا از حذف این رکورد اطمینان دارید؟")});
        QCOMPARE(page.list()->count(), 2);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        QVERIFY(page.runCommand(u"delete"));
        QCOMPARE(explanations(page), QStringList{QStringLiteral("b")});
        QCOMPARE(page.countText(), QStringLiteral("تعداد : 1"));
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM AutomobilContracts")), QStringLiteral("1"));
    }

    void rightClickOnARowRunsTheDeleteStepWithItsQuestion()
    {
        const int key = addNamed(QStringLiteral("a"));
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
        const int key = addNamed(QStringLiteral("a"));
        CDlgAutomobilContracts page;
        page.open();
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilContracts WHERE iID=%1").arg(key));
        for (const QString &command : rowCommands)
            page.runCommand(command);
        QVERIFY(g_pDlgYesNo->takeShown().isEmpty());
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
    }

    void archivingNeedsItsOwnRight()
    {
        const int key = addNamed(QStringLiteral("a"));
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, KSecurity::allRights);
        KSecurity::setRights(GetDBSetting()->GetUserID(), archiveForm, 0);
        KSecurity::forgetRights();
        CDlgAutomobilContracts page;
        page.open();
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("شما اجازه بایگانی کردن تقاضا را ندارید.")});
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT iArchiveUserID FROM AutomobilContracts WHERE iID=%1").arg(key)),
                 QStringLiteral("0"));
    }

    void archivedContractLeavesTheDefaultListAndIsNotArchivedTwice()
    {
        const int key = addNamed(QStringLiteral("a"));
        CDlgAutomobilContracts page;
        page.open();
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{QStringLiteral("بایگانی شد.")});
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT iArchiveUserID FROM AutomobilContracts WHERE iID=%1").arg(key)),
                 QString::number(m_office->adminID()));
        QVERIFY(!m_office->database().value(QStringLiteral("SELECT dateArchive FROM AutomobilContracts")).isEmpty());
        page.filters().set(u"archive", 0);
        page.refill();
        page.runCommand(u"archive");
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{QStringLiteral("این تقاضا قبلا بایگانی شده است.")});
    }

    void editingAnArchivedContractOpensItReadOnly()
    {
        addNamed(QStringLiteral("a"), [](Contract &c) { c.m_iArchiveUserID = 1; });
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
        QCOMPARE(title, QStringLiteral("قرارداد مبایعه نامه - نمایش"));
    }

    void settlingAVoidContractShowsTheVoidMessageAndPostsNothing()
    {
        const int person = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"));
        addNamed(QStringLiteral("a"), [person](Contract &c) {
            c.m_iPersonFirstID = person;
            c.m_dPayFirst = 100;
            c.m_iStatus = 1;
        });
        CDlgAutomobilContracts page;
        page.open();
        page.filters().set(u"inactive", true);
        page.refill();
        page.runCommand(u"settleSeller");
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{QStringLiteral("این قرارداد باطل شده است.")});
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM Receipts")), QStringLiteral("0"));
    }

    void settlementReceivesPaymentTaxAndDutyOfThatSide_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<double>("amount");
        QTest::newRow("seller") << u"settleSeller"_s << 119.0;
        QTest::newRow("buyer") << u"settleBuyer"_s << 227.0;
    }

    void settlementReceivesPaymentTaxAndDutyOfThatSide()
    {
        QFETCH(QString, command);
        QFETCH(double, amount);
        const int seller = m_office->addPerson(QStringLiteral("سارا"), QStringLiteral("کریمی"));
        const int buyer = m_office->addPerson(QStringLiteral("رضا"), QStringLiteral("احمدی"));
        addNamed(QStringLiteral("a"), [=](Contract &c) {
            c.m_iPersonFirstID = seller;
            c.m_dPayFirst = 100;
            c.m_dTax = 9;
            c.m_dImposition = 10;
            c.m_iPersonSecondID = buyer;
            c.m_dPaySecond = 200;
            c.m_dTax2 = 20;
            c.m_dImposition2 = 7;
            c.m_iNum = 45;
        });
        CDlgAutomobilContracts page;
        page.open();
        TestOffice::whenModal("CDlgCashFromPerson", [](QWidget *window) { static_cast<QDialog *>(window)->accept(); });
        QVERIFY(page.runCommand(command));
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT dAmount FROM Receipts")).toDouble(), amount);
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT sDesc FROM Receipts")),
                 QStringLiteral("بابت کمسیون قرارداد شماره 45"));
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT SUM(dBed)=SUM(dBes) AND SUM(dBed)>0 FROM Docs")), QStringLiteral("1"));
    }

    void settlingASideWithoutAPersonDoesNothing()
    {
        addNamed(QStringLiteral("a"), [](Contract &c) { c.m_dPayFirst = 100; });
        CDlgAutomobilContracts page;
        page.open();
        QVERIFY(page.runCommand(u"settleSeller"));
        QVERIFY(g_pDlgMessage->takeShown().isEmpty());
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM Receipts")), QStringLiteral("0"));
    }

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
        addNamed(QStringLiteral("a"));
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, KSecurity::allRights & ~missing);
        CDlgAutomobilContracts page;
        page.open();
        QVERIFY(page.runCommand(command));
        QCOMPARE(g_pDlgWarning->takeShown(),
                 QStringList{KSecurity::refusalText(rightsForm, static_cast<KSecurity::Right>(missing))});
        QCOMPARE(m_office->database().value(QStringLiteral("SELECT COUNT(*) FROM AutomobilContracts")), QStringLiteral("1"));
    }

    void pageIsRefusedToAUserWithoutAccess()
    {
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, 0);
        CDlgAutomobilContracts page;
        QVERIFY(!page.OnAccess());
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, KSecurity::Access);
        CDlgAutomobilContracts allowed;
        QVERIFY(allowed.OnAccess());
    }

    void printShowsTheListInItsReport()
    {
        const int person = m_office->addPerson(QStringLiteral("مریم"), QStringLiteral("کاظمی"));
        addNamed(QStringLiteral("پژو 206"), [person](Contract &c) { c.m_iPersonFirstID = person; });
        addNamed(QStringLiteral("سمند"));
        CDlgAutomobilContracts page;
        page.open();
        bool shown = false;
        TestOffice::whenModal("CDlgReportGenerator", [&](QWidget *window) {
            const auto *generator = static_cast<CDlgReportGenerator *>(window);
            const ListReport &report = generator->report();
            shown = true;
            QCOMPARE(report.report(), QStringLiteral("لیست قراردادها"));
            QCOMPARE(report.group(), QStringLiteral("گالری اتومبیل"));
            QCOMPARE(report.shownTitle(), QStringLiteral("لیست قراردادها"));
            QCOMPARE(report.text(QStringLiteral("LeftBottom")),
                     QStringLiteral("تاریخ چاپ : ") + shamsiText(QDate::currentDate()));
            QCOMPARE(report.text(QStringLiteral("Count")), QStringLiteral("تعداد : 2"));
            for (const QString &corner : {QStringLiteral("RightTop"), QStringLiteral("RightCenter"), QStringLiteral("RightBottom"),
                                          QStringLiteral("LeftTop"), QStringLiteral("LeftCenter")})
                QCOMPARE(report.shownCorner(corner), QString());
            QCOMPARE(report.shownColumns().size(), 10);
            QCOMPARE(report.rows().size(), 2);
            QCOMPARE(report.rows().at(0).cells.at(2).text, QStringLiteral("مریم کاظمی"));
            QCOMPARE(generator->pages()->pageCount(), 1);
            window->close();
        });
        QVERIFY(page.runCommand(u"print"));
        QVERIFY(shown);
    }

    void printUsesTheStoredLayoutThatIsTheDefault()
    {
        addNamed(QStringLiteral("پژو 206"));
        ReportLayout layout;
        layout.title = QStringLiteral("قراردادهای ما");
        layout.columns = {{QStringLiteral("شرح قرارداد"), 0}};
        CTblReportLayouts::save(QStringLiteral("گالری اتومبیل"), QStringLiteral("لیست قراردادها"), QStringLiteral("کوتاه"), layout,
                                true);
        CDlgAutomobilContracts page;
        page.open();
        QString title;
        qsizetype columns = 0;
        TestOffice::whenModal("CDlgReportGenerator", [&](QWidget *window) {
            title = static_cast<CDlgReportGenerator *>(window)->report().shownTitle();
            columns = static_cast<CDlgReportGenerator *>(window)->report().shownColumns().size();
            window->close();
        });
        QVERIFY(page.runCommand(u"print"));
        m_office->database().run(QStringLiteral("DELETE FROM ReportLayouts"));
        QCOMPARE(title, QStringLiteral("قراردادهای ما"));
        QCOMPARE(columns, 1);
    }

    void printingNeedsItsRight()
    {
        addNamed(QStringLiteral("a"));
        constexpr int allButPrinting = KSecurity::allRights & ~KSecurity::PrintList;
        m_office->logInAs(QStringLiteral("clerk"), rightsForm, allButPrinting);
        CDlgAutomobilContracts page;
        page.open();
        auto *menu = page.findChild<QMenu *>();
        QVERIFY(menu);
        g_pDlgWarning->takeShown();
        g_pDlgMessage->takeShown();
        QVERIFY(page.runCommand(u"print"));
        for (QAction *action : menu->actions())
            action->trigger();
        QStringList told = g_pDlgWarning->takeShown() + g_pDlgMessage->takeShown();
        QCOMPARE(told, QStringList(1 + menu->actions().size(), KSecurity::refusalText(rightsForm, KSecurity::PrintList)));
        QVERIFY(!QApplication::activeModalWidget());
    }

    void otherWaysOutStandInTheMenuBesideThePrintButton()
    {
        addNamed(QStringLiteral("a"));
        CDlgAutomobilContracts page;
        page.open();
        QStringList captions;
        for (const QAction *action : page.findChild<QMenu *>()->actions())
            captions << action->text();
        QCOMPARE(captions, (QStringList{QStringLiteral("پیش نمایش چاپ"), QStringLiteral("ذخیره PDF"), QStringLiteral("صفحه گسترده"), QStringLiteral("چیدمان گزارش")}));
        QCOMPARE(page.button(u"print")->toolTip(), QKeySequence(QKeySequence::Print).toString(QKeySequence::NativeText));
        CDlgAutomobilContracts picker;
        picker.setSelectMode(true);
        picker.open();
        QVERIFY(qobject_cast<QWidget *>(picker.findChild<QMenu *>()->parent())->isHidden());
        CDlgAutomobilContracts readOnly;
        readOnly.setReadOnlyMode(true);
        readOnly.open();
        QVERIFY(!readOnly.button(u"print")->isHidden());
    }

    void listReadsInThreeStatementsAtMostWhateverItsLength()
    {
        for (int i = 0; i < 20; ++i) {
            const int person = m_office->addPerson(QStringLiteral("شخص"), QString::number(i));
            addNamed(QString::number(i), [person](Contract &c) { c.m_iPersonFirstID = c.m_iPersonSecondID = person; });
        }
        CDlgAutomobilContracts page;
        page.open();
        QStringList statements;
        KConnection::setStatementObserver([&](const QString &statement) { statements << statement; });
        page.refill();
        KConnection::setStatementObserver({});
        QVERIFY2(statements.size() <= 3, qPrintable(statements.join(u'\n')));
        QCOMPARE(page.list()->count(), 20);
    }

    void errorOfTheDatabaseIsToldOnceAndTheListKeepsItsRows()
    {
        addNamed(QStringLiteral("a"));
        CDlgAutomobilContracts page;
        page.open();
        m_office->database().run(QStringLiteral("RENAME TABLE AutomobilContracts TO Elsewhere"));
        for (QPushButton *button : page.findChildren<QPushButton *>()) {
            if (button->text() == QStringLiteral("جستجو"))
                button->click();
        }
        m_office->database().run(QStringLiteral("RENAME TABLE Elsewhere TO AutomobilContracts"));
        QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
        QCOMPARE(page.list()->count(), 1);
    }

    void selectionStaysOnItsRowAfterARefill()
    {
        for (const char *name : {"a", "b", "c"})
            addNamed(QString::fromLatin1(name));
        CDlgAutomobilContracts page;
        page.open();
        page.list()->selectRow(2);
        m_office->database().run(QStringLiteral("DELETE FROM AutomobilContracts WHERE sExplain='c'"));
        page.refill();
        QCOMPARE(page.list()->currentRow(), 1);
        page.list()->selectRow(0);
        page.refill();
        QCOMPARE(page.list()->currentRow(), 0);
    }
};

static const RegisteredTest<TestCDlgAutomobilContracts, KApplication> registered;

#include "TestCDlgAutomobilContracts.moc"
