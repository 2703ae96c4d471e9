// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/frame/KAccountingError.h"

// A value that keeps a row from being saved: a code that another has, a name that is missing. The window goes to its field.
class TZACCOUNTINGDATA_EXPORT FieldRefused : public KAccountingError
{
public:
    FieldRefused(const QString &userMessage, const QString &column);
    ~FieldRefused() override;

    QString column() const { return m_column; }

private:
    QString m_column;
};

// The same where the user may save it all the same: the text is a question.
class TZACCOUNTINGDATA_EXPORT FieldDoubted : public FieldRefused
{
public:
    using FieldRefused::FieldRefused;
    ~FieldDoubted() override;
};
