// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/catalog/tariffs/TariffListTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

class TestCDlgAutomobilTariffs : public TariffListTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

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
        for (const QPushButton *button : page.findChildren<QPushButton *>()) {
            if (!button->isHidden())
                captions << button->text();
        }
        QCOMPARE(captions, (QStringList{u"جستجو"_s, u"ستون‌ها"_s, u"فیلترها"_s, newCaption, editCaption, deleteCaption, u"چاپ"_s}));
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
        QVERIFY(!ReadSetting(u"AutomobilTariffs\\List\\Users\\"_s + GetDBSetting()->GetUserName(), u"sWidths"_s, QString()).isEmpty());
        QCOMPARE(ReadSetting(section, u"iLastCol"_s, 0), 1);
        CDlgAutomobilTariffs page;
        page.open();
        QCOMPARE(page.list()->header()->sectionSize(page.list()->columnOf(u"title")), 222);
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
