// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/fields/MissingItems.h"
#include "auto/cars/fields/ParameterNumber.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

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
        const QString jack = u"جک"_s;
        const QString wheel = u"زاپاس"_s;
        const QString key = u"آچار چرخ"_s;
        const QStringList all{jack, wheel, key};
        QTest::newRow("nothing chosen") << all << QString() << all;
        QTest::newRow("one chosen") << all << wheel << QStringList{jack, key};
        QTest::newRow("two chosen, in another order") << all << u"آچار چرخ، جک"_s << QStringList{wheel};
        QTest::newRow("all chosen") << all << u"جک، زاپاس، آچار چرخ"_s << QStringList{};
        QTest::newRow("no values") << QStringList{} << jack << QStringList{};
        QTest::newRow("chosen what is no value any more") << all << u"رادیو، جک"_s << QStringList{wheel, key};
        QTest::newRow("a part of a name is not the name") << all << u"آچار"_s << all;
        QTest::newRow("typed with Arabic letters") << all << u"جك"_s << QStringList{wheel, key};
        QTest::newRow("typed without the blank") << all << u"جک،زاپاس"_s << QStringList{key};
    }

    void missingIsWhatTheTextDoesNotName()
    {
        QFETCH(QStringList, all);
        QFETCH(QString, chosen);
        QFETCH(QStringList, missing);
        QCOMPARE(missingItems(all, chosen, u"، "_s), missing);
    }

    void numberIsTheFirstOfTheValue_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("number"); // -1: none
        QTest::newRow("plain") << u"4"_s << 4;
        QTest::newRow("Persian digits") << u"۱۲"_s << 12;
        QTest::newRow("before words") << u"6 چرخ"_s << 6;
        QTest::newRow("behind words") << u"سیلندر 8"_s << 8;
        QTest::newRow("the first of two") << u"2+2"_s << 2;
        QTest::newRow("none") << u"چهار"_s << -1;
        QTest::newRow("empty") << QString() << -1;
        QTest::newRow("more than a column holds") << u"99999999999"_s << -1;
    }

    void numberIsTheFirstOfTheValue()
    {
        QFETCH(QString, value);
        QFETCH(int, number);
        QCOMPARE(parameterNumber(value).value_or(-1), number);
    }
};

static const RegisteredTest<TestMissingItems, QCoreApplication> registeredMissingItems;

#include "TestMissingItems.moc"
