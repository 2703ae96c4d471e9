// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KChangeLog.h"

#include <QDate>
#include <QVariant>

// The history of a contract's plan, whose rows are noted as values of the plan: a plan has no row of its own, so it is known by the
// contract's key under a name of its own.
namespace PlanTrace {

// In the log of changes.
QString name();

struct Line
{
    int number = 0;
    QDate due;
    double amount = 0;
    double interest = 0; // within amount
};
// What became of the plan's rows; nothing where they are the same.
void noteRows(int contractID, KChange::Kind kind, const QList<Line> &before, const QList<Line> &after);
// That an instalment is paid now, or no longer.
void notePaid(int contractID, int number, bool paid);
// Who pays; 0: not known.
void notePayer(int contractID, int before, int after);

// For RecordSubject: the caption of a value, and its words; empty for what is none of the plan's.
QString captionOf(const QString &column);
QString wordsOf(const QString &column, const QVariant &value);

}
