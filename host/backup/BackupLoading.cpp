// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupLoading.h"

#include "host/backup/BackupReader.h"
#include "host/backup/BackupSql.h"
#include "host/backup/BackupTools.h"
#include "host/server/ServerConfig.h"
#include "host/server/ToolProcess.h"

#include <QFileInfo>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace {

// The binary log is for what people change; where the account may not say so, the log gets it too.
bool mayLeaveLogOut(const KConnectionSettings &settings)
{
    try {
        KConnection connection(settings);
        connection.run(QByteArrayLiteral("SET SESSION sql_log_bin=0"));
        return true;
    } catch (const CMySQLException &error) {
        if (error.category() == CMySQLException::Category::ConnectionLost)
            throw;
        return false;
    }
}

}

BackupLoading::BackupLoading(const KConnectionSettings &server, const ServerPrograms &programs)
    : m_server(server)
    , m_programs(programs)
{
    m_server.database.clear();
}

void BackupLoading::load(const BackupFile &file, const QString &database, const QString &passphrase, const Progress &progress) const
{
    const QString failed = u"پرونده %1 بازگردانده نشد؛ پرونده دیگری انتخاب نمایید."_s.arg(ServerError::shownPath(file.path()));
    const QString folder = QFileInfo(file.path()).path();
    BackupReader reader(file, passphrase);
    try {
        const auto options = BackupTools::privateFile(ServerConfig::clientOptions(KConnection::atNodeInUse(m_server)));
        const auto words = BackupTools::privateFile();
        ToolProcess client;
        client.program = m_programs.client;
        // In the sandbox a file of statements cannot make the client run programs or read other files.
        client.arguments = {ServerConfig::fromFile(options->fileName()), u"--batch"_s, u"--loose-sandbox"_s,
                            u"--default-character-set=utf8mb4"_s, u"--max-allowed-packet=1G"_s};
        if (mayLeaveLogOut(m_server))
            client.arguments << u"--init-command=SET SESSION sql_log_bin=0"_s;
        client.arguments << database;
        client.source = [&reader] { return reader.next(); };
        client.errorFile = words->fileName();
        client.lowPriority = m_low;
        const int code = client.run([&](qint64) {
            if (progress && !progress(reader.done(), file.size()))
                throw BackupTools::cancelled();
        });
        if (code != 0)
            throw BackupTools::failure(failed, folder, u"%1 ended with %2: %3"_s.arg(client.program).arg(code).arg(BackupTools::wordsOf(*words)));
    } catch (const CMySQLException &error) {
        throw BackupTools::failure(failed, folder, error.GetErrorMessage());
    }
}
