// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

// The whole number that a value of an input parameter stands for ("4", "۴ چرخ", "شش سیلندر 6"): its first run of digits, of
// any script. Nothing when there is none or it is too large for the column.
std::optional<int> parameterNumber(const QString &value);
