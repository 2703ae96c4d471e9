// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <functional>

// The keys of all records at once, for an office that was filled by a program and in which nobody works yet.
namespace SearchFilling {

// Called with each kind and key that was come to: how many of how many records have been read.
using Progress = std::function<void(qint64 done, qint64 all)>;

// Makes them in one transaction, sorted, in a fraction of the time that SearchIndex::build takes beside people who work. What is left of a
// broken-off run, or of a table that has keys already, is for SearchIndex::build. Throws CMySQLException.
TZACCOUNTINGDATA_EXPORT void fill(const Progress &progress = {}, int database = 0);

}
