// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

class QProcess;

// What the private server needs from the operating system. The only file pair here that differs from one system to
// another: each has its own Platform_<system>.cpp.
namespace platform {

// A lock on a file that the system itself gives up when the program ends, however it ends.
class FileLock
{
public:
    explicit FileLock(const QString &path);
    ~FileLock();
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    enum class Result {
        Taken,     // ours now, or was already
        Held,      // another program, or another lock of this one, has it
        Impossible // the file cannot be made or opened; see reason
    };
    Result tryLock(QString *reason = nullptr);

private:
    QString m_path;
    int m_descriptor = -1;
};

enum class WriteResult {
    Written,
    NoRoom,
    Refused
};

// Makes the folder for the user alone, its parents as usual. Also true when it existed before.
bool makePrivateFolder(const QString &path, QString *reason = nullptr);
// Whether it is a real folder (no link) of this user that nobody else may enter.
bool isPrivateFolder(const QString &path);
// Takes the rights of everybody else from the file or folder, though not from what is in it. False when it keeps them, as another
// user's does, a folder that is meant for all (/tmp), or one on a disk that knows no rights. A link is left alone.
bool makePrivate(const QString &path, QString *reason = nullptr);
// Replaces the file in one step with one that only the user may read; on disk when it returns.
WriteResult writePrivateFile(const QString &path, const QByteArray &content, QString *reason = nullptr);
// Folders for sockets, the best first; they need not exist.
QStringList runtimeFolders();
// The greatest length of a socket's path, in bytes.
int longestSocketPath();

// The file or folder is on the disk when it returns: a folder, with the names in it.
bool flushToDisk(const QString &path, QString *reason = nullptr);
// A file and no link, folder or device.
bool isPlainFile(const QString &path);

// To be called before the process starts: it ends when this program's starting thread does, and keys typed in the
// program's terminal do not reach it. With low priority it gives way to everything else on the computer.
void tieToThisProgram(QProcess &process, bool lowPriority = false);
// A tool that ends before it has read all its input is an error to report, not a reason to end with it.
void ignoreBrokenPipes();
// Asks for a clean end.
void askToStop(qint64 processId);
// Ends the process at once.
void forceStop(qint64 processId);
bool isAlive(qint64 processId);
// Processes of any user that were started with exactly this argument.
QList<qint64> processesWithArgument(const QString &argument);
// Whether the user is the system's administrator, as whom the server only runs when told to.
bool isAdministrator();

}
