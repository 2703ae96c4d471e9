// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/WorkProcess.h"

using namespace Qt::StringLiterals;

namespace {

// An office of a million contracts is filled before its process is ready.
constexpr int readyMilliseconds = 3'600'000;
constexpr int answerMilliseconds = 600'000;

}

WorkProcess::WorkProcess(const QString &program, const QStringList &arguments)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(program, arguments);
    if (nextLine(readyMilliseconds) != "ready")
        qFatal("%s does not run", qPrintable(program + u' ' + arguments.join(u' ')));
}

WorkProcess::~WorkProcess()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished();
}

std::unique_ptr<WorkProcess> WorkProcess::peer(const QString &script, QStringList arguments)
{
    arguments.prepend(u"" TZ_BENCH_PEERS "/"_s + script);
    arguments.prepend(u"-B"_s);
    // The system's own Python, whose packages the libraries are.
    return std::make_unique<WorkProcess>(u"/usr/bin/python3"_s, arguments);
}

std::optional<QByteArray> WorkProcess::ask(const QByteArray &line)
{
    m_process.write(line + '\n');
    return nextLine(answerMilliseconds);
}

std::optional<QByteArray> WorkProcess::nextLine(int mostMilliseconds)
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(mostMilliseconds))
            return std::nullopt;
    }
    return m_process.readLine().trimmed();
}
