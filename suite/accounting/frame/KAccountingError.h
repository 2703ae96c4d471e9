// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

#include <exception>

// A rule of the books that an operation would have broken (a document that does not balance, a change of a closed database).
// Its text is one Persian sentence for the user; KErrorBoundary shows it as it stands.
class TZACCOUNTINGDATA_EXPORT KAccountingError : public std::exception
{
public:
    explicit KAccountingError(const QString &userMessage);
    ~KAccountingError() override;

    QString userMessage() const { return m_userMessage; }
    const char *what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_userMessage;
    QByteArray m_utf8;
};
