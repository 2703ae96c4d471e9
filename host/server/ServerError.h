// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

// What keeps the private server, its data folder or a backup from working. Carries one Persian sentence for
// the user (what is wrong and what to do, naming the folder or file) and the technical detail for the log.
class ServerError : public std::exception
{
public:
    enum class Kind {
        FolderNotWritable, // the data folder cannot be made or written to
        FolderNotPrivate,  // others can enter the data folder, and that could not be changed
        InUse,             // another program holds the data folder
        ProgramMissing,    // mariadbd or one of its tools is not installed
        DidNotStart,       // the server ended while starting
        Timeout,           // the server did not answer within the limit
        EndedUnexpectedly, // the server ended while the program was using it
        DiskFull,          // no room left on the folder's disk
        Damaged,           // a file of the database is damaged or gone; the message says which, and the way to a backup
        OlderServer,       // the folder was last used by a newer server than the installed one
        UpgradeFailed,     // the folder could not be brought to the installed server's version, or the database to the program's
        VersionLost,       // the tables hold rows, but the version of their schema is gone
        DumpFailed,        // a backup or its restoration failed
        BackupDamaged,     // the file of a backup is altered or cut off
        WrongPassphrase,   // a backup does not open with it
        NewerBackup,       // a backup was taken by a newer program than this one
        Cancelled          // the progress callback asked to stop
    };

    ServerError(Kind kind, const QString &userMessage, const QString &detail = {});

    Kind kind() const { return m_kind; }
    // One Persian sentence.
    QString userMessage() const { return m_userMessage; }
    // For the log: file names, exit codes, the server's last words. Never holds a password.
    QString detail() const { return m_detail; }
    // A path as it appears in a Persian sentence: quoted, and kept in its own direction.
    static QString shownPath(const QString &path);
    const char *what() const noexcept override { return m_utf8.constData(); }

private:
    Kind m_kind;
    QString m_userMessage;
    QString m_detail;
    QByteArray m_utf8;
};
