// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/BinaryLogReplay.h"

#include "host/server/BinaryLogFile.h"
#include "host/server/Platform.h"
#include "host/server/ServerConfig.h"
#include "host/server/ServerError.h"
#include "host/server/ToolProcess.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int replayPulseMilliseconds = 50;
// The first event of a file stands behind the four bytes by which it is known.
constexpr qint64 firstPosition = 4;

QString shownTime(const QDateTime &time)
{
    return u"%1 ساعت %2"_s.arg(shamsiText(time.date()), time.time().toString(u"HH:mm:ss"_s));
}

// A file of options that only this user can read, gone with the object.
std::unique_ptr<QTemporaryFile> optionsFile(const QByteArray &content)
{
    for (const QString &folder : platform::runtimeFolders()) {
        if (!platform::makePrivateFolder(folder) || !platform::isPrivateFolder(folder))
            continue;
        auto file = std::make_unique<QTemporaryFile>(folder + u"/replay-XXXXXX"_s);
        if (file->open() && file->write(content) == content.size() && file->flush())
            return file;
    }
    throw ServerError(ServerError::Kind::DumpFailed,
                      u"پرونده موقت در %1 ساخته نشد؛ فضا و اجازه نوشتن در آن را بررسی نمایید."_s
                          .arg(ServerError::shownPath(platform::runtimeFolders().constLast())),
                      u"no private folder for a temporary file"_s);
}

