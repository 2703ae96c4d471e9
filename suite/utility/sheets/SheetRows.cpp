// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/sheets/SheetRows.h"

#include "suite/utility/sheets/SheetBounds.h"

void SheetRows::put(Sheet &sheet, qint64 row, qint64 column, SheetCell cell)
{
    using Trouble = SheetError::Trouble;
    cell.text = cell.text.left(SheetFile::longestCell);
    if (cell.text.trimmed().isEmpty())
        return;
    if (row < 0 || row >= SheetFile::maxRows)
        throw SheetError(Trouble::TooManyRows, SheetFile::maxRows);
    if (column < 0 || column >= SheetFile::maxColumns)
        throw SheetError(Trouble::TooManyColumns, static_cast<int>(row) + 1);
    if (++m_cells > SheetFile::maxCells)
        throw SheetError(Trouble::TooLarge);
    if (sheet.rows.size() <= row)
        sheet.rows.resize(row + 1);
    QList<SheetCell> &cells = sheet.rows[row];
    if (cells.size() <= column)
        cells.resize(column + 1);
    cells[column] = std::move(cell);
}
