// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QString>
#include <QVariant>

#include <optional>

class KForm;

// What a form calls its columns, and values of them as its controls would show them, for a window that sets one value against
// another.
namespace FormTexts {

// The name of the column's control without the colon; empty for a column that the form does not have.
TZUTILITY_EXPORT QString caption(const KForm &form, const QString &column);
// Nothing for a column that the form does not have, and for a key that its drop-down does not offer.
TZUTILITY_EXPORT std::optional<QString> text(const KForm &form, const QString &column, const QVariant &value);

}
