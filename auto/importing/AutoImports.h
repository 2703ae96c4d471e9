// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// What of cars is imported out of files.
namespace AutoImports {

// A second call changes nothing. Before the module is unloaded they leave, for their code goes with it.
void enter();
void leave();

}
