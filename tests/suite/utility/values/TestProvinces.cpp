// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/Provinces.h"

#include "suite/utility/values/TextStandard.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QSet>
#include <QTest>

class TestProvinces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereAreThirtyOneProvincesEachWithCities()
    {
        const QStringList names = Provinces::names();
        QCOMPARE(names.size(), 31);
        QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), 31);
        for (const QString &name : names)
            QVERIFY2(Provinces::cities(name).size() >= 5, qPrintable(name));
    }

    void citiesStandUnderTheirProvinceTheCapitalFirst_data()
    {
        QTest::addColumn<QString>("province");
        QTest::addColumn<QString>("capital");
        QTest::addColumn<QString>("city");
        QTest::newRow("Esfahan") << QStringLiteral("اصفهان") << QStringLiteral("اصفهان") << QStringLiteral("کاشان");
        QTest::newRow("Alborz") << QStringLiteral("البرز") << QStringLiteral("کرج") << QStringLiteral("نظرآباد");
        QTest::newRow("Gilan") << QStringLiteral("گیلان") << QStringLiteral("رشت") << QStringLiteral("لاهیجان");
        QTest::newRow("Fars") << QStringLiteral("فارس") << QStringLiteral("شیراز") << QStringLiteral("جهرم");
        QTest::newRow("Sistan") << QStringLiteral("سیستان و بلوچستان") << QStringLiteral("زاهدان") << QStringLiteral("چابهار");
    }

    void citiesStandUnderTheirProvinceTheCapitalFirst()
    {
        QFETCH(QString, province);
        QFETCH(QString, capital);
        QFETCH(QString, city);
        const QStringList cities = Provinces::cities(province);
        QCOMPARE(cities.value(0), capital);
        QVERIFY(cities.contains(city));
        QVERIFY(Provinces::isCity(city));
    }

    void lettersAreThoseOfThePersianKeyboard()
    {
        for (const QString &name : Provinces::names()) {
            QCOMPARE(name, ConvertToStandard(name));
            for (const QString &city : Provinces::cities(name))
                QCOMPARE(city, ConvertToStandard(city));
        }
    }

    void aProvinceIsFoundByArabicLettersToo()
    {
        QCOMPARE(Provinces::cities(QStringLiteral("گيلان")).value(0), QStringLiteral("رشت"));
        QCOMPARE(Provinces::cities(QStringLiteral("مركزي")).value(0), QStringLiteral("اراک"));
        QVERIFY(Provinces::isCity(QStringLiteral("كرج")));
    }

    void whatIsNoPlaceGivesNothing()
    {
        QVERIFY(Provinces::cities(QString()).isEmpty());
        QVERIFY(Provinces::cities(QStringLiteral("ناکجا")).isEmpty());
        QVERIFY(!Provinces::isCity(QStringLiteral("ناکجا")));
        QVERIFY(!Provinces::isCity(QString()));
    }
};

static const RegisteredTest<TestProvinces, QCoreApplication> registered;

#include "TestProvinces.moc"
