// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/treasury/followups/CTblFollowUps.h"

// The follow-up that a message offers (PersonMessage::note).
namespace MessageNotes {

// Empty for who may not add one, or in a closed database.
std::function<void(const QString &said)> of(const CTblFollowUps::Subject &subject);

}
