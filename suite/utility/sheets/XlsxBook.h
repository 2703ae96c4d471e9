// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/sheets/Sheet.h"
#include "suite/utility/sheets/TzSheetsExport.h"

#include <QByteArray>

// The cells of a spreadsheet (Office Open XML), as the program that wrote it computed them. See SheetFile.
namespace XlsxBook {

// The sheets that are not hidden, in the order of their tabs. Throws SheetError.
TZSHEETS_EXPORT QList<Sheet> read(const QByteArray &file);

}
