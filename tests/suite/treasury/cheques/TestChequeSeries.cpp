// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/ChequeSeries.h"

#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestChequeSeries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numberIsOneFurther_data()
    {
        QTest::addColumn<QString>("last");
        QTest::addColumn<QString>("next");
        QTest::newRow("plain") << u"123"_s << u"124"_s;
        QTest::newRow("carries") << u"1299"_s << u"1300"_s;
        QTest::newRow("zeros stay") << u"000123"_s << u"000124"_s;
        QTest::newRow("nines grow by a digit") << u"999"_s << u"1000"_s;
        QTest::newRow("what stands before stays") << u"12/409"_s << u"12/410"_s;
        QTest::newRow("nines behind a stroke") << u"12/99"_s << u"12/100"_s;
        QTest::newRow("Persian digits") << u"۱۹"_s << u"20"_s;
        QTest::newRow("longer than a number is") << u"99999999999999999999"_s << u"100000000000000000000"_s;
        QTest::newRow("none") << QString() << QString();
        QTest::newRow("ends in no digit") << u"12الف"_s << QString();
    }

    void numberIsOneFurther()
    {
        QFETCH(QString, last);
        QTEST(ChequeSeries::nextNumber(last), "next");
    }

    void dueIsAMonthFurther_data()
    {
        QTest::addColumn<QString>("last");
        QTest::addColumn<QString>("next");
        QTest::newRow("same day") << u"1405/03/15"_s << u"1405/04/15"_s;
        QTest::newRow("shorter month") << u"1405/06/31"_s << u"1405/07/30"_s;
        QTest::newRow("next year") << u"1405/12/10"_s << u"1406/01/10"_s;
        QTest::newRow("last day of an ordinary year") << u"1405/11/30"_s << u"1405/12/29"_s;
        QTest::newRow("no day") << QString() << QString();
    }

    void dueIsAMonthFurther()
    {
        QFETCH(QString, last);
        Cheque cheque;
        if (!last.isEmpty())
            cheque.due = QDateTime(parseShamsi(last), QTime(0, 0), Qt::UTC);
        QTEST(shamsiText(ChequeSeries::next(cheque).due.date()), "next");
    }

    void bookStaysAndTheSayadNumberDoesNot()
    {
        const Cheque last{u"1234567890123456"_s, u"77"_s, u"ملت"_s, u"ونک"_s, u"6510"_s, {}, u"رضا احمدی"_s};
        const Cheque expected{{}, u"78"_s, u"ملت"_s, u"ونک"_s, u"6510"_s, {}, u"رضا احمدی"_s};
        QVERIFY(ChequeSeries::next(last) == expected);
    }
};

static const RegisteredTest<TestChequeSeries> registeredChequeSeries;
#include "TestChequeSeries.moc"
