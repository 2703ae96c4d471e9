// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/recovery/BackupListing.h"

#include "host/backup/BackupFiles.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

using State = BackupManifest::Verification::State;

namespace {

QString nameIn(const BackupFile &file)
{
    return QFileInfo(file.path()).fileName();
}

}

QString BackupListing::Entry::place() const
{
    if (isSecond)
        return u"پوشه دوم"_s;
    return otherCopy.isEmpty() ? u"این رایانه"_s : u"این رایانه و پوشه دوم"_s;
}

QList<BackupListing::Entry> BackupListing::of(const QString &folder, const QString &secondFolder, const QString &database)
{
    QList<Entry> entries;
    for (const BackupFile &file : BackupFiles::in(folder, database))
        entries.append({file});
    if (secondFolder.isEmpty())
        return entries;
    for (const BackupFile &copy : BackupFiles::in(secondFolder, database)) {
        const auto same = std::find_if(entries.begin(), entries.end(), [&](const Entry &entry) {
            return nameIn(entry.file) == nameIn(copy) && entry.file.size() == copy.size();
        });
        if (same == entries.end())
            entries.append({copy, {}, true});
        else
            same->otherCopy = copy.path();
    }
    std::stable_sort(entries.begin(), entries.end(), [](const Entry &one, const Entry &other) { return one.file.taken() > other.file.taken(); });
    return entries;
}

QList<BackupListing::Entry> BackupListing::verifiedFirst(QList<Entry> entries)
{
    std::stable_partition(entries.begin(), entries.end(), [](const Entry &entry) { return entry.file.verification().state == State::Passed; });
    return entries;
}

QString BackupListing::dateText(const BackupFile &file)
{
    return shamsiText(file.taken().date());
}

QString BackupListing::timeText(const BackupFile &file)
{
    return file.taken().toString(u"HH:mm"_s);
}

QString BackupListing::whenText(const BackupFile &file)
{
    return u"%1 ساعت %2"_s.arg(dateText(file), timeText(file));
}

QString BackupListing::reasonText(const BackupFile &file)
{
    return file.manifest() ? BackupManifest::shown(file.manifest()->reason) : u"نامعلوم"_s;
}

QString BackupListing::sizeText(qint64 bytes)
{
    constexpr double kibi = 1024;
    double size = double(bytes);
    QString unit = u"بایت"_s;
    for (const QString &larger : {u"کیلوبایت"_s, u"مگابایت"_s, u"گیگابایت"_s}) {
        if (size < kibi)
            break;
        size /= kibi;
        unit = larger;
    }
    return u"%1 %2"_s.arg(QString::number(size, 'f', size < 10 && bytes >= kibi ? 1 : 0), unit);
}

QString BackupListing::verificationText(const BackupFile &file)
{
    const BackupManifest::Verification verification = file.verification();
    if (!file.manifestFault().isEmpty())
        return u"ایراد دارد (شناسنامه پشتیبان خوانده نشد)"_s;
    if (verification.state == State::None)
        return u"آزموده نشده"_s;
    if (verification.state == State::Failed)
        return u"ایراد دارد"_s;
    const QDateTime when = verification.when.toLocalTime();
    return u"آزموده شد %1 %2"_s.arg(shamsiText(when.date()), when.toString(u"HH:mm"_s));
}

bool BackupListing::isBad(const BackupFile &file)
{
    return !file.manifestFault().isEmpty() || file.verification().state == State::Failed;
}
