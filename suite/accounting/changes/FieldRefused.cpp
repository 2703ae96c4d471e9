// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/FieldRefused.h"

FieldRefused::FieldRefused(const QString &userMessage, const QString &column)
    : KAccountingError(userMessage)
    , m_column(column)
{
}

FieldRefused::~FieldRefused() = default;

FieldDoubted::~FieldDoubted() = default;
