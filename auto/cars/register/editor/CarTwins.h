// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/twins/TwinSettings.h"

#include <QList>

class CTblAutomobilInformations;

// Another car of the register with the same VIN, plate, chassis or engine number.
namespace CarTwins {

struct Field
{
    QString column;
    Twins::Sort sort = Twins::Sort::Number;
    QString name; // "شماره شاسی"
    OfficeSettings::Key refused = {};

    QString ofCar() const; // "شماره شاسی این خودرو"
};

const QList<Field> &fields();
std::optional<Twin> find(const Field &field, const QString &text, qint32 exceptID, int database = 0);
// In the unit that saves the car, once it holds RecordCodes::lock of the cars and before the row is written: throws FieldRefused for a number that
// is new in this car and that the office takes only once.
void requireAllowed(CTblAutomobilInformations &car);

}
