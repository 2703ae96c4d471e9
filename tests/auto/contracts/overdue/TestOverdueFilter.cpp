// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/overdue/OverdueFilter.h"

#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

// The text of every clause; what they select is tested on rows in TestOverdueInstalments.
class TestOverdueFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clause_data();
    void clause();
    void todayIsAskedForEachTime();
};

void TestOverdueFilter::clause_data()
{
    QTest::addColumn<KFilterValues>("values");
    QTest::addColumn<QString>("filter");
    // Those of archived contracts are among them unless the row leaves them out.
    const auto row = [](const char *name, KFilterValues values, const char *filter) {
        values.insert(u"archived"_s, values.value(u"archived"_s, true));
        QTest::newRow(name) << values << QString::fromUtf8(filter);
    };
    row("nothing asked", {}, "");
    row("up to today", {{u"span"_s, 1}}, "ap.date<'2026-11-23'");
    row("today", {{u"span"_s, 2}}, "ap.date>='2026-11-22' AND ap.date<'2026-11-23'");
    row("this week", {{u"span"_s, 3}}, "ap.date>='2026-11-21' AND ap.date<'2026-11-28'");
    row("overdue", {{u"span"_s, 4}}, "ap.date<'2026-11-22'");
    row("one day late", {{u"days"_s, 1}}, "ap.date<'2026-11-22'");
    row("thirty days late", {{u"days"_s, 30}}, "ap.date<'2026-10-24'");
    row("promise that has come", {{u"promise"_s, 1}}, "fu.datePromised<'2026-11-23'");
    row("promise to come", {{u"promise"_s, 2}}, "fu.datePromised>='2026-11-23'");
    row("without a promise", {{u"promise"_s, 3}}, "fu.datePromised IS NULL");
    row("contract", {{u"contract"_s, 12}}, "(ac.iNum=12 OR ac.iCode=12 AND COALESCE(ac.iNum,0)=0)");
    row("without the archived ones", {{u"archived"_s, false}}, "ac.iArchiveUserID=0");
    row("person", {{u"person"_s, 7}}, "ap.iPersonID=7");
    row("words stand for themselves", {{u"words"_s, u"x%"_s}},
        "(COALESCE(p.sName2,ac.sName2) LIKE '%x\\\\%%' OR COALESCE(p.sMobile,ac.sMobile2) LIKE '%x\\\\%%' OR ac.sAutomobilName LIKE '%x\\\\%%')");
    row("together", {{u"span"_s, 4}, {u"person"_s, 7}}, "ap.date<'2026-11-22' AND ap.iPersonID=7");
}

void TestOverdueFilter::clause()
{
    QFETCH(KFilterValues, values);
    QFETCH(QString, filter);
    const QList<KListFilter> filters = overdueFilters([] { return QDate(2026, 11, 22); });
    QCOMPARE(KListFilter::condition(filters, values, 1).text(), filter);
}

void TestOverdueFilter::todayIsAskedForEachTime()
{
    QDate today(2026, 11, 22);
    const QList<KListFilter> filters = overdueFilters([&today] { return today; });
    const KFilterValues overdue{{u"span"_s, 4}, {u"archived"_s, true}};
    QCOMPARE(KListFilter::condition(filters, overdue, 1).text(), u"ap.date<'2026-11-22'"_s);
    today = today.addDays(1);
    QCOMPARE(KListFilter::condition(filters, overdue, 1).text(), u"ap.date<'2026-11-23'"_s);
}

static const RegisteredTest<TestOverdueFilter> registeredOverdueFilter;
#include "TestOverdueFilter.moc"
