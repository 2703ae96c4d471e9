// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringView>

// Whether the text is a vehicle's year of production: a whole number from 1000 to 3000, in Persian, Arabic-Indic or ASCII
// digits; blanks around it do not count.
bool isModelYear(QStringView text);
