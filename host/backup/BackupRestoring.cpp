// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupRestoring.h"

#include "host/backup/BackupManifest.h"
#include "host/backup/BackupSql.h"
#include "host/backup/BackupState.h"
#include "host/backup/BackupTaking.h"
#include "host/backup/BackupTools.h"
#include "host/server/BinaryLog.h"
#include "host/server/DatabaseBootstrap.h"
#include "host/server/EmbeddedServer.h"
#include "host/server/Platform.h"
#include "host/server/ServerState.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/db/connection/KLease.h"
#include "suite/db/connection/KLongWork.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/accounting/office/OfficeSession.h"
#include "suite/accounting/office/SuiteSchema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSysInfo>
#include <QVersionNumber>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcRestoring, "tz.backup")

ServerError newerBackup(const BackupFile &file)
{
    return {ServerError::Kind::NewerBackup,
            u"پشتیبان %1 با نسخه تازه‌تری از برنامه گرفته شده است؛ نخست برنامه را به روز نمایید."_s.arg(ServerError::shownPath(file.path())),
            u"the backup's schema is newer than this program's"_s};
}

void requireNotNewer(const BackupFile &file)
{
    if (file.manifest() && file.manifest()->suiteVersion > SuiteSchema::currentVersion())
        throw newerBackup(file);
}

// What the loaded tables say of themselves, also where there is no manifest. present: the versions of the database that they replace.
void requireUsable(const BackupFile &file, KConnection &connection, const QString &database, double presentModule)
{
    BackupManifest loaded;
    loaded.database = database;
    BackupState::readVersions(connection, loaded);
    if (BackupSql::tablesOf(connection, database).isEmpty())
        throw ServerError(ServerError::Kind::DumpFailed,
                          u"پرونده %1 جدولی ندارد و بازگردانده نشد؛ پرونده دیگری انتخاب نمایید."_s.arg(ServerError::shownPath(file.path())),
                          u"no tables"_s);
    const bool isOfNewerProgram = file.manifest()
        && QVersionNumber::fromString(file.manifest()->program) > QVersionNumber::fromString(u"" TZ_VERSION ""_s);
    if (loaded.suiteVersion > SuiteSchema::currentVersion()
        || (isOfNewerProgram && presentModule > 0 && loaded.moduleVersion > presentModule))
        throw newerBackup(file);
}

// A table with a trigger cannot change places, and the program's own have none.
void requireNoTriggers(KConnection &connection, const QString &database)
{
    const QString trigger = QString::fromUtf8(BackupSql::value(
        connection, "SELECT CONCAT(EVENT_OBJECT_TABLE,'.',TRIGGER_NAME) FROM information_schema.TRIGGERS WHERE EVENT_OBJECT_SCHEMA=" + BackupSql::text(database)));
    if (!trigger.isEmpty())
        throw ServerError(ServerError::Kind::DumpFailed,
                          u"پشتیبان بازگردانده نشد، چون جدولی از پایگاه داده تریگر «\u2068%1\u2069» دارد؛ حذف آن را از مسئول سرور بخواهید."_s.arg(trigger),
                          u"a trigger: "_s + trigger);
}

// In the restored tables: that they were restored, and that what programs held when they were dumped is over.
void markRestored(const BackupFile &file, KConnection &connection, const QString &database)
{
    if (BackupSql::hasTable(connection, database, u"Leases"_s))
        connection.run("DELETE FROM " + BackupSql::name(database, u"Leases"_s));
    if (!BackupSql::hasTable(connection, database, u"Changes"_s))
        return;
    const bool keepsValues = !BackupSql::value(connection,
                                               "SELECT 1 FROM information_schema.COLUMNS WHERE TABLE_NAME='Changes' AND COLUMN_NAME='sValues' AND TABLE_SCHEMA="
                                                   + BackupSql::text(database))
                                  .isNull();
    const QByteArray values = KChangedValues::toJson({{u"dateBackup"_s, QVariant(), file.taken()}});
    connection.run("INSERT INTO " + BackupSql::name(database, u"Changes"_s) + "(sTable,iRecordID,iKind,iUserID,sComputer,date"
                   + (keepsValues ? ",sValues" : "") + ") VALUES('Backup',0," + QByteArray::number(static_cast<int>(KChange::Kind::Restored)) + ','
                   + QByteArray::number(KChangeLog::author()) + ',' + BackupSql::text(QSysInfo::machineHostName().left(100)) + ",NOW()"
                   + (keepsValues ? ',' + BackupSql::text(QString::fromUtf8(values)) : QByteArray()) + ')');
}

