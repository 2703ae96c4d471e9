// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/keeping/BackupPassphrase.h"

#include "host/server/Platform.h"
#include "host/server/ServerError.h"

#include <QFile>
#include <QSet>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 longestFile = 4096;

// Bits of an attacker's work if each character were one of the kinds that occur: an upper bound, which is what a hint needs.
double workToGuess(const QString &passphrase)
{
    int kinds = 0;
    bool digit = false;
    bool lower = false;
    bool upper = false;
    bool other = false;
    QSet<QChar> different;
    for (const QChar letter : passphrase) {
        different.insert(letter);
        (letter.isDigit() ? digit : letter.isLower() ? lower
             : letter.isUpper()                      ? upper
                                                     : other) = true;
    }
    for (const auto &[present, size] : {std::pair(digit, 10), std::pair(lower, 26), std::pair(upper, 26), std::pair(other, 32)})
        kinds += present ? size : 0;
    // "aaaaaaaaaaaa" is long, but no work.
    return std::min<double>(passphrase.size(), 2.0 * different.size()) * std::log2(std::max(kinds, 1));
}

}

BackupPassphrase::BackupPassphrase(const DataFolder &folder)
    : m_folder(folder)
    , m_file(folder.path() + u"/backup-passphrase"_s)
{
}

bool BackupPassphrase::isSet() const
{
    return QFile::exists(m_file);
}

QString BackupPassphrase::read() const
{
    QFile file(m_file);
    constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    if (!file.open(QIODevice::ReadOnly) || (file.permissions() & others))
        return {};
    return QString::fromUtf8(file.read(longestFile)).section(u'\n', 0, 0);
}

void BackupPassphrase::store(const QString &passphrase) const
{
    QString reason;
    switch (platform::writePrivateFile(m_file, passphrase.toUtf8() + '\n', &reason)) {
    case platform::WriteResult::Written:
        return;
    case platform::WriteResult::NoRoom:
        throw ServerError(ServerError::Kind::DiskFull, m_folder.diskFullMessage(), m_file + u": "_s + reason);
    case platform::WriteResult::Refused:
        break;
    }
    throw ServerError(ServerError::Kind::FolderNotWritable,
                      u"رمز پشتیبان‌ها در پوشه %1 نوشته نشد؛ اجازه نوشتن در آن را بررسی و دوباره تلاش کنید."_s.arg(
                          ServerError::shownPath(m_folder.path())),
                      m_file + u": "_s + reason);
}

void BackupPassphrase::remove() const
{
    if (QFile::exists(m_file) && !QFile::remove(m_file))
        throw ServerError(ServerError::Kind::FolderNotWritable,
                          u"رمز پشتیبان‌ها از پوشه %1 برداشته نشد؛ اجازه نوشتن در آن را بررسی و دوباره تلاش کنید."_s.arg(
                              ServerError::shownPath(m_folder.path())),
                          m_file + u": cannot be removed"_s);
}

QString BackupPassphrase::problem(const QString &passphrase, const QString &repeated)
{
    if (passphrase.size() < shortest)
        return u"رمز پشتیبان‌ها باید دست کم %1 نویسه داشته باشد."_s.arg(shortest);
    if (passphrase != passphrase.trimmed() || passphrase.contains(u'\n'))
        return u"رمز پشتیبان‌ها نباید با فاصله آغاز شود یا پایان یابد."_s;
    if (passphrase != repeated)
        return u"رمز پشتیبان‌ها و تکرار آن یکسان نیستند."_s;
    return {};
}

QString BackupPassphrase::strength(const QString &passphrase)
{
    if (passphrase.isEmpty())
        return {};
    constexpr double weakBelow = 50;
    constexpr double strongFrom = 85;
    const double bits = workToGuess(passphrase);
    if (passphrase.size() < shortest || bits < weakBelow)
        return u"ضعیف: چند واژه بی‌ربط کنار هم بهتر است."_s;
    return bits < strongFrom ? u"متوسط"_s : u"قوی"_s;
}
