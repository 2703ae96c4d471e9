// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

// Closes menus and modal windows as their cross would, the topmost first; one that holds work asks. False: a window stays open.
// The code that opened them goes on only after control is back in its event loop: nothing that it uses may be destroyed before.
TZUTILITY_EXPORT bool closeModalWindows();
