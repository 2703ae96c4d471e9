// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/today/TodayCards.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/KChip.h"

// How the tones of the day are drawn.
namespace TodayTones {

HostColors::Role ground(TodayTone tone);
HostColors::Role ink(TodayTone tone);
KChip::Kind chip(TodayTone tone);

}
