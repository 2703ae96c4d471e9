// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/search/SearchKinds.h"

// The table SearchKeys: for each record of a kind (SearchKinds) the keys that it is found by. Each write of a record brings its keys up to date
// in the same transaction, and that of a person's name those of the records that show it.
class TZACCOUNTINGDATA_EXPORT SearchIndex
{
public:
    // The kind is searched and its rows are followed until it is taken back. The suite's are entered at the start, the module's while it is
    // loaded. Replaces one of the same number.
    static void enter(const SearchKind &kind);
    static void remove(int number);

    // Brings the keys of these records up to date, in the caller's transaction; those of records that are gone are removed. Writes only what
    // differs. Throws CMySQLException.
    static void write(const SearchKind &kind, const QList<qint32> &records, int database = 0);

    // The records of the kind with exactly that key (SearchText), newest first, at most ten; none for an empty one.
    static QList<qint32> recordsWith(int number, const QString &key, int database = 0);

    // Makes the keys of all records, a few hundred at a time, each in a transaction of its own; what is right stays as it is, and others work
    // meanwhile. Goes on where a run before was cut off, unless it is told to begin anew. wanted: called after each step with the part that is
    // done, of 1000; false ends it, to be gone on with later. True: complete.
    using Wanted = std::function<bool(int done)>;
    static bool build(bool anew, const Wanted &wanted = {}, int database = 0);
    // Whether all keys there are to be were made once, by the rules of this version.
    static bool isBuilt(int database = 0);
};
