// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupTaking.h"

#include "host/backup/BackupFiles.h"
#include "host/backup/BackupSnapshot.h"
#include "host/backup/BackupSql.h"
#include "host/backup/BackupState.h"
#include "host/backup/BackupTools.h"
#include "host/backup/BackupWriter.h"
#include "host/server/Platform.h"
#include "host/server/ServerConfig.h"
#include "host/server/ToolProcess.h"
#include "suite/db/connection/KLongWork.h"

#include <QFileInfo>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int triesForOneMoment = 3;
// The heading of a dump is shorter, and is written before its transaction begins.
constexpr qsizetype surelyBegun = 2048;
constexpr qsizetype lastBytes = 512;

// The dump has not begun while the writers could be held.
struct TooLate
{
};

class Taking
{
public:
    Taking(const KConnectionSettings &settings, const ServerPrograms &programs, const BackupTaking::Request &request, const BackupTaking::Progress &progress)
        : m_settings(settings)
        , m_programs(programs)
        , m_request(request)
        , m_progress(progress)
        , m_snapshot(settings) { }

    BackupFile run()
    {
        // Asked first: it finds the node that answers, where several are named.
        askSize();
        requireDefinitions();
        dumpOfOneMoment();
        m_writer->close();
        const BackupManifest manifest = describe();
        m_writer->finish(manifest);
        return BackupFile(m_path);
    }

    QString folder() const { return m_request.file.isEmpty() ? m_request.folder : QFileInfo(m_request.file).path(); }

    QString failedMessage() const
    {
        return u"نسخه پشتیبان در پوشه %1 ساخته نشد؛ اجازه نوشتن و فضای آن را بررسی و دوباره تلاش کنید."_s.arg(ServerError::shownPath(folder()));
    }

private:
    QString knownAs() const { return m_request.knownAs.isEmpty() ? m_settings.database : m_request.knownAs; }

    void askSize()
    {
        KConnection connection(m_settings);
        m_expected = BackupSql::value(connection,
                                      "SELECT SUM(data_length) FROM information_schema.tables WHERE table_schema=" + BackupSql::text(m_settings.database))
                         .toLongLong();
        const QList<QByteArrayList> views = BackupSql::rows(connection, "SELECT TABLE_NAME FROM information_schema.VIEWS WHERE TABLE_SCHEMA=" + BackupSql::text(m_settings.database));
        for (const QByteArrayList &view : views)
            m_views << QString::fromUtf8(view.constFirst());
        if (!BackupSql::hasDatabase(connection, m_settings.database))
            throw ServerError(ServerError::Kind::DumpFailed, failedMessage(), u"there is no database "_s + m_settings.database);
    }

    // A table whose definition is lost would be left out without a word.
    void requireDefinitions() const
    {
        QString lost;
        try {
            KConnection connection(m_settings);
            const QStringList defined = BackupSql::tablesOf(connection, m_settings.database);
            const QList<QByteArrayList> stored = BackupSql::rows(connection, "SELECT NAME FROM information_schema.INNODB_SYS_TABLES");
            for (const QByteArrayList &row : stored) {
                const QString table = QString::fromUtf8(row.constFirst());
                const QString name = table.section(u'/', 1);
                // With a # in it: a table of the server's own, for a moment.
                if (table.startsWith(m_settings.database + u'/') && !name.contains(u'#') && !defined.contains(name, Qt::CaseInsensitive))
                    lost = name;
            }
        } catch (const CMySQLException &) {
            // An office server does not tell every account, and some servers tell nobody.
        }
        if (!lost.isEmpty())
            throw BackupTools::damagedTable(lost, u"the definition of "_s + lost + u" is lost"_s);
    }

    void dumpOfOneMoment()
    {
        for (int attempt = 1;; ++attempt) {
            begin();
            m_isOneMoment = m_snapshot.hold();
            m_taken = QDateTime::currentDateTime();
            try {
                dump(attempt == triesForOneMoment);
                return;
            } catch (const TooLate &) {
                m_snapshot.letGo();
            }
        }
    }

    // The file anew, under a name of this moment.
    void begin()
    {
        m_writer.reset();
        QDateTime now = QDateTime::currentDateTime();
        now.setTimeSpec(Qt::UTC);
        const auto format = m_request.passphrase.isEmpty() ? BackupFile::Format::Compressed : BackupFile::Format::Encrypted;
        m_path = m_request.file.isEmpty() ? BackupFiles::freePath(m_request.folder, knownAs(), format, now) : m_request.file;
        m_writer = std::make_unique<BackupWriter>(m_path, m_request.passphrase);
        m_seen = 0;
        m_end.clear();
    }

