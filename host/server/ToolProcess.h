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
    QString inputFile; // read instead of input when set
    // Called for the input instead, as far as the tool takes it; empty: the end.
    std::function<QByteArray()> source = {};
    QString outputFile; // replaced; empty: thrown away
    // Called with the output as it comes, instead.
    std::function<void(const QByteArray &)> sink = {};
    QString errorFile;         // appended to; empty: thrown away
    int limitMilliseconds = 0; // 0: none
    bool lowPriority = false;  // gives way to everything else on the computer

    // Called about twenty times a second with the bytes of input that the tool has taken. Its exceptions, and those of source and
    // sink, pass through, after the tool has been ended.
    using Pulse = std::function<void(qint64 inputDone)>;

    // Returns the exit code, -1 for a tool that was killed. Throws ServerError ProgramMissing when it cannot be started
    // and Timeout when the limit has passed.
    int run(const Pulse &pulse = {}) const;

    // This program's environment without the variables from which the tools would take options, hosts or passwords.
    static QProcessEnvironment environment();
    static ServerError missing(const QString &program, const QString &detail = {});
};
