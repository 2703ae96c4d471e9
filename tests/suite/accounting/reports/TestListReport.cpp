// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/CTblReportLayouts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/accounting/reports/SampleReport.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/StoredLayout.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QHeaderView>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString group = u"گالری اتومبیل"_s;
const QString name = u"لیست قراردادها"_s;

ReportLayout narrow()
{
    ReportLayout layout;
    layout.title = u"[متن گزارش] - [تعداد]"_s;
    layout.columns = {{u"مبلغ"_s, 40}, {u"نام"_s, 0}};
    layout.texts = {{u"RightTop"_s, u"دفتر ما"_s}, {u"LeftBottom"_s, QString()}};
    layout.landscape = true;
    layout.fontSize = 12;
    return layout;
}

}

class TestListReport : public QObject
{
    Q_OBJECT

    TestOffice m_office;

private Q_SLOTS:
    void init() { m_office.database.run(u"DELETE FROM ReportLayouts"_s); }

    void standardLayoutShowsEveryColumnWithoutTheSortMark()
    {
        const ListReport report = sampleReport(3);
        QCOMPARE(report.layout().columns.size(), 5);
        QCOMPARE(report.layout().columns.at(1).title, u"نام"_s);
        QVERIFY(!report.layout().landscape);
        QCOMPARE(report.shownTitle(), u"لیست قراردادها"_s);
        QCOMPARE(report.shownCorner(u"LeftBottom"_s), u"تاریخ چاپ : 1405/08/29"_s);
        QCOMPARE(report.shownCorner(u"LeftTop"_s), QString());
        QCOMPARE(report.shownSummary(), QStringList{u"تعداد : 3"_s});
    }

    void furtherNamedTextsStandBelowTheTableInTheirOrder()
    {
        ListReport report = sampleReport(1);
        report.setText(u"Amount"_s, u"جمع : 10"_s);
        report.setText(u"Empty"_s, QString());
        report.setText(u"Count"_s, u"تعداد : 7"_s);
        QCOMPARE(report.shownSummary(), (QStringList{u"تعداد : 7"_s, u"جمع : 10"_s}));
    }

    void wideTableLiesOnThePapersLongSide()
    {
        ListReport report(group, name);
        QVector<KListModel::Column> columns;
        for (int i = 0; i < 8; ++i)
            columns.append({QString::number(i)});
        report.setTable(u"List"_s, columns, {});
        report.buildStandard(name);
        QVERIFY(report.layout().landscape);
    }

    void letters_data()
    {
        QTest::addColumn<int>("columns");
        QTest::addColumn<double>("size");
        QTest::newRow("in their plain size") << 20 << 9.0;
        QTest::newRow("the smallest of a very wide table") << 21 << ReportLayout::lowestFontSize;
    }

    void letters()
    {
        QFETCH(int, columns);
        ListReport report(group, name);
        QVector<KListModel::Column> titles;
        for (int i = 0; i < columns; ++i)
            titles.append({QString::number(i)});
        report.setTable(u"List"_s, titles, {});
        report.buildStandard(name);
        QTEST(report.layout().fontSize, "size");
    }

    void listGivesItsColumnsAsTheUserLeftThem()
    {
        KExtListCtrl list;
        list.setColumns({{u"یک"_s}, {u"دو"_s}, {u"سه"_s}});
        list.setSortMark(1);
        list.setRows({{5, {{u"a"_s}, {u"b"_s}, {u"c"_s}}}});
        list.header()->moveSection(2, 0);
        list.header()->setSectionHidden(0, true);
        ListReport report(group, name);
        report.setTable(u"List"_s, &list);
        report.buildStandard(name);
        QCOMPARE(report.layout().columns, (QVector<ReportLayout::Column>{{u"سه"_s, 0}, {u"دو"_s, 0}}));
        QCOMPARE(report.rows().size(), 1);
        QCOMPARE(report.shownColumns().at(1).column, 1);
    }

    void layoutComesBackAsItWasStored()
    {
        QCOMPARE(ReportLayout::fromJson(narrow().toJson()), std::optional(narrow()));
        storeLayout(group, name, u"باریک"_s, narrow(), false);
        QCOMPARE(CTblReportLayouts::load(group, name, u"باریک"_s), std::optional(narrow()));
        ListReport report = sampleReport(9);
        QVERIFY(report.loadLayout(u"باریک"_s));
        QCOMPARE(report.shownTitle(), u"لیست قراردادها - تعداد : 9"_s);
        QCOMPARE(report.shownCorner(u"RightTop"_s), u"دفتر ما"_s);
        QCOMPARE(report.shownCorner(u"LeftBottom"_s), QString());
        QCOMPARE(report.shownColumns().size(), 2);
        QCOMPARE(report.shownColumns().first().column, 2);
    }

