// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/VehicleIdentification.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

using VehicleIdentification::State;

Q_DECLARE_METATYPE(VehicleIdentification::State)

class TestVehicleIdentification : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numberIsChecked_data()
    {
        QTest::addColumn<QString>("number");
        QTest::addColumn<State>("state");
        QTest::newRow("empty") << QString() << State::Empty;
        QTest::newRow("blanks") << u"   "_s << State::Empty;
        QTest::newRow("check digit") << u"1HGCM82633A004352"_s << State::Good;
        QTest::newRow("check digit X") << u"1M8GDM9AXKP042788"_s << State::Good;
        QTest::newRow("ones") << u"11111111111111111"_s << State::Good;
        QTest::newRow("small letters") << u"1m8gdm9axkp042788"_s << State::Good;
        QTest::newRow("blanks around") << u" 1M8GDM9AXKP042788 "_s << State::Good;
        QTest::newRow("Persian digits") << u"۱۱۱۱۱۱۱۱۱۱۱۱۱۱۱۱۱"_s << State::Good;
        QTest::newRow("wrong check digit") << u"1HGCM82643A004352"_s << State::WrongCheckDigit;
        QTest::newRow("letter where the check digit stands") << u"1HGCM826A3A004352"_s << State::WrongCheckDigit;
        QTest::newRow("one digit exchanged") << u"1HGCM82633A004353"_s << State::WrongCheckDigit;
        QTest::newRow("two neighbours exchanged") << u"1HGCM82633A003452"_s << State::WrongCheckDigit;
        QTest::newRow("sixteen characters") << u"1HGCM82633A00435"_s << State::WrongLength;
        QTest::newRow("eighteen characters") << u"1HGCM82633A0043522"_s << State::WrongLength;
        QTest::newRow("letter I") << u"1HGCM82633A00435I"_s << State::WrongCharacter;
        QTest::newRow("letter O") << u"1HGCM82633AOO4352"_s << State::WrongCharacter;
        QTest::newRow("letter Q") << u"QHGCM82633A004352"_s << State::WrongCharacter;
        QTest::newRow("Persian letter") << u"1HGCM82633A00435ب"_s << State::WrongCharacter;
        QTest::newRow("hyphen") << u"1HGCM-82633A004352"_s << State::WrongCharacter;
        QTest::newRow("blank inside") << u"1HGCM 82633A004352"_s << State::WrongCharacter;
    }

    void numberIsChecked()
    {
        QFETCH(QString, number);
        QFETCH(State, state);
        QCOMPARE(VehicleIdentification::check(number), state);
    }

    // One of each letter's value, in the one place that counts double.
    void everyLetterHasItsValue_data()
    {
        QTest::addColumn<QChar>("letter");
        QTest::addColumn<int>("value");
        const QString letters = u"ABCDEFGHJKLMNPRSTUVWXYZ"_s;
        const QString values = u"12345678123457923456789"_s;
        QCOMPARE(letters.size(), values.size());
        for (int i = 0; i < letters.size(); ++i)
            QTest::newRow(qPrintable(QString(letters.at(i)))) << letters.at(i) << values.at(i).digitValue();
    }

    void everyLetterHasItsValue()
    {
        QFETCH(QChar, letter);
        QFETCH(int, value);
        // All zeros but the last place, whose weight is 2.
        QString number(17, u'0');
        number[16] = letter;
        const int rest = 2 * value % 11;
        number[8] = rest == 10 ? QChar(u'X') : QChar(u'0' + rest);
        QCOMPARE(VehicleIdentification::check(number), State::Good);
        number[8] = rest == 1 ? QChar(u'2') : QChar(u'1');
        QCOMPARE(VehicleIdentification::check(number), State::WrongCheckDigit);
    }
};

static const RegisteredTest<TestVehicleIdentification, QCoreApplication> registeredVehicleIdentification;

#include "TestVehicleIdentification.moc"
