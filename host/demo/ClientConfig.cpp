// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/ClientConfig.h"

#include <QFile>

namespace {

// A value may be quoted, with \ before a quote or another \.
QString unquoted(QByteArray value)
{
    value = value.trimmed();
    if (value.size() < 2 || !value.startsWith('"') || !value.endsWith('"'))
        return QString::fromUtf8(value);
    QByteArray plain;
    for (qsizetype index = 1; index + 1 < value.size(); ++index) {
        if (value.at(index) == '\\' && index + 2 < value.size())
            ++index;
        plain += value.at(index);
    }
    return QString::fromUtf8(plain);
}

void take(KConnectionSettings &settings, const QByteArray &name, const QString &value)
{
    if (name == "user")
        settings.user = value;
    else if (name == "password")
        settings.password = value;
    else if (name == "socket")
        settings.socketPath = value;
    else if (name == "database")
        settings.database = value;
    else if (name == "port")
        settings.port = value.toUInt();
    else if (name == "host")
        settings.host = value;
}

}

namespace ClientConfig {

KConnectionSettings parse(const QByteArray &text)
{
    KConnectionSettings settings;
    bool ours = false;
    for (const QByteArray &whole : text.split('\n')) {
        const QByteArray line = whole.trimmed();
        if (line.startsWith('['))
            ours = line == "[client]" || line == "[mysql]";
        else if (const qsizetype equals = line.indexOf('='); ours && equals > 0 && !line.startsWith('#'))
            take(settings, line.left(equals).trimmed(), unquoted(line.mid(equals + 1)));
    }
    // With a socket the host is this computer, which the connection expresses by having no host.
    if (!settings.socketPath.isEmpty())
        settings.host.clear();
    return settings;
}

std::optional<KConnectionSettings> read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return parse(file.readAll());
}

}
