// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/MissingItems.h"
#include "auto/cars/fields/ParameterNumber.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <optional>

// What the editor of a car makes of the values of the input parameters.
class TestMissingItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void missingIsWhatTheTextDoesNotName_data()
    {
        QTest::addColumn<QStringList>("all");
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QStringList>("missing");
        const QString jack = QStringLiteral("جک");
        const QString wheel = QStringLiteral("زاپاس");
        const QString key = QStringLiteral("آچار چرخ");
        const QStringList all{jack, wheel, key};
        QTest::newRow("nothing chosen") << all << QString() << all;
        QTest::newRow("one chosen") << all << wheel << QStringList{jack, key};
        QTest::newRow("two chosen, in another order") << all << QStringLiteral("آچار چرخ، جک") << QStringList{wheel};
        QTest::newRow("all chosen") << all << QStringLiteral("جک، زاپاس، آچار چرخ") << QStringList{};
        QTest::newRow("no values") << QStringList{} << jack << QStringList{};
        QTest::newRow("chosen what is no value any more") << all << QStringLiteral("رادیو، جک") << QStringList{wheel, key};
        QTest::newRow("a part of a name is not the name") << all << QStringLiteral("آچار") << all;
        QTest::newRow("typed with Arabic letters") << all << QStringLiteral("جك") << QStringList{wheel, key};
        QTest::newRow("typed without the blank") << all << QStringLiteral("جک،زاپاس") << QStringList{key};
    }

    void missingIsWhatTheTextDoesNotName()
    {
        QFETCH(QStringList, all);
        QFETCH(QString, chosen);
        QFETCH(QStringList, missing);
        QCOMPARE(missingItems(all, chosen, QStringLiteral("، ")), missing);
    }

    void numberIsTheFirstOfTheValue_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("number"); // -1: none
        QTest::newRow("plain") << QStringLiteral("4") << 4;
        QTest::newRow("Persian digits") << QStringLiteral("۱۲") << 12;
        QTest::newRow("before words") << QStringLiteral("6 چرخ") << 6;
        QTest::newRow("behind words") << QStringLiteral("سیلندر 8") << 8;
        QTest::newRow("the first of two") << QStringLiteral("2+2") << 2;
        QTest::newRow("none") << QStringLiteral("چهار") << -1;
        QTest::newRow("empty") << QString() << -1;
        QTest::newRow("more than a column holds") << QStringLiteral("99999999999") << -1;
    }

    void numberIsTheFirstOfTheValue()
    {
        QFETCH(QString, value);
        QFETCH(int, number);
        QCOMPARE(parameterNumber(value).value_or(-1), number);
    }
};

static const RegisteredTest<TestMissingItems, QCoreApplication> registered;

#include "TestMissingItems.moc"
