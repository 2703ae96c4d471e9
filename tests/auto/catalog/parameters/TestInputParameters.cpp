// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/parameters/InputParameters.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <limits>

class TestInputParameters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void optionsStandInTheirOrderWithTheirTypes_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<int>("type");
        QTest::newRow("CylinderCount") << int(InputParameters::CylinderCount) << QStringLiteral("تعداد سیلندر") << 817;
        QTest::newRow("Source") << int(InputParameters::Source) << QStringLiteral("ماخذ") << 803;
        QTest::newRow("BodyStatus") << int(InputParameters::BodyStatus) << QStringLiteral("وضعیت بدنه") << 815;
        QTest::newRow("Accessory") << int(InputParameters::Accessory) << QStringLiteral("لوازم جانبی") << 810;
        QTest::newRow("DeliveredDocument") << int(InputParameters::DeliveredDocument) << QStringLiteral("مدرک تحویلی") << 812;
        QTest::newRow("Feature") << int(InputParameters::Feature) << QStringLiteral("امکانات") << 811;
        QTest::newRow("EngineVolume") << int(InputParameters::EngineVolume) << QStringLiteral("حجم سیلندر") << 806;
        QTest::newRow("Color") << int(InputParameters::Color) << QStringLiteral("رنگ") << 808;
        QTest::newRow("WheelCount") << int(InputParameters::WheelCount) << QStringLiteral("تعداد چرخ") << 816;
        QTest::newRow("Clause") << int(InputParameters::Clause) << QStringLiteral("تبصره") << 814;
        QTest::newRow("ClearanceCustoms") << int(InputParameters::ClearanceCustoms) << QStringLiteral("گمرک ترخیصی") << 809;
        QTest::newRow("Capacity") << int(InputParameters::Capacity) << QStringLiteral("ظرفیت") << 818;
        QTest::newRow("System") << int(InputParameters::System) << QStringLiteral("سیستم") << 802;
    }

    void optionsStandInTheirOrderWithTheirTypes()
    {
        QFETCH(int, position);
        QFETCH(QString, caption);
        QFETCH(int, type);
        static int next = 0;
        QCOMPARE(position, next++);
        QCOMPARE(InputParameters::caption(position), caption);
        QCOMPARE(InputParameters::itemType(position), type);
        QCOMPARE(InputParameters::valuesFilter(position), QStringLiteral(" iType=%1 ").arg(type));
        QVERIFY(InputParameters::isOption(position));
    }

    void thereAreThirteenOptions() { QCOMPARE(InputParameters::optionCount, 13); }

    void anOptionOutsideHasNoValues_data()
    {
        QTest::addColumn<int>("option");
        QTest::newRow("below") << -1;
        QTest::newRow("behind the last") << 13;
        QTest::newRow("far below") << std::numeric_limits<int>::min();
        QTest::newRow("far above") << std::numeric_limits<int>::max();
    }

    void anOptionOutsideHasNoValues()
    {
        QFETCH(int, option);
        QVERIFY(!InputParameters::isOption(option));
        QCOMPARE(InputParameters::valuesFilter(option), QStringLiteral(" iType=0 "));
        QCOMPARE(InputParameters::caption(option), QString());
    }
};

static const RegisteredTest<TestInputParameters, QCoreApplication> registered;
#include "TestInputParameters.moc"
