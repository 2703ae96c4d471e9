// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/sheets/Sheet.h"
#include "suite/utility/sheets/SheetBounds.h"
#include "suite/utility/sheets/TzSheetsExport.h"

#include <QByteArray>

// Reads a file of rows: a spreadsheet (XLSX), or text with separators (CSV). Which one it is says its content, not its name. It comes
// from outside, so everything about it is bounded. All throw SheetError.
namespace SheetFile {

// The sheets that a user of the file sees, those without a row among them left out; never none.
TZSHEETS_EXPORT QList<Sheet> read(const QByteArray &file);

}
