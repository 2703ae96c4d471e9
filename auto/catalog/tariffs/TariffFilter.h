// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

// What the list of notary tariffs asks for.
struct TariffCriteria
{
    bool withInactive = false;
    QString namePart; // goes into the LIKE pattern as typed; empty: any
};

// The condition for CTblAutomobilTariffs::m_filter; empty when nothing is asked.
QString tariffFilter(const TariffCriteria &criteria);
