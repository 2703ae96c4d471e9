// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/KRowFollowers.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

namespace {

struct Entered
{
    QString name;
    QString table;
    std::shared_ptr<const KRowFollowers::Follower> follower;
};

// Record sets work on several threads.
std::mutex guard;

std::vector<Entered> &entered()
{
    static std::vector<Entered> followers;
    return followers;
}

// Copies, so that a follower may write rows itself.
std::vector<std::shared_ptr<const KRowFollowers::Follower>> followersOf(const QString &table)
{
    const std::lock_guard lock(guard);
    std::vector<std::shared_ptr<const KRowFollowers::Follower>> found;
    for (const Entered &one : entered()) {
        if (one.table == table)
            found.push_back(one.follower);
    }
    return found;
}

}

void KRowFollowers::enter(const QString &name, const QString &table, Follower follower)
{
    const std::lock_guard lock(guard);
    std::erase_if(entered(), [&](const Entered &one) { return one.name == name && one.table == table; });
    entered().push_back({name, table, std::make_shared<const Follower>(std::move(follower))});
}

void KRowFollowers::remove(const QString &name)
{
    const std::lock_guard lock(guard);
    std::erase_if(entered(), [&](const Entered &one) { return one.name == name; });
}

void KRowFollowers::added(const QString &table, qint32 key, int database)
{
    for (const auto &follower : followersOf(table))
        follower->written(key, database);
}

void KRowFollowers::changed(const QString &table, qint32 key, int database, const QStringList &columns)
{
    for (const auto &follower : followersOf(table)) {
        const bool concerns = follower->columns.isEmpty()
            || std::ranges::any_of(columns, [&](const QString &column) { return follower->columns.contains(column); });
        if (concerns)
            follower->written(key, database);
    }
}

void KRowFollowers::deleted(const QString &table, qint32 key, int database)
{
    for (const auto &follower : followersOf(table))
        follower->deleted(key, database);
}
