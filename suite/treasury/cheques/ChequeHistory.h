// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/records/ChequeStates.h"

#include <QDateTime>
#include <QList>
#include <QString>

// What happened to a cheque, as it is shown.
namespace ChequeHistory {

struct Entry
{
    int changeID = 0; // 0: a receipt or payment by which the cheque came in or went out
    QDateTime date;
    QString what;   // the state that it came into, or how it came
    QString detail; // account, person, description
    int docNum = 0; // 0: nothing was booked
    int fiscalYear = 0;
    QString user;
    bool isVoid = false;
    QString voiding; // who undid it, when and why; empty for what stands
};

// Its receipts or payments, then its steps, oldest first.
TZTREASURYDATA_EXPORT QList<Entry> of(int chequeID, int database = 0);

}
