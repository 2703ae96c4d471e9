// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/BackupsHere.h"

#include "suite/utility/values/KSettings.h"

using namespace Qt::StringLiterals;

namespace {

const QString backupSection = u"Backup"_s;
const QString secondKey = u"sSecondFolder"_s;
const QString hereKey = u"bHere"_s;
const QString failureKey = u"sFailure"_s;
const QString goingKey = u"sCopiesToRemove"_s;
const QString serverSection = u"Server"_s;
const QString changeLogKey = u"bKeepBinaryLog"_s;
constexpr int notChosen = -1;

}

QString BackupsHere::secondFolder()
{
    return ReadSetting(backupSection, secondKey, QString());
}

void BackupsHere::setSecondFolder(const QString &folder)
{
    WriteSetting(backupSection, secondKey, folder);
}

std::optional<bool> BackupsHere::chosen()
{
    const int stored = ReadSetting(backupSection, hereKey, notChosen);
    return stored == notChosen ? std::nullopt : std::optional(stored != 0);
}

bool BackupsHere::takesByItself(bool privateServer, bool administrator)
{
    return chosen().value_or(privateServer || administrator);
}

void BackupsHere::setTakesByItself(std::optional<bool> takes)
{
    WriteSetting(backupSection, hereKey, takes ? int(*takes) : notChosen);
}

bool BackupsHere::keepsChangeLog()
{
    return ReadSetting(serverSection, changeLogKey, 0) != 0;
}

void BackupsHere::setKeepsChangeLog(bool keeps)
{
    WriteSetting(serverSection, changeLogKey, int(keeps));
}

QStringList BackupsHere::copiesToRemove()
{
    return ReadSetting(backupSection, goingKey, QString()).split(u'\n', Qt::SkipEmptyParts);
}

void BackupsHere::setCopiesToRemove(const QStringList &marks)
{
    WriteSetting(backupSection, goingKey, marks.join(u'\n'));
}

QString BackupsHere::failure()
{
    return ReadSetting(backupSection, failureKey, QString());
}

void BackupsHere::setFailure(const QString &text)
{
    WriteSetting(backupSection, failureKey, text);
}
