// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/EmbeddedServer.h"

#include "host/server/ServerConfig.h"
#include "host/server/ServerLog.h"
#include "host/server/ServerState.h"
#include "host/server/ToolProcess.h"

#include <QFile>
#include <QLoggingCategory>

#include <mysql.h>

using namespace Qt::StringLiterals;

// A database that was last used by another version of the server.

namespace {

Q_LOGGING_CATEGORY(lcUpgrade, "tz.server.upgrade")

constexpr int upgradeLimitMilliseconds = 30 * 60 * 1000;

QStringList databasesOfThePeople(const KConnectionSettings &settings)
{
    KConnection connection(settings);
    const KConnection::Result result = connection.run(
        QByteArrayLiteral("SELECT schema_name FROM information_schema.schemata WHERE schema_name NOT IN"
                          " ('mysql','information_schema','performance_schema','sys')"));
    QStringList names;
    while (const MYSQL_ROW row = mysql_fetch_row(result.get()))
        names << QString::fromUtf8(row[0]);
    return names;
}

}

void EmbeddedServer::checkInstalledVersion() const
{
    const ServerState state = ServerState::load(m_folder);
    const QVersionNumber last = state.version;
    // The file that ran here last has its version; to ask it would take a quarter as long as its start.
    if (last.isNull() || (!state.program.isEmpty() && state.program == ServerState::markOf(m_options.programs.server)))
        return;
    ToolProcess server;
    server.program = m_options.programs.server;
    server.arguments = {ServerConfig::fromFile(m_folder.serverConfigPath()), u"--version"_s};
    server.outputFile = m_folder.logsPath() + u"/server-version.txt"_s;
    server.errorFile = m_folder.serverLogPath();
    server.limitMilliseconds = m_options.startLimitMilliseconds;
    server.run();
    QFile answer(server.outputFile);
    if (!answer.open(QIODevice::ReadOnly))
        return;
    const QVersionNumber installed = ServerState::versionIn(QString::fromUtf8(answer.readAll()));
    answer.remove();
    // Within one series the files are the same; an older series does not understand what a newer one wrote.
    const auto series = [](const QVersionNumber &version) { return QVersionNumber(version.segments().mid(0, 2)); };
    if (!installed.isNull() && series(installed) < series(last))
        throw ServerError(
            ServerError::Kind::OlderServer,
            u"پایگاه داده پوشه %1 با نسخه %2 سرور به کار رفته و نسخه نصب شده %3 قدیمی‌تر است؛ نسخه "
            "تازه‌تر سرور را نصب نمایید."_s
                .arg(ServerError::shownPath(m_folder.path()), last.toString(), installed.toString()),
            u"last used by %1, installed is %2"_s.arg(last.toString(), installed.toString()));
}

void EmbeddedServer::upgradeIfNeeded(const Progress &progress)
{
    const ServerState last = ServerState::load(m_folder);
    const QVersionNumber running = ServerState::versionIn(m_version);
    // A server of an older patch level leaves the tables as they are.
    if (m_isNewDatabase || (!last.version.isNull() && running <= last.version)) {
        ServerState{running, false, m_program}.save(m_folder);
        return;
    }
    qCInfo(lcUpgrade).noquote() << "the database was last used by" << last.version.toString() << "and now by"
                                << m_version;
    if (!last.endedCleanly) {
        // This start has recovered what the crash left; the upgrade begins from a server that ended cleanly.
        endProcess(progress);
        launch(progress);
    }
    runUpgrade(progress);
    endProcess(progress);
    launch(progress);
    ServerState{running, false, m_program}.save(m_folder);
}

void EmbeddedServer::runUpgrade(const Progress &progress)
{
    if (!m_options.takeBackup)
        throw ServerError(ServerError::Kind::UpgradeFailed,
                          u"پایگاه داده پوشه %1 به نسخه تازه سرور ارتقا نیافت، چون پیش از آن پشتیبانی گرفته نمی‌شد."_s
                              .arg(ServerError::shownPath(m_folder.path())),
                          u"nobody takes a backup before the upgrade"_s);
    const QString saving = u"پشتیبان‌گیری پیش از ارتقای پایگاه داده…"_s;
    const QStringList databases = databasesOfThePeople(m_settings);
    for (const QString &name : databases) {
        KConnectionSettings settings = m_settings;
        settings.database = name;
        m_options.takeBackup(settings, [&] {
            if (progress)
                progress(saving);
        });
        qCInfo(lcUpgrade).noquote() << "backup before the upgrade taken:" << name;
    }
    const QString upgrading = u"ارتقای پایگاه داده به نسخه تازه سرور…"_s;
    ToolProcess upgrade;
    upgrade.program = m_options.programs.upgrade;
    upgrade.arguments = {ServerConfig::fromFile(m_folder.clientConfigPath())};
    upgrade.outputFile = m_folder.logsPath() + u"/server-upgrade.log"_s;
    upgrade.errorFile = m_folder.serverLogPath();
    upgrade.limitMilliseconds = upgradeLimitMilliseconds;
    const int code = upgrade.run([&](qint64) {
        if (progress)
            progress(upgrading);
    });
    if (code != 0)
        throw ServerError(
            ServerError::Kind::UpgradeFailed,
            u"پایگاه داده پوشه %1 به نسخه تازه سرور ارتقا نیافت؛ نسخه پشتیبان در %2 است و گزارش در %3."_s
                .arg(ServerError::shownPath(m_folder.path()), ServerError::shownPath(m_folder.backupsPath()),
                     ServerError::shownPath(upgrade.outputFile)),
            u"mariadb-upgrade ended with %1\n%2"_s.arg(code).arg(ServerLog(m_folder).tail()));
}
