// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/messages/MessageKinds.h"

// The reminder of an instalment. MessageAbout: the key of the instalment.
namespace InstalmentMessages {

MessageKind kind();

}
