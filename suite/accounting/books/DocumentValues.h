// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/books/DocumentWriter.h"
#include "suite/accounting/changes/CTblValues.h"

#include <optional>

// What a document written by hand says, as the fields that two users may change at once: its date, its description and all its rows.
class TZACCOUNTINGDATA_EXPORT DocumentValues final : public CTblValues
{
public:
    explicit DocumentValues(int database = 0);
    ~DocumentValues() override;

    // headerKey: the key of the stored header, 0 where there is none.
    void set(const DocumentContent &document, qint32 headerKey);
    static qint32 headerOf(const KRowValues &values);
    // What the values say, each of which is that of one of the two.
    DocumentContent merged(const DocumentContent &theirs, const DocumentContent &mine);
    // As users know a value.
    static std::optional<QString> shown(const QString &column, const QVariant &value);
};