// Comments of the databases beside the office's; no RENAME moves a comment, and no backup holds it. Nothing that lacks one is ever dropped.
const QString markOfOurs = u"TzAuto restoring"_s;
const QString markOfCopied = markOfOurs + u", copied"_s; // or nobody wants a copy

// The two databases beside the office's, for as long as a restoring takes, and the order in which they come and go.
class Exchange
{
public:
    Exchange(KConnection &connection, const QString &database)
        : m_connection(connection)
        , m_database(database)
        , m_aside(database + u"_restoring"_s)
        , m_replaced(database + u"_replaced"_s) { }

    // The server would notice the end of the connection only a little later, when the next restoring may have asked already.
    ~Exchange()
    {
        try {
            if (m_isLocked)
                m_connection.run("DO RELEASE_LOCK(" + lockName() + ')');
        } catch (const CMySQLException &error) {
            qCWarning(lcRestoring).noquote() << "the lock of restoring goes with its connection:" << error.GetErrorMessage();
        }
    }
    Exchange(const Exchange &) = delete;
    Exchange &operator=(const Exchange &) = delete;

    QString aside() const { return m_aside; }
    QString replaced() const { return m_replaced; }

    // Ends with the connection, also when the program is killed.
    bool lock()
    {
        m_isLocked = BackupSql::value(m_connection, "SELECT GET_LOCK(" + lockName() + ",0)") == "1";
        return m_isLocked;
    }

    // Throws ServerError when somebody else's database has a name that is needed.
    void requireOwnNames()
    {
        for (const QString &database : {m_aside, m_replaced}) {
            if (!mayBeDropped(database))
                throw ServerError(ServerError::Kind::DumpFailed,
                                  u"پایگاه داده «\u2068%1\u2069» را این برنامه نساخته است و بازگرداندن به نام آن نیاز دارد؛ تغییر نام یا حذف آن را از مسئول سرور بخواهید."_s.arg(database),
                                  u"not ours: "_s + database);
        }
    }

    void beginAside()
    {
        drop(m_aside);
        make(m_aside, markOfOurs);
    }

    // Before the tables have changed places.
    void giveUp()
    {
        drop(m_aside);
        if (BackupSql::tablesOf(m_connection, m_replaced).isEmpty())
            drop(m_replaced);
    }

    // One RENAME moves the old tables out and the new ones in, so that nobody ever sees none or only half of them. isCopyWanted: the old ones stay
    // until markCopied.
    void run(bool isCopyWanted)
    {
        make(m_replaced, isCopyWanted ? markOfOurs : markOfCopied);
        QByteArrayList moves;
        move(BackupSql::tablesOf(m_connection, m_database), m_database, m_replaced, moves);
        move(BackupSql::tablesOf(m_connection, m_aside), m_aside, m_database, moves);
        m_connection.run("RENAME TABLE " + moves.join(", "));
    }

    // Where the answer to the RENAME was lost, the tables say what became of it.
    bool hasHappened()
    {
        return BackupSql::tablesOf(m_connection, m_aside).isEmpty() && !BackupSql::tablesOf(m_connection, m_replaced).isEmpty();
    }

    // All that is in the replaced tables is in a backup.
    void markCopied()
    {
        m_connection.run("ALTER DATABASE " + BackupSql::name(m_replaced) + " COMMENT " + BackupSql::text(markOfCopied));
    }

    void dropReplaced() { drop(m_replaced); }

    void finish()
    {
        drop(m_replaced);
        drop(m_aside);
    }

