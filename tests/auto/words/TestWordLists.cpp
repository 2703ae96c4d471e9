// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/words/WordLists.h"
#include "tests/support/RegisteredTest.h"

#include <QFile>
#include <QTest>

#include <map>

using namespace Qt::StringLiterals;

namespace {

struct NamedList
{
    const char *name;
    WordLists::List (*list)();
};

constexpr NamedList namedLists[] = {
    {"contractTypesWithAll", WordLists::contractTypesWithAll},
    {"contractTypes", WordLists::contractTypes},
    {"archiveStates", WordLists::archiveStates},
    {"returnStates", WordLists::returnStates},
    {"fuelTypes", WordLists::fuelTypes},
    {"usageTypes", WordLists::usageTypes},
    {"sendingStates", WordLists::sendingStates},
    {"paymentStates", WordLists::paymentStates},
    {"inputParameterTypes", WordLists::inputParameterTypes},
    {"companyTypes", WordLists::companyTypes},
    {"personalTitles", WordLists::personalTitles},
    {"starRatings", WordLists::starRatings},
    {"balanceSides", WordLists::balanceSides},
};

// What the lists must hold, from the table beside this file.
std::map<QString, QStringList> expectedLists()
{
    std::map<QString, QStringList> lists;
    QFile file(u"" TZ_TEST_SOURCE "/word_lists.tsv"_s);
    if (!file.open(QIODevice::ReadOnly))
        return lists;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        const QStringList parts = line.split(QLatin1Char('\t'));
        if (line.startsWith(QLatin1Char('#')) || parts.size() != 3)
            continue;
        QStringList &list = lists[parts[0]];
        if (parts[1].toInt() == list.size())
            list.append(parts[2].mid(1, parts[2].size() - 2));
    }
    return lists;
}

}

class TestWordLists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyListIsAsRequired_data();
    void everyListIsAsRequired();
    void sizes();
    void filterPositionLessOneIsTheStoredType();
    void starRatingHoldsOneStarMoreThanItsPosition();
    void positionOutsideTheListIsEmpty();
};

void TestWordLists::everyListIsAsRequired_data()
{
    QTest::addColumn<int>("number");
    for (int number = 0; number < int(std::size(namedLists)); ++number)
        QTest::newRow(namedLists[number].name) << number;
}

void TestWordLists::everyListIsAsRequired()
{
    QFETCH(int, number);
    static const auto expected = expectedLists();
    const auto found = expected.find(QLatin1String(namedLists[number].name));
    QVERIFY(found != expected.end());
    QCOMPARE(WordLists::texts(namedLists[number].list()), found->second);
}

void TestWordLists::sizes()
{
    QCOMPARE(WordLists::sendingStates().size(), size_t(13));
    QCOMPARE(WordLists::inputParameterTypes().size(), size_t(13));
    QCOMPARE(WordLists::starRatings().size(), size_t(10));
    QCOMPARE(WordLists::balanceSides().size(), size_t(3));
    QCOMPARE(expectedLists().size(), std::size(namedLists));
}

void TestWordLists::filterPositionLessOneIsTheStoredType()
{
    const WordLists::List filter = WordLists::contractTypesWithAll();
    for (size_t type = 0; type < WordLists::contractTypes().size(); ++type)
        QCOMPARE(filter[type + 1], WordLists::contractTypes()[type]);
    QCOMPARE(filter.size(), WordLists::contractTypes().size() + 1);
}

void TestWordLists::starRatingHoldsOneStarMoreThanItsPosition()
{
    for (size_t position = 0; position < WordLists::starRatings().size(); ++position)
        QCOMPARE(WordLists::starRatings()[position].toString(), QString(qsizetype(position) + 1, QLatin1Char('*')));
}

void TestWordLists::positionOutsideTheListIsEmpty()
{
    QCOMPARE(WordLists::textAt(WordLists::balanceSides(), -1), QString());
    QCOMPARE(WordLists::textAt(WordLists::balanceSides(), 3), QString());
    QCOMPARE(WordLists::textAt(WordLists::fuelTypes(), 0), u"-"_s);
}

static const RegisteredTest<TestWordLists> registeredWordLists;
#include "TestWordLists.moc"
