// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/season/SeasonalGathering.h"
#include "suite/utility/lists/KListModel.h"

// The thirty columns of the seasonal report; four titles depend on whether it lists sales or purchases.
QVector<KListModel::Column> seasonalColumns(SeasonalGathering::Kind kind);
