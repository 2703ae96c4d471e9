// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListColumn.h"

class KExtListCtrl;

// Columns of the car list that are off at first, behind the others.
namespace CarListColumns {

QList<KListColumn> further();
// Whether a car is ticked for the web.
QString webKey();
// What comes for all rows at once, as far as it is shown; whether anything of it is.
bool completes(const KExtListCtrl &list);
void complete(const KExtListCtrl &list, QVector<KListModel::Row> &rows);

}
