// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

#include <functional>

// The indexes that let lists, next codes and what is due answer as quickly in an office of a million contracts as on its first day: beside the
// statements that create the tables, which stay as they are, and for those of the module too. Each order that people give the large lists has
// one, behind the columns that the list's filter compares at first. An order by a text has a column of its own, which the table computes and no
// "*" shows: the text in the collation of the Persian alphabet.
namespace OfficeKeys {

// How far adding has come: the table whose indexes are being built, as it is named in the database, and which of how many it is, from 1.
using Progress = std::function<void(const QString &table, int number, int count)>;

// Whether a table that is there lacks one. Throws CMySQLException, as add does.
TZACCOUNTINGDATA_EXPORT bool areLacking(int database = 0);
// Adds what is lacking, table by table, while others go on reading and writing. What a broken-off run has added is passed over.
TZACCOUNTINGDATA_EXPORT void add(const Progress &progress = {}, int database = 0);

}
