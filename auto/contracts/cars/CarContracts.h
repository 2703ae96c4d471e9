// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

// The contracts that were made from a car.
namespace CarContracts {

struct Entry
{
    int contractID = 0;
    int code = 0;
    int type = 0; // as the contract keeps it
    QDateTime date;
    QString seller;
    QString buyer;
    double amount = 0;
    bool isActive = true;
    bool isArchived = false;

    // It stands: another contract of the same car is a question.
    bool isOpen() const { return isActive && !isArchived; }
};

// Of the car, the latest first, without those that nobody has saved yet. One statement.
QList<Entry> ofCar(int carID, int database = 0);
// The latest open one but that contract; nothing where there is none.
std::optional<Entry> openOf(int carID, int exceptContract = 0, int database = 0);
// Parts the contract, as a user saw it among those of the car, from the car; the contract and the car's sale page stay as they are. Noted in both
// histories. A unit of its own. Throws KAccountingError, with nothing changed: the user may not change contracts, the database is closed, or another desk has
// deleted or archived the contract meanwhile, or parted it already.
void unlink(int carID, const Entry &asked, int database = 0);
// "قرارداد 12 در 1405/09/01، سارا کریمی با علی رضایی".
QString words(const Entry &entry);

}
