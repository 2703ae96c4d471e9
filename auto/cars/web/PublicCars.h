// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/sql/KSql.h"

#include <QList>
#include <QSet>

// Which cars the office lets anybody see. A car that is sold or archived keeps its tick and is not shown meanwhile.
namespace PublicCars {

// Ticks the cars, or takes their ticks away: all of them or none. One that another desk has so already stays as it is, one that is gone is
// left out, and counted in gone where that is not null. Noted in the history of each car that changes. Returns how many did.
// Throws KAccountingError without the right to change cars and in a closed database.
int set(const QList<qint32> &cars, bool ticked, int *gone = nullptr, int database = 0);
// Those of the cars that are ticked.
QSet<qint32> among(const QList<qint32> &cars, int database = 0);

// The condition on a car, whose table has the alias ai, that strangers see it now; how many they see.
KSql isShown();
int shownCount(int database = 0);

}
