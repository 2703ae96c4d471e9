// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupRestoring.h"

#include "host/backup/BackupManifest.h"
#include "host/backup/BackupSql.h"
#include "host/backup/BackupState.h"
#include "host/backup/BackupTaking.h"
#include "host/backup/BackupTools.h"
#include "host/backup/TableExchange.h"
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
        TableExchange exchange(connection, m_settings.database);
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
        TableExchange exchange(connection, m_settings.database);
        // As at nearly every start; what another desk has begun since is its own.
        if (exchange.leftSomething() && exchange.lock())
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
