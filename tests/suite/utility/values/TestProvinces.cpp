// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/Provinces.h"

#include "suite/utility/values/TextStandard.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

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
        QTest::newRow("Esfahan") << u"اصفهان"_s << u"اصفهان"_s << u"کاشان"_s;
        QTest::newRow("Alborz") << u"البرز"_s << u"کرج"_s << u"نظرآباد"_s;
        QTest::newRow("Gilan") << u"گیلان"_s << u"رشت"_s << u"لاهیجان"_s;
        QTest::newRow("Fars") << u"فارس"_s << u"شیراز"_s << u"جهرم"_s;
        QTest::newRow("Sistan") << u"سیستان و بلوچستان"_s << u"زاهدان"_s << u"چابهار"_s;
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
        QCOMPARE(Provinces::cities(u"گيلان"_s).value(0), u"رشت"_s);
        QCOMPARE(Provinces::cities(u"مركزي"_s).value(0), u"اراک"_s);
        QVERIFY(Provinces::isCity(u"كرج"_s));
    }

    void everyProvinceAndCountyHasItsNumber()
    {
        QSet<int> codes;
        for (const QString &name : Provinces::names()) {
            const int code = Provinces::code(name);
            QVERIFY2(code >= 0 && code <= 30, qPrintable(name));
            codes.insert(code);
            QStringList cities;
            QSet<int> counties;
            for (const Provinces::County &county : Provinces::counties(code)) {
                QCOMPARE(county.code / Provinces::countiesOfAProvince, code);
                QVERIFY(county.code % Provinces::countiesOfAProvince > 0);
                QVERIFY2(!counties.contains(county.code), qPrintable(county.cities));
                counties.insert(county.code);
                cities += county.cities.split(u"، "_s);
            }
            QCOMPARE(QSet<QString>(cities.cbegin(), cities.cend()), [&] {
                const QStringList all = Provinces::cities(name);
                return QSet<QString>(all.cbegin(), all.cend());
            }());
        }
        QCOMPARE(codes.size(), 31);
        QCOMPARE(Provinces::code(u"تهران"_s), 23);
        QCOMPARE(Provinces::code(u"مرکزی"_s), 0);
        QCOMPARE(Provinces::code(u"ناکجا"_s), -1);
        QCOMPARE(Provinces::counties(3).first().code, 303);
        QCOMPARE(Provinces::counties(3).first().cities, u"تبریز"_s);
        QVERIFY(Provinces::counties(-1).isEmpty());
    }

    void whatIsNoPlaceGivesNothing()
    {
        QVERIFY(Provinces::cities(QString()).isEmpty());
        QVERIFY(Provinces::cities(u"ناکجا"_s).isEmpty());
        QVERIFY(!Provinces::isCity(u"ناکجا"_s));
        QVERIFY(!Provinces::isCity(QString()));
    }
};

static const RegisteredTest<TestProvinces, QCoreApplication> registeredProvinces;

#include "TestProvinces.moc"
