// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <exception>
#include <functional>

class QWidget;

// The one place where an error that an operation let through ends: the technical text goes to the log, one Persian message
// to the user, and the program goes on.
class TZACCOUNTINGDATA_EXPORT KErrorBoundary
{
public:
    // Does the work and reports any error that escapes from it. Returns whether it was completed.
    static bool guarded(QWidget *parent, const std::function<void()> &work) noexcept;

    // Never throws. An error that arrives while the message of another one is shown is logged only.
    static void report(std::exception_ptr error, QWidget *parent) noexcept;
};
