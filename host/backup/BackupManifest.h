// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

// What is known of a backup, kept beside its file as JSON. Whoever reads one must not trust it: it names no path, and what is out of
// bounds makes it count as damaged.
struct BackupManifest
{
    enum class Reason {
        ByHand,
        Closing,       // at the end of the program
        Interval,      // every few hours
        BeforeUpgrade, // of the database's schema or of the server
        BeforeRestore,
        CommandLine
    };

    struct Table
    {
        QString name;
        qint64 rows = -1; // -1: not counted
        // The server's CHECKSUM TABLE; where the table computes a column, a sum over what its rows hold.
        std::optional<qint64> checksum = std::nullopt;
        bool operator==(const Table &) const = default;
    };

    // Of the accounting documents; all 0 where the tables are not there.
    struct Books
    {
        qint64 documents = 0;
        qint64 unbalanced = 0; // those whose debit is not their credit
        double total = 0;      // of all debits, in the office's money
        bool operator==(const Books &) const = default;
    };

    struct Verification
    {
        enum class State {
            None,
            Passed,
            Failed
        };
        State state = State::None;
        QDateTime when = {};  // UTC
        QString problem = {}; // one or more Persian sentences, when it failed
        bool operator==(const Verification &) const = default;
    };

    QString database;
    QDateTime takenUtc;
    QDateTime taken; // the office's wall clock, held as UTC like all times of the office
    Reason reason = Reason::ByHand;
    QString program;      // version
    QString server;       // version, such as "10.11.14-MariaDB"
    int suiteVersion = 0; // of the schemas, see SuiteSchema; 0: none
    double moduleVersion = 0;
    qint64 size = 0;      // of the file, in bytes
    qint64 plainSize = 0; // of the statements in it
    QByteArray digest;    // of the file: 32 bytes of BLAKE2b; empty: not known
    bool encrypted = false;
    // Whether counts, checksums and books are of the very moment of the dump. Where not, they may be of a little later.
    bool oneSnapshot = false;
    QList<Table> tables;
    Books books;
    qint64 lastChange = 0;    // the newest key in Changes of a change of rows; 0: none, or no such table
    qint64 largestPacket = 0; // that the server took, in bytes; 0: not known
    QString logFile;          // of the server's binary log, as of the dump; empty: it keeps none
    qint64 logPosition = 0;
    Verification verification;

    QByteArray toJson() const;
    // Nothing for what is no manifest; fault then says why, for the log.
    static std::optional<BackupManifest> fromJson(const QByteArray &json, QString *fault = nullptr);
    bool operator==(const BackupManifest &) const = default;

    // In words, for lists.
    static QString shown(Reason reason);
    // A larger file is no manifest.
    static constexpr qint64 largestSize = 1024LL * 1024;
};
