// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/sheets/Sheet.h"
#include "suite/utility/sheets/TzSheetsExport.h"

#include <QByteArray>

// Rows as text: a line per row, its cells parted by one character. A cell in double quotes may hold that character, line breaks, and
// a quote written twice. See SheetFile.
namespace CsvText {

// The text in UTF-8 or UTF-16 with their marks, UTF-16 and UTF-8 without, else the Arabic code page of Windows, in which everything
// reads as some text. Throws SheetError for what holds characters that are no text.
TZSHEETS_EXPORT QString decoded(const QByteArray &file);
// A tab, a semicolon or a comma: the one that the first line which holds any has most of; a comma where none has.
TZSHEETS_EXPORT QChar separatorOf(const QString &text);
TZSHEETS_EXPORT Sheet read(const QByteArray &file);

}
