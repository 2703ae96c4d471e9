// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QHash>
#include <QStringList>
#include <QVariant>

#include <functional>

// What a RecordSubject says about columns, from tables by the column's name.
namespace SubjectWords {

using Caption = std::function<QString(const QString &column)>;
using Word = std::function<QString(const QString &column, const QVariant &value)>;

TZACCOUNTINGDATA_EXPORT Caption captions(const QHash<QString, QString> &texts);
// By the value, from 0; empty for a value behind the last word.
TZACCOUNTINGDATA_EXPORT Word words(const QHash<QString, QStringList> &lists);
// The same for values that a function names.
TZACCOUNTINGDATA_EXPORT Word words(const QHash<QString, std::function<QString(int)>> &names);
// What the first of them says that says something.
TZACCOUNTINGDATA_EXPORT Word anyOf(const QList<Word> &words);

// "فعال", "غیرفعال", as every iStatus that counts so is shown.
TZACCOUNTINGDATA_EXPORT QStringList activity();
// A title of a number and a name, either of which may be missing.
TZACCOUNTINGDATA_EXPORT QString titleOf(qint32 code, const QString &name);

}