    // Replaced tables of which nobody knows that they are in a backup.
    bool holdsUncopied()
    {
        return mark(m_replaced) == markOfOurs && !BackupSql::tablesOf(m_connection, m_replaced).isEmpty();
    }

    // After a kill: the exchange has happened, or it has not, and which can be seen from where the tables are.
    void clean()
    {
        const QStringList waiting = isOurs(m_aside) ? BackupSql::tablesOf(m_connection, m_aside) : QStringList();
        const QStringList replaced = isOurs(m_replaced) ? BackupSql::tablesOf(m_connection, m_replaced) : QStringList();
        const QStringList present = BackupSql::tablesOf(m_connection, m_database);
        if (!replaced.isEmpty() && (present.isEmpty() || !waiting.isEmpty())) {
            // Tables that stand nowhere else go back; with others of their names in their place, nobody can tell which are meant.
            QByteArrayList moves;
            QStringList home;
            for (const QString &table : replaced) {
                if (!present.contains(table, Qt::CaseInsensitive))
                    home << table;
            }
            move(home, m_replaced, m_database, moves);
            if (!moves.isEmpty())
                m_connection.run("RENAME TABLE " + moves.join(", "));
            qCWarning(lcRestoring).noquote() << "a restoring was cut off; tables put back:" << home.join(u' ');
            if (home.size() < replaced.size())
                return;
        }
        if (holdsUncopied())
            qCWarning(lcRestoring).noquote() << m_replaced << "stays: a restoring was cut off before what was saved last was in a backup";
        else if (mayBeDropped(m_replaced))
            drop(m_replaced);
        if (mayBeDropped(m_aside))
            drop(m_aside);
        for (const QString &database : {m_aside, m_replaced}) {
            if (!mayBeDropped(database))
                qCWarning(lcRestoring).noquote() << database << "stays: no restoring has made it";
        }
    }

private:
    QByteArray lockName() const { return BackupSql::text(u"tzauto restoring "_s + m_database.left(40)); }

    void make(const QString &database, const QString &mark)
    {
        m_connection.run("CREATE DATABASE " + BackupSql::name(database) + " COMMENT " + BackupSql::text(mark));
    }

    // The tables before the database, so that whatever a kill leaves has its mark still.
    void drop(const QString &database)
    {
        if (!BackupSql::hasDatabase(m_connection, database))
            return;
        QByteArrayList tables;
        const QStringList present = BackupSql::tablesOf(m_connection, database);
        for (const QString &table : present)
            tables << BackupSql::name(database, table);
        if (!tables.isEmpty())
            m_connection.run("SET STATEMENT foreign_key_checks=0 FOR DROP TABLE " + tables.join(", "));
        m_connection.run("DROP DATABASE IF EXISTS " + BackupSql::name(database));
    }

    QString mark(const QString &database)
    {
        return QString::fromUtf8(
            BackupSql::value(m_connection, "SELECT SCHEMA_COMMENT FROM information_schema.SCHEMATA WHERE SCHEMA_NAME=" + BackupSql::text(database)));
    }
    bool isOurs(const QString &database) { return mark(database).startsWith(markOfOurs); }

    // One that is not there or has nothing in it is nobody's.
    bool mayBeDropped(const QString &database)
    {
        const QByteArray name = BackupSql::text(database);
        return isOurs(database)
            || BackupSql::value(m_connection, "SELECT (SELECT COUNT(*) FROM information_schema.TABLES WHERE TABLE_SCHEMA=" + name + ")+(SELECT COUNT(*) FROM information_schema.ROUTINES WHERE ROUTINE_SCHEMA=" + name + ')')
            == "0";
    }

    static void move(const QStringList &tables, const QString &from, const QString &to, QByteArrayList &moves)
    {
        for (const QString &table : tables)
            moves << BackupSql::name(from, table) + " TO " + BackupSql::name(to, table);
    }

    KConnection &m_connection;
    QString m_database;
    QString m_aside;
    QString m_replaced;
    bool m_isLocked = false;
};

KConnectionSettings serverOf(KConnectionSettings settings)
{
    settings.database.clear();
    return settings;
}

