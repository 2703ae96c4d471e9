// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/cars/register/CarListTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

class TestCDlgAutomobilInformations : public CarListTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- Appearance ---

    void everyLabelAndTitleIsToTheLetter()
    {
        Page page;
        page.open();
        QCOMPARE(page.title(), u"گالري اتومبيل"_s);
        QStringList labels;
        for (const QLabel *label : page.findChildren<QLabel *>())
            labels << label->text();
        for (const QString &text :
             {u"نام مالک :"_s, u"نام خريدار :"_s, u"نوع خودرو :"_s, u"مبلغ از :"_s,
              u"وضعيت بايگاني :"_s, u"سال توليد از :"_s, u"سوخت :"_s, u"رنگ :"_s,
              u"تاريخ معرفي از :"_s, u"شماره شاسي :"_s, u"تعداد نمايش :"_s})
            QCOMPARE(labels.count(text), 1);
        QCOMPARE(labels.count(u"تا :"_s), 3);
        QStringList captions;
        for (const QPushButton *button : page.findChildren<QPushButton *>())
            captions << button->text();
        for (const QString &text :
             {u"جستجو"_s, u"پيش فرض"_s, u"جديد"_s, u"ويرايش"_s,
              u"نمايش"_s, u"بايگاني شد"_s, u"چاپ"_s, u"نام خودرو"_s, u"پارامترهاي ورودي"_s, u"متقاضیان"_s})
            QCOMPARE(captions.count(text), 1);
        QCOMPARE(captions.count(u"..."_s), 2);
        // The command, and the clear buttons of owner and buyer.
        QCOMPARE(captions.count(u"حذف"_s), 3);
        QCOMPARE(page.filters().control<QCheckBox>(u"inactive")->text(), u"نمايش غير فعال ها"_s);
        QStringList titles;
        for (int column = 0; column < columnCount; ++column)
            titles << headerText(page, column);
        QCOMPARE(titles, (QStringList{u"ردیف"_s, u"نام خریدار*"_s, u"وضعیت فروش"_s, u"نام مالک"_s, u"نوع خودرو"_s, u"مدل"_s, u"تیپ"_s, u"پلاک"_s, u"سال تولید"_s, u"تاریخ معرفی"_s, u"کاربری"_s, u"رنگ"_s, u"سوخت"_s, u"مبلغ"_s, u"کسری مدارک"_s, u"کسری لوازم"_s, u"وضعیت بایگانی"_s}));
    }

    void columnsHaveTheirWidthAlignmentAndSortKey()
    {
        Page page;
        const QVector<KListModel::Column> &columns = page.list()->listModel()->columns();
        // Behind these stand columns that are off at first.
        for (qsizetype i = columnCount; i < columns.size(); ++i)
            QVERIFY(columns[i].optional);
        const QList<int> widths{40, 120, 70, 120, 80, 50, 50, 0, 50, 80, 80, 60, 80, 80, 80, 80, 80};
        const QStringList keys{{}, u"iPersonBuyerID"_s, u"bSold"_s, u"iPersonID"_s, u"iAutomobilType"_s, u"iModel"_s, u"iBrigade"_s, u"sNumOfPlates"_s, u"iYear"_s, u"dateIntroduction"_s, u"iUsageType"_s, u"iColor"_s, u"iFuel"_s, u"dAmount"_s, u"sDocumentsDeficit"_s, u"sFractionalParts"_s, u"iArchiveUserID"_s};
        const QList<int> right{10, 11, 14, 15};
        for (int i = 0; i < columnCount; ++i) {
            QCOMPARE(columns[i].width, widths[i]);
            QCOMPARE(columns[i].sortKey, keys[i]);
            QCOMPARE(columns[i].alignment.testFlag(Qt::AlignRight), right.contains(i));
            QCOMPARE(columns[i].isDate, i == 9);
            QCOMPARE(page.list()->isColumnHidden(i), i == 7);
        }
    }

    void everyControlHasANameOfItsOwn()
    {
        Page page;
        page.open();
        QHash<QString, int> names;
        for (const QWidget *control : page.findChildren<QWidget *>()) {
            if (control->focusPolicy() != Qt::NoFocus && !control->accessibleName().isEmpty())
                ++names[control->accessibleName()];
        }
        for (auto it = names.cbegin(); it != names.cend(); ++it)
            QVERIFY2(it.value() == 1, qPrintable(it.key()));
        for (const QString &name : {u"مبلغ تا :"_s, u"سال توليد تا :"_s, u"تاريخ معرفي تا :"_s})
            QVERIFY(names.contains(name));
    }

    void searchControlsBeginAsStated()
    {
        m_office->addBrand(u"پژو"_s);
        m_office->addItem(CTblItems::typeColor, u"سفید"_s);
        m_office->addItem(CTblItems::typeSystem, u"سیستم"_s);
        Page page;
        QCOMPARE(page.countText(), u"تعداد : -"_s);
        page.open();
        QCOMPARE(comboTexts(page.filters().control<QComboBox>(u"type")), (QStringList{u"همه"_s, u"پژو"_s}));
        QCOMPARE(page.filters().control<QComboBox>(u"type")->currentIndex(), 0);
        QCOMPARE(comboTexts(page.filters().control<QComboBox>(u"color")), (QStringList{u"همه"_s, u"سفید"_s}));
        QCOMPARE(page.filters().control<QComboBox>(u"color")->currentIndex(), 0);
        QCOMPARE(page.filters().control<QComboBox>(u"color")->itemData(0).toInt(), 0);
        QCOMPARE(comboTexts(page.filters().control<QComboBox>(u"fuel")),
                 (QStringList{u"-"_s, u"بنزین"_s, u"دوگانه سوز"_s, u"گازئیل"_s,
                              u"گاز"_s, u"سایر"_s}));
        QCOMPARE(comboTexts(page.filters().control<QComboBox>(u"archive")),
                 (QStringList{u"همه"_s, u"بایگانی نشده"_s, u"بایگانی شده"_s,
                              u"بایگانی شده دیگران"_s}));
        QCOMPARE(page.filters().control<QComboBox>(u"archive")->currentIndex(), 1);
        for (const QString &key : {u"amountFrom"_s, u"amountTo"_s, u"yearFrom"_s, u"yearTo"_s, u"chassis"_s, u"documentsDeficit"_s, u"partsDeficit"_s})
            QVERIFY(page.filters().control<KEdit>(key)->text().isEmpty());
        QVERIFY(!page.filters().control<KDateEdit>(u"introductionFrom")->isChecked());
        QVERIFY(!page.filters().control<KDateEdit>(u"introductionTo")->isChecked());
        QVERIFY(!page.filters().control<QCheckBox>(u"inactive")->isChecked());
        for (const QString &key : {u"documentsDeficit"_s, u"partsDeficit"_s, u"usage"_s})
            QVERIFY(page.filters().control(key)->isHidden());
    }

    // --- What the rows read as ---

    void rowShowsTheCarByItsNames()
    {
        const int owner = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        const int buyer = m_office->addPerson(u"رضا"_s, u"احمدی"_s);
        const int brand = m_office->addBrand(u"پژو"_s);
        const int model = m_office->addModel(brand, u"206"_s);
        const int carClass = m_office->addClass(model, u"تیپ 5"_s);
        const int white = m_office->addItem(CTblItems::typeColor, u"سفید"_s);
        addNamed(u"12 ب 345 ایران 67"_s, [=](Car &c) {
            c.m_iPersonID = owner;
            c.m_iPersonBuyerID = buyer;
            c.m_bSold = 1;
            c.m_iAutomobilType = brand;
            c.m_iModel = model;
            c.m_iBrigade = carClass;
            c.m_iColor = white;
            c.m_iYear = 1400;
            c.m_dateIntroduction = day(2026, 11, 20);
            c.m_iUsageType = 1;
            c.m_iFuel = 2;
            c.m_dAmount = 1234567890;
            c.m_sDocumentsDeficit = u"برگ سبز"_s;
            c.m_sFractionalParts = u"زاپاس"_s;
            c.m_iArchiveUserID = 5;
        });
        Page page;
        page.open();
        page.filters().set(u"archive", 0);
        page.refill();
        QCOMPARE(page.list()->count(), 1);
        const QStringList wanted{u"1"_s, u"رضا احمدی"_s, u"فروخته شده"_s, u"سارا کریمی"_s, u"پژو"_s, u"206"_s, u"تیپ 5"_s, u"12 ب 345 ایران 67"_s, u"1400"_s, u"1405/08/29"_s, u"سواری"_s, u"سفید"_s, u"دوگانه سوز"_s, u"1,234,567,890"_s, u"برگ سبز"_s, u"زاپاس"_s, u"بلی"_s};
        for (int column = 0; column < columnCount; ++column)
            QCOMPARE(page.list()->cellText(0, column), wanted[column]);
        const QModelIndex amount = page.list()->listModel()->index(0, page.list()->columnOf(u"amount"));
        QCOMPARE(amount.data(KListModel::SortRole).toDouble(), 1234567890.0);
        QCOMPARE(page.list()->listModel()->index(0, page.list()->columnOf(u"introduction")).data(KListModel::SortRole).toDateTime(), day(2026, 11, 20));
    }

    void whatIsNotThereIsADash()
    {
        addNamed(u"a"_s, [](Car &c) {
            c.m_iPersonID = 99999;
            c.m_iPersonBuyerID = 99998;
            c.m_iAutomobilType = 99997;
            c.m_iColor = 99996;
            c.m_iModel = 99995;
            c.m_iBrigade = 99994;
        });
        Page page;
        page.open();
        const QString dash = u"-"_s;
        for (const QString &column : {u"buyer"_s, u"sold"_s, u"owner"_s, u"type"_s, u"usage"_s, u"color"_s, u"fuel"_s, u"archived"_s})
            QCOMPARE(page.list()->cellText(0, column), dash);
        // A deleted model or class leaves its cell empty.
        QCOMPARE(page.list()->cellText(0, u"model"), QString());
        QCOMPARE(page.list()->cellText(0, u"class"), QString());
        QCOMPARE(page.list()->cellText(0, u"year"), u"0"_s);
        QCOMPARE(page.list()->cellText(0, u"introduction"), QString());
    }

    void usageReadsAsItsWord_data()
    {
        QTest::addColumn<int>("usage");
        QTest::addColumn<QString>("word");
        QTest::newRow("0") << 0 << u"-"_s;
        QTest::newRow("1") << 1 << u"سواری"_s;
        QTest::newRow("2") << 2 << u"سنگین"_s;
        QTest::newRow("3") << 3 << u"-"_s;
        QTest::newRow("-1") << -1 << u"-"_s;
    }

    void usageReadsAsItsWord()
    {
        QFETCH(int, usage);
        QFETCH(QString, word);
        addNamed(u"a"_s, [usage](Car &c) { c.m_iUsageType = usage; });
        Page page;
        page.open();
        QCOMPARE(page.list()->cellText(0, u"usage"), word);
    }

    void fuelReadsAsItsEntry_data()
    {
        QTest::addColumn<int>("fuel");
        QTest::addColumn<QString>("word");
        QTest::newRow("0") << 0 << u"-"_s;
        QTest::newRow("1") << 1 << u"بنزین"_s;
        QTest::newRow("2") << 2 << u"دوگانه سوز"_s;
        QTest::newRow("3") << 3 << u"گازئیل"_s;
        QTest::newRow("4") << 4 << u"گاز"_s;
        QTest::newRow("5") << 5 << u"سایر"_s;
    }

    void fuelReadsAsItsEntry()
    {
        QFETCH(int, fuel);
        QFETCH(QString, word);
        addNamed(u"a"_s, [fuel](Car &c) { c.m_iFuel = fuel; });
        Page page;
        page.open();
        QCOMPARE(page.list()->cellText(0, u"fuel"), word);
        page.filters().set(u"fuel", fuel);
        page.refill();
        QCOMPARE(page.list()->count(), 1);
    }

    void fillTakesAFewStatementsHoweverManyRowsAndNoPicture()
    {
        const int owner = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        const int brand = m_office->addBrand(u"پژو"_s);
        const int white = m_office->addItem(CTblItems::typeColor, u"سفید"_s);
        Page page;
        page.open();
        for (const int rows : {1, 30}) {
            for (int i = page.list()->count(); i < rows; ++i) {
                addNamed(QString::number(i), [=](Car &c) {
                    c.m_iPersonID = owner;
                    c.m_iAutomobilType = brand;
                    c.m_iColor = white;
                    c.m_oPicture.data = QByteArray(1000, 'p');
                });
            }
            const ObservedStatements statements({u"SELECT"_s});
            page.refill();
            QCOMPARE(page.list()->count(), rows);
            QCOMPARE(statements.taken().size(), 4);
            QVERIFY(statements.taken().filter(u"oPicture"_s).isEmpty());
            // Of the car's 71 columns only those that the list shows.
            QVERIFY(!statements.taken().first().contains(u"sVIN"_s));
        }
    }

    // --- Searching ---

    void withAnEmptyResultTheRowCommandsAreDisabledAndTheCountShowsZero()
    {
        const int key = addNamed(u"a"_s);
        Page page;
        page.open();
        QCOMPARE(page.countText(), u"تعداد : 1"_s);
        for (const QString &command : rowCommands)
            QVERIFY(page.button(command)->isEnabled());
        m_office->database().run(u"DELETE FROM AutomobilInformations WHERE iID=%1"_s.arg(key));
        page.refill();
        QCOMPARE(page.countText(), u"تعداد : 0"_s);
        for (const QString &command : rowCommands)
            QVERIFY2(!page.button(command)->isEnabled(), qPrintable(command));
        QVERIFY(page.button(u"new")->isEnabled());
        QVERIFY(page.button(u"print")->isEnabled());
    }

    void inactiveAndArchivedCarsAreListedOnlyOnRequest()
    {
        addNamed(u"plain"_s);
        addNamed(u"inactive"_s, [](Car &c) { c.m_iStatus = 1; });
        addNamed(u"mine"_s, [this](Car &c) { c.m_iArchiveUserID = m_office->adminID(); });
        addNamed(u"other"_s, [this](Car &c) { c.m_iArchiveUserID = m_office->adminID() + 1; });
        Page page;
        page.open();
        QCOMPARE(plates(page), QStringList{u"plain"_s});
        page.filters().set(u"inactive", true);
        page.refill();
        QCOMPARE(plates(page), (QStringList{u"plain"_s, u"inactive"_s}));
        page.filters().set(u"archive", 2);
        page.refill();
        QCOMPARE(plates(page), QStringList{u"mine"_s});
        page.filters().set(u"archive", 3);
        page.refill();
        QCOMPARE(plates(page), QStringList{u"other"_s});
    }

    void everyControlReachesTheSearch()
    {
        const int person = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        const int brand = m_office->addBrand(u"پژو"_s);
        const int white = m_office->addItem(CTblItems::typeColor, u"سفید"_s);
        Page page;
        page.open();
        page.filters().set(u"owner", person);
        page.filters().set(u"buyer", person);
        page.filters().set(u"type", brand);
        page.filters().set(u"color", white);
        page.filters().set(u"fuel", 4);
        page.filters().set(u"archive", 3);
        page.filters().control<KEdit>(u"amountFrom")->setText(u"100"_s);
        page.filters().control<KEdit>(u"amountTo")->setText(u"۲۰۰"_s);
        page.filters().control<KEdit>(u"yearFrom")->setText(u"1400"_s);
        page.filters().control<KEdit>(u"yearTo")->setText(u"1401"_s);
        page.filters().set(u"introductionFrom", QDate(2026, 5, 1));
        page.filters().set(u"introductionTo", QDate(2026, 5, 2));
        page.filters().set(u"chassis", u"NAS"_s);
        page.filters().set(u"documentsDeficit", u"d"_s);
        page.filters().set(u"partsDeficit", u"p"_s);
        page.filters().set(u"usage", 2); // not used
        QCOMPARE(page.filters().condition(m_office->adminID()).text(),
                 u"ai.iStatus=0 AND ai.iArchiveUserID<>0 AND ai.iArchiveUserID<>%1 AND ai.iAutomobilType=%2"
                 " AND ai.iColor=%3 AND ai.iFuel=4 AND ai.dateIntroduction >= '2026-05-01'"
                 " AND ai.dateIntroduction <= '2026-05-03' AND ai.sDocumentsDeficit LIKE '%d%'"
                 " AND ai.sFractionalParts LIKE '%p%' AND ai.dAmount >= 100.000000 AND ai.dAmount <= 200.000000"
                 " AND ai.iYear=1400 AND ai.iYear<=1401 AND ai.iPersonBuyerID=%4 AND ai.iPersonID=%4"
                 " AND ai.sChassisNum LIKE '%NAS%' GROUP BY ai.iID"_s
                     .arg(QString::number(m_office->adminID()), QString::number(brand), QString::number(white),
                          QString::number(person)));
        page.refill();
        QCOMPARE(page.list()->count(), 0);
    }

    void uncheckedDateDoesNotSearch()
    {
        addNamed(u"a"_s);
        Page page;
        page.open();
        page.filters().control<KDateEdit>(u"introductionFrom")->setDate(QDate(2030, 1, 1));
        page.refill();
        QCOMPARE(page.list()->count(), 1);
    }

    void typedQuoteIsLookedFor()
    {
        addNamed(u"a"_s);
        Page page;
        page.open();
        page.filters().set(u"chassis", u"a'b"_s);
        for (QPushButton *button : page.findChildren<QPushButton *>()) {
            if (button->text() == u"جستجو"_s)
                button->click();
        }
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(page.filters().control<KEdit>(u"chassis")->text(), u"a'b"_s);
    }

    void selectionStaysAtItsPlaceAndElseAtTheLastRow()
    {
        for (const char *plate : {"a", "b", "c"})
            addNamed(QString::fromLatin1(plate));
        Page page;
        page.open();
        QCOMPARE(page.list()->currentRow(), 0);
        page.list()->selectRow(2);
        page.refill();
        QCOMPARE(page.list()->currentRow(), 2);
        m_office->database().run(u"DELETE FROM AutomobilInformations WHERE sNumOfPlates<>'a'"_s);
        page.refill();
        QCOMPARE(page.list()->currentRow(), 0);
    }

    void rowLimitCapsTheList()
    {
        for (int i = 0; i < 5; ++i)
            addNamed(QString::number(i));
        WriteSetting(section, u"iMaxRows"_s, 3);
        Page page;
        page.open();
        QCOMPARE(page.rowLimit(), 3);
        QCOMPARE(page.list()->count(), 3);
    }

    void everySortableColumnSortsTheRealList_data()
    {
        QTest::addColumn<int>("column");
        for (int column = 1; column < columnCount; ++column)
            QTest::newRow(qPrintable(QString::number(column))) << column;
    }

    void everySortableColumnSortsTheRealList()
    {
        QFETCH(int, column);
        addNamed(u"first"_s, [](Car &c) {
            c.m_iPersonBuyerID = c.m_bSold = c.m_iPersonID = c.m_iAutomobilType = c.m_iModel = c.m_iBrigade = 1;
            c.m_iYear = c.m_iUsageType = c.m_iColor = c.m_iFuel = 1;
            c.m_dAmount = 1;
            c.m_dateIntroduction = day(2026, 5, 2);
            c.m_sDocumentsDeficit = c.m_sFractionalParts = u"b"_s;
            c.m_iArchiveUserID = 1;
        });
        addNamed(u"a second"_s, [](Car &c) { c.m_dateIntroduction = day(2026, 5, 1); });
        Page page;
        page.open();
        page.filters().set(u"archive", 0);
        page.refill();
        QCOMPARE(plates(page), (QStringList{u"first"_s, u"a second"_s}));
        Q_EMIT page.list()->columnClicked(column);
        // The initial sort column counts as clicked once already.
        if (column == 1)
            Q_EMIT page.list()->columnClicked(column);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(plates(page), (QStringList{u"a second"_s, u"first"_s}));
        QVERIFY(headerText(page, column).endsWith(u'*'));
        Q_EMIT page.list()->columnClicked(column);
        QCOMPARE(page.sortExpression(), page.list()->listModel()->columns().at(column).sortKey + u" DESC"_s);
        QCOMPARE(plates(page), (QStringList{u"first"_s, u"a second"_s}));
    }

    void clickOnTheRowNumberIsIgnored()
    {
        addNamed(u"a"_s);
        Page page;
        page.open();
        Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"row"));
        QCOMPARE(page.sortExpression(), u"ai.iCode"_s);
        QCOMPARE(headerText(page, u"row"), u"ردیف"_s);
        QCOMPARE(headerText(page, u"buyer"), u"نام خریدار*"_s);
    }

    // --- Settings ---

    void storedSortedColumnOutOfRangeBecomesColumnOne_data()
    {
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("used");
        QTest::newRow("40") << 40 << 1;
        QTest::newRow("17, the column count") << 17 << 1;
        QTest::newRow("-1") << -1 << 1;
        QTest::newRow("16") << 16 << 16;
        QTest::newRow("0") << 0 << 0;
    }

    void storedSortedColumnOutOfRangeBecomesColumnOne()
    {
        QFETCH(int, stored);
        QFETCH(int, used);
        WriteSetting(section, u"iLastCol"_s, stored);
        Page page;
        page.open();
        for (int column = 0; column < columnCount; ++column)
            QCOMPARE(headerText(page, column).endsWith(u'*'), column == used);
        page.OnClosing();
        QCOMPARE(ReadSetting(section, u"iLastCol"_s, -7), used);
    }

    void settingsBeginWithTheirDefaultsAndAreWrittenBack()
    {
        {
            Page page;
            page.open();
            QCOMPARE(page.rowLimit(), 1000);
            QCOMPARE(page.sortExpression(), u"ai.iCode"_s);
            addNamed(u"a"_s);
            page.refill();
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"amount"));
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"amount"));
            page.setRowLimit(50);
            page.OnClosing();
        }
        QCOMPARE(ReadSetting(section, u"iMaxRows"_s, 0), 50);
        QCOMPARE(ReadSetting(section, u"iLastCol"_s, 0), 13);
        QCOMPARE(ReadSetting(section, u"Sort"_s, QString()), u"dAmount DESC"_s);
        Page page;
        page.open();
        QCOMPARE(page.sortExpression(), u"dAmount DESC"_s);
        QCOMPARE(headerText(page, u"amount"), u"مبلغ*"_s);
    }

    // The items that the search joins have a title, so the order is one that the database knows.
    void emptyStoredSortBecomesTheTitle()
    {
        addNamed(u"a"_s);
        WriteSetting(section, u"Sort"_s, QString());
        Page page;
        page.open();
        QCOMPARE(page.sortExpression(), u"sTitle"_s);
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
        QCOMPARE(page.list()->count(), 1);
        page.OnClosing();
        QCOMPARE(ReadSetting(section, u"Sort"_s, QString()), u"sTitle"_s);
    }

    void storedSortThatNoColumnGivesIsNotTaken()
    {
        WriteSetting(section, u"Sort"_s, u"SLEEP(9)"_s);
        Page page;
        page.open();
        QCOMPARE(page.sortExpression(), u"ai.iCode"_s);
    }

    // --- Defaults ---

    void defaultsResetEveryControlAndEmptyTheList()
    {
        addNamed(u"a"_s);
        const int person = m_office->addPerson(u"سارا"_s, u"کریمی"_s);
        const int brand = m_office->addBrand(u"پژو"_s);
        const int white = m_office->addItem(CTblItems::typeColor, u"سفید"_s);
        Page page;
        page.open();
        page.filters().set(u"owner", person);
        page.filters().set(u"buyer", person);
        page.filters().set(u"type", brand);
        page.filters().set(u"color", white);
        page.filters().set(u"fuel", 4);
        page.filters().set(u"usage", 1);
        page.filters().set(u"archive", 3);
        page.filters().set(u"inactive", true);
        for (const QString &key : {u"amountFrom"_s, u"amountTo"_s, u"yearFrom"_s, u"yearTo"_s})
            page.filters().control<KEdit>(key)->setText(u"5"_s);
        for (const QString &key : {u"chassis"_s, u"documentsDeficit"_s, u"partsDeficit"_s})
            page.filters().control<KEdit>(key)->setText(u"x"_s);
        for (const QString &key : {u"introductionFrom"_s, u"introductionTo"_s})
            page.filters().control<KDateEdit>(key)->setChecked(true);
        m_office->addBrand(u"سمند"_s);

        QVERIFY(page.runCommand(u"reset"));
        QCOMPARE(page.list()->count(), 0);
        QVERIFY(!page.button(u"edit")->isEnabled());
        for (const QString &key : {u"amountFrom"_s, u"amountTo"_s, u"yearFrom"_s, u"yearTo"_s})
            QCOMPARE(page.filters().control<KEdit>(key)->text(), u"0"_s);
        for (const QString &key : {u"chassis"_s, u"documentsDeficit"_s, u"partsDeficit"_s})
            QVERIFY(page.filters().control<KEdit>(key)->text().isEmpty());
        for (const QString &key : {u"usage"_s, u"fuel"_s, u"color"_s, u"type"_s})
            QCOMPARE(page.filters().control<QComboBox>(key)->currentIndex(), 0);
        for (const QString &key : {u"introductionFrom"_s, u"introductionTo"_s})
            QVERIFY(!page.filters().control<KDateEdit>(key)->isChecked());
        QVERIFY(!page.filters().control<QCheckBox>(u"inactive")->isChecked());
        QCOMPARE(page.filters().control<QComboBox>(u"archive")->currentIndex(), 1);
        QCOMPARE(page.filters().control<KPersonField>(u"owner")->personID(), 0);
        QCOMPARE(page.filters().control<KPersonField>(u"buyer")->personID(), 0);
        for (const QString &key : {u"owner"_s, u"buyer"_s})
            QVERIFY(!page.filters().control<KPersonField>(key)->findChildren<QPushButton *>().last()->isEnabled());
        // The types are read anew.
        QCOMPARE(comboTexts(page.filters().control<QComboBox>(u"type")),
                 (QStringList{u"همه"_s, u"پژو"_s, u"سمند"_s}));
        QCOMPARE(page.filters().condition(m_office->adminID()).text(), u"ai.iStatus=0 AND iArchiveUserID=0 GROUP BY ai.iID"_s);
    }

    // --- From a demand ---

    void searchBeginsWithTheWishesOfTheDemand()
    {
        const int brand = m_office->addBrand(u"پژو"_s);
        const int white = m_office->addItem(CTblItems::typeColor, u"سفید"_s);
        auto fits = [=](Car &c) {
            c.m_iAutomobilType = brand;
            c.m_iColor = white;
            c.m_iYear = 1398;
            c.m_dAmount = 150;
        };
        addNamed(u"fits"_s, fits);
        addNamed(u"newer"_s, [&](Car &c) {
            fits(c);
            c.m_iYear = 1399;
        });
        addNamed(u"dear"_s, [&](Car &c) {
            fits(c);
            c.m_dAmount = 250;
        });
        const int demand = m_office->addDemand([=](CTblAutomobilDemands &d) {
            d.m_iAutomobilType = brand;
            d.m_iColor = white;
            d.m_iModelFrom = 1398;
            d.m_iModelUpTo = 1400;
            d.m_dAmountFrom = 100;
            d.m_dAmountUpTo = 200;
        });
        Page page;
        page.setDemand(demand);
        page.open();
        QCOMPARE(page.filters().control<KEdit>(u"amountFrom")->number(), 100.0);
        QCOMPARE(page.filters().control<KEdit>(u"amountTo")->number(), 200.0);
        QCOMPARE(page.filters().control<KEdit>(u"yearFrom")->integer(), 1398);
        QCOMPARE(page.filters().control<KEdit>(u"yearTo")->integer(), 1400);
        QCOMPARE(page.filters().value(u"color").toInt(), white);
        QCOMPARE(page.filters().value(u"type").toInt(), brand);
        // The "from" year selects one year.
        QCOMPARE(plates(page), QStringList{u"fits"_s});
    }

    void demandThatIsGonePresetsNothing()
    {
        addNamed(u"a"_s);
        Page page;
        page.setDemand(12345);
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QVERIFY(page.filters().control<KEdit>(u"yearFrom")->text().isEmpty());
    }

    void demandOpensTheListAsAPageOfTheHost()
    {
        const int demand = m_office->addDemand([](CTblAutomobilDemands &d) { d.m_iModelFrom = 1390; });
        KeptPages host;
        GetDBSetting()->SetTabHost(&host);
        Page::ShowForDemand(demand);
        GetDBSetting()->SetTabHost(nullptr);
        QCOMPARE(host.pages.size(), size_t(1));
        auto *page = qobject_cast<Page *>(host.pages.front().get());
        QVERIFY(page);
        page->open();
        QCOMPARE(page->filters().control<KEdit>(u"yearFrom")->integer(), 1390);
    }
};

static const RegisteredTest<TestCDlgAutomobilInformations, KApplication> registeredCDlgAutomobilInformations;

#include "TestCDlgAutomobilInformations.moc"
