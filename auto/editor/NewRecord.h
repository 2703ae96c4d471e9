// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/RecordCodes.h"
#include "suite/accounting/office/OfficeSession.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/connection/KConnection.h"
#include "suite/db/records/KExpectedRow.h"
#include "suite/db/records/KMySQL.h"
#include "suite/db/connection/KTransaction.h"

#include <QString>

#include <exception>
#include <functional>

using namespace Qt::StringLiterals;

// A new record is in its table before the user has entered anything in its editor, as a placeholder that nobody else sees.
namespace NewRecord {

// Adds the placeholder, with the next code; fill sets its other columns, asks the database nothing and may run again. Returns the
// key. Whoever reads ahead (KReadAhead) has the row with what saved it, and what expects names beside it by its key.
template <class Record>
int add(const std::function<void(Record &)> &fill, const std::function<void(int)> &expects = {}, int database = 0)
{
    KConnection::forThread(database).verify();
    const QString session = OfficeSession::key(database);
    int key = 0;
    KTransaction::runReplayable(
        [&] {
            // The first save notes that the record was added.
            const auto unnoted = [&](Record &record) {
                record.setNoting(KMySQL::Noting::Nothing);
                fill(record);
                Placeholders::addNext(record.GetTableName(), session, database);
            };
            key = RecordCodes::add<Record>(unnoted, database);
            expectRow<Record>(key, database);
            if (expects)
                expects(key);
        },
        database);
    return key;
}

// Deletes the placeholder with what belongs to it. A record that has been saved stays, whatever its window came to know of that.
template <class Record>
void discard(int key, int database = 0)
{
    KTransaction::runReplayable(
        [&] {
            Record record(database);
            const Placeholders::Row row{record.GetTableName(), key};
            const bool isThere = record.lockRecord(key);
            if (!Placeholders::contains(row, database))
                return;
            record.setNoting(KMySQL::Noting::Nothing);
            if (isThere)
                record.Delete();
            Placeholders::confirm(row.table, key, database);
        },
        database);
}

// Runs the editor of a placeholder. Unless it reports that the user confirmed, the placeholder is discarded, however the window
// ended; what the editor throws is then rethrown.
template <class Record>
[[nodiscard]] bool keptByEditor(int key, const std::function<bool()> &edit)
{
    bool confirmed = false;
    std::exception_ptr error;
    try {
        confirmed = edit();
    } catch (...) {
        error = std::current_exception();
    }
    if (!confirmed)
        discard<Record>(key);
    if (error)
        std::rethrow_exception(error);
    return confirmed;
}

}
