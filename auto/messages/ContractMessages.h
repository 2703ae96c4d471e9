// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/messages/MessageKinds.h"

// A contract is ready: to its buyer, and to its seller. MessageAbout: the key of the contract.
namespace ContractMessages {

MessageKind kind();

}
