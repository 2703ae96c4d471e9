// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace TableNames {

// What users call the contents of a table; the table's own name when they have no word for it.
QString shown(const QString &table);

}
