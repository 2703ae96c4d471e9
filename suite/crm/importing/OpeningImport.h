// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/importing/ImportKind.h"
#include "suite/crm/TzCRMDataExport.h"

// The balances that a fiscal year begins with: all rows of the file become one balanced document of its first day.
class TZCRMDATA_EXPORT OpeningImport : public ImportKind
{
public:
    static QString kindId();

    QString id() const override { return kindId(); }
    QString title() const override;
    QString form() const override;
    QString table() const override;
    QString keptBecause(qint32 key, int database) const override;
    void takeBack(qint32 key, int database) const override;
    QList<ImportField> fields() const override;
    std::unique_ptr<ImportRun> begin(int database) const override;
};
