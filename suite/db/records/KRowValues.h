// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <QHash>
#include <QString>
#include <QVariant>

// The values of one row by the names of their columns, each as KColumn::value() returns it.
using KRowValues = QHash<QString, QVariant>;

// Whether the two mean the same in a column: NULL, a missing value and the empty text or date are one.
TZDB_EXPORT bool isSameValue(const QVariant &left, const QVariant &right);
