// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// Accounting documents and invoices among RecordWindows.
namespace BookWindows {

// For as long as the program runs; a second call changes nothing.
void enter();

}
