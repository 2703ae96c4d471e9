// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/server/ServerError.h"

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <functional>

// One run of a tool of the database server, to its end.
struct ToolProcess
{
    QString program;
    // The first one names our own options file, so that none of the user's is read.
    QStringList arguments;
    QByteArray input;
    QString inputFile;         // read instead of input when set
    QString outputFile;        // replaced; empty: thrown away
    QString errorFile;         // appended to; empty: thrown away
    int limitMilliseconds = 0; // 0: none

    // Called about twenty times a second with the bytes of input that the tool has taken. What it throws passes
    // through; the tool is ended before.
    using Pulse = std::function<void(qint64 inputDone)>;

    // Gives the exit code. Throws ServerError ProgramMissing when it cannot be started and Timeout when the limit is
    // over. A tool that was killed gives -1.
    int run(const Pulse &pulse = {}) const;

    // This program's environment without what the database's tools would take options, hosts or passwords from.
    static QProcessEnvironment environment();
    static ServerError missing(const QString &program, const QString &detail = {});
};