bool isCurrent(const KConnectionSettings &settings)
{
    if (!KConnection::isConfigured(0))
        return false;
    const KConnectionSettings current = KConnection::settings(0);
    return current.database == settings.database && current.socketPath == settings.socketPath && current.host.isEmpty() == settings.host.isEmpty();
}

QString failedToRestore(const BackupFile &file)
{
    return u"پرونده %1 بازگردانده نشد و پایگاه داده همان است که بود؛ پرونده دیگری انتخاب نمایید."_s.arg(ServerError::shownPath(file.path()));
}

QString unknownWhetherRestored()
{
    return u"ارتباط با سرور در لحظه جابه‌جایی قطع شد و روشن نیست که پشتیبان بازگردانده شد؛ پس از ورود دوباره بررسی نمایید."_s;
}

QString keptWords(const QString &database)
{
    return u"از آنچه دیگران در آخرین لحظه ثبت کردند پشتیبان گرفته نشد؛ در پایگاه داده «\u2068%1\u2069» مانده است و بازگرداندن بعدی پشتیبان آن را می‌گیرد."_s.arg(database);
}

ServerError busy()
{
    return {ServerError::Kind::InUse, u"بازگرداندن دیگری در همین پایگاه داده در جریان است؛ پایان آن را منتظر بمانید."_s,
            u"another restoring holds the lock"_s};
}

}

BackupRestoring::BackupRestoring(const KConnectionSettings &settings, const ServerPrograms &programs)
    : m_settings(settings)
    , m_programs(programs)
{
}

BackupFile BackupRestoring::restore(const Request &request, const BackupLoading::Progress &progress) const
{
    requireNotNewer(request.file);
    const KLongWork work;
    bool isExchanging = false;
    bool isExchanged = false;
    bool isCopied = !request.copiesFirst;
    BackupFile copy;
    const auto keep = [&](const QString &replaced, const QString &detail) {
        qCWarning(lcRestoring).noquote() << "restored, but" << replaced << "stays:" << detail;
        tell(request, keptWords(replaced));
    };
    try {
        requireAlone(request);
        KConnection connection(serverOf(m_settings));
        Exchange exchange(connection, m_settings.database);
        if (!exchange.lock())
            throw busy();
        exchange.clean();
        exchange.requireOwnNames();
        if (exchange.holdsUncopied()) {
            copyLeft(exchange.replaced(), request);
            exchange.markCopied();
            exchange.dropReplaced();
        }
        requireNoTriggers(connection, m_settings.database);
        BackupManifest present;
        present.database = m_settings.database;
        BackupState::readVersions(connection, present);
        exchange.beginAside();
        try {
            BackupLoading loading(m_settings, m_programs);
            loading.setConfined(true);
            loading.load(request.file, exchange.aside(), request.passphrase, progress);
            requireUsable(request.file, connection, exchange.aside(), present.moduleVersion);
            if (request.beforeExchange)
                request.beforeExchange(exchange.aside());
            markRestored(request.file, connection, exchange.aside());
            // As late as can be: what is saved from here on is in the copy only if it is looked for.
            requireAlone(request);
            if (request.copiesFirst)
                copy = copyOf(m_settings, request, [&] { return !progress || progress(request.file.size(), request.file.size()); });
            // Before the exchange: a kill in between leaves a log that ends too early, never one that leads from one state into another.
            BinaryLog::beginAnew(connection);
            isExchanging = true;
            exchange.run(request.copiesFirst);
            isExchanged = true;
        } catch (const CMySQLException &) {
            isExchanged = isExchanging && exchange.hasHappened();
            isExchanging = false;
            if (!isExchanged) {
                exchange.giveUp();
                throw;
            }
        } catch (...) {
            exchange.giveUp();
            throw;
        }
        try {
            if (!isCopied)
                copyWhatCameLater(connection, exchange.replaced(), request, copy);
            exchange.markCopied();
            isCopied = true;
            exchange.finish();
        } catch (const ServerError &error) {
            keep(exchange.replaced(), error.detail());
        } catch (const CMySQLException &error) {
            // What needs only be cleaned, the next program cleans.
            if (isCopied)
                qCWarning(lcRestoring).noquote() << "restored, but not cleaned up:" << error.GetErrorMessage();
            else
                keep(exchange.replaced(), error.GetErrorMessage());
        }
    } catch (const CMySQLException &error) {
        throw BackupTools::failure(isExchanging ? unknownWhetherRestored() : failedToRestore(request.file), request.backupsFolder, error.GetErrorMessage());
    }
    KTableSchema::forgetAll();
    return copy;
}

