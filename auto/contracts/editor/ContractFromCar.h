// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>

// What a contract takes over from a car of the register. Names are those behind the car's keys, empty for what is not chosen or
// no longer there; numbers are 0 for what is not stated.
struct CarForContract
{
    QString brand;
    QString model;
    QString carClass;
    QString system;
    QString color;
    QString engineNumber;
    QString chassisNumber;
    QString vin;
    QString plate;
    QString documentsDelivered;
    QString description;
    int year = 0; // Shamsi
    int axles = 0;
    int wheels = 0;
    int usageType = 0;
    int fuel = 0;
    double price = 0; // in the suite's money unit
    int ownerID = 0;  // 0 also for an owner who is no longer among the persons
};

// One field of the contract, by its column, and the text for it.
struct ContractFieldText
{
    QString column;
    QString text;

    friend bool operator==(const ContractFieldText &, const ContractFieldText &) = default;
};

// The vehicle fields that the car fills. What the car does not state empties its field, so that two cars never mix; but a kind
// of vehicle or fuel without a word of its own, and a missing description, leave theirs as it is and are not among them.
QList<ContractFieldText> contractFromCar(const CarForContract &car);
