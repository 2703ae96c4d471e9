// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/KChangedValues.h"

#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;

class TestKChangedValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void comesBackAsNoted_data();
    void comesBackAsNoted();
    void nothingIsEmpty();
    void ofASecretOnlyTheColumnIsNoted();
    void ofBinaryDataOnlyTheSizeIsNoted();
    void damageCostsOnlyWhatItTouches_data();
    void damageCostsOnlyWhatItTouches();
};

void TestKChangedValues::comesBackAsNoted_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("read");
    QTest::newRow("nothing") << QVariant() << QVariant();
    QTest::newRow("a number") << QVariant(7) << QVariant(7.0);
    QTest::newRow("an amount to its last digit") << QVariant(1234567890123.25) << QVariant(1234567890123.25);
    QTest::newRow("a part") << QVariant(0.1) << QVariant(0.1);
    QTest::newRow("a text") << QVariant(u"پراید «131»"_s) << QVariant(u"پراید «131»"_s);
    QTest::newRow("quotes and a new line") << QVariant(u"a'b\"c\\d\ne"_s) << QVariant(u"a'b\"c\\d\ne"_s);
    QTest::newRow("beyond the basic plane") << QVariant(u"\U0001F697"_s) << QVariant(u"\U0001F697"_s);
    QTest::newRow("a date") << QVariant(QDateTime(QDate(2026, 11, 22), QTime(14, 20, 5), Qt::UTC)) << QVariant(u"2026-11-22T14:20:05"_s);
    QTest::newRow("no date") << QVariant(QDateTime()) << QVariant();
    QTest::newRow("no number at all") << QVariant(qQNaN()) << QVariant();
}

void TestKChangedValues::comesBackAsNoted()
{
    QFETCH(QVariant, value);
    QFETCH(QVariant, read);
    const QList<KChangedValue> back = KChangedValues::fromJson(KChangedValues::toJson({{u"dPrice"_s, value, QVariant()}, {u"sNote"_s, QVariant(), value}}));
    QCOMPARE(back.size(), 2);
    QCOMPARE(back[0].column, u"dPrice"_s);
    QCOMPARE(back[1].column, u"sNote"_s);
    for (const QVariant &found : {back[0].before, back[1].after}) {
        QCOMPARE(found.isValid(), read.isValid());
        QCOMPARE(found.toString(), read.toString());
    }
    QVERIFY(!back[0].after.isValid() && !back[1].before.isValid());
    QVERIFY(!back[0].isSecret && !back[1].isSecret);
}

void TestKChangedValues::nothingIsEmpty()
{
    QCOMPARE(KChangedValues::toJson({}), QByteArray("[]"));
    QVERIFY(KChangedValues::fromJson("[]").isEmpty());
    QVERIFY(KChangedValues::fromJson({}).isEmpty());
}

void TestKChangedValues::ofASecretOnlyTheColumnIsNoted()
{
    const QByteArray json = KChangedValues::toJson({{u"sPasswordHash"_s, u"$argon2id$before"_s, u"$argon2id$after"_s, true}});
    QCOMPARE(json, QByteArray("[[\"sPasswordHash\"]]"));
    const QList<KChangedValue> back = KChangedValues::fromJson(json);
    QCOMPARE(back.size(), 1);
    QVERIFY(back[0].isSecret);
    QVERIFY(!back[0].before.isValid() && !back[0].after.isValid());
}

void TestKChangedValues::ofBinaryDataOnlyTheSizeIsNoted()
{
    const QByteArray json = KChangedValues::toJson({{u"oPicture"_s, QVariant(), QByteArray(300, 'x')}});
    QCOMPARE(json, QByteArray("[[\"oPicture\",null,\"300 B\"]]"));
}

void TestKChangedValues::damageCostsOnlyWhatItTouches_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<int>("left");
    QTest::newRow("cut off") << QByteArray("[[\"iCode\",1,2],[\"sNa") << 0;
    QTest::newRow("no array") << QByteArray("{\"iCode\":1}") << 0;
    QTest::newRow("a column without a name") << QByteArray("[[1,2,3],[\"iCode\",1,2]]") << 1;
    QTest::newRow("something else among them") << QByteArray("[7,null,[\"iCode\",1,2],{}]") << 1;
}

void TestKChangedValues::damageCostsOnlyWhatItTouches()
{
    QFETCH(QByteArray, json);
    QFETCH(int, left);
    QCOMPARE(KChangedValues::fromJson(json).size(), left);
}

static const RegisteredTest<TestKChangedValues, QCoreApplication> registeredKChangedValues;

#include "TestKChangedValues.moc"
