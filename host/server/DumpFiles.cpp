// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/DumpFiles.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

struct NamedDump
{
    QString stamp;
    int number; // of those of one second
    QString name;

    auto order() const { return std::tie(stamp, number, name); }
};

}

QStringList DumpFiles::in(const QString &folder, const QString &database)
{
    const QRegularExpression pattern(
        u"^%1-(\\d{8}-\\d{6})(?:-(\\d{1,6}))?\\.sql(?:\\.zst(?:\\.enc)?)?$"_s.arg(QRegularExpression::escape(database)));
    QList<NamedDump> dumps;
    const QStringList names = QDir(folder).entryList({u"*.sql"_s, u"*.sql.zst"_s, u"*.sql.zst.enc"_s}, QDir::Files | QDir::NoSymLinks);
    for (const QString &name : names) {
        const QRegularExpressionMatch match = pattern.match(name);
        if (match.hasMatch())
            dumps.append({match.captured(1), match.captured(2).toInt(), name});
    }
    std::sort(dumps.begin(), dumps.end(), [](const NamedDump &a, const NamedDump &b) { return a.order() > b.order(); });
    QStringList paths;
    for (const NamedDump &dump : std::as_const(dumps))
        paths << folder + u'/' + dump.name;
    return paths;
}
