// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/ServerLog.h"

#include "host/server/ServerDamage.h"

#include <QFile>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// The log of several weeks is not read as a whole.
constexpr qint64 tailBytes = 64LL * 1024;

QString messageFor(ServerError::Kind kind, const DataFolder &folder)
{
    const QString shown = ServerError::shownPath(folder.path());
    const QString log = ServerError::shownPath(folder.serverLogPath());
    switch (kind) {
    case ServerError::Kind::DiskFull:
        return folder.diskFullMessage();
    case ServerError::Kind::InUse:
        return u"پایگاه داده پوشه %1 در دست سرور دیگری است؛ برنامه دیگر را ببندید و دوباره تلاش کنید."_s
            .arg(shown);
    case ServerError::Kind::FolderNotWritable:
        return u"سرور پایگاه داده اجازه خواندن یا نوشتن همه پرونده‌های پوشه %1 را ندارد؛ اجازه آنها را "
               "به خود بازگردانید."_s
                   .arg(shown);
    case ServerError::Kind::Timeout:
        return u"سرور پایگاه داده پوشه %1 در زمان مقرر آماده نشد؛ دوباره تلاش کنید. گزارش آن در %2 است."_s
            .arg(shown, log);
    case ServerError::Kind::EndedUnexpectedly:
        return u"سرور پایگاه داده پوشه %1 ناگهان متوقف شد و دوباره راه‌اندازی می‌شود؛ کار آخر خود را "
               "دوباره انجام دهید."_s
                   .arg(shown);
    default:
        return u"سرور پایگاه داده پوشه %1 راه‌اندازی نشد؛ دوباره تلاش کنید و اگر باز هم نشد گزارش %2 "
               "را برای پشتیبانی بفرستید."_s
                   .arg(shown, log);
    }
}

}

ServerLog::ServerLog(const DataFolder &folder)
    : m_folder(folder) { }

void ServerLog::begin() const
{
    if (!QFile::exists(m_folder.serverLogPath()))
        return;
    QFile::remove(m_folder.previousServerLogPath());
    QFile::rename(m_folder.serverLogPath(), m_folder.previousServerLogPath());
}

QString ServerLog::tail(int lines) const
{
    QFile file(m_folder.serverLogPath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    if (file.size() > tailBytes)
        file.seek(file.size() - tailBytes);
    const QStringList all = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return all.mid(qMax<qsizetype>(0, all.size() - lines)).join(QLatin1Char('\n'));
}

std::optional<ServerError::Kind> ServerLog::knownFailure(const QString &text)
{
    struct Sign
    {
        QString words;
        ServerError::Kind kind;
    };
    static const Sign signs[] = {
        {u"No space left on device"_s, ServerError::Kind::DiskFull},
        {u"Disk full"_s, ServerError::Kind::DiskFull},
        {u"Out of disk space"_s, ServerError::Kind::DiskFull},
        {u"failed with error 28"_s, ServerError::Kind::DiskFull},
        {u"Errcode: 28"_s, ServerError::Kind::DiskFull},
        {u"Error number 28"_s, ServerError::Kind::DiskFull},
        {u"errno 28"_s, ServerError::Kind::DiskFull},
        {u"errno: 28"_s, ServerError::Kind::DiskFull},
        {u"Unable to lock ./ibdata1"_s, ServerError::Kind::InUse},
        {u"Can't lock aria control file"_s, ServerError::Kind::InUse},
        {u"Permission denied"_s, ServerError::Kind::FolderNotWritable},
        {u"Read-only file system"_s, ServerError::Kind::FolderNotWritable},
    };
    for (const Sign &sign : signs) {
        if (text.contains(sign.words, Qt::CaseInsensitive))
            return sign.kind;
    }
    return std::nullopt;
}

ServerError ServerLog::error(ServerError::Kind otherwise, const QString &detail) const
{
    // A server that crashes writes at length about itself after the cause.
    const QString words = tail(200);
    const std::optional<ServerError::Kind> known = knownFailure(words);
    const std::optional<ServerDamage> damage = known ? std::nullopt : ServerDamage::in(words);
    const QString technical = detail + QLatin1Char('\n') + tail();
    if (damage)
        return {ServerError::Kind::Damaged, damage->message(m_folder), technical};
    const ServerError::Kind kind = known.value_or(otherwise);
    return {kind, messageFor(kind, m_folder), technical};
}