    void storedLayoutIsUsedOnlyWhenOneIsTheDefault()
    {
        ListReport report = sampleReport(1);
        QVERIFY(!report.loadLayout());
        storeLayout(group, name, u"باریک"_s, narrow(), false);
        QVERIFY(!report.loadLayout());
        storeLayout(group, name, u"باریک"_s, narrow(), true);
        QVERIFY(report.loadLayout());
        QCOMPARE(report.layout(), narrow());
    }

    void onlyOneLayoutOfAReportIsTheDefault()
    {
        storeLayout(group, name, u"یک"_s, narrow(), true);
        storeLayout(group, u"دیگری"_s, u"یک"_s, narrow(), true);
        storeLayout(group, name, u"دو"_s, narrow(), true);
        QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM ReportLayouts WHERE bDefault=1"_s),
                 u"2"_s);
        const auto entries = CTblReportLayouts::entries(group, name);
        QCOMPARE(entries.size(), 2);
        for (const auto &entry : entries)
            QCOMPARE(entry.isDefault, entry.name == u"دو"_s);
    }

    void savingUnderTheSameNameReplaces()
    {
        storeLayout(group, name, u"باریک"_s, narrow(), true);
        ReportLayout other = narrow();
        other.fontSize = 7;
        storeLayout(group, name, u" باريك "_s, other, false);
        QCOMPARE(CTblReportLayouts::entries(group, name).size(), 1);
        QCOMPARE(CTblReportLayouts::load(group, name, u"باریک"_s), std::optional(other));
        QVERIFY(!CTblReportLayouts::load(group, name));
    }

    void quoteInANameIsAText()
    {
        const QString odd = u"ق'الب\\"_s;
        storeLayout(group, name, odd, narrow(), false);
        QVERIFY(CTblReportLayouts::load(group, name, odd));
        CTblReportLayouts::remove(group, name, odd);
        QVERIFY(CTblReportLayouts::entries(group, name).isEmpty());
    }

    void layoutWithoutANameIsRefused()
    {
        QVERIFY_THROWS_EXCEPTION(KAccountingError, storeLayout(group, name, u"  "_s, narrow(), true));
        QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM ReportLayouts"_s), u"0"_s);
    }

    void layoutOfColumnsThatAreGoneIsNotTaken()
    {
        ReportLayout gone;
        gone.columns = {{u"ستون قدیمی"_s, 0}};
        storeLayout(group, name, u"قدیمی"_s, gone, true);
        ListReport report = sampleReport(1);
        QVERIFY(!report.loadLayout());
        QCOMPARE(report.layout().columns.size(), 5);
        gone.columns.append({u"نام"_s, 0});
        storeLayout(group, name, u"قدیمی"_s, gone, true);
        QVERIFY(report.loadLayout());
        QCOMPARE(report.shownColumns().size(), 1);
    }

    void damagedLayoutIsNotTaken_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no JSON") << QByteArray("{columns");
        QTest::newRow("a list") << QByteArray("[1]");
        QTest::newRow("no columns") << QByteArray("{\"title\":\"x\"}");
    }

    void damagedLayoutIsNotTaken()
    {
        QFETCH(QByteArray, json);
        QVERIFY(!ReportLayout::fromJson(json));
    }

    void sizesOutsideTheirBoundsAreBroughtToTheNearest()
    {
        const auto layout = ReportLayout::fromJson("{\"columns\":[{\"title\":\"a\",\"share\":900}],\"fontSize\":900}");
        QVERIFY(layout);
        QCOMPARE(layout->fontSize, ReportLayout::highestFontSize);
        QCOMPARE(layout->columns.first().share, 100.0);
    }

    void markInAFilledValueIsAText()
    {
        QCOMPARE(ReportLayout::filled(u"[متن گزارش] [تاریخ]"_s, u"[تاریخ]"_s, u"1405/08/29"_s,
                                      u"0"_s),
                 u"[تاریخ] 1405/08/29"_s);
    }
};

static const RegisteredTest<TestListReport, QApplication> registeredListReport;
#include "TestListReport.moc"
