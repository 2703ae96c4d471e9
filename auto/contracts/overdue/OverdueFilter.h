// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListFilter.h"

#include <QDate>

#include <functional>

// What the overdue desk can be asked for. The clauses are over the view of CTblDueInstalments; today is asked for when a
// condition is made.
QList<KListFilter> overdueFilters(const std::function<QDate()> &today);
