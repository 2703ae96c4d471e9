// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/contracts/ContractListTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

class TestCDlgAutomobilContracts : public ContractListTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- What is listed ---

    void everyLabelAndTitleIsToTheLetter()
    {
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(page.title(), u"قرارداد"_s);
        QStringList labels;
        for (const QLabel *label : page.findChildren<QLabel *>())
            labels << label->text();
        for (const QString &text :
             {u"فروشنده :"_s, u"وضعيت بايگاني :"_s, u"خريدار :"_s,
              u"برگشتي :"_s, u"تاريخ عقد از :"_s, u"تا :"_s,
              u"تاريخ انقضاء از :"_s, u"توضيحات :"_s, u"شرح قرارداد :"_s,
              u"تعداد نمايش :"_s})
            QVERIFY2(labels.contains(text), qPrintable(text));
        QStringList captions;
        for (const QPushButton *button : page.findChildren<QPushButton *>())
            captions << button->text();
        for (const QString &text :
             {u"جستجو"_s, u"پيش فرض"_s, u"جديد"_s, u"ويرايش"_s,
              u"حذف"_s, u"نمايش"_s, u"بايگاني شد"_s, u"چاپ"_s,
              u"چاپ قرارداد "_s, u"تنظيمات"_s, u"گزارش جامع"_s,
              u"تسويه با فروشنده"_s, u"تسويه با خريدار"_s})
            QVERIFY2(captions.contains(text), qPrintable(text));
        QCOMPARE(page.findChild<QGroupBox *>()->title(), u"فيلتر جستجو"_s);
        QCOMPARE(page.findChild<QCheckBox *>()->text(), u"نمايش غير فعال ها"_s);
        QStringList titles;
        for (int column = 0; column < 10; ++column)
            titles << headerText(page, column);
        QCOMPARE(titles, (QStringList{u"ردیف"_s, u"نوع قرارداد*"_s, u"فروشنده"_s, u"خریدار"_s, u"شماره سند"_s, u"شرح قرارداد"_s, u"تاریخ عقد"_s, u"تاریخ انقضاء"_s, u"توضیحات"_s, u"وضعیت بایگانی"_s}));
    }

    void countReadsADashUntilTheFirstFill()
    {
        CDlgAutomobilContracts page;
        QCOMPARE(page.countText(), u"تعداد : -"_s);
        page.open();
        QCOMPARE(page.countText(), u"تعداد : 0"_s);
    }

    void defaultFiltersListOnlyContractsNotArchivedNotReturnedNotVoid()
    {
        addNamed(u"plain"_s);
        addNamed(u"archived"_s, [](Contract &c) { c.m_iArchiveUserID = 1; });
        addNamed(u"returned"_s, [](Contract &c) { c.m_bReturn = 1; });
        addNamed(u"void"_s, [](Contract &c) { c.m_iStatus = 1; });
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(explanations(page), QStringList{u"plain"_s});
        page.filters().set(u"inactive", true);
        page.refill();
        QCOMPARE(explanations(page), (QStringList{u"plain"_s, u"void"_s}));
        page.filters().set(u"returned", 2);
        page.refill();
        QCOMPARE(explanations(page), QStringList{u"returned"_s});
    }

    void aDateThatIsOverStandsOutWhileTheContractCounts()
    {
        const QDateTime today = QDate::currentDate().startOfDay();
        addNamed(u"expired"_s, [&](Contract &c) { c.m_dateExpiration = today.addDays(-1); });
        addNamed(u"today"_s, [&](Contract &c) { c.m_dateExpiration = today; });
        addNamed(u"without"_s, [](Contract &c) { c.m_dateExpiration = {}; });
        addNamed(u"void"_s, [&](Contract &c) { c.m_dateExpiration = today.addDays(-1); c.m_iStatus = 1; });
        addNamed(u"archived"_s, [&](Contract &c) { c.m_dateExpiration = today.addDays(-1); c.m_iArchiveUserID = 1; });
        CDlgAutomobilContracts page;
        page.open();
        page.filters().set(u"inactive", true);
        page.filters().set(u"archive", 0);
        page.refill();
        QCOMPARE(explanations(page), (QStringList{u"expired"_s, u"today"_s, u"without"_s, u"void"_s, u"archived"_s}));
        const int date = page.list()->columnOf(u"expirationDate");
        QStringList standOut;
        for (int row = 0; row < page.list()->count(); ++row) {
            if (page.list()->listModel()->index(row, date).data(Qt::ForegroundRole).isValid())
                standOut << page.list()->cellText(row, u"explanation");
            QVERIFY(!page.list()->listModel()->index(row, date - 1).data(Qt::ForegroundRole).isValid());
        }
        QCOMPARE(standOut, QStringList{u"expired"_s});
    }

    void archivedIsByTheCurrentUserAndArchivedByOthersByAnyOtherUser()
    {
        const int me = m_office->adminID();
        addNamed(u"mine"_s, [me](Contract &c) { c.m_iArchiveUserID = me; });
        addNamed(u"other"_s, [me](Contract &c) { c.m_iArchiveUserID = me + 1; });
        addNamed(u"third"_s, [me](Contract &c) { c.m_iArchiveUserID = me + 2; });
        addNamed(u"none"_s);
        CDlgAutomobilContracts page;
        page.open();
        page.filters().set(u"archive", 2);
        page.refill();
        QCOMPARE(explanations(page), QStringList{u"mine"_s});
        page.filters().set(u"archive", 3);
        page.refill();
        QCOMPARE(explanations(page), (QStringList{u"other"_s, u"third"_s}));
        page.filters().set(u"archive", 0);
        page.refill();
        QCOMPARE(page.list()->count(), 4);
        QCOMPARE(page.list()->cellText(0, u"archived"), u"بلی"_s);
        QCOMPARE(page.list()->cellText(3, u"archived"), u"-"_s);
    }

    void toDateOfAGivenDayAlsoListsContractsDatedOnTheNextDay()
    {
        addNamed(u"day"_s, [](Contract &c) { c.m_dateContract = day(2026, 5, 10); });
        addNamed(u"next"_s, [](Contract &c) { c.m_dateContract = day(2026, 5, 11); });
        addNamed(u"after"_s, [](Contract &c) { c.m_dateContract = day(2026, 5, 12); });
        CDlgAutomobilContracts page;
        page.open();
        page.filters().set(u"contractTo", QDate(2026, 5, 10));
        page.refill();
        QCOMPARE(explanations(page), (QStringList{u"day"_s, u"next"_s}));
        page.filters().set(u"contractFrom", QDate(2026, 5, 11));
        page.refill();
        QCOMPARE(explanations(page), QStringList{u"next"_s});
    }

    void uncheckedDateDoesNotFilter()
    {
        addNamed(u"a"_s);
        CDlgAutomobilContracts page;
        page.open();
        page.filters().control<KDateEdit>(u"contractFrom")->setDate(QDate(2030, 1, 1));
        page.refill();
        QCOMPARE(page.list()->count(), 1);
        QVERIFY(!page.filters().value(u"contractFrom").toDateTime().isValid());
    }

    void namesComeFromThePersonsAndElseFromTheContract()
    {
        const int person = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        addNamed(u"a"_s, [person](Contract &c) {
            c.m_iPersonFirstID = person;
            c.m_sName1 = u"old name"_s;
            c.m_iPersonSecondID = 999999;
            c.m_sName2 = u"نام دستی"_s;
        });
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(page.list()->cellText(0, u"seller"), u"سارا کریمی"_s);
        QCOMPARE(page.list()->cellText(0, u"buyer"), u"نام دستی"_s);
    }

    void personFilterAndTextFiltersNarrowTheList()
    {
        const int person = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        addNamed(u"100% پراید"_s, [person](Contract &c) { c.m_iPersonFirstID = person; });
        addNamed(u"100 پراید"_s, [person](Contract &c) { c.m_iPersonSecondID = person; });
        CDlgAutomobilContracts page;
        page.open();
        page.filters().set(u"seller", person);
        page.refill();
        QCOMPARE(explanations(page), QStringList{u"100% پراید"_s});
        page.resetFilter();
        page.filters().set(u"buyer", person);
        page.refill();
        QCOMPARE(explanations(page), QStringList{u"100 پراید"_s});
        page.resetFilter();
        page.filters().set(u"explanation", u"0%"_s);
        page.refill();
        QCOMPARE(explanations(page), QStringList{u"100% پراید"_s});
    }

    void resetKeepsArchiveAndReturnFilters()
    {
        CDlgAutomobilContracts page;
        page.open();
        page.filters().set(u"archive", 3);
        page.filters().set(u"returned", 2);
        page.filters().set(u"type", 2);
        page.filters().set(u"description", u"x"_s);
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
        addNamed(u"b"_s);
        addNamed(u"a"_s);
        CDlgAutomobilContracts page;
        page.open();
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(column));
        QCOMPARE(page.sortExpression(), u"iCode"_s);
        QCOMPARE(explanations(page), (QStringList{u"b"_s, u"a"_s}));
        QVERIFY(!headerText(page, column).endsWith(u'*'));
    }

    void secondClickSortsDescendingAndAThirdAscendingAgain()
    {
        addNamed(u"b"_s);
        addNamed(u"a"_s);
        CDlgAutomobilContracts page;
        page.open();
        const int column = page.list()->columnOf(u"explanation");
        Q_EMIT page.list()->columnClicked(column);
        QCOMPARE(page.sortExpression(), u"sExplain"_s);
        QCOMPARE(explanations(page), (QStringList{u"a"_s, u"b"_s}));
        QCOMPARE(headerText(page, column), u"شرح قرارداد*"_s);
        QCOMPARE(headerText(page, u"type"), u"نوع قرارداد"_s);
        Q_EMIT page.list()->columnClicked(column);
        QCOMPARE(page.sortExpression(), u"sExplain DESC"_s);
        QCOMPARE(explanations(page), (QStringList{u"b"_s, u"a"_s}));
        QCOMPARE(headerText(page, column), u"شرح قرارداد*"_s);
        Q_EMIT page.list()->columnClicked(column);
        QCOMPARE(page.sortExpression(), u"sExplain"_s);
        QCOMPARE(explanations(page), (QStringList{u"a"_s, u"b"_s}));
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
        WriteSetting(section, u"iLastCol"_s, stored);
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
            addNamed(u"a"_s);
            page.refill();
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"contractDate"));
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"contractDate"));
            for (KEdit *edit : page.findChildren<KEdit *>()) {
                if (edit->accessibleName() == u"تعداد نمايش :"_s)
                    edit->setNumber(25);
            }
            page.OnClosing();
        }
        QCOMPARE(ReadSetting(section, u"iMaxRows"_s, 0), 25);
        QCOMPARE(ReadSetting(section, u"iLastCol"_s, 0), 6);
        QCOMPARE(ReadSetting(section, u"Sort"_s, QString()), u"dateContract DESC"_s);
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(page.rowLimit(), 25);
        QCOMPARE(page.sortExpression(), u"dateContract DESC"_s);
        QCOMPARE(headerText(page, u"contractDate"), u"تاریخ عقد*"_s);
    }

    void storedSortThatNoColumnGivesIsNotTaken()
    {
        WriteSetting(section, u"Sort"_s, u"SLEEP(9)"_s);
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(page.sortExpression(), u"iCode"_s);
    }

    void rowLimitCapsTheList()
    {
        for (int i = 0; i < 5; ++i)
            addNamed(QString::number(i));
        WriteSetting(section, u"iMaxRows"_s, 3);
        CDlgAutomobilContracts page;
        page.open();
        QCOMPARE(page.list()->count(), 3);
        QCOMPARE(page.countText(), u"تعداد : 3 از 5"_s);
    }

    // --- Contracts of editors that are open ---

    void contractOfAnOpenEditorIsNeitherListedNorCountedNorPicked_data()
    {
        QTest::addColumn<bool>("picks");
        QTest::newRow("list") << false;
        QTest::newRow("picker") << true;
    }

    void contractOfAnOpenEditorIsNeitherListedNorCountedNorPicked()
    {
        QFETCH(bool, picks);
        const int saved = addNamed(u"a"_s);
        const int open = CDlgAddAutomobilContract::addPlaceholder();
        CDlgAutomobilContracts page;
        page.setSelectMode(picks, open);
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(page.list()->currentKey(), saved);
        QCOMPARE(page.countText(), u"تعداد : 1"_s);
        page.setRowLimit(1);
        page.refill();
        QCOMPARE(page.countText(), u"تعداد : 1"_s);
        // It is not removed either, and its code stays taken.
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), u"2"_s);
        QCOMPARE(CTblAutomobilContracts::nextCode(), 3);
    }

    void openingTheListRemovesWhatADeadProgramLeft_data()
    {
        QTest::addColumn<bool>("closed");
        QTest::newRow("open database") << false;
        QTest::newRow("closed database") << true;
    }

    void openingTheListRemovesWhatADeadProgramLeft()
    {
        QFETCH(bool, closed);
        addNamed(u"a"_s);
        CDlgAddAutomobilContract::addPlaceholder();
        m_office->database().run(u"UPDATE Placeholders SET sSession='a program that died'"_s);
        GetDBSetting()->SetClosedDB(closed);
        CDlgAutomobilContracts page;
        page.open();
        GetDBSetting()->SetClosedDB(false);
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(m_office->database().value(u"SELECT COUNT(*) FROM AutomobilContracts"_s), closed ? u"2"_s : u"1"_s);
    }

    // --- On paper ---

    void printShowsTheListInItsReport()
    {
        const int person = m_office->addPerson(u"مریم"_s, u"کاظمی"_s);
        addNamed(u"پژو 206"_s, [person](Contract &c) { c.m_iPersonFirstID = person; });
        addNamed(u"سمند"_s);
        CDlgAutomobilContracts page;
        page.open();
        bool shown = false;
        TestOffice::whenModal("CDlgReportGenerator", [&](QWidget *window) {
            const auto *generator = static_cast<CDlgReportGenerator *>(window);
            const ListReport &report = generator->report();
            shown = true;
            QCOMPARE(report.report(), u"لیست قراردادها"_s);
            QCOMPARE(report.group(), u"گالری اتومبیل"_s);
            QCOMPARE(report.shownTitle(), u"لیست قراردادها"_s);
            QCOMPARE(report.text(u"LeftBottom"_s),
                     u"تاریخ چاپ : "_s + shamsiText(QDate::currentDate()));
            QCOMPARE(report.text(u"Count"_s), u"تعداد : 2"_s);
            for (const QString &corner : {u"RightTop"_s, u"RightCenter"_s, u"RightBottom"_s,
                                          u"LeftTop"_s, u"LeftCenter"_s})
                QCOMPARE(report.shownCorner(corner), QString());
            QCOMPARE(report.shownColumns().size(), 10);
            QCOMPARE(report.rows().size(), 2);
            QCOMPARE(report.rows().at(0).cells.at(2).text, u"مریم کاظمی"_s);
            QCOMPARE(generator->pages()->pageCount(), 1);
            window->close();
        });
        QVERIFY(page.runCommand(u"print"));
        QVERIFY(shown);
    }

    void printUsesTheStoredLayoutThatIsTheDefault()
    {
        addNamed(u"پژو 206"_s);
        ReportLayout layout;
        layout.title = u"قراردادهای ما"_s;
        layout.columns = {{u"شرح قرارداد"_s, 0}};
        storeLayout(u"گالری اتومبیل"_s, u"لیست قراردادها"_s, u"کوتاه"_s, layout,
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
        m_office->database().run(u"DELETE FROM ReportLayouts"_s);
        QCOMPARE(title, u"قراردادهای ما"_s);
        QCOMPARE(columns, 1);
    }

    void printingNeedsItsRight()
    {
        addNamed(u"a"_s);
        constexpr int allButPrinting = KSecurity::allRights & ~KSecurity::PrintList;
        m_office->logInAs(u"clerk"_s, rightsForm, allButPrinting);
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
        addNamed(u"a"_s);
        CDlgAutomobilContracts page;
        page.open();
        QStringList captions;
        for (const QAction *action : page.findChild<QMenu *>()->actions())
            captions << action->text();
        QCOMPARE(captions, (QStringList{u"پیش نمایش چاپ"_s, u"ذخیره PDF"_s, u"صفحه گسترده"_s, u"چیدمان گزارش"_s}));
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

    // --- Reading ---

    void listReadsInThreeStatementsAtMostWhateverItsLength()
    {
        for (int i = 0; i < 20; ++i) {
            const int person = m_office->addPerson(u"شخص"_s, QString::number(i));
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
        addNamed(u"a"_s);
        CDlgAutomobilContracts page;
        page.open();
        m_office->database().run(u"RENAME TABLE AutomobilContracts TO Elsewhere"_s);
        for (QPushButton *button : page.findChildren<QPushButton *>()) {
            if (button->text() == u"جستجو"_s)
                button->click();
        }
        m_office->database().run(u"RENAME TABLE Elsewhere TO AutomobilContracts"_s);
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
        m_office->database().run(u"DELETE FROM AutomobilContracts WHERE sExplain='c'"_s);
        page.refill();
        QCOMPARE(page.list()->currentRow(), 1);
        page.list()->selectRow(0);
        page.refill();
        QCOMPARE(page.list()->currentRow(), 0);
    }
};

static const RegisteredTest<TestCDlgAutomobilContracts, KApplication> registeredCDlgAutomobilContracts;

#include "TestCDlgAutomobilContracts.moc"
