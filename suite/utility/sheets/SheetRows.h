// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/sheets/Sheet.h"

// Puts cells into sheets, within the bounds of SheetFile. One for all sheets of a file.
class SheetRows
{
public:
    // Positions from 0. Nothing for a cell that holds nothing: a sheet may be formatted to its last row. Throws SheetError.
    void put(Sheet &sheet, qint64 row, qint64 column, SheetCell cell);

private:
    qint64 m_cells = 0;
};
