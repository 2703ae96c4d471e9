// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/gallery/CarThumbnails.h"

#include "auto/db/CTblAutomobilInformations.h"

using namespace Qt::StringLiterals;

Thumbnails::Source CarThumbnails::source()
{
    return {u"AutomobilInformations"_s, CTblAutomobilInformations::recordKind, u"oPicture"_s};
}
