// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/DocumentFilter.h"
#include "host/administration/UserFilter.h"
#include "host/books/InvoiceFilter.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;

class TestListFilters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documents_data();
    void documents();
    void users_data();
    void users();
    void invoices_data();
    void invoices();
};

namespace {

QDateTime day(int year, int month, int dayOfMonth)
{
    return QDateTime(QDate(year, month, dayOfMonth), QTime(17, 45), Qt::UTC);
}

}

void TestListFilters::documents_data()
{
    QTest::addColumn<KFilterValues>("values");
    QTest::addColumn<QString>("condition");
    QTest::newRow("nothing asked") << KFilterValues{} << "";
    QTest::newRow("year") << KFilterValues{{u"year"_s, 1405}} << "iFiscalYear=1405";
    QTest::newRow("number") << KFilterValues{{u"number"_s, 12}} << "iNum=12";
    QTest::newRow("from a day on") << KFilterValues{{u"from"_s, day(2026, 3, 21)}} << "date>='2026-03-21'";
    QTest::newRow("the whole last day") << KFilterValues{{u"to"_s, day(2026, 2, 28)}} << "date<'2026-03-01'";
    QTest::newRow("words") << KFilterValues{{u"description"_s, u"letter"_s}} << "sDesc LIKE '%letter%'";
    QTest::newRow("all together")
        << KFilterValues{{u"year"_s, 1404}, {u"number"_s, 3}, {u"from"_s, day(2025, 4, 1)}, {u"to"_s, day(2025, 4, 2)},
                         {u"description"_s, u"a"_s}}
        << "iFiscalYear=1404 AND iNum=3 AND date>='2025-04-01' AND date<'2025-04-03' AND sDesc LIKE '%a%'";
}

void TestListFilters::documents()
{
    QFETCH(KFilterValues, values);
    QTEST(KListFilter::condition(documentFilters(), values, 0).text(), "condition");
}

void TestListFilters::users_data()
{
    QTest::addColumn<KFilterValues>("values");
    QTest::addColumn<QString>("condition");
    QTest::newRow("nothing asked") << KFilterValues{{u"inactive"_s, true}} << "";
    QTest::newRow("name") << KFilterValues{{u"name"_s, u"sa"_s}, {u"inactive"_s, true}}
                          << "(sUser LIKE '%sa%' OR sName LIKE '%sa%')";
    QTest::newRow("active") << KFilterValues{{u"inactive"_s, false}} << "iStatus=0";
    QTest::newRow("both") << KFilterValues{{u"name"_s, u"sa"_s}, {u"inactive"_s, false}}
                          << "(sUser LIKE '%sa%' OR sName LIKE '%sa%') AND iStatus=0";
}

void TestListFilters::users()
{
    QFETCH(KFilterValues, values);
    QTEST(KListFilter::condition(userFilters(), values, 0).text(), "condition");
}

void TestListFilters::invoices_data()
{
    QTest::addColumn<KFilterValues>("values");
    QTest::addColumn<QString>("condition");
    // Void invoices are among them unless the row leaves them out.
    const auto row = [](const char *name, KFilterValues values, const char *condition) {
        values.insert(u"voided"_s, values.value(u"voided"_s, true));
        QTest::newRow(name) << values << QString::fromUtf8(condition);
    };
    row("nothing asked", {}, "");
    row("valid ones", {{u"voided"_s, false}}, "iStatus=0");
    row("person", {{u"person"_s, 7}}, "iPersonID=7");
    row("kind", {{u"type"_s, 8}}, "iType=8");
    row("from a day on", {{u"from"_s, day(2026, 3, 21)}}, "date>='2026-03-21'");
    row("the whole last day", {{u"to"_s, day(2026, 2, 28)}}, "date<'2026-03-01'");
    row("all",
        {{u"voided"_s, false}, {u"person"_s, 7}, {u"type"_s, 7}, {u"from"_s, day(2026, 3, 21)}, {u"to"_s, day(2026, 3, 31)}},
        "iStatus=0 AND iPersonID=7 AND iType=7 AND date>='2026-03-21' AND date<'2026-04-01'");
}

void TestListFilters::invoices()
{
    QFETCH(KFilterValues, values);
    QTEST(KListFilter::condition(invoiceFilters(), values, 0).text(), "condition");
}

static const RegisteredTest<TestListFilters, QCoreApplication> registeredListFilters;
#include "TestListFilters.moc"
