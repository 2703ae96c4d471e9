// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/KColumnValue.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

// How a cell of a result becomes a member.
class TestKColumnValue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wholeNumbers_data()
    {
        QTest::addColumn<QByteArray>("cell");
        QTest::addColumn<qint32>("number");
        QTest::newRow("empty") << QByteArray() << 0;
        QTest::newRow("zero") << QByteArray("0") << 0;
        QTest::newRow("leading zeros") << QByteArray("007") << 7;
        QTest::newRow("negative") << QByteArray("-31") << -31;
        QTest::newRow("nine digits") << QByteArray("999999999") << 999999999;
        QTest::newRow("ten digits") << QByteArray("1234567890") << 1234567890;
        QTest::newRow("largest") << QByteArray("2147483647") << std::numeric_limits<qint32>::max();
        QTest::newRow("smallest") << QByteArray("-2147483648") << std::numeric_limits<qint32>::min();
        QTest::newRow("too large") << QByteArray("2147483648") << 0;
        QTest::newRow("with decimals") << QByteArray("12.50") << 12;
        QTest::newRow("a text") << QByteArray("x1") << 0;
    }

    void wholeNumbers()
    {
        QFETCH(QByteArray, cell);
        qint32 member = 4711;
        KColumnValue<qint32>::read(member, cell.constData(), static_cast<unsigned long>(cell.size()));
        QTEST(member, "number");
    }

    void amounts_data()
    {
        QTest::addColumn<QByteArray>("cell");
        QTest::addColumn<double>("amount");
        QTest::newRow("empty") << QByteArray() << 0.0;
        QTest::newRow("zero") << QByteArray("0") << 0.0;
        QTest::newRow("money") << QByteArray("1250000000") << 1.25e9;
        QTest::newRow("fifteen digits") << QByteArray("999999999999999") << 999999999999999.0;
        QTest::newRow("more digits than it holds") << QByteArray("9007199254740993") << 9007199254740992.0;
        QTest::newRow("decimals") << QByteArray("0.1") << 0.1;
        QTest::newRow("negative") << QByteArray("-2.5") << -2.5;
        QTest::newRow("exponent") << QByteArray("1e15") << 1e15;
        QTest::newRow("small") << QByteArray("1.5e-7") << 1.5e-7;
    }

    void amounts()
    {
        QFETCH(QByteArray, cell);
        double member = 47.11;
        KColumnValue<double>::read(member, cell.constData(), static_cast<unsigned long>(cell.size()));
        QTEST(member, "amount");
    }

    // As the library reads UTF-8, whatever stood in the member before.
    void texts_data()
    {
        QTest::addColumn<QByteArray>("cell");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("latin") << QByteArray("Pride 131");
        QTest::newRow("persian") << "پراید ۱۳۱ – سفید"_ba;
        QTest::newRow("both, and a line end") << "پراید 131\nسفید"_ba;
        QTest::newRow("zero within") << QByteArray("a\0b", 3);
        QTest::newRow("last letter of two bytes") << QByteArray("\xdf\xbf");
        QTest::newRow("three bytes") << "€ی"_ba;
        QTest::newRow("four bytes") << "ی🚗ی"_ba;
        QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf" "a");
        QTest::newRow("no letter begins so") << QByteArray("a\xff" "b");
        QTest::newRow("continued from nowhere") << QByteArray("\x80" "a");
        QTest::newRow("longer than it needs to be") << QByteArray("\xc0\x80");
        QTest::newRow("cut off") << QByteArray("a\xd9");
        QTest::newRow("not continued") << QByteArray("\xd9" "a");
    }

    void texts()
    {
        QFETCH(QByteArray, cell);
        const auto length = static_cast<unsigned long>(cell.size());
        const QString expected = cell.isEmpty() ? QString() : QString::fromUtf8(cell);
        QCOMPARE(KColumnValue<QString>::fromCell(cell.constData(), length), expected);
        const QString long_ = QString(100, u'ط');
        for (const QString &before : {QString(), u"پیش"_s, long_, QString(long_.constData(), long_.size())}) {
            QString member = before;
            KColumnValue<QString>::read(member, cell.constData(), length);
            QCOMPARE(member, expected);
            QCOMPARE(member.isNull(), expected.isNull());
            member.detach();
            KColumnValue<QString>::read(member, cell.constData(), length);
            QCOMPARE(member, expected);
        }
    }

    // A list keeps the text of the row before.
    void textThatSomebodyHoldsStaysHis()
    {
        QString member = QString(20, u'ا');
        const QString held = member;
        KColumnValue<QString>::read(member, "abc", 3);
        QCOMPARE(member, u"abc"_s);
        QCOMPARE(held, QString(20, u'ا'));
    }

    void nextTextTakesTheSameMemory()
    {
        QString member = QString(20, u'ا');
        const QChar *const memory = member.constData();
        KColumnValue<QString>::read(member, "abc", 3);
        QCOMPARE(member, u"abc"_s);
        QCOMPARE(member.constData(), memory);
    }
};

static const RegisteredTest<TestKColumnValue> registeredKColumnValue;
#include "TestKColumnValue.moc"
