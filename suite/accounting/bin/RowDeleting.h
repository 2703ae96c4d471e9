// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/bin/Bin.h"
#include "suite/accounting/frame/KAccountingError.h"

#include <functional>

class KMySQL;

// Deletes the row that a user was asked about, and no other.
namespace RowDeleting {

// The row is no longer as it was when the user was asked. Nothing was deleted.
class TZACCOUNTINGDATA_EXPORT Refused : public KAccountingError
{
public:
    Refused(const QString &userMessage, bool isGone);
    ~Refused() override;

    bool isGone() const { return m_isGone; }

private:
    bool m_isGone;
};

// Runs the Delete of the record, which holds the row as it was read for the question, in one unit of work: all of it, or nothing.
// The row is read anew with a lock before. Refused: it is gone; or another code, name or document is in it, so that it is not what
// the user meant; or it was archived meanwhile. requireDeletable runs on the locked row, and what it throws ends the unit; it may
// run again, and so starts from the database. A record that BinnedRecords knows goes into the bin with what belongs to it.
void TZACCOUNTINGDATA_EXPORT run(KMySQL &record, const std::function<void()> &requireDeletable = {});

// Told of each deletion of this program that can be taken back, once it is saved. Null: nobody.
using Listener = std::function<void(const Bin::Entry &entry)>;
void TZACCOUNTINGDATA_EXPORT setListener(const Listener &listener);

}
