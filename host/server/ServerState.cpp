// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/ServerState.h"

#include "host/server/Platform.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcServerState, "tz.server")

const QString versionKey = u"version"_s;
const QString cleanKey = u"endedCleanly"_s;

}

ServerState ServerState::load(const DataFolder &folder)
{
    QFile file(folder.statePath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    return {versionIn(object.value(versionKey).toString()), object.value(cleanKey).toBool()};
}

void ServerState::save(const DataFolder &folder) const
{
    const QJsonObject object{{versionKey, version.toString()}, {cleanKey, endedCleanly}};
    QString reason;
    if (platform::writePrivateFile(folder.statePath(), QJsonDocument(object).toJson(), &reason)
        != platform::WriteResult::Written)
        qCWarning(lcServerState).noquote() << "cannot write" << folder.statePath() << reason;
}

QVersionNumber ServerState::versionIn(const QString &text)
{
    static const QRegularExpression pattern(u"\\b(\\d+)\\.(\\d+)\\.(\\d+)"_s);
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch())
        return {};
    return QVersionNumber(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt());
}
