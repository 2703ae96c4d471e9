// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/today/TodayTones.h"

namespace {

struct Look
{
    HostColors::Role ground;
    HostColors::Role ink;
    KChip::Kind chip;
};

using HostColors::Role;

// In the order of the tones.
constexpr Look looks[] = {
    {Role::NeutralSoft, Role::Quiet, KChip::Kind::Neutral},
    {Role::InfoSoft, Role::Info, KChip::Kind::Info},
    {Role::GoodSoft, Role::Good, KChip::Kind::Good},
    {Role::WarnSoft, Role::Warn, KChip::Kind::Warn},
    {Role::DangerSoft, Role::Danger, KChip::Kind::Danger},
};

const Look &lookOf(TodayTone tone)
{
    return looks[static_cast<std::size_t>(tone)];
}

}

HostColors::Role TodayTones::ground(TodayTone tone)
{
    return lookOf(tone).ground;
}

HostColors::Role TodayTones::ink(TodayTone tone)
{
    return lookOf(tone).ink;
}

KChip::Kind TodayTones::chip(TodayTone tone)
{
    return lookOf(tone).chip;
}
