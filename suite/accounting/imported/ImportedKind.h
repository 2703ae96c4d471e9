// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

// A kind of record that came out of files, as far as it concerns what is there since.
class TZACCOUNTINGDATA_EXPORT ImportedKind
{
public:
    virtual ~ImportedKind();

    virtual QString id() const = 0;    // plain English; kept with what is remembered of its files
    virtual QString title() const = 0; // "اشخاص"
    virtual QString form() const = 0;  // of KSecurity: whose rights to add and to delete are needed
    virtual QString table() const = 0; // of the records

    // Why a record may not be taken back, whatever has become of it; empty: it may.
    virtual QString keptBecause(qint32 key, int database) const;
    // Deletes one, within the caller's transaction: into the bin where such records have one. Throws KAccountingError when it is gone,
    // CMySQLException.
    virtual void takeBack(qint32 key, int database) const;
};
