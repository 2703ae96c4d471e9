// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/db/connection/KLease.h"

#include <QString>

#include <memory>

// Codes of a table that a long unit of work is going to use, so that others draw theirs above them meanwhile and need not wait for its
// end. They count while the program that reserved them lives and holds this: codes of one that died are drawn again.
class TZACCOUNTINGDATA_EXPORT CodeReservation
{
public:
    // Throws KAccountingError while another program, or this one, holds one of the table; what: what the codes are for, for that message.
    CodeReservation(const QString &table, const QString &what, int database = 0);
    // Forgets what is still kept.
    ~CodeReservation();
    CodeReservation(const CodeReservation &) = delete;
    CodeReservation &operator=(const CodeReservation &) = delete;

    // All codes up to that one, in a unit that holds the table's NamedLock.
    void keep(qint32 upTo) const;
    // Within the unit that wrote the rows with the codes, or in one that gives them up.
    void forget() const;

    // The code that is drawn next: above the highest that a row of the table has. In a unit that holds the table's NamedLock; elsewhere it is a
    // proposal.
    static qint32 next(const QString &table, int database = 0);
    // That it will be asked behind the next statement that writes, the NamedLock for one (KReadAhead).
    static void expectNext(const QString &table, int database = 0);

private:
    QString m_table;
    int m_database;
    std::unique_ptr<KLease> m_lease;
};
