// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

// The texts that a column holds, each once, in order; to be offered where one is entered. Not for names that a user gives.
QStringList storedTexts(const char *table, const char *column);
