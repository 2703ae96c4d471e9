// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/demo/DemoRandom.h"

#include <QList>
#include <QString>

class CTblPersons;

// The persons of the demo office.
namespace DemoPersons {

// What a contract copies from a person.
struct Person
{
    int id = 0;
    QString name;
    QString mobile;
    QString telephone;
    QString address;
    QString nationalCode;
    double discountPercent = 0;
};

// Fills the record's members with a person of that key, which is also the code.
void make(CTblPersons &person, int id, DemoRandom &random);
// Writes that many persons with the keys 1, 2, 3 ... into an empty table.
QList<Person> write(int count, DemoRandom &random, int database = 0);

}
