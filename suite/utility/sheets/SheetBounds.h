// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

// How much of a file of rows is read.
namespace SheetFile {

inline constexpr qint64 maxBytes = 32LL * 1024 * 1024; // of the file, and a multiple of it unpacked
inline constexpr int maxRows = 50'000;
inline constexpr int maxColumns = 256;
inline constexpr qint64 maxCells = 2'000'000; // that hold something, of all sheets
inline constexpr int maxSheets = 100;
inline constexpr int longestCell = 32'767; // characters; the rest of a longer one is left out

}
