// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/lists/KListModel.h"

// Between the list and its model only: whether a cell's text is drawn from left to right.
inline constexpr int LeftToRightRole = KListModel::KeyRole + 1;
