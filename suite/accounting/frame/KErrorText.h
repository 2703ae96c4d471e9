// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QStringList>

#include <exception>
#include <functional>

// What an error is in words: one sentence for the user, and the technical text for the log.
class TZACCOUNTINGDATA_EXPORT KErrorText
{
public:
    // The sentence for the user.
    static QString userMessage(const std::exception_ptr &error);
    // Who knows what to say of damaged tables, given those of DamagedTable. Null: the message names the table and no more.
    static void setDamageText(std::function<QString(const QStringList &tables)> text);
    // The text for the log: category, server code and message; the statement with every value in it masked.
    static QString logText(const std::exception_ptr &error);
    // The statement with its quoted texts and numbers replaced by "?".
    static QString maskedStatement(const QString &statement);
};