    void dump(bool isLastAttempt)
    {
        const auto options = BackupTools::privateFile(ServerConfig::clientOptions(KConnection::atNodeInUse(m_settings)));
        const auto words = BackupTools::privateFile();
        ToolProcess tool;
        tool.program = m_programs.dump;
        tool.arguments = {ServerConfig::fromFile(options->fileName()),
                          u"--single-transaction"_s,
                          u"--quick"_s,
                          u"--hex-blob"_s,
                          u"--skip-triggers"_s,
                          u"--no-tablespaces"_s,
                          u"--default-character-set=utf8mb4"_s,
                          u"--max-allowed-packet=1G"_s,
                          m_settings.database};
        // They hold no rows, and say with whose rights they are to be run, which only an administrator may.
        for (const QString &view : std::as_const(m_views))
            tool.arguments.insert(tool.arguments.size() - 1, u"--ignore-table=%1.%2"_s.arg(m_settings.database, view));
        tool.errorFile = words->fileName();
        // Nothing of the dump's tables comes before its transaction, so their first words end the wait of the writers.
        tool.sink = [this](const QByteArray &statements) {
            m_seen += statements.size();
            if (m_seen > surelyBegun)
                m_snapshot.letGo();
            m_end = (m_end + statements.right(lastBytes)).right(lastBytes);
            m_writer->write(statements);
        };
        const int code = tool.run([&](qint64) { pulse(isLastAttempt); });
        m_snapshot.letGo();
        if (code != 0 || !m_end.contains("\n-- Dump completed"))
            throw BackupTools::failure(failedMessage(), folder(), u"%1 ended with %2: %3"_s.arg(tool.program).arg(code).arg(BackupTools::wordsOf(*words)));
    }

    void pulse(bool isLastAttempt)
    {
        if (m_snapshot.isTimeOver()) {
            if (!isLastAttempt)
                throw TooLate();
            m_snapshot.letGo();
            m_isOneMoment = false;
        }
        // Whoever is told may use the database, and would wait for this very program.
        if (!m_snapshot.isHolding())
            tell(m_writer->plainBytes());
    }

    void tell(qint64 done)
    {
        if (m_progress && !m_progress(done, m_expected))
            throw BackupTools::cancelled();
    }

    BackupManifest describe()
    {
        BackupManifest manifest;
        manifest.database = m_settings.database;
        manifest.takenUtc = QDateTime::fromSecsSinceEpoch(m_taken.toSecsSinceEpoch(), Qt::UTC);
        manifest.taken = QDateTime(m_taken.date(), QTime(m_taken.time().hour(), m_taken.time().minute(), m_taken.time().second()), Qt::UTC);
        manifest.reason = m_request.reason;
        manifest.program = u"" TZ_VERSION ""_s;
        manifest.size = m_writer->fileBytes();
        manifest.plainSize = m_writer->plainBytes();
        manifest.digest = m_writer->digest();
        manifest.encrypted = !m_request.passphrase.isEmpty();
        manifest.oneSnapshot = m_isOneMoment;
        // From the tables under another name the log does not go on.
        const bool goesOn = m_isOneMoment && knownAs() == m_settings.database;
        manifest.logFile = goesOn ? m_snapshot.logFile() : QString();
        manifest.logPosition = goesOn ? m_snapshot.logPosition() : 0;
        KConnection &connection = m_snapshot.connection();
        BackupState::readVersions(connection, manifest);
        manifest.database = knownAs();
        manifest.tables = BackupState::tables(connection, m_settings.database);
        tell(m_writer->plainBytes());
        manifest.books = BackupState::books(connection, m_settings.database);
        return manifest;
    }

    KConnectionSettings m_settings;
    const ServerPrograms &m_programs;
    const BackupTaking::Request &m_request;
    const BackupTaking::Progress &m_progress;
    BackupSnapshot m_snapshot;
    std::unique_ptr<BackupWriter> m_writer;
    QString m_path;
    QStringList m_views;
    QByteArray m_end;
    QDateTime m_taken;
    qint64 m_expected = 0;
    qint64 m_seen = 0;
    bool m_isOneMoment = false;
};

}

BackupTaking::BackupTaking(const KConnectionSettings &settings, const ServerPrograms &programs)
    : m_settings(settings)
    , m_programs(programs)
{
}

BackupFile BackupTaking::take(const Request &request, const Progress &progress) const
{
    Taking taking(m_settings, m_programs, request, progress);
    QString reason;
    if (request.file.isEmpty() && !platform::makePrivateFolder(request.folder, &reason))
        throw ServerError(ServerError::Kind::FolderNotWritable, taking.failedMessage(), request.folder + u": "_s + reason);
    if (!request.file.isEmpty() && QFileInfo::exists(request.file))
        throw ServerError(ServerError::Kind::DumpFailed,
                          u"پرونده %1 از پیش هست؛ نام دیگری برای پشتیبان بدهید."_s.arg(ServerError::shownPath(request.file)), u"the file exists"_s);
    BackupFiles::removeLeft(taking.folder());
    const KLongWork work;
    try {
        return taking.run();
    } catch (const CMySQLException &error) {
        throw BackupTools::failure(taking.failedMessage(), taking.folder(), error.GetErrorMessage());
    }
}

std::function<void(const KConnectionSettings &, const std::function<void()> &)> BackupTaking::beforeServerUpgrade(const DataFolder &folder)
{
    return [folder](const KConnectionSettings &settings, const std::function<void()> &pulse) {
        static_cast<void>(BackupTaking(settings).take({folder.backupsPath(), {}, BackupManifest::Reason::BeforeUpgrade}, [&](qint64, qint64) {
            pulse();
            return true;
        }));
    };
}
