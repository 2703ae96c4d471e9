// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/CTblReportLayouts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "tests/suite/accounting/reports/SampleReport.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QHeaderView>
#include <QtTest>

namespace {

const QString group = QStringLiteral("گالری اتومبیل");
const QString name = QStringLiteral("لیست قراردادها");

ReportLayout narrow()
{
    ReportLayout layout;
    layout.title = QStringLiteral("[متن گزارش] - [تعداد]");
    layout.columns = {{QStringLiteral("مبلغ"), 40}, {QStringLiteral("نام"), 0}};
    layout.texts = {{QStringLiteral("RightTop"), QStringLiteral("دفتر ما")}, {QStringLiteral("LeftBottom"), QString()}};
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
    void init() { m_office.database.run(QStringLiteral("DELETE FROM ReportLayouts")); }

    void standardLayoutShowsEveryColumnWithoutTheSortMark()
    {
        const ListReport report = sampleReport(3);
        QCOMPARE(report.layout().columns.size(), 5);
        QCOMPARE(report.layout().columns.at(1).title, QStringLiteral("نام"));
        QVERIFY(!report.layout().landscape);
        QCOMPARE(report.shownTitle(), QStringLiteral("لیست قراردادها"));
        QCOMPARE(report.shownCorner(QStringLiteral("LeftBottom")), QStringLiteral("تاریخ چاپ : 1405/08/29"));
        QCOMPARE(report.shownCorner(QStringLiteral("LeftTop")), QString());
        QCOMPARE(report.shownSummary(), QStringList{QStringLiteral("تعداد : 3")});
    }

    void furtherNamedTextsStandBelowTheTableInTheirOrder()
    {
        ListReport report = sampleReport(1);
        report.setText(QStringLiteral("Amount"), QStringLiteral("جمع : 10"));
        report.setText(QStringLiteral("Empty"), QString());
        report.setText(QStringLiteral("Count"), QStringLiteral("تعداد : 7"));
        QCOMPARE(report.shownSummary(), (QStringList{QStringLiteral("تعداد : 7"), QStringLiteral("جمع : 10")}));
    }

    void wideTableLiesOnThePapersLongSide()
    {
        ListReport report(group, name);
        QVector<KListModel::Column> columns;
        for (int i = 0; i < 8; ++i)
            columns.append({QString::number(i)});
        report.setTable(QStringLiteral("List"), columns, {});
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
        report.setTable(QStringLiteral("List"), titles, {});
        report.buildStandard(name);
        QTEST(report.layout().fontSize, "size");
    }

    void listGivesItsColumnsAsTheUserLeftThem()
    {
        KExtListCtrl list;
        list.setColumns({{QStringLiteral("یک")}, {QStringLiteral("دو")}, {QStringLiteral("سه")}});
        list.setSortMark(1);
        list.setRows({{5, {{QStringLiteral("a")}, {QStringLiteral("b")}, {QStringLiteral("c")}}}});
        list.header()->moveSection(2, 0);
        list.header()->setSectionHidden(0, true);
        ListReport report(group, name);
        report.setTable(QStringLiteral("List"), &list);
        report.buildStandard(name);
        QCOMPARE(report.layout().columns, (QVector<ReportLayout::Column>{{QStringLiteral("سه"), 0}, {QStringLiteral("دو"), 0}}));
        QCOMPARE(report.rows().size(), 1);
        QCOMPARE(report.shownColumns().at(1).column, 1);
    }

    void layoutComesBackAsItWasStored()
    {
        QCOMPARE(ReportLayout::fromJson(narrow().toJson()), std::optional(narrow()));
        CTblReportLayouts::save(group, name, QStringLiteral("باریک"), narrow(), false);
        QCOMPARE(CTblReportLayouts::load(group, name, QStringLiteral("باریک")), std::optional(narrow()));
        ListReport report = sampleReport(9);
        QVERIFY(report.loadLayout(QStringLiteral("باریک")));
        QCOMPARE(report.shownTitle(), QStringLiteral("لیست قراردادها - تعداد : 9"));
        QCOMPARE(report.shownCorner(QStringLiteral("RightTop")), QStringLiteral("دفتر ما"));
        QCOMPARE(report.shownCorner(QStringLiteral("LeftBottom")), QString());
        QCOMPARE(report.shownColumns().size(), 2);
        QCOMPARE(report.shownColumns().first().column, 2);
    }

    void storedLayoutIsUsedOnlyWhenOneIsTheDefault()
    {
        ListReport report = sampleReport(1);
        QVERIFY(!report.loadLayout());
        CTblReportLayouts::save(group, name, QStringLiteral("باریک"), narrow(), false);
        QVERIFY(!report.loadLayout());
        CTblReportLayouts::save(group, name, QStringLiteral("باریک"), narrow(), true);
        QVERIFY(report.loadLayout());
        QCOMPARE(report.layout(), narrow());
    }

    void onlyOneLayoutOfAReportIsTheDefault()
    {
        CTblReportLayouts::save(group, name, QStringLiteral("یک"), narrow(), true);
        CTblReportLayouts::save(group, QStringLiteral("دیگری"), QStringLiteral("یک"), narrow(), true);
        CTblReportLayouts::save(group, name, QStringLiteral("دو"), narrow(), true);
        QCOMPARE(m_office.database.value(QStringLiteral("SELECT COUNT(*) FROM ReportLayouts WHERE bDefault=1")),
                 QStringLiteral("2"));
        const auto entries = CTblReportLayouts::entries(group, name);
        QCOMPARE(entries.size(), 2);
        for (const auto &entry : entries)
            QCOMPARE(entry.isDefault, entry.name == QStringLiteral("دو"));
    }

    void savingUnderTheSameNameReplaces()
    {
        CTblReportLayouts::save(group, name, QStringLiteral("باریک"), narrow(), true);
        ReportLayout other = narrow();
        other.fontSize = 7;
        CTblReportLayouts::save(group, name, QStringLiteral(" باريك "), other, false);
        QCOMPARE(CTblReportLayouts::entries(group, name).size(), 1);
        QCOMPARE(CTblReportLayouts::load(group, name, QStringLiteral("باریک")), std::optional(other));
        QVERIFY(!CTblReportLayouts::load(group, name));
    }

    void quoteInANameIsAText()
    {
        const QString odd = QStringLiteral("ق'الب\\");
        CTblReportLayouts::save(group, name, odd, narrow(), false);
        QVERIFY(CTblReportLayouts::load(group, name, odd));
        CTblReportLayouts::remove(group, name, odd);
        QVERIFY(CTblReportLayouts::entries(group, name).isEmpty());
    }

    void layoutWithoutANameIsRefused()
    {
        QVERIFY_THROWS_EXCEPTION(KAccountingError, CTblReportLayouts::save(group, name, QStringLiteral("  "), narrow(), true));
        QCOMPARE(m_office.database.value(QStringLiteral("SELECT COUNT(*) FROM ReportLayouts")), QStringLiteral("0"));
    }

    void layoutOfColumnsThatAreGoneIsNotTaken()
    {
        ReportLayout gone;
        gone.columns = {{QStringLiteral("ستون قدیمی"), 0}};
        CTblReportLayouts::save(group, name, QStringLiteral("قدیمی"), gone, true);
        ListReport report = sampleReport(1);
        QVERIFY(!report.loadLayout());
        QCOMPARE(report.layout().columns.size(), 5);
        gone.columns.append({QStringLiteral("نام"), 0});
        CTblReportLayouts::save(group, name, QStringLiteral("قدیمی"), gone, true);
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
        QCOMPARE(ReportLayout::filled(QStringLiteral("[متن گزارش] [تاریخ]"), QStringLiteral("[تاریخ]"), QStringLiteral("1405/08/29"),
                                      QStringLiteral("0")),
                 QStringLiteral("[تاریخ] 1405/08/29"));
    }
};

static const RegisteredTest<TestListReport, QApplication> registered;
#include "TestListReport.moc"
