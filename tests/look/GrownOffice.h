// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Makes a small office a large one, on the server and in a moment: each of its records stands there many times over, each time a week earlier and
// with keys and numbers of its own, which those of its other tables name. What an office chooses from, such as cars' names and accounts, stays as
// it is.
namespace GrownOffice {

void grow(int copies);

}
