// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/importing/ImportKind.h"
#include "suite/accounting/office/CodeReservation.h"

#include <optional>

// The codes of the records of one import, drawn before its unit of work and not within it, so that nobody waits for that.
class ImportCodes
{
public:
    // A unit of its own. Throws KAccountingError while another file of the kind is imported, CMySQLException.
    ImportCodes(const ImportKind &kind, const QList<ImportRow> &rows, int database);

    qint32 first() const { return m_first; }
    // For somebody who holds the NamedLock of the table, by what is saved right now (FreshView):
    // whether anybody changed a record of the kind since; true for a kind without codes.
    bool areRecordsChanged() const;
    // Whether another record got one of the codes, typed by hand.
    bool areTaken() const;
    // Within the unit that used them.
    void forget() const;

private:
    QString m_table;
    int m_database;
    std::optional<CodeReservation> m_reservation;
    qint32 m_first = 0;
    qint32 m_last = 0;
    qint32 m_lastChange = 0;
};
