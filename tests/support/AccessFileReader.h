// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

// An Access file as another program reads it: mdbtools. A failing tool is an exception.
class AccessFileReader
{
public:
    explicit AccessFileReader(QString path);

    QString version() const; // "JET4"
    QStringList tables() const;
    int count(const QString &table) const;
    // The records in the file's order. Empty texts and fields without a value are left out; a flag is 1 or 0.
    QVector<QJsonObject> records(const QString &table) const;

private:
    QByteArray run(const QString &tool, const QStringList &arguments) const;

    QString m_path;
};
