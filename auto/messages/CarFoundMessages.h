// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/messages/MessageKinds.h"

// A car was found for somebody's demand. MessageAbout: the key of the demand, and that of the car.
namespace CarFoundMessages {

MessageKind kind();

}
