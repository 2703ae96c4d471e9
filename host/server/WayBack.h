// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"

// How a user whose database is damaged goes back to a backup, in Persian sentences: the newest dumps of the folder with their dates, and
// what to do, to the command.
class WayBack
{
public:
    explicit WayBack(const DataFolder &folder);

    // Whatever is damaged: the command puts the database aside and makes a new one where it cannot be opened any more.
    QString sentences() const;
    // The backups are the server's own.
    static QString ofOfficeServer();

    // The command that restores the newest dump, as typed into a terminal; empty when there is no dump.
    QString command() const;

private:
    QString dumps() const;

    DataFolder m_folder;
    QStringList m_dumps;
};
