// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProcess>

#include <memory>
#include <optional>

// A process that waits to be asked: it says "ready", and then answers each line with a line. So its start is no part of what is measured, and it can be
// asked by turns with others. It ends with its standard input.
class WorkProcess
{
public:
    // Returns when it is ready; ends the benchmark where it does not become so. Its own words stand on the standard error.
    WorkProcess(const QString &program, const QStringList &arguments);
    ~WorkProcess();
    WorkProcess(const WorkProcess &) = delete;
    WorkProcess &operator=(const WorkProcess &) = delete;

    // A script of bench/peers, see peer.py there.
    static std::unique_ptr<WorkProcess> peer(const QString &script, QStringList arguments);

    // Nothing when the process is gone or does not answer.
    std::optional<QByteArray> ask(const QByteArray &line);
    // Whether it says that its one work is done.
    [[nodiscard]] bool work() { return ask({}) == "done"; }
    qint64 processId() const { return m_process.processId(); }

private:
    std::optional<QByteArray> nextLine(int mostMilliseconds);

    QProcess m_process;
};
