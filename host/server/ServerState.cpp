// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/ServerState.h"

#include "host/server/Platform.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcServerState, "tz.server")

const QString versionKey = u"version"_s;
const QString cleanKey = u"endedCleanly"_s;
const QString programKey = u"program"_s;

}

ServerState ServerState::load(const DataFolder &folder)
{
    QFile file(folder.statePath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonObject object = QJsonDocument::fromJson(file.readAll()).object();
    return {versionIn(object.value(versionKey).toString()), object.value(cleanKey).toBool(), object.value(programKey).toString()};
}

void ServerState::save(const DataFolder &folder) const
{
    const QJsonObject object{{versionKey, version.toString()}, {cleanKey, endedCleanly}, {programKey, program}};
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

// The time is that of the directory's entry: a package brings its files with the day on which they were built.
QString ServerState::markOf(const QString &program)
{
    const QFileInfo file(program);
    if (program.isEmpty() || !file.exists())
        return {};
    return u"%1 %2 %3"_s.arg(file.canonicalFilePath()).arg(file.size()).arg(file.metadataChangeTime().toMSecsSinceEpoch());
}
