// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportGeometry.h"
#include "tests/support/RegisteredTest.h"

#include <QtTest>

#include <numeric>

using namespace ReportGeometry;

class TestReportGeometry : public QObject
{
    Q_OBJECT

    static double sum(const std::vector<double> &widths) { return std::accumulate(widths.begin(), widths.end(), 0.0); }

private Q_SLOTS:
    void widthsFillThePaper_data()
    {
        QTest::addColumn<QList<double>>("wanted");
        QTest::addColumn<QList<double>>("least");
        QTest::addColumn<QList<double>>("shares");
        QTest::addColumn<QList<double>>("widths");
        using L = QList<double>;
        QTest::newRow("room left over goes by what is wanted") << L{10, 30} << L{5, 10} << L{0, 0} << L{25, 75};
        QTest::newRow("just enough") << L{40, 60} << L{5, 10} << L{0, 0} << L{40, 60};
        QTest::newRow("too little: between word and text") << L{20, 180} << L{20, 30} << L{0, 0} << L{20, 80};
        QTest::newRow("both give way by what they can spare") << L{60, 140} << L{20, 20} << L{0, 0} << L{35, 65};
        QTest::newRow("not even the words fit") << L{200, 200} << L{50, 150} << L{0, 0} << L{25, 75};
        QTest::newRow("a share is kept") << L{10, 10, 10} << L{5, 5, 5} << L{50, 0, 0} << L{50, 25, 25};
        QTest::newRow("shares alone are proportions") << L{10, 10} << L{5, 5} << L{30, 10} << L{75, 25};
        QTest::newRow("shares over the whole paper leave the others their words") << L{10, 10, 20} << L{5, 5, 20} << L{80, 80, 0}
                                                                                  << L{40, 40, 20};
        QTest::newRow("shares leave half the paper at least") << L{10, 300} << L{5, 90} << L{100, 0} << L{50, 50};
        QTest::newRow("one column") << L{10} << L{5} << L{0} << L{100};
    }

    void widthsFillThePaper()
    {
        QFETCH(QList<double>, wanted);
        QFETCH(QList<double>, least);
        QFETCH(QList<double>, shares);
        QFETCH(QList<double>, widths);
        std::vector<ColumnNeed> needs;
        for (qsizetype i = 0; i < wanted.size(); ++i)
            needs.push_back({wanted[i], least[i], shares[i]});
        const std::vector<double> fitted = fitColumns(needs, 100);
        QCOMPARE(QList<double>(fitted.begin(), fitted.end()), widths);
        QCOMPARE(sum(fitted), 100.0);
    }

    void noColumnsGiveNoWidths() { QVERIFY(fitColumns({}, 100).empty()); }

    void tableThatIsTooWideGoesOnOverSeveralSheets_data()
    {
        QTest::addColumn<QList<double>>("wanted");
        QTest::addColumn<QList<double>>("least");
        QTest::addColumn<double>("shareOfFirst");
        QTest::addColumn<QList<QList<int>>>("sheets");
        using L = QList<double>;
        using S = QList<QList<int>>;
        QTest::newRow("no columns") << L{} << L{} << 0.0 << S{{}};
        QTest::newRow("the words fit: one sheet") << L{90, 90} << L{50, 50} << 0.0 << S{{0, 1}};
        QTest::newRow("two sheets, the first column on both")
            << L{10, 40, 40, 40, 40} << L{10, 40, 40, 40, 40} << 0.0 << S{{0, 1, 2}, {0, 3, 4}};
        QTest::newRow("evenly") << L{10, 20, 20, 20, 20, 20, 20} << L{10, 20, 20, 20, 20, 20, 20} << 0.0
                                << S{{0, 1, 2, 3}, {0, 4, 5, 6}};
        QTest::newRow("a long text takes no sheet from the others")
            << L{10, 900, 40, 40, 40} << L{10, 10, 40, 40, 40} << 0.0 << S{{0, 1, 2}, {0, 3, 4}};
        QTest::newRow("a column wider than the paper has a sheet")
            << L{10, 200, 30} << L{10, 200, 30} << 0.0 << S{{0}, {0, 1}, {0, 2}};
        QTest::newRow("arranged by the user: one sheet")
            << L{10, 40, 40, 40, 40} << L{10, 40, 40, 40, 40} << 20.0 << S{{0, 1, 2, 3, 4}};
    }

