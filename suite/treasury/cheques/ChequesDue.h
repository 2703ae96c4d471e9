// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/sql/KSql.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/treasury/records/ChequeStates.h"

#include <QDate>
#include <QList>
#include <QString>

// The cheques that somebody must attend to: those that are neither collected nor given away nor back, received and given.
namespace ChequesDue {

// Of the table's rows that are open (ChequeStates::isOpen), to follow a WHERE or an AND.
TZTREASURYDATA_EXPORT KSql openCondition();

struct Row
{
    int id = 0;
    CTblReceipts::Kind kind = CTblReceipts::received; // received or given
    ChequeState state = ChequeState::InHand;
    QString sayad;
    QString number;
    QString bank;
    double amount = 0;
    QDateTime due;
    int daysOverdue = 0; // 0: due today or later
    int personID = 0;    // from or to whom
    QString person;
    QString mobile;
    int recordKind = 0; // what it was entered for, as in Receipts; 0: on account
    int recordID = 0;
    QString purpose; // the same in words; empty on account
};

// Those that are due up to that day; without one, all that are open. By due date, in one statement.
TZTREASURYDATA_EXPORT QList<Row> open(const QDate &today, const QDate &upTo = {}, int database = 0);

}
