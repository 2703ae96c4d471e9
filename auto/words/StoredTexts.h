// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

// The texts that a column holds, each once, in order; suggestions for an entry. table and column never come from the user.
QStringList storedTexts(const char *table, const char *column);
// That they will be asked (KReadAhead).
void expectStoredTexts(const char *table, const char *column);
