// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/auto/cars/demands/DemandListTest.h"
#include "tests/support/RegisteredTest.h"

using namespace Qt::StringLiterals;

class TestCDlgAutomobilDemands : public DemandListTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { makeOffice(); }
    void cleanupTestCase() { dropOffice(); }
    void init() { begin(); }

    // --- Texts ---

    void everyLabelAndTitleIsToTheLetter()
    {
        Page page;
        page.open();
        QCOMPARE(page.title(), u"تقاضا"_s);
        QStringList labels;
        for (const QLabel *label : page.findChildren<QLabel *>())
            labels << label->text();
        for (const QString &text :
             {u"متقاضي :"_s, u"مبلغ از :"_s, u"سال توليد از :"_s,
              u"وضعيت بايگاني :"_s, u"توضيحات ويژه :"_s, u"نوع خودرو :"_s,
              u"تاريخ مراجعه از :"_s, u"رنگ :"_s, u"تعداد نمايش :"_s})
            QVERIFY2(labels.contains(text), qPrintable(text));
        QCOMPARE(labels.count(u"تا :"_s), 3);
        QCOMPARE(page.filters().control<QCheckBox>(u"inactive")->text(), u"نمايش غير فعال ها"_s);
        QStringList captions;
        for (const QPushButton *button : page.findChildren<QPushButton *>())
            captions << button->text();
        for (const QString &text : {u"جديد"_s, u"ويرايش"_s, u"نمايش"_s, u"حذف"_s, u"بايگاني شد"_s, u"جستجو"_s, u"پيش فرض"_s, u"چاپ ليست"_s, u"خودروهای مناسب"_s})
            QVERIFY2(captions.contains(text), qPrintable(text));
        QStringList titles;
        for (int i = 0; i < 11; ++i)
            titles << headerText(page, i);
        QCOMPARE(titles, (QStringList{u"ردیف"_s, u"کد تقاضا*"_s, u"نام متقاضی"_s, u"نوع خودرو"_s, u"از مدل"_s, u"تا مدل"_s, u"از مبلغ"_s, u"تا مبلغ"_s, u"تاریخ مراجعه"_s, u"توضیحات ویژه"_s, u"وضعیت بایگانی"_s}));
    }

    void columnsHaveTheirWidthsAlignmentsAndSortKeys()
    {
        Page page;
        const QVector<KListModel::Column> &columns = page.list()->listModel()->columns();
        QStringList lines;
        // Behind these stand columns that are off at first.
        for (const KListModel::Column &column : columns.first(11))
            lines << u"%1 %2 %3"_s.arg(column.width).arg(column.alignment == Qt::AlignRight ? u"r"_s : column.isDate ? u"date"_s
                                                                                                                     : u"c"_s)
                         .arg(column.sortKey);
        QCOMPARE(lines, (QStringList{u"40 c "_s, u"40 c ad.iCode"_s, u"80 r ad.iPersonID"_s, u"80 r ad.iAutomobilType"_s, u"50 r ad.iModelFrom"_s, u"50 r ad.iModelUpTo"_s, u"50 c ad.dAmountFrom"_s, u"50 c ad.dAmountUpTo"_s, u"80 date ad.dateReference"_s, u"150 r ad.sDescSpecial"_s, u"50 r ad.iArchiveUserID"_s}));
    }

    void noTwoControlsHaveOneName()
    {
        Page page;
        page.open();
        QSet<QString> names;
        for (const QWidget *widget : page.findChildren<QWidget *>()) {
            if (widget->accessibleName().isEmpty() || !(widget->focusPolicy() & Qt::TabFocus) || widget->focusProxy())
                continue;
            QVERIFY2(!names.contains(widget->accessibleName()), qPrintable(widget->accessibleName()));
            names.insert(widget->accessibleName());
        }
        QVERIFY(names.size() > 20);
    }

    // --- Rows ---

    void aRowShowsTheDemand()
    {
        const int key = addDemand([this](Demand &d) {
            d.m_iCode = 12;
            d.m_iAutomobilType = m_brand;
            d.m_iModelFrom = 1390;
            d.m_iModelUpTo = 1395;
            d.m_dAmountFrom = 4500000000;
            d.m_dAmountUpTo = 5000000000;
            d.m_dateReference = day(2026, 3, 21);
            d.m_sDescSpecial = u"فوری"_s;
        });
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 1);
        QCOMPARE(page.list()->currentKey(), key);
        QStringList cells;
        for (int i = 0; i < 11; ++i)
            cells << page.list()->cellText(0, i);
        QCOMPARE(cells, (QStringList{u"1"_s, u"12"_s, u"سارا کریمی"_s, u"پژو"_s, u"1390"_s, u"1395"_s, DToMoney(4500000000), DToMoney(5000000000), u"1405/01/01"_s, u"فوری"_s, u"-"_s}));
        QCOMPARE(page.countText(), u"تعداد : 1"_s);
    }

    void demandWhosePersonWasDeletedIsNotListed()
    {
        addDemand();
        addDemand([](Demand &d) { d.m_iPersonID = 999999; });
        Page page;
        page.open();
        QCOMPARE(codes(page), QStringList{u"1"_s});
    }

    void demandWhoseTypeWasDeletedShowsADashAsItsType()
    {
        addDemand([](Demand &d) { d.m_iAutomobilType = 4711; });
        addDemand();
        Page page;
        page.open();
        QCOMPARE(column(page, u"type"), (QStringList{u"-"_s, u"-"_s}));
    }

    void archivedDemandReadsYes()
    {
        addDemand([this](Demand &d) { d.m_iArchiveUserID = m_office->adminID(); });
        Page page;
        page.open();
        QCOMPARE(page.list()->count(), 0);
        page.filters().set(u"archive", 0);
        page.refill();
        QCOMPARE(page.list()->cellText(0, u"archived"), u"بلی"_s);
    }

    void namesAreLookedUpOnceForTheWholeList()
    {
        const auto statementsOf = [](Page &page) {
            const ObservedStatements statements({u"SELECT"_s});
            page.refill();
            return statements.taken().size();
        };
        addDemand([this](Demand &d) { d.m_iAutomobilType = m_brand; });
        Page page;
        page.open();
        const qsizetype few = statementsOf(page);
        for (int i = 0; i < 40; ++i) {
            const int person = m_office->addPerson(u"a"_s, QString::number(i));
            const int brand = m_office->addBrand(QString::number(i));
            addDemand([&](Demand &d) { d.m_iPersonID = person; d.m_iAutomobilType = brand; });
        }
        QCOMPARE(statementsOf(page), few);
        QCOMPARE(page.list()->count(), 41);
        QCOMPARE(page.list()->cellText(40, u"type"), u"39"_s);
    }

    // --- Filter ---

    void everyFilterControlGoesIntoTheCriteria()
    {
        const int color = CTblMultiItems::addValue(CTblItems::typeColor, u"سفید"_s);
        Page page;
        page.open();
        page.filters().set(u"inactive", true);
        page.filters().set(u"archive", 3);
        page.filters().set(u"type", m_brand);
        page.filters().set(u"color", color);
        page.filters().control<KDateEdit>(u"referenceFrom")->setText(u"1405/01/01"_s);
        page.filters().control<KDateEdit>(u"referenceTo")->setText(u"1405/01/02"_s);
        page.filters().set(u"specialDescription", u"50%"_s);
        page.filters().set(u"person", m_person);
        page.filters().control<KEdit>(u"yearFrom")->setText(u"1385"_s);
        page.filters().control<KEdit>(u"yearTo")->setText(u"۱۳۹۰"_s);
        page.filters().control<KEdit>(u"amountFrom")->setText(u"1,000"_s);
        page.filters().control<KEdit>(u"amountTo")->setText(u"2000"_s);
        const KFilterValues asked = page.filters().values();
        QVERIFY(asked[u"inactive"_s].toBool());
        QCOMPARE(asked[u"archive"_s].toInt(), 3);
        QCOMPARE(asked[u"type"_s].toInt(), m_brand);
        QCOMPARE(asked[u"color"_s].toInt(), color);
        QCOMPARE(asked[u"referenceFrom"_s].toDateTime().date(), QDate(2026, 3, 21));
        QCOMPARE(asked[u"referenceTo"_s].toDateTime().date(), QDate(2026, 3, 22));
        QCOMPARE(asked[u"specialDescription"_s].toString(), u"50%"_s);
        QCOMPARE(asked[u"person"_s].toInt(), m_person);
        QCOMPARE(asked[u"yearFrom"_s].toInt(), 1385);
        QCOMPARE(asked[u"yearTo"_s].toInt(), 1390);
        QCOMPARE(asked[u"amountFrom"_s].toDouble(), 1000.0);
        QCOMPARE(asked[u"amountTo"_s].toDouble(), 2000.0);
        const ObservedStatements statements({u"SELECT ad."_s});
        page.refill();
        QVERIFY(statements.taken().constFirst().contains(u"ad.iArchiveUserID<>%1"_s.arg(m_office->adminID())));
    }

    void filterStartsAndResetsWithDemandsNotArchivedAndAllTypes()
    {
        addDemand();
        CTblMultiItems::addValue(CTblItems::typeColor, u"سفید"_s);
        Page page;
        page.open();
        const QStringList numbers = {u"type"_s, u"color"_s, u"person"_s, u"yearFrom"_s, u"yearTo"_s, u"amountFrom"_s, u"amountTo"_s};
        const QStringList dates = {u"referenceFrom"_s, u"referenceTo"_s};
        const auto isDefault = [&] {
            const KFilterValues asked = page.filters().values();
            return !asked[u"inactive"_s].toBool() && asked[u"archive"_s].toInt() == 1 && asked[u"specialDescription"_s].toString().isEmpty()
                && std::all_of(numbers.cbegin(), numbers.cend(), [&](const QString &key) { return asked[key].toDouble() == 0; })
                && std::none_of(dates.cbegin(), dates.cend(), [&](const QString &key) { return asked[key].toDateTime().isValid(); });
        };
        QVERIFY(isDefault());
        QCOMPARE(page.filters().control<QComboBox>(u"type")->itemText(0), u"همه"_s);
        QCOMPARE(page.list()->count(), 1);
        page.filters().set(u"inactive", true);
        page.filters().set(u"archive", 2);
        page.filters().control<QComboBox>(u"type")->setCurrentIndex(1);
        page.filters().control<QComboBox>(u"color")->setCurrentIndex(1);
        page.filters().set(u"person", m_person);
        page.filters().set(u"specialDescription", u"x"_s);
        for (const QString &key : {u"referenceFrom"_s, u"referenceTo"_s})
            page.filters().control<KDateEdit>(key)->setText(u"1405/01/01"_s);
        for (const QString &key : {u"yearFrom"_s, u"yearTo"_s, u"amountFrom"_s, u"amountTo"_s})
            page.filters().control<KEdit>(key)->setText(u"1385"_s);
        const KFilterValues asked = page.filters().values();
        QVERIFY(asked[u"inactive"_s].toBool());
        QCOMPARE(asked[u"archive"_s].toInt(), 2);
        QVERIFY(!asked[u"specialDescription"_s].toString().isEmpty());
        for (const QString &key : numbers)
            QVERIFY2(asked[key].toDouble() != 0, qPrintable(key));
        for (const QString &key : dates)
            QVERIFY2(asked[key].toDateTime().isValid(), qPrintable(key));
        // A brand and a colour that were added meanwhile are offered too.
        m_office->addBrand(u"سایپا"_s);
        CTblMultiItems::addValue(CTblItems::typeColor, u"سیاه"_s);
        QVERIFY(page.runCommand(u"reset"));
        QVERIFY(isDefault());
        QCOMPARE(page.filters().control<QComboBox>(u"type")->count(), 3);
        QCOMPARE(page.filters().control<QComboBox>(u"color")->count(), 3);
        QCOMPARE(page.list()->count(), 0);
        QCOMPARE(page.countText(), u"تعداد : 0"_s);
        QVERIFY(!page.button(u"edit")->isEnabled());
    }

    void longNamesOfTypesAndColoursDoNotWidenThePage()
    {
        const int width = Page().minimumSizeHint().width();
        m_office->addBrand(QString(50, u'س'));
        CTblMultiItems::addValue(CTblItems::typeColor, QString(250, u'س'));
        const Page page;
        QCOMPARE(page.filters().control<QComboBox>(u"color")->count(), 2);
        QCOMPARE(page.minimumSizeHint().width(), width);
    }

    void yearsOfTheSearchBoundTheDemandsOwnRange()
    {
        addDemand([](Demand &d) { d.m_iModelFrom = 1386; d.m_iModelUpTo = 1389; });
        addDemand([](Demand &d) { d.m_iModelFrom = 1384; d.m_iModelUpTo = 1389; });
        Page page;
        page.open();
        page.filters().control<KEdit>(u"yearFrom")->setText(u"1385"_s);
        page.filters().control<KEdit>(u"yearTo")->setText(u"1390"_s);
        page.refill();
        QCOMPARE(codes(page), QStringList{u"1"_s});
    }

    // --- Settings ---

    void settingsAreWrittenBackAndReadAgain()
    {
        {
            Page page;
            page.open();
            QCOMPARE(page.rowLimit(), 1000);
            QCOMPARE(page.sortExpression(), u"ad.iCode"_s);
            page.setRowLimit(25);
            addDemand();
            page.refill();
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"specialDescription"));
            Q_EMIT page.list()->columnClicked(page.list()->columnOf(u"specialDescription"));
            page.OnClosing();
        }
        QCOMPARE(ReadSetting(section, u"iMaxRows"_s, 0), 25);
        QCOMPARE(ReadSetting(section, u"iLastCol"_s, 0), 9);
        QCOMPARE(ReadSetting(section, u"Sort"_s, QString()), u"ad.sDescSpecial DESC"_s);
        Page page;
        page.open();
        QCOMPARE(page.rowLimit(), 25);
        QCOMPARE(page.sortExpression(), u"ad.sDescSpecial DESC"_s);
        QCOMPARE(headerText(page, u"specialDescription"), u"توضیحات ویژه*"_s);
    }

    void emptyStoredSortIsByCode()
    {
        WriteSetting(section, u"Sort"_s, QString());
        addDemand([](Demand &d) { d.m_iCode = 9; });
        addDemand([](Demand &d) { d.m_iCode = 2; });
        Page page;
        page.open();
        QCOMPARE(codes(page), (QStringList{u"2"_s, u"9"_s}));
    }

    void rowLimit_data()
    {
        QTest::addColumn<int>("limit");
        QTest::addColumn<int>("listed");
        QTest::newRow("above 0") << 3 << 3;
        QTest::newRow("0 sets none") << 0 << 6;
        QTest::newRow("less sets none") << -5 << 6;
    }

    void rowLimit()
    {
        QFETCH(int, limit);
        for (int i = 0; i < 6; ++i)
            addDemand();
        WriteSetting(section, u"iMaxRows"_s, limit);
        const ObservedStatements statements({u"SELECT ad."_s});
        Page page;
        page.open();
        QTEST(page.list()->count(), "listed");
        QCOMPARE(statements.taken().size(), 1);
        QCOMPARE(statements.taken().first().contains(u" LIMIT "_s), limit > 0);
        QVERIFY(statements.taken().first().contains(u" ORDER BY ad.iCode,ad.iID"_s));
    }

    void everySortableColumnSorts()
    {
        addDemand();
        addDemand();
        Page page;
        page.open();
        const QVector<KListModel::Column> columns = page.list()->listModel()->columns();
        for (int i = 0; i < columns.size(); ++i) {
            const QString before = page.sortExpression();
            Q_EMIT page.list()->columnClicked(i);
            const QString key = columns.at(i).sortKey;
            QVERIFY(key.isEmpty() ? page.sortExpression() == before : page.sortExpression().startsWith(key));
            QCOMPARE(page.list()->count(), 2);
        }
        QVERIFY(g_pDlgWarning->takeShown().isEmpty());
    }
};

static const RegisteredTest<TestCDlgAutomobilDemands, KApplication> registeredCDlgAutomobilDemands;

#include "TestCDlgAutomobilDemands.moc"