void BackupRestoring::requireAlone(const Request &request) const
{
    const QStringList others = request.despiteOthers ? QStringList() : othersAtWork();
    if (!others.isEmpty())
        throw ServerError(ServerError::Kind::InUse,
                          u"تا دیگران با همین پایگاه داده کار می‌کنند پشتیبان بازگردانده نمی‌شود: %1"_s.arg(others.join(u"، "_s)),
                          u"others are at work: "_s + others.join(u' '));
}

BackupFile BackupRestoring::copyOf(const KConnectionSettings &settings, const Request &request, const std::function<bool()> &goesOn) const
{
    BackupTaking::Request copy{request.backupsFolder, {}, BackupManifest::Reason::BeforeRestore, request.copyPassphrase};
    copy.knownAs = m_settings.database;
    return BackupTaking(settings, m_programs).take(copy, [&](qint64, qint64) { return goesOn(); });
}

// Others may have saved between the copy and the exchange. Their rows stand in the replaced tables, and are copied once more before those go.
void BackupRestoring::copyWhatCameLater(KConnection &connection, const QString &replaced, const Request &request, BackupFile &copy) const
{
    if (!copy.manifest() || BackupState::tables(connection, replaced) == copy.manifest()->tables)
        return;
    qCInfo(lcRestoring) << "somebody saved while the backup was restored; the replaced tables are copied again";
    copy = copyOf(beside(replaced), request, [] { return true; });
}

// What an earlier restoring left because it was in no backup.
void BackupRestoring::copyLeft(const QString &replaced, const Request &request) const
{
    try {
        const BackupFile copy = copyOf(beside(replaced), request, [] { return true; });
        qCWarning(lcRestoring).noquote() << "what an earlier restoring left in" << replaced << "is now in" << copy.path();
        tell(request,
             u"بازگرداندن پیشین نیمه‌کاره مانده بود و وضع پیش از آن در این پشتیبان نگه داشته شد: %1"_s.arg(ServerError::shownPath(copy.path())));
    } catch (const ServerError &error) {
        // Whatever is wrong with it, the office's own database is not what is damaged.
        const ServerError::Kind kind = error.kind() == ServerError::Kind::Damaged ? ServerError::Kind::DumpFailed : error.kind();
        throw ServerError(kind, u"پایگاه داده «\u2068%1\u2069» از بازگرداندن پیشین مانده است و پشتیبان آن گرفته نشد. %2"_s.arg(replaced, error.userMessage()), error.detail());
    }
}

KConnectionSettings BackupRestoring::beside(const QString &database) const
{
    KConnectionSettings settings = m_settings;
    settings.database = database;
    return settings;
}

void BackupRestoring::tell(const Request &request, const QString &words)
{
    if (request.warn)
        request.warn(words);
}

QStringList BackupRestoring::othersAtWork() const
{
    QStringList others;
    KConnection connection(m_settings);
    if (isCurrent(m_settings) && BackupSql::hasTable(connection, m_settings.database, u"Leases"_s)) {
        const QString own = OfficeSession::leaseOf(0);
        const QList<QByteArrayList> sessions = BackupSql::rows(connection, "SELECT sName,sText FROM Leases WHERE sName LIKE 'Session %'");
        for (const QByteArrayList &session : sessions) {
            const QString lease = QString::fromUtf8(session[0]);
            if (lease != own && KLease::isAlive(lease))
                others << QString::fromUtf8(session[1]);
        }
    }
    // The programs of other computers, whatever they are; of this one the server cannot tell this program's connections from another's.
    const auto computer = [](const QByteArray &host) { return host.left(host.lastIndexOf(':')); };
    const QByteArray here = computer(BackupSql::value(connection, "SELECT HOST FROM information_schema.PROCESSLIST WHERE ID=CONNECTION_ID()"));
    const QList<QByteArrayList> connections = BackupSql::rows(connection, "SELECT HOST,USER FROM information_schema.PROCESSLIST WHERE DB=" + BackupSql::text(m_settings.database));
    for (const QByteArrayList &row : connections) {
        const QString text = QString::fromUtf8(row[1] + '@' + computer(row[0]));
        if (row[0].contains(':') && computer(row[0]) != here && !others.contains(text))
            others << text;
    }
    return others;
}

