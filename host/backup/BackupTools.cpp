// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupTools.h"

#include "host/server/DataFolder.h"
#include "host/server/Platform.h"
#include "host/server/ServerLog.h"
#include "host/server/TableNames.h"

#include <QRegularExpression>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace BackupTools {

std::unique_ptr<QTemporaryFile> privateFile(const QByteArray &content)
{
    for (const QString &folder : platform::runtimeFolders()) {
        if (!platform::makePrivateFolder(folder) || !platform::isPrivateFolder(folder))
            continue;
        auto file = std::make_unique<QTemporaryFile>(folder + u"/tool-XXXXXX"_s);
        if (file->open() && file->write(content) == content.size() && file->flush())
            return file;
    }
    throw ServerError(ServerError::Kind::DumpFailed,
                      u"پرونده موقت در %1 ساخته نشد؛ فضا و اجازه نوشتن در آن را بررسی نمایید."_s
                          .arg(ServerError::shownPath(platform::runtimeFolders().constLast())),
                      u"no private folder for a temporary file"_s);
}

QString wordsOf(QTemporaryFile &file)
{
    file.seek(0);
    return QString::fromUtf8(file.readAll()).trimmed();
}

ServerError damagedTable(const QString &table, const QString &words)
{
    return {ServerError::Kind::Damaged,
            u"نسخه پشتیبان ساخته نشد، چون جدول «%1» آسیب دیده یا گم شده است."_s.arg(TableNames::shown(table)), words};
}

ServerError failure(const QString &userMessage, const QString &folder, const QString &words)
{
    if (ServerLog::knownFailure(words) == ServerError::Kind::DiskFull)
        return {ServerError::Kind::DiskFull, DataFolder(folder).diskFullMessage(), words};
    // Couldn't execute 'show create table `Persons`': ... (1877), or: Error 1034: ... when dumping table `Persons` at row: 20
    static const QRegularExpression damage(u"(?:Error |\\()(?:1016|1017|1030|1033|1034|1035|1194|1195|1712|1812|1877|1932)\\b"_s);
    static const QRegularExpression table(u"table `(\\w+)`"_s);
    if (damage.match(words).hasMatch())
        return damagedTable(table.match(words).captured(1), words);
    return {ServerError::Kind::DumpFailed, userMessage, words};
}

ServerError cancelled()
{
    return {ServerError::Kind::Cancelled, u"کار به درخواست شما متوقف شد و چیزی تغییر نکرد."_s, u"cancelled by the user"_s};
}

}
