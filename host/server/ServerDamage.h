// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"

#include <optional>

// A file of the database that is damaged or gone, as the server's log or the folder shows it.
struct ServerDamage
{
    enum class Part {
        SystemFile,  // ibdata1: what ties the tables together
        UndoFile,    // changes to take back
        RedoLog,     // ib_logfile0: what is saved but not in the tables' files yet
        SystemTable, // of the server itself, such as its accounts
        SystemLog,   // aria_log...: of those tables only
        Tables,      // the folder of the office's tables
        Table        // one of them
    };

    Part part;
    QString file; // below the folder database/, such as "tzauto/Persons.ibd"

    // What the words of the server name; nothing when they name no damage.
    static std::optional<ServerDamage> in(const QString &log);
    // What is missing or empty in the folder of a database that was whole once. A server that started on that would make some of it anew
    // and so cut the office off from its rows.
    static std::optional<ServerDamage> in(const DataFolder &folder);
    static ServerDamage ofTable(const QString &table);

    // The table's name; empty unless the part is Table.
    QString table() const;
    // What is damaged, in one Persian sentence.
    QString sentence(const DataFolder &folder) const;
    // The sentence, and how the user goes back to a backup: never into the damaged folder, where a server may refuse half of it.
    QString message(const DataFolder &folder) const;
};
