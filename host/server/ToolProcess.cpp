// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/ToolProcess.h"

#include "host/server/Platform.h"

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

constexpr int toolPulseMilliseconds = 50;
constexpr qint64 chunkBytes = 1024LL * 1024;

// What a tool reads, piece by piece.
class ToolInput
{
public:
    explicit ToolInput(std::function<QByteArray()> next)
        : m_next(std::move(next))
        , m_chunk(m_next()) { }

    bool isEmpty() const { return m_chunk.isEmpty(); }
    qint64 passedOn() const { return m_passedOn; }

    // Passes on what the tool can take.
    void feed(QProcess &process)
    {
        if (m_chunk.isEmpty() || process.bytesToWrite() >= chunkBytes)
            return;
        process.write(m_chunk);
        m_passedOn += m_chunk.size();
        m_chunk = m_next();
        if (m_chunk.isEmpty())
            process.closeWriteChannel();
    }

private:
    std::function<QByteArray()> m_next;
    QByteArray m_chunk;
    qint64 m_passedOn = 0;
};

// Waits a moment for what the tool takes or says, or for its end.
void waitFor(QProcess &process, bool forOutput)
{
    if (process.bytesToWrite() > 0)
        process.waitForBytesWritten(toolPulseMilliseconds);
    else if (forOutput)
        process.waitForReadyRead(toolPulseMilliseconds);
    else
        process.waitForFinished(toolPulseMilliseconds);
}

// Ends a tool that is still running when an exception passes.
class Ended
{
public:
    explicit Ended(QProcess &process)
        : m_process(process) { }
    ~Ended()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        platform::forceStop(m_process.processId());
        m_process.waitForFinished(5000);
    }

private:
    QProcess &m_process;
};

}

QProcessEnvironment ToolProcess::environment()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QStringList names = environment.keys();
    for (const QString &name : names) {
        if (name.startsWith(u"MYSQL_"_s) || name.startsWith(u"MARIADB_"_s))
            environment.remove(name);
    }
    // The tools' output goes to our log and is searched for known failures.
    environment.insert(u"LC_ALL"_s, u"C"_s);
    return environment;
}

ServerError ToolProcess::missing(const QString &program, const QString &detail)
{
    const QString shown = program.isEmpty() ? u"mariadbd"_s : program;
    return {ServerError::Kind::ProgramMissing,
            u"برنامه %1 اجرا نشد؛ بسته‌های mariadb-server-core و mariadb-client را نصب "
            "نمایید."_s
                .arg(ServerError::shownPath(shown)),
            u"cannot start %1: %2"_s.arg(shown, detail)};
}

int ToolProcess::run(const Pulse &pulse) const
{
    if (program.isEmpty())
        throw missing(program, u"not found"_s);
    QFile file(inputFile);
    QBuffer buffer;
    buffer.setData(input);
    QIODevice &device = inputFile.isEmpty() ? static_cast<QIODevice &>(buffer) : file;
    if (!device.open(QIODevice::ReadOnly))
        throw ServerError(
            ServerError::Kind::DumpFailed,
            u"پرونده %1 خوانده نشد؛ پرونده دیگری انتخاب نمایید."_s.arg(ServerError::shownPath(inputFile)),
            inputFile + u": "_s + device.errorString());

    ToolInput fed(source ? source : [&device] { return device.read(chunkBytes); });

    platform::ignoreBrokenPipes();
    QProcess process;
    platform::tieToThisProgram(process, lowPriority);
    process.setProcessEnvironment(environment());
    if (!sink)
        process.setStandardOutputFile(outputFile.isEmpty() ? QProcess::nullDevice() : outputFile);
    process.setStandardErrorFile(errorFile.isEmpty() ? QProcess::nullDevice() : errorFile, QIODevice::Append);
    if (fed.isEmpty())
        process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    const Ended ended(process);
    if (!process.waitForStarted())
        throw missing(program, process.errorString());

    QElapsedTimer total;
    QElapsedTimer sincePulse;
    total.start();
    sincePulse.start();
    while (process.state() != QProcess::NotRunning) {
        fed.feed(process);
        waitFor(process, static_cast<bool>(sink));
        if (sink && process.bytesAvailable() > 0)
            sink(process.readAllStandardOutput());
        if (pulse && sincePulse.elapsed() >= toolPulseMilliseconds) {
            pulse(fed.passedOn() - process.bytesToWrite());
            sincePulse.restart();
        }
        if (limitMilliseconds > 0 && total.elapsed() > limitMilliseconds)
            throw ServerError(ServerError::Kind::Timeout,
                              u"برنامه %1 در زمان مقرر به پایان نرسید؛ دوباره تلاش کنید."_s
                                  .arg(ServerError::shownPath(program)),
                              u"%1 did not end within %2 ms"_s.arg(program).arg(limitMilliseconds));
    }
    if (sink && process.bytesAvailable() > 0)
        sink(process.readAllStandardOutput());
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}
