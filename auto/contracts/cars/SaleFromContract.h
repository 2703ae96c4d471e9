// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <QVariant>

// What of a contract a car's sale page says. Amounts in the suite's money unit, 0 for none.
struct SoldByContract
{
    int contractType = 0; // as the contract keeps it
    int buyerID = 0;      // 0: a buyer who is not among the persons
    QDateTime date;
    double amount = 0;
    double commission = 0;
    QString registry; // the notary's number
};

// A column of the car and what the contract puts there.
struct SaleValue
{
    QString column;
    QVariant value;
};

namespace SaleFromContract {

// Whether a contract of that type sells the car: a rent and a letter do not.
bool isSale(int contractType);
// In the order of the page. What the contract does not state is not among them.
QList<SaleValue> valuesOf(const SoldByContract &contract);
// Whether a column of the car says nothing yet, so that a contract may fill it.
bool isEmpty(const QVariant &value);

}
