// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QString>

#include <exception>

class QWidget;

// The one place where an error that an operation let through ends: the technical text goes to the log, one Persian message
// to the user, and the program goes on.
class TZACCOUNTING_EXPORT KErrorBoundary
{
public:
    // Never throws. An error that arrives while the message of another one is shown is logged only.
    static void report(std::exception_ptr error, QWidget *parent) noexcept;

    // The sentence for the user.
    static QString userMessage(const std::exception_ptr &error);
    // What the log gets: category, server code and message; the statement with every value in it masked.
    static QString logText(const std::exception_ptr &error);
    // The statement with its quoted texts and numbers replaced by "?".
    static QString maskedStatement(const QString &statement);
};
