// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KAccountingError.h"

KAccountingError::KAccountingError(const QString &userMessage)
    : m_userMessage(userMessage)
    , m_utf8(userMessage.toUtf8())
{
}

KAccountingError::~KAccountingError() = default;
