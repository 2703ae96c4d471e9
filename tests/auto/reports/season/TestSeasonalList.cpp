// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalList.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Made
{
    double amount = 0;
    QDate date = {};
    QString description = {};
    SeasonalRow::Source source = SeasonalRow::Source::Contract;
};

// Rows in batches of two, numbered as the gathering does.
SeasonalList listOf(const QVector<Made> &rows)
{
    SeasonalList list;
    QVector<SeasonalRow> batch;
    int number = 0;
    for (const Made &made : rows) {
        SeasonalRow row;
        row.number = ++number;
        row.source = made.source;
        row.amount = made.amount;
        row.date = made.date;
        row.description = made.description;
        batch.append(row);
        if (batch.size() == 2) {
            list.append(batch);
            batch.clear();
        }
    }
    list.append(batch);
    return list;
}

QList<int> numbers(const SeasonalList &list)
{
    QList<int> numbers;
    for (int row = 0; row < list.count(); ++row)
        numbers.append(list.at(row).number);
    return numbers;
}

}

class TestSeasonalList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsStandInTheOrderOfTheirArrival()
    {
        const SeasonalList list = listOf({{1}, {2}, {3}, {4}, {5}});
        QCOMPARE(numbers(list), (QList<int>{1, 2, 3, 4, 5}));
        QCOMPARE(list.row(4).key, 5);
        QCOMPARE(list.row(4).cells.size(), 30);
    }

    void order_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<QList<int>>("up");
        QTest::addColumn<QList<int>>("down");
        QTest::newRow("numbers as numbers, ties as they came") << int(SeasonalRow::Amount) << QList<int>{3, 5, 2, 4, 1} << QList<int>{1, 2, 4, 3, 5};
        QTest::newRow("dates as dates, none first") << int(SeasonalRow::Date) << QList<int>{5, 2, 4, 1, 3} << QList<int>{3, 1, 2, 4, 5};
        QTest::newRow("texts in the Persian order") << int(SeasonalRow::Description) << QList<int>{5, 4, 1, 2, 3} << QList<int>{3, 2, 1, 4, 5};
        QTest::newRow("the order of arrival itself") << int(SeasonalRow::RowNumber) << QList<int>{1, 2, 3, 4, 5} << QList<int>{5, 4, 3, 2, 1};
    }

    void order()
    {
        QFETCH(int, column);
        SeasonalList list = listOf({{1000, {2026, 5, 9}, u"ث"_s},
                                    {900, {2026, 4, 10}, u"چ"_s},
                                    {20, {2026, 10, 1}, u"گ"_s},
                                    {900, {2026, 4, 10}, u"پ"_s},
                                    {20, {}, {}, SeasonalRow::Source::SmallSum}});
        list.sort(column, false);
        QTEST(numbers(list), "up");
        list.sort(column, true);
        QTEST(numbers(list), "down");
    }

    void aKeyIsFoundWhateverTheOrder()
    {
        SeasonalList list = listOf({{3}, {1}, {2}});
        list.sort(SeasonalRow::Amount, false);
        QCOMPARE(numbers(list), (QList<int>{2, 3, 1}));
        for (const int key : {1, 2, 3}) {
            QCOMPARE(list.find(key)->number, key);
            QCOMPARE(list.at(list.rowOfKey(key)).number, key);
        }
        for (const int none : {0, 4, -1}) {
            QVERIFY(!list.find(none));
            QCOMPARE(list.rowOfKey(none), -1);
        }
    }

    void newRowsStandBehindAllOthers()
    {
        SeasonalList list = listOf({{3}, {1}, {2}});
        list.sort(SeasonalRow::Amount, false);
        SeasonalRow row;
        row.number = 4;
        list.append({row});
        QCOMPARE(numbers(list), (QList<int>{2, 3, 1, 4}));
    }

    void aMendedPartyIsThatOfAllItsRows()
    {
        const auto party = [](int personID, const QString &name) {
            TaxParty party;
            party.personID = personID;
            party.name = name;
            return std::make_shared<const TaxParty>(party);
        };
        SeasonalList list;
        QVector<SeasonalRow> rows(4);
        rows[0].party = party(7, u"old"_s);
        rows[1].party = party(8, u"other"_s);
        rows[2].party = party(7, u"old"_s);
        list.append({rows.at(0), rows.at(1)});
        list.append({rows.at(2), rows.at(3)});
        list.setParty(7, *party(7, u"new"_s));
        QStringList names;
        for (int row = 0; row < 3; ++row)
            names.append(list.at(row).party->name);
        QCOMPARE(names, (QStringList{u"new"_s, u"other"_s, u"new"_s}));
        QVERIFY(!list.at(3).party);
    }

    void anEmptyListIsSortedToo()
    {
        SeasonalList list;
        list.sort(SeasonalRow::Amount, true);
        QCOMPARE(list.count(), 0);
    }
};

static const RegisteredTest<TestSeasonalList> registeredSeasonalList;
#include "TestSeasonalList.moc"
