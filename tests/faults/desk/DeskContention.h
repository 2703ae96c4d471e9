// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/faults/desk/Desk.h"

// Units of work of a desk that meet those of another: many in a row, without a window, as fast as the server takes them.
namespace DeskContention {

//   add COLUMN TIMES KEY...     adds one to that number of each of the contracts, in their order, as one unit; so often. The value:
//                               {"saved": units that were saved, "conflicts": units that gave up after their replays}
Desk::Then add(Desk &desk, const Desk::Words &words);
//   merge COLUMN STEP TIMES KEY opens the contract, writes a text into the column, which is this desk's own, and a step more into
//                               the number that all desks count in (dCostsForBuyer), and saves by the merge that editors save by;
//                               where the number was changed meanwhile it opens again. The value: {"saved", "conflicts"}
Desk::Then merge(Desk &desk, const Desk::Words &words);
//   hold KEY, let go            locks the contract's row until told
Desk::Then hold(Desk &desk, const Desk::Words &words);
Desk::Then letGo(Desk &desk, const Desk::Words &words);

}