    void tableThatIsTooWideGoesOnOverSeveralSheets()
    {
        QFETCH(QList<double>, wanted);
        QFETCH(QList<double>, least);
        QFETCH(double, shareOfFirst);
        QFETCH(QList<QList<int>>, sheets);
        std::vector<ColumnNeed> needs;
        for (qsizetype i = 0; i < wanted.size(); ++i)
            needs.push_back({wanted[i], least[i], i == 0 ? shareOfFirst : 0});
        QList<QList<int>> parted;
        for (const std::vector<int> &sheet : partColumns(needs, 100))
            parted.append(QList<int>(sheet.begin(), sheet.end()));
        QCOMPARE(parted, sheets);
    }

    void rowsArePartedAmongPages_data()
    {
        QTest::addColumn<QList<int>>("lines");
        QTest::addColumn<int>("tail");
        QTest::addColumn<QList<QList<QList<int>>>>("pages"); // {row, first line, lines}
        using P = QList<QList<QList<int>>>;
        QTest::newRow("no rows: one page") << QList<int>{} << 2 << P{{}};
        QTest::newRow("a page full") << QList<int>{1, 2, 2} << 0 << P{{{0, 0, 1}, {1, 0, 2}, {2, 0, 2}}};
        QTest::newRow("one more") << QList<int>{1, 2, 2, 1} << 0 << P{{{0, 0, 1}, {1, 0, 2}, {2, 0, 2}}, {{3, 0, 1}}};
        QTest::newRow("a row stays whole") << QList<int>{4, 2} << 0 << P{{{0, 0, 4}}, {{1, 0, 2}}};
        QTest::newRow("a row longer than a page goes on")
            << QList<int>{1, 12, 1} << 0 << P{{{0, 0, 1}}, {{1, 0, 5}}, {{1, 5, 5}}, {{1, 10, 2}, {2, 0, 1}}};
        QTest::newRow("a row of exactly a page") << QList<int>{5, 5} << 0 << P{{{0, 0, 5}}, {{1, 0, 5}}};
        QTest::newRow("the tail fits") << QList<int>{3} << 2 << P{{{0, 0, 3}}};
        QTest::newRow("the tail takes the last row along") << QList<int>{1, 1, 2} << 2 << P{{{0, 0, 1}, {1, 0, 1}}, {{2, 0, 2}}};
        QTest::newRow("not one that is too long beside it") << QList<int>{1, 4} << 2 << P{{{0, 0, 1}, {1, 0, 3}}, {{1, 3, 1}}};
        QTest::newRow("the last line of a row that is alone") << QList<int>{4} << 2 << P{{{0, 0, 3}}, {{0, 3, 1}}};
        QTest::newRow("of a row that goes on") << QList<int>{9} << 3 << P{{{0, 0, 5}}, {{0, 5, 3}}, {{0, 8, 1}}};
        QTest::newRow("a tail of a whole page stands alone") << QList<int>{1} << 5 << P{{{0, 0, 1}}, {}};
        QTest::newRow("a tail longer than a page") << QList<int>{1} << 9 << P{{{0, 0, 1}}, {}};
        QTest::newRow("a row without lines counts as one") << QList<int>{0} << 0 << P{{{0, 0, 1}}};
    }

    void rowsArePartedAmongPages()
    {
        QFETCH(QList<int>, lines);
        QFETCH(int, tail);
        QFETCH(QList<QList<QList<int>>>, pages);
        QList<QList<QList<int>>> parted;
        for (const Page &page : paginate(std::vector<int>(lines.begin(), lines.end()), 5, tail)) {
            parted.append(QList<QList<int>>());
            for (const Slice &slice : page)
                parted.last().append({slice.row, slice.firstLine, slice.lineCount});
        }
        QCOMPARE(parted, pages);
    }

    void everyLineOfManyRowsStandsOnce()
    {
        std::vector<int> lines;
        for (int row = 0; row < 10'000; ++row)
            lines.push_back(1 + row % 7);
        const std::vector<Page> pages = paginate(lines, 40, 3);
        std::vector<int> seen(lines.size(), 0);
        for (const Page &page : pages) {
            int used = 0;
            for (const Slice &slice : page) {
                QCOMPARE(slice.firstLine, seen[size_t(slice.row)]);
                seen[size_t(slice.row)] += slice.lineCount;
                used += slice.lineCount;
            }
            QVERIFY(used <= 40);
        }
        QCOMPARE(seen, lines);
    }
};

static const RegisteredTest<TestReportGeometry> registeredReportGeometry;
#include "TestReportGeometry.moc"
