// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

// While one lives, the statements of its thread take the time that an upgrade or a restored backup needs: half an hour for an
// answer, without asking anybody whether to go on waiting, and a minute until whoever reads a table that is to be changed has ended.
class TZDB_EXPORT KLongWork
{
public:
    KLongWork();
    ~KLongWork();
    KLongWork(const KLongWork &) = delete;
    KLongWork &operator=(const KLongWork &) = delete;
};
