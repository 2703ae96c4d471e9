// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/sheets/SheetFile.h"

#include "suite/utility/sheets/CsvText.h"
#include "suite/utility/sheets/XlsxBook.h"

QList<Sheet> SheetFile::read(const QByteArray &file)
{
    using Trouble = SheetError::Trouble;
    if (file.size() > maxBytes)
        throw SheetError(Trouble::TooLarge);
    if (file.startsWith("\xD0\xCF\x11\xE0"))
        throw SheetError(Trouble::OldFormat);
    QList<Sheet> sheets = file.startsWith("PK\x03\x04") ? XlsxBook::read(file) : QList<Sheet>{CsvText::read(file)};
    sheets.removeIf([](const Sheet &sheet) { return sheet.rows.isEmpty(); });
    if (sheets.isEmpty())
        throw SheetError(Trouble::Empty);
    return sheets;
}
