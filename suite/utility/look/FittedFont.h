// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QFont>

// A font for lines that have only so much room each.
namespace FittedFont {

// The base where a line of it is no higher than that, otherwise the largest smaller size that is; never too small to be read.
TZUTILITY_EXPORT QFont of(const QFont &base, double lineHeight);

}
