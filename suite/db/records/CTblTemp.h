// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KMySQL.h"

// Record set on no table: runs free statements and reads single values.
class TZDB_EXPORT CTblTemp : public KMySQL
{
public:
    explicit CTblTemp(int database = 0);
    ~CTblTemp() override;
    QString GetTableName() const override;

protected:
    void DoFieldExchange() override;
};
