// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/tariffs/TariffTexts.h"

#include "auto/words/StoredTexts.h"

namespace TariffTexts {

QStringList titles()
{
    return storedTexts("AutomobilTariffs", "sTitle");
}

QStringList descriptions()
{
    return storedTexts("AutomobilTariffs", "sDesc");
}

}
