// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/AccessFileReader.h"

#include <QJsonDocument>
#include <QProcess>

#include <stdexcept>
#include <utility>

using namespace Qt::StringLiterals;

AccessFileReader::AccessFileReader(QString path)
    : m_path(std::move(path))
{
}

QByteArray AccessFileReader::run(const QString &tool, const QStringList &arguments) const
{
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForStarted() || !process.waitForFinished(120'000) || process.exitCode() != 0)
        throw std::runtime_error(tool.toStdString() + ": " + process.readAllStandardError().toStdString());
    return process.readAllStandardOutput();
}

QString AccessFileReader::version() const
{
    return QString::fromUtf8(run(u"mdb-ver"_s, {m_path})).trimmed();
}

QStringList AccessFileReader::tables() const
{
    return QString::fromUtf8(run(u"mdb-tables"_s, {u"-1"_s, m_path})).split(u'\n', Qt::SkipEmptyParts);
}

int AccessFileReader::count(const QString &table) const
{
    return run(u"mdb-count"_s, {m_path, table}).trimmed().toInt();
}

QVector<QJsonObject> AccessFileReader::records(const QString &table) const
{
    QVector<QJsonObject> records;
    for (const QByteArray &line : run(u"mdb-json"_s, {m_path, table}).split('\n')) {
        if (line.trimmed().isEmpty())
            continue;
        const QJsonDocument document = QJsonDocument::fromJson(line);
        if (!document.isObject())
            throw std::runtime_error("no record: " + line.toStdString());
        records.append(document.object());
    }
    return records;
}
