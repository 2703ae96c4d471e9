// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/backup/BackupKeeping.h"

#include "suite/utility/values/ShamsiDate.h"

#include <QMap>
#include <QSet>

#include <algorithm>

namespace {

// The Shamsi week begins on Saturday.
qint64 weekOf(const QDate &date)
{
    return (date.toJulianDay() - shamsiDayOfWeek(date)) / 7;
}

// Of the newest periods, as many as are kept, the newest backup of each.
template <class Period>
void keepNewestOf(const QList<BackupKeeping::Backup> &backups, const QList<int> &newestFirst, int count, Period periodOf, QSet<int> &kept)
{
    QSet<decltype(periodOf(QDate()))> seen;
    for (const int index : newestFirst) {
        const auto period = periodOf(backups.at(index).taken.date());
        if (seen.contains(period))
            continue;
        if (seen.size() >= count)
            return;
        seen.insert(period);
        kept.insert(index);
    }
}

}

QList<int> BackupKeeping::outdated(const QList<Backup> &backups, const Kept &kept, const QDateTime &now)
{
    QList<int> order;
    for (int index = 0; index < backups.size(); ++index)
        order.append(index);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return backups.at(a).taken > backups.at(b).taken; });

    QSet<int> stay;
    QList<int> good;
    bool hasVerified = false;
    for (const int index : std::as_const(order)) {
        const Backup &backup = backups.at(index);
        if (!backup.failed)
            good.append(index);
        const bool isNewestVerified = backup.verified && !hasVerified;
        hasVerified = hasVerified || backup.verified;
        if (isNewestVerified || index == order.constFirst() || backup.taken > now.addDays(-1)
            || (backup.isSafetyCopy && backup.taken > now.addMonths(-1)))
            stay.insert(index);
    }
    if (!good.isEmpty())
        stay.insert(good.constFirst());
    keepNewestOf(
        backups, good, kept.daily, [](const QDate &date) { return date.toJulianDay(); }, stay);
    keepNewestOf(backups, good, kept.weekly, weekOf, stay);
    keepNewestOf(
        backups, good, kept.monthly, [](const QDate &date) { return shamsiText(date).left(7); }, stay);

    // One that failed may be all there is of its day.
    for (int index = 0; index < backups.size(); ++index) {
        const Backup &backup = backups.at(index);
        const bool isReplaced = std::any_of(good.cbegin(), good.cend(), [&](int other) { return backups.at(other).taken.date() == backup.taken.date(); });
        if (backup.failed && !isReplaced && backup.taken > now.addMonths(-1))
            stay.insert(index);
    }

    QList<int> go;
    for (int index = 0; index < backups.size(); ++index) {
        if (!stay.contains(index))
            go.append(index);
    }
    return go;
}
