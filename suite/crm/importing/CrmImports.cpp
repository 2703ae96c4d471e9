// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/importing/CrmImports.h"

#include "suite/crm/importing/OpeningImport.h"
#include "suite/crm/importing/PersonImport.h"

void CrmImports::enter()
{
    if (ImportKinds::of(PersonImport::kindId()))
        return;
    ImportKinds::enter(std::make_unique<PersonImport>());
    ImportKinds::enter(std::make_unique<OpeningImport>());
}
