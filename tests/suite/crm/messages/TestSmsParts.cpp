// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/SmsParts.h"

#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

// How much room a text takes on its way through the telephone network.
class TestSmsParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void counted_data();
    void counted();
};

void TestSmsParts::counted_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("letters");
    QTest::addColumn<int>("parts");
    QTest::addColumn<int>("room");
    const QString emoji = u"\U0001F697"_s;
    const QString wide = u"آ"_s;
    const QString latin = u"a"_s;
    QTest::newRow("nothing") << QString() << 0 << 0 << 160;
    QTest::newRow("one Persian part") << wide.repeated(70) << 70 << 1 << 0;
    QTest::newRow("two Persian parts") << wide.repeated(71) << 71 << 2 << 63;
    QTest::newRow("two Persian parts, full") << wide.repeated(134) << 134 << 2 << 0;
    QTest::newRow("three Persian parts") << wide.repeated(135) << 135 << 3 << 66;
    QTest::newRow("one Latin part") << latin.repeated(160) << 160 << 1 << 0;
    QTest::newRow("two Latin parts") << latin.repeated(161) << 161 << 2 << 145;
    QTest::newRow("three Latin parts") << latin.repeated(307) << 307 << 3 << 152;
    QTest::newRow("an escaped sign is two") << u"a[b]"_s << 6 << 1 << 154;
    QTest::newRow("an escaped sign is not torn") << QString(latin.repeated(152) + u"€"_s + latin.repeated(10)) << 164 << 2 << 141;
    QTest::newRow("one Persian letter makes all of it wide") << QString(latin.repeated(70) + wide) << 71 << 2 << 63;
    QTest::newRow("Persian digits are wide") << u"۱۲"_s << 2 << 1 << 68;
    QTest::newRow("an emoji is two") << emoji << 2 << 1 << 68;
    QTest::newRow("an emoji is not torn") << QString(wide.repeated(66) + emoji + wide.repeated(10)) << 78 << 2 << 55;
    QTest::newRow("exactly one part with an emoji") << QString(wide.repeated(68) + emoji) << 70 << 1 << 0;
    QTest::newRow("a lone half of a pair") << QString(QChar(0xd83d)) << 1 << 1 << 69;
    QTest::newRow("a non-joiner is a letter") << u"می‌شود"_s << 6 << 1 << 64;
    QTest::newRow("a new line is a letter") << u"a\nb"_s << 3 << 1 << 157;
    QTest::newRow("and so is one of two signs") << u"a\r\nb"_s << 3 << 1 << 157;
}

void TestSmsParts::counted()
{
    QFETCH(QString, text);
    const SmsParts parts = SmsParts::of(text);
    QTEST(parts.letters, "letters");
    QTEST(parts.parts, "parts");
    QTEST(parts.room, "room");
}

static const RegisteredTest<TestSmsParts> registeredSmsParts;

#include "TestSmsParts.moc"
