// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/PythonPeer.h"

using namespace Qt::StringLiterals;

PythonPeer::PythonPeer(const QString &script, const QStringList &arguments)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    // The system's own, whose packages the libraries are.
    m_process.start(u"/usr/bin/python3"_s, QStringList{u"-B"_s, u"" TZ_BENCH_PEERS "/"_s + script} + arguments);
    if (!waitFor("ready\n"))
        qFatal("%s does not run", qPrintable(script));
}

PythonPeer::~PythonPeer()
{
    m_process.closeWriteChannel();
    m_process.waitForFinished();
}

bool PythonPeer::work()
{
    m_process.write("\n");
    return waitFor("done\n");
}

bool PythonPeer::waitFor(const QByteArray &line)
{
    constexpr int mostMilliseconds = 120'000;
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(mostMilliseconds))
            return false;
    }
    return m_process.readLine() == line;
}