void BackupRestoring::cleanLeft() const
{
    try {
        KConnection connection(serverOf(m_settings));
        Exchange exchange(connection, m_settings.database);
        if (exchange.lock())
            exchange.clean();
    } catch (const CMySQLException &error) {
        // An account of an office server may not see other databases, and then has never restored anything.
        qCWarning(lcRestoring).noquote() << "cannot clean after a restoring:" << error.GetErrorMessage();
    }
}

QString BackupRestoring::intoNewFolder(const DataFolder &folder, const BackupFile &file, const QString &passphrase, const BackupLoading::Progress &progress,
                                       const ServerOptions &options, const std::function<void(const KConnectionSettings &)> &beforeExchange)
{
    requireNotNewer(file);
    folder.create();
    platform::FileLock lock(folder.path() + u"/server.lock"_s);
    if (lock.tryLock() != platform::FileLock::Result::Taken)
        throw ServerError(ServerError::Kind::InUse,
                          u"پوشه %1 هم‌اکنون در برنامه دیگری باز است؛ آن برنامه را ببندید و دوباره تلاش کنید."_s.arg(ServerError::shownPath(folder.path())),
                          u"server.lock is held"_s);
    // What a killed program had restored is the office until this one is through.
    DatabaseBootstrap(folder, options).finishRestoring();
    const DataFolder made(folder.restoringPath());
    try {
        made.create();
        // The account stays as it is.
        QFile::copy(folder.clientConfigPath(), made.clientConfigPath());
        {
            EmbeddedServer server(made, options);
            server.start([&](const QString &) {
                if (progress && !progress(0, file.size()))
                    throw BackupTools::cancelled();
            });
            const KLongWork work;
            BackupLoading(server.connectionSettings(), options.programs).load(file, server.connectionSettings().database, passphrase, progress);
            if (beforeExchange)
                beforeExchange(server.connectionSettings());
            KConnection connection(server.connectionSettings());
            requireUsable(file, connection, server.connectionSettings().database, 0);
            markRestored(file, connection, server.connectionSettings().database);
            connection.close();
            server.stop();
        }
        const auto rename = [](const QString &from, const QString &to) {
            if (!QDir().rename(from, to))
                throw ServerError(ServerError::Kind::FolderNotWritable, u"پوشه %1 جابه‌جا نشد؛ اجازه نوشتن در آن را بگیرید."_s.arg(ServerError::shownPath(from)),
                                  u"cannot rename "_s + from);
            platform::flushToDisk(QFileInfo(to).path());
        };
        rename(made.databasePath(), folder.restoredDatabasePath());
        BinaryLog(folder).putAside();
        QString damaged;
        if (QFileInfo::exists(folder.databasePath())) {
            damaged = folder.databasePath() + u"-damaged-"_s + QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
            rename(folder.databasePath(), damaged);
        }
        // A program that is killed here has its work finished by the next one (DatabaseBootstrap).
        rename(folder.restoredDatabasePath(), folder.databasePath());
        ServerState::load(made).save(folder);
        QDir(made.path()).removeRecursively();
        return damaged;
    } catch (const CMySQLException &error) {
        QDir(made.path()).removeRecursively();
        throw BackupTools::failure(failedToRestore(file), folder.path(), error.GetErrorMessage());
    } catch (...) {
        QDir(made.path()).removeRecursively();
        throw;
    }
}
