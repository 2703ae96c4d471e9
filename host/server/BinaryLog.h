// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/DataFolder.h"

#include <QByteArray>
#include <QStringList>

class KConnection;
struct KConnectionSettings;

// The binary log of a data folder's server: every change since it was begun, by which a backup is brought forward to a later moment. It is kept in
// binlog/, as files log-<when it was begun>.000001 and so on, where the folder's settings ask for it. No two logs share a name, so that the
// mark which a backup holds is found in the right one or not at all. What may lack changes is put aside into binlog/before-<when>/.
class BinaryLog
{
public:
    explicit BinaryLog(const DataFolder &folder);

    // As the settings of the folder say (section "Server", bKeepBinaryLog); obeyed by the next start of its server.
    bool isWanted() const;
    void setWanted(bool wanted) const;

    // Before a server starts on the folder: the options by which it keeps its log; empty where it keeps none, and what was kept until then is put
    // aside, since from now on changes will be missing in it. Goes by the settings unless always. Throws ServerError FolderNotWritable.
    QByteArray prepare(bool always = false) const;
    // Right before the server is asked to end: whether it has kept its log to the end. A server that cannot write a file of it goes on without, and
    // says so in its own log only. Best effort: what is not noted counts as the worse case.
    void noteEnd(const KConnectionSettings &server) const;
    // While no server runs, when other files take the place of the database's.
    void putAside() const;

    // On a running server: what is changed from now on has nothing to do with what was before. Does nothing on a server that keeps no log of ours.
    // Throws CMySQLException.
    static void beginAnew(KConnection &connection);
    // All changes so far are in files that nobody writes to any more.
    static void closeFile(KConnection &connection);

    // Paths of the named file and of those that follow it without a gap, wherever they lie. Empty: it is gone. The name is not trusted.
    QStringList from(const QString &name) const;
    // Whether it is the newest file of the log that the folder's server writes to. Not, where that server has given its log up.
    bool isInUse(const QString &path) const;

    // What all files may take on the disk; the oldest give way. Looked at before each start.
    static constexpr qint64 roomBytes = 2LL * 1024 * 1024 * 1024;
    static constexpr int keptDays = 14;

private:
    QString path() const;
    QStringList indexes() const;
    QString renewIndex(const QString &index) const;
    bool mayLackChanges() const;
    QString statePath() const;
    void removeOld() const;

    DataFolder m_folder;
};
