// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CarFields.h"
#include "auto/contracts/editor/ContractFromCar.h"
#include "auto/contracts/editor/MatterFields.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> textFor(const CarForContract &car, const QString &column)
{
    for (const auto &[name, text] : contractFromCar(car)) {
        if (name == column)
            return text;
    }
    return std::nullopt;
}

}

Q_DECLARE_METATYPE(CarForContract)
Q_DECLARE_METATYPE(std::optional<QString>)

class TestContractFromCar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pair_data();
    void pair();
    void fuelReadsAsInTheCarsEditor();
    void everyPairNamesAFieldOfTheMatterPageOnce();
};

void TestContractFromCar::pair_data()
{
    QTest::addColumn<CarForContract>("car");
    QTest::addColumn<QString>("column");
    QTest::addColumn<std::optional<QString>>("text");
    using Text = std::optional<QString>;
    const auto row = [](const char *name, const CarForContract &car, const char *column, const Text &text) {
        QTest::newRow(name) << car << QString::fromLatin1(column) << text;
    };
    const QString value = u"متن 12"_s;
    row("brand and model are the car's name", {.brand = u"پژو"_s, .model = u"206"_s}, "sAutomobilName",
        u"پژو 206"_s);
    row("brand alone", {.brand = u"پژو"_s}, "sAutomobilName", u"پژو"_s);
    row("model alone", {.model = u"206"_s}, "sAutomobilName", u"206"_s);
    row("neither", {}, "sAutomobilName", QString());
    row("class", {.carClass = value}, "sBrigade", value);
    row("system", {.system = value}, "sSystem", value);
    row("colour", {.color = value}, "sColor", value);
    row("plate", {.plate = value}, "sNumOfPlates", value);
    row("chassis number", {.chassisNumber = value}, "sChassisNum", value);
    row("engine number", {.engineNumber = value}, "sNumOfEngines", value);
    row("VIN", {.vin = value}, "sVIN", value);
    row("delivered documents", {.documentsDelivered = value}, "sDocumentsDelivered", value);
    row("production year", {.year = 1402}, "sModel", u"1402"_s);
    row("no year", {}, "sModel", QString());
    row("axles", {.axles = 2}, "sNumOFAxles", u"2"_s);
    row("no axles", {}, "sNumOFAxles", QString());
    row("wheels", {.wheels = 4}, "sNumOfWheels", u"4"_s);
    row("no wheels", {}, "sNumOfWheels", QString());
    row("a colour that is not there empties the field", {}, "sColor", QString());
    row("description", {.description = value}, "sDescMatter", value);
    row("no description leaves the field", {}, "sDescMatter", std::nullopt);

    row("vehicle kind 0 leaves the field", {.usageType = 0}, "sAutomobilType", std::nullopt);
    row("vehicle kind 1", {.usageType = 1}, "sAutomobilType", u"سواری"_s);
    row("vehicle kind 2", {.usageType = 2}, "sAutomobilType", u"سنگین"_s);
    row("vehicle kind 3 leaves the field", {.usageType = 3}, "sAutomobilType", std::nullopt);
    row("fuel 0 leaves the field", {.fuel = 0}, "sFuel", std::nullopt);
    row("fuel 1", {.fuel = 1}, "sFuel", u"بنزین"_s);
    row("fuel 2", {.fuel = 2}, "sFuel", u"دوگانه سوز"_s);
    row("fuel 3", {.fuel = 3}, "sFuel", u"گازوئیل"_s);
    row("fuel 4", {.fuel = 4}, "sFuel", u"گاز"_s);
    row("fuel 5", {.fuel = 5}, "sFuel", u"سایر"_s);
    row("fuel 6 leaves the field", {.fuel = 6}, "sFuel", std::nullopt);
    row("fuel -1 leaves the field", {.fuel = -1}, "sFuel", std::nullopt);
    row("the share is no matter of the car", {}, "sDengue", std::nullopt);
}

void TestContractFromCar::pair()
{
    QFETCH(CarForContract, car);
    QFETCH(QString, column);
    QFETCH(std::optional<QString>, text);
    QCOMPARE(textFor(car, column), text);
}

void TestContractFromCar::fuelReadsAsInTheCarsEditor()
{
    const auto fields = CarFields::base();
    const auto fuel = std::ranges::find(fields, u"iFuel"_s, &KFormField::column);
    QVERIFY(fuel != fields.end());
    QCOMPARE(fuel->choices.size(), 5);
    for (qsizetype entry = 0; entry < fuel->choices.size(); ++entry) {
        const int code = int(fuel->keys.at(entry));
        QCOMPARE(textFor({.fuel = code}, u"sFuel"_s), fuel->choices.at(entry));
    }
}

void TestContractFromCar::everyPairNamesAFieldOfTheMatterPageOnce()
{
    QStringList known;
    for (const KFormField &field : matterFields())
        known << field.column;
    QStringList named;
    for (const auto &[column, text] :
         contractFromCar({.description = u"d"_s, .usageType = 1, .fuel = 1})) {
        QVERIFY2(known.contains(column), qPrintable(column));
        QVERIFY2(!named.contains(column), qPrintable(column));
        named << column;
    }
    QCOMPARE(named.size(), 15);
}

static const RegisteredTest<TestContractFromCar> registeredContractFromCar;
#include "TestContractFromCar.moc"
