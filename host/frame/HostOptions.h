// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KServerAddress.h"

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

// The options of the command line. A password is never one of them, because other users of the computer can read
// command lines: it comes from a file or from a dialog.
struct HostOptions
{
    QString dataDir;   // empty: the user's own data folder (or the demo office's, with demo)
    QString moduleDir; // folder of the module's library; empty: where the program is installed or built

    bool connect = false; // work on an office server instead of a private one
    QString host;
    quint16 port = 3306;
    QList<KServerAddress> furtherNodes; // of the cluster that host belongs to
    QString database;
    QString user;
    bool tls = false; // refuse a server that does not prove who it is
    QString caFile;   // empty: the certificate authorities of the system
    QString passwordFile;

    bool demo = false;
    int demoSize = 300; // contracts
    QDate demoDay;      // today in a new demo office; invalid: the computer's

    // What is done with backups instead of opening the office. One of these is set at most.
    QString backupFile; // a file that is to be, or the folder for one
    QString verifyFile;
    QString restoreFile;
    QString restoreTo; // the moment to which, see BackupMoment; empty: that of the backup
    bool listBackups = false;
    QString decryptFile;
    QString outputFile;          // of decryptFile
    QString passphraseFile;      // "-": standard input
    bool normalPriority = false; // of verifyFile: somebody waits for it
    QString lookInto;            // a backup to be shown instead of the office of the folder; its passphrase, if any, comes on standard input

    QString manualPdf; // write the manual into this file, and end

    bool rebuildSearch = false; // make the keys of the search anew, and end

    bool checkBooks = false; // compare the kept sums of accounts with the documents, and end
    bool mend = false;       // of checkBooks: bring them to what the documents say

    bool help = false;
    bool version = false;
    bool quitAfterLoginShown = false; // for measuring the start

    // The fault in the command line, in the language of helpText; empty when there is none.
    QString error;

    static constexpr int largestDemo = 1000000;

    // Whether a backup is all that is asked for: no window is opened then.
    bool isBackupCommand() const;

    // arguments without the program's own name. Only error is meaningful when it is not empty.
    static HostOptions parse(const QStringList &arguments, bool persian);
    static QString helpText(bool persian);
    static QString versionText(bool persian);
};
