// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"
#include "suite/crm/TzCRMDataExport.h"

#include <QString>
#include <QStringList>

// What is typed to find a person, as a condition on Persons.
namespace PersonSearch {

// A condition that holds for a person when every typed word stands somewhere in the shown name, the code, the national
// code, the mobile or the telephone; empty when nothing to search for was typed. Both sides meet whatever forms of yeh,
// kaf, alef, heh and digits they are written in, and with or without blanks, joiners, vowel signs and hyphens inside.
TZCRMDATA_EXPORT KSql condition(const QString &typed);

// What the list of persons can be asked for: what is typed to find them, and whether the inactive ones are among them, whom
// nobody can pick.
TZCRMDATA_EXPORT QList<KListFilter> filters();

// The columns that a search looks in.
TZCRMDATA_EXPORT QStringList columns();

}
