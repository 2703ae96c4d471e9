// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QList>
#include <QString>

class KWholeRow;
class RecordPackage;

// What a record holds, in the words of the forms, wherever it is not there to be opened.
namespace RecordWords {

struct Line
{
    QString caption;
    QString value; // empty: the caption is the title of the lines below it
    bool isTitle() const { return value.isEmpty(); }
};

// The record's own columns that hold something and have a name, then those of each row that belongs to it. database: where names behind
// keys are. Throws CMySQLException, and KAccountingError for a row that is damaged.
TZACCOUNTINGDATA_EXPORT QList<Line> of(const RecordPackage &package, int database = 0);
// The columns of a record's own row. Empty for a table that no RecordSubject knows.
TZACCOUNTINGDATA_EXPORT QList<Line> ofRow(const KWholeRow &row, int database = 0);

}
