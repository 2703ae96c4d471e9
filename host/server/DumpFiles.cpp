// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/DumpFiles.h"

#include <QDir>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

QStringList DumpFiles::in(const QString &folder, const QString &database)
{
    const QRegularExpression pattern(
        u"^%1-\\d{8}-\\d{6}(-\\d+)?$"_s.arg(QRegularExpression::escape(database)));
    QStringList names;
    const QFileInfoList files = QDir(folder).entryInfoList({u"*.sql"_s}, QDir::Files);
    for (const QFileInfo &file : files) {
        if (pattern.match(file.completeBaseName()).hasMatch())
            names << file.completeBaseName();
    }
    std::sort(names.begin(), names.end(), std::greater<>());
    for (QString &each : names)
        each = u"%1/%2.sql"_s.arg(folder, each);
    return names;
}
