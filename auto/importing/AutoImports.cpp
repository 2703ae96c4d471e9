// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/importing/AutoImports.h"

#include "auto/importing/CarImport.h"
#include "auto/importing/DemandImport.h"

void AutoImports::enter()
{
    ImportKinds::enter(std::make_unique<CarImport>());
    ImportKinds::enter(std::make_unique<DemandImport>());
}

void AutoImports::leave()
{
    ImportKinds::remove(CarImport::kindId());
    ImportKinds::remove(DemandImport::kindId());
}
