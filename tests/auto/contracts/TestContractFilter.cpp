// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/ContractFilter.h"
#include "tests/support/Day.h"
#include "tests/support/RegisteredTest.h"

#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;

// The text of every clause; what the clauses select is tested on rows in TestContractFilterRows.
class TestContractFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clause_data();
    void clause();
    void clausesStandInTheirOrder();
};

void TestContractFilter::clause_data()
{
    QTest::addColumn<KFilterValues>("values");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<int>("user");
    // Void contracts are among them unless the row leaves them out.
    const auto row = [](const char *name, KFilterValues values, const char *filter, int user = 0) {
        values.insert(u"inactive"_s, values.value(u"inactive"_s, true));
        QTest::newRow(name) << values << QString::fromUtf8(filter) << user;
    };
    row("nothing asked", {}, "");
    row("no criterion but the status clause is that clause alone", {{u"inactive"_s, false}}, "iStatus = 0");
    row("first party", {{u"seller"_s, 12}}, "iPersonFirstID=12");
    row("second party", {{u"buyer"_s, 7}}, "iPersonSecondID=7");
    row("return filter: all", {{u"returned"_s, 0}}, "");
    row("return filter: not returned", {{u"returned"_s, 1}}, "bReturn=0");
    row("return filter: returned", {{u"returned"_s, 2}}, "bReturn=1");
    row("archive filter: all", {{u"archive"_s, 0}}, "", 5);
    row("archive filter: not archived", {{u"archive"_s, 1}}, "iArchiveUserID=0", 5);
    row("archive filter: archived by oneself", {{u"archive"_s, 2}}, "iArchiveUserID=5", 5);
    row("archive filter: archived by others", {{u"archive"_s, 3}},
        "iArchiveUserID<>0 AND iArchiveUserID<>5", 5);
    row("type filter: all", {{u"type"_s, 0}}, "");
    row("type filter: sale", {{u"type"_s, 1}}, "iContractType = 0");
    row("type filter: letter", {{u"type"_s, 4}}, "iContractType = 3");
    row("contract date from", {{u"contractFrom"_s, day(2026, 11, 20, 13)}}, "dateContract>='2026-11-20'");
    row("contract date to, widened by one day", {{u"contractTo"_s, day(2026, 11, 20)}}, "dateContract<='2026-11-21'");
    row("contract date to, over the end of the year", {{u"contractTo"_s, day(2026, 12, 31)}}, "dateContract<='2027-01-01'");
    row("contract date to, on a leap day", {{u"contractTo"_s, day(2028, 2, 28)}}, "dateContract<='2028-02-29'");
    row("description", {{u"description"_s, u"deed"_s}}, "sDesc LIKE '%deed%'");
    row("explanation", {{u"explanation"_s, u"deed"_s}}, "sExplain LIKE '%deed%'");
    row("every character stands for itself", {{u"description"_s, u"x%_'\\d%s"_s}},
        R"(sDesc LIKE '%x\\%\\_\'\\\\d\\%s%')");
    row("expiry date from", {{u"expirationFrom"_s, day(2026, 3, 21)}}, "dateExpiration>='2026-03-21'");
    row("expiry date to has blanks around its operator", {{u"expirationTo"_s, day(2026, 3, 20)}},
        "dateExpiration <= '2026-03-21'");
}

void TestContractFilter::clause()
{
    QFETCH(KFilterValues, values);
    QFETCH(QString, filter);
    QFETCH(int, user);
    QCOMPARE(KListFilter::condition(contractFilters(), values, user).text(), filter);
}

void TestContractFilter::clausesStandInTheirOrder()
{
    const KFilterValues everything{
        {u"inactive"_s, false},
        {u"seller"_s, 1},
        {u"buyer"_s, 2},
        {u"returned"_s, 1},
        {u"archive"_s, 3},
        {u"type"_s, 2},
        {u"contractFrom"_s, day(2026, 1, 1)},
        {u"contractTo"_s, day(2026, 1, 2)},
        {u"expirationFrom"_s, day(2026, 1, 3)},
        {u"expirationTo"_s, day(2026, 1, 4)},
        {u"description"_s, u"d"_s},
        {u"explanation"_s, u"e"_s},
    };
    QCOMPARE(KListFilter::condition(contractFilters(), everything, 9).text(),
             u"iStatus = 0 AND iPersonFirstID=1 AND bReturn=0 AND iArchiveUserID<>0 AND iArchiveUserID<>9"
             " AND iPersonSecondID=2 AND iContractType = 1 AND dateContract>='2026-01-01'"
             " AND dateContract<='2026-01-03' AND sDesc LIKE '%d%' AND sExplain LIKE '%e%'"
             " AND dateExpiration>='2026-01-03' AND dateExpiration <= '2026-01-05'"_s);
}

static const RegisteredTest<TestContractFilter> registeredContractFilter;
#include "TestContractFilter.moc"
