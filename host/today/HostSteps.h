// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"

// The first steps that the program itself leads to: who the office is, its first person, and where copies of its backups go.
namespace HostSteps {

// The folder is the one of the settings.
void enter(const DataFolder &folder);

}
