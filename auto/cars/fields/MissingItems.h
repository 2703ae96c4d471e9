// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

// Of all the values that a car can have, those that a text of chosen ones (joined by the separator) does not name, in
// their own order. Two spellings of one value are one.
QStringList missingItems(const QStringList &all, const QString &chosen, const QString &separator);
