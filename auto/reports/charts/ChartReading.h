// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/charts/ChartFigures.h"

#include <QDateTime>

// What the charts are made of. One statement each. An invalid end of a range is open; its last day counts whole. brand: key, 0: all. Throws
// CMySQLException.
namespace ChartReading {

// Cars that were sold within the range.
QList<ChartFigures::Sale> sales(const QDateTime &from, const QDateTime &to, int brand);
// Contracts that stand, neither void nor given back.
QList<ChartFigures::Earning> earnings(const QDateTime &from, const QDateTime &to);
// As it is now, whatever the range.
QList<ChartFigures::Wanted> wanted(int brand);

}
