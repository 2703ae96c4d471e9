// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>

// The one value that a record keeps of those that are ticked in a picker of several: the newly ticked one counts, of
// several the first; nothing new leaves the value that the record had, if it is still ticked. Keys; 0 is no value.
int choiceOfTicked(const QList<int> &ticked, int before);
