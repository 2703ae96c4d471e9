// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/ContractFromCar.h"

#include "auto/words/WordLists.h"

#include <QStringList>

#include <optional>

namespace {

using Text = std::optional<QString>;

// In the car editor's spelling, which the list of fuels does not share; the positions are the same codes, and as there the first
// stands for nothing chosen.
constexpr QStringView fuels[] = {u"-", u"بنزین", u"دوگانه سوز", u"گازوئیل", u"گاز", u"سایر"};

Text word(WordLists::List words, int code)
{
    const QString text = WordLists::textAt(words, code);
    return code == 0 || text.isEmpty() ? Text() : Text(text);
}

QString stated(int number)
{
    return number == 0 ? QString() : QString::number(number);
}

// As people name a car: "پژو 206".
QString nameOf(const CarForContract &car)
{
    QStringList parts{car.brand, car.model};
    parts.removeAll(QString());
    return parts.join(u' ');
}

struct Pair
{
    const char *column;
    Text (*text)(const CarForContract &); // none: the field stays as it is
};

constexpr Pair pairs[] = {
    {"sAutomobilName", [](const CarForContract &car) { return Text(nameOf(car)); }},
    {"sAutomobilType", [](const CarForContract &car) { return word(WordLists::usageTypes(), car.usageType); }},
    {"sSystem", [](const CarForContract &car) { return Text(car.system); }},
    {"sBrigade", [](const CarForContract &car) { return Text(car.carClass); }},
    {"sModel", [](const CarForContract &car) { return Text(stated(car.year)); }},
    {"sColor", [](const CarForContract &car) { return Text(car.color); }},
    {"sNumOfPlates", [](const CarForContract &car) { return Text(car.plate); }},
    {"sFuel", [](const CarForContract &car) { return word(fuels, car.fuel); }},
    {"sNumOfEngines", [](const CarForContract &car) { return Text(car.engineNumber); }},
    {"sChassisNum", [](const CarForContract &car) { return Text(car.chassisNumber); }},
    {"sVIN", [](const CarForContract &car) { return Text(car.vin); }},
    {"sNumOFAxles", [](const CarForContract &car) { return Text(stated(car.axles)); }},
    {"sNumOfWheels", [](const CarForContract &car) { return Text(stated(car.wheels)); }},
    {"sDocumentsDelivered", [](const CarForContract &car) { return Text(car.documentsDelivered); }},
    {"sDescMatter", [](const CarForContract &car) { return car.description.isEmpty() ? Text() : Text(car.description); }},
};

}

QList<ContractFieldText> contractFromCar(const CarForContract &car)
{
    QList<ContractFieldText> fields;
    for (const Pair &pair : pairs) {
        if (const Text text = pair.text(car))
            fields.append({QString::fromLatin1(pair.column), *text});
    }
    return fields;
}
