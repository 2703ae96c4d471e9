// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Many rows, made by the server itself: a million contracts take it minutes, and the program's own classes hours.
namespace BenchFilling {

// An office that an older filling left is filled anew. One more with each change of what is filled in.
inline constexpr int version = 1;

// Enters the kinds of records that the search finds; once.
void enterSearch();

// The office of few contracts in which one of that many is then, with three cars and five persons for ten contracts, documents, instalments, and what the
// search finds them by. Does nothing in an office that has as many.
// Within a KLongWork: its statements take longer than an office's may.
void fillUpTo(int contracts);

}
