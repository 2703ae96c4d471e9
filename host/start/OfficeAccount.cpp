// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/OfficeAccount.h"

#include "host/frame/HostOptions.h"
#include "host/server/ServerError.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace OfficeAccount {

KConnectionSettings settingsOf(const HostOptions &options)
{
    KConnectionSettings settings;
    settings.host = options.host;
    settings.port = options.port;
    settings.furtherNodes = options.furtherNodes;
    settings.user = options.user;
    settings.database = options.database;
    settings.useTls = options.tls;
    settings.caFile = options.caFile;
    return settings;
}

std::optional<QString> readPassword(const QString &path, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = u"پرونده کلمه عبور خوانده نشد: %1"_s.arg(ServerError::shownPath(path));
        return std::nullopt;
    }
    if (file.permissions() & (QFile::ReadGroup | QFile::ReadOther)) {
        *error = u"پرونده کلمه عبور را دیگران هم می‌توانند بخوانند: %1"_s.arg(ServerError::shownPath(path));
        return std::nullopt;
    }
    QByteArray line = file.readLine();
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return QString::fromUtf8(line);
}

}
