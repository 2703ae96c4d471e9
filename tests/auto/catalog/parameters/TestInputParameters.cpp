// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/parameters/InputParameters.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

class TestInputParameters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void optionsStandInTheirOrderWithTheirTypes_data()
    {
        QTest::addColumn<int>("position");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<int>("type");
        QTest::newRow("CylinderCount") << int(InputParameters::CylinderCount) << u"تعداد سیلندر"_s << 817;
        QTest::newRow("Source") << int(InputParameters::Source) << u"ماخذ"_s << 803;
        QTest::newRow("BodyStatus") << int(InputParameters::BodyStatus) << u"وضعیت بدنه"_s << 815;
        QTest::newRow("Accessory") << int(InputParameters::Accessory) << u"لوازم جانبی"_s << 810;
        QTest::newRow("DeliveredDocument") << int(InputParameters::DeliveredDocument) << u"مدرک تحویلی"_s << 812;
        QTest::newRow("Feature") << int(InputParameters::Feature) << u"امکانات"_s << 811;
        QTest::newRow("EngineVolume") << int(InputParameters::EngineVolume) << u"حجم سیلندر"_s << 806;
        QTest::newRow("Color") << int(InputParameters::Color) << u"رنگ"_s << 808;
        QTest::newRow("WheelCount") << int(InputParameters::WheelCount) << u"تعداد چرخ"_s << 816;
        QTest::newRow("Clause") << int(InputParameters::Clause) << u"تبصره"_s << 814;
        QTest::newRow("ClearanceCustoms") << int(InputParameters::ClearanceCustoms) << u"گمرک ترخیصی"_s << 809;
        QTest::newRow("Capacity") << int(InputParameters::Capacity) << u"ظرفیت"_s << 818;
        QTest::newRow("System") << int(InputParameters::System) << u"سیستم"_s << 802;
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
        QCOMPARE(InputParameters::valuesFilter(position).text(), u" iType=%1 "_s.arg(type));
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
        QCOMPARE(InputParameters::valuesFilter(option).text(), u" iType=0 "_s);
        QCOMPARE(InputParameters::caption(option), QString());
    }
};

static const RegisteredTest<TestInputParameters, QCoreApplication> registeredInputParameters;
#include "TestInputParameters.moc"
