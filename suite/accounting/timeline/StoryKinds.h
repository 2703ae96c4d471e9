// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/timeline/StoryEvent.h"
#include "suite/utility/look/HostColors.h"
#include "suite/utility/look/KChip.h"

// How each sort of event looks.
namespace StoryKinds {

// The word on its switch.
QString caption(StoryEvent::Kind kind);
QString icon(StoryEvent::Kind kind);

struct Inks
{
    HostColors::Role ink;
    HostColors::Role ground;
};
Inks inks(StoryEvent::Tone tone);
KChip::Kind chip(StoryEvent::Tone tone);

}
