// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class DataFolder;
struct HostOptions;

// What the command line asks about the books, without any window, also beside programs that have the office open.
namespace BooksCommands {

enum Exit {
    Done = 0, // the kept sums of accounts are what the documents say, or were brought to that
    Failed = 1,
    Different = 3
};

// Does what the options name: a line on the standard output for each kept sum that differs and one that counts them; errors go to the standard
// error.
int run(const HostOptions &options, const DataFolder &folder, bool persian);

}