// A tool that still runs when an exception passes ends with it.
class EndedTool
{
public:
    explicit EndedTool(QProcess &process)
        : m_process(process) { }
    ~EndedTool()
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

// A part of one file. A transaction never goes over into the next file.
struct BinaryLogReplay::Piece
{
    QString file;
    qint64 begin = 0;
    qint64 end = 0;
};

struct BinaryLogReplay::Way
{
    QList<Piece> pieces;
    bool isComplete = false; // leads to the moment that was asked for, or as far as there is anything
    Reach reach;
};

QString BinaryLogReplay::Reach::words() const
{
    if (upToNow)
        return {};
    return possible && until.isValid() ? problem + u" با این پشتیبان می‌توان تا %1 بازگشت."_s.arg(shownTime(until)) : problem;
}

BinaryLogReplay::BinaryLogReplay(const DataFolder &folder, const ServerPrograms &programs)
    : m_folder(folder)
    , m_programs(programs)
{
}

BinaryLogReplay::Reach BinaryLogReplay::reach(const Mark &mark) const
{
    return way(mark, {}).reach;
}

BinaryLogReplay::Way BinaryLogReplay::way(const Mark &mark, const std::optional<QDateTime> &until) const
{
    Way way;
    const BinaryLog log(m_folder);
    if (mark.file.isEmpty()) {
        way.reach.problem = u"هنگام گرفتن این پشتیبان، ثبت تغییرات خاموش بود."_s;
        return way;
    }
    const QStringList files = log.from(mark.file);
    if (files.isEmpty()) {
        way.reach.problem = u"ثبت تغییرات پس از این پشتیبان دیگر موجود نیست."_s;
        return way;
    }
    bool damaged = false;
    for (const QString &file : files) {
        const qint64 begin = file == files.constFirst() ? qMax(mark.position, firstPosition) : firstPosition;
        const BinaryLogFile read = BinaryLogFile::read(file, begin, until);
        if (!read.isLog || begin > read.end) {
            damaged = true;
            break;
        }
        way.reach.possible = true;
        if (read.last.isValid())
            way.reach.until = read.last;
        way.pieces.append({file, begin, read.end});
        way.isComplete = read.goesFurther;
        if (way.isComplete)
            return way;
        // What a server that was killed had not finished writing it has not saved either.
        damaged = !read.isWhole && !read.wasBrokenOff;
        if (damaged)
            break;
    }
    way.reach.upToNow = !damaged && log.isInUse(files.constLast());
    way.isComplete = way.reach.upToNow || !until;
    if (damaged)
        way.reach.problem = u"ثبت تغییرات پس از این پشتیبان آسیب دیده است."_s;
    else if (!way.reach.upToNow)
        way.reach.problem = u"ثبت تغییرات پس از این پشتیبان پیش از اکنون پایان می‌یابد یا بخشی از آن گم شده است."_s;
    return way;
}

void BinaryLogReplay::run(const KConnectionSettings &server, const Mark &mark, const QString &from, const QString &into,
                          const std::optional<QDateTime> &until, const Progress &progress) const
{
    const Way found = way(mark, until);
    if (!found.reach.possible || !found.isComplete)
        throw ServerError(ServerError::Kind::DumpFailed, found.reach.words(), u"the binary log does not reach that far"_s);
    qint64 expected = 0;
    for (const Piece &piece : found.pieces)
        expected += piece.end - piece.begin;
    qint64 done = 0;
    for (const Piece &piece : found.pieces) {
        replay(server, piece, {from, into}, [&] { return !progress || progress(done, expected); });
        done += piece.end - piece.begin;
    }
}

void BinaryLogReplay::replay(const KConnectionSettings &server, const Piece &piece, const QStringList &databases,
                             const std::function<bool()> &goesOn) const
{
    for (const QString &program : {m_programs.binaryLog, m_programs.client}) {
        if (program.isEmpty())
            throw ToolProcess::missing(u"mariadb-binlog"_s, u"not found"_s);
    }
    const auto options = optionsFile(ServerConfig::clientOptions(server));
    const auto words = optionsFile({});
    QStringList arguments{u"--no-defaults"_s, u"--disable-log-bin"_s, u"--start-position=%1"_s.arg(piece.begin),
                          u"--stop-position=%1"_s.arg(piece.end)};
    const QString &from = databases.constFirst();
    const QString &into = databases.constLast();
    if (from != into)
        arguments << u"--rewrite-db=%1->%2"_s.arg(from, into);
    // By the name under which it was logged.
    arguments << u"--database="_s + from;
    arguments << piece.file;

    platform::ignoreBrokenPipes();
    QProcess reader;
    QProcess writer;
    for (QProcess *process : {&reader, &writer}) {
        platform::tieToThisProgram(*process);
        process->setProcessEnvironment(ToolProcess::environment());
        process->setStandardErrorFile(words->fileName(), QIODevice::Append);
    }
    reader.setStandardInputFile(QProcess::nullDevice());
    reader.setStandardOutputProcess(&writer);
    writer.setStandardOutputFile(QProcess::nullDevice());
    reader.start(m_programs.binaryLog, arguments);
    const EndedTool readerEnds(reader);
    writer.start(m_programs.client, {ServerConfig::fromFile(options->fileName()), u"--binary-mode"_s, u"--batch"_s, u"--loose-sandbox"_s, u"--default-character-set=utf8mb4"_s, u"--max-allowed-packet=1G"_s, into});
    const EndedTool writerEnds(writer);
    if (!reader.waitForStarted() || !writer.waitForStarted())
        throw ToolProcess::missing(reader.error() == QProcess::FailedToStart ? m_programs.binaryLog : m_programs.client);
    while (writer.state() != QProcess::NotRunning || reader.state() != QProcess::NotRunning) {
        if (!goesOn())
            throw ServerError(ServerError::Kind::Cancelled, u"کار به درخواست شما متوقف شد و چیزی تغییر نکرد."_s, u"cancelled by the user"_s);
        QProcess &waited = reader.state() != QProcess::NotRunning ? reader : writer;
        waited.waitForFinished(replayPulseMilliseconds);
        if (&waited == &reader)
            writer.waitForFinished(0);
    }
    words->seek(0);
    const auto failedOf = [](const QProcess &process) { return process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0; };
    if (failedOf(reader) || failedOf(writer))
        throw ServerError(ServerError::Kind::DumpFailed, u"تغییرات پس از پشتیبان به آن افزوده نشد و چیزی تغییر نکرد."_s,
                          u"%1: %2"_s.arg(QFileInfo(piece.file).fileName(), QString::fromUtf8(words->readAll()).trimmed()));
}
