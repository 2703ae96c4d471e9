// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "bench/KeptOffice.h"

#include "bench/BenchFilling.h"
#include "bench/Trial.h"

#include "suite/db/connection/KLongWork.h"

#include <QDir>
#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

constexpr int contractsOfTheDemo = 60;
constexpr int demoMilliseconds = 300'000;

EmbeddedServer::Options whileFilling()
{
    EmbeddedServer::Options options;
    options.unsafeButFast = true;
    options.bufferPoolMiB = Trial::isOn() ? 64 : 1024;
    options.redoLogMiB = Trial::isOn() ? 32 : 512;
    return options;
}

// Stands in a folder that is filled to the end, by the filling of today.
QString stampOf(const QString &folder)
{
    return folder + u"/filled.txt"_s;
}

QByteArray stampText(int contracts)
{
    return QByteArray::number(contracts) + " by filling " + QByteArray::number(BenchFilling::version);
}

bool isFilled(const QString &folder, int contracts)
{
    QFile stamp(stampOf(folder));
    return stamp.open(QIODevice::ReadOnly) && stamp.readAll() == stampText(contracts);
}

// By the program itself, so that it opens the office afterwards.
void makeDemoOffice(const QString &folder)
{
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(u"" TZ_BENCH_HOST ""_s, {u"--data-dir"_s, folder, u"--demo"_s, u"--demo-size"_s, QString::number(contractsOfTheDemo), u"--quit-after-login-shown"_s});
    if (!program.waitForFinished(demoMilliseconds) || program.exitStatus() != QProcess::NormalExit || program.exitCode() != 0)
        qFatal("the program makes no demo office in %s", qPrintable(folder));
}

void fill(const QString &folder, int contracts)
{
    // Of a run that was broken off: its server wrote without care for the disk.
    QDir(folder).removeRecursively();
    makeDemoOffice(folder);
    EmbeddedServer server(DataFolder(folder), whileFilling());
    server.start();
    {
        const KLongWork work;
        const BenchOffice office(contractsOfTheDemo, server.connectionSettings());
        BenchFilling::fillUpTo(contracts);
    }
    KConnection::closeThreadConnections();
}

}

KeptOffice::KeptOffice(int contracts)
{
    const QString parent = qEnvironmentVariable("TZ_BENCH_OFFICES");
    if (parent.isEmpty())
        m_own.emplace();
    const QString folder = parent.isEmpty() ? m_own->filePath(u"office"_s) : u"%1/%2"_s.arg(parent).arg(contracts);
    if (!isFilled(folder, contracts)) {
        fill(folder, contracts);
        QFile stamp(stampOf(folder));
        if (!stamp.open(QIODevice::WriteOnly) || stamp.write(stampText(contracts)) < 0)
            qFatal("%s cannot be written", qPrintable(stamp.fileName()));
    }
    m_server.emplace(DataFolder(folder));
    m_server->start();
    // An office from before may need new keys, over all rows.
    const KLongWork work;
    m_office.emplace(contractsOfTheDemo, m_server->connectionSettings());
}
