// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/followups/CTblFollowUps.h"

// What is said about an instalment that is due.
namespace InstalmentFollowUp {

// Of the form whose right to add a follow-up needs.
QString form();
// Another desk may replace the plan before the follow-up is written: it is refused then.
CTblFollowUps::Subject subject(int contractID, int paymentID, int number);

}
