// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/taxfile/KRecordset.h"

// Head of a season's return in the tax file: which season its detail records belong to.
class TZACCOUNTINGDATA_EXPORT SeasonalHead : public KRecordset
{
public:
    Text m_sGuid;     // 36 characters, as "01234567-89ab-cdef-0123-456789abcdef"
    Number m_iSeason; // 1 spring to 4 winter
    Number m_iYear;   // Shamsi

protected:
    SeasonalHead(KAccessDatabase *database, const QString &role);
};
