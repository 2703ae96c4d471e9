// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/importing/ImportKind.h"
#include "suite/crm/TzCRMDataExport.h"

// Persons out of a file.
class TZCRMDATA_EXPORT PersonImport : public ImportKind
{
public:
    static QString kindId();

    QString id() const override { return kindId(); }
    QString title() const override;
    QString form() const override;
    QString table() const override;
    QList<ImportField> fields() const override;
    qint32 nextCode(int database) const override;
    std::unique_ptr<ImportRun> begin(int database) const override;
};
