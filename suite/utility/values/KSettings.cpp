// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/KSettings.h"

#include <QMutex>
#include <QMutexLocker>
#include <QSettings>
#include <QStandardPaths>
#include <QVariant>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QString defaultFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) + u"/settings.ini"_s;
}

// The open file, one for the process: every part reads what any part wrote.
struct Store
{
    QMutex mutex;
    std::unique_ptr<QSettings> file;

    QSettings &open()
    {
        if (!file)
            file = std::make_unique<QSettings>(defaultFile(), QSettings::IniFormat);
        return *file;
    }
};

Store &store()
{
    static Store instance;
    return instance;
}

QString pathOf(const QString &section, const QString &key)
{
    const QString path = section + QLatin1Char('\\') + key;
    return path.split(QLatin1Char('\\'), Qt::SkipEmptyParts).join(QLatin1Char('/'));
}

QVariant readValue(const QString &section, const QString &key)
{
    QMutexLocker lock(&store().mutex);
    return store().open().value(pathOf(section, key));
}

// Written through at once, so that a program that is ended from outside keeps its user's settings.
void writeValue(const QString &section, const QString &key, const QVariant &value)
{
    QMutexLocker lock(&store().mutex);
    store().open().setValue(pathOf(section, key), value);
    store().open().sync();
}

}

void setSettingsFile(const QString &iniPath)
{
    QMutexLocker lock(&store().mutex);
    store().file = std::make_unique<QSettings>(iniPath.isEmpty() ? defaultFile() : iniPath, QSettings::IniFormat);
}

QString settingsFile()
{
    QMutexLocker lock(&store().mutex);
    return store().open().fileName();
}

QString ReadSetting(const QString &section, const QString &key, const QString &defaultValue)
{
    const QVariant value = readValue(section, key);
    const bool isText = value.typeId() == QMetaType::QString || value.typeId() == QMetaType::Int;
    return isText ? value.toString() : defaultValue;
}

int ReadSetting(const QString &section, const QString &key, int defaultValue)
{
    bool ok = false;
    const int value = readValue(section, key).toInt(&ok);
    return ok ? value : defaultValue;
}

QByteArray ReadSetting(const QString &section, const QString &key, const QByteArray &defaultValue)
{
    const QVariant value = readValue(section, key);
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray() : defaultValue;
}

void WriteSetting(const QString &section, const QString &key, const QString &value)
{
    writeValue(section, key, value);
}

void WriteSetting(const QString &section, const QString &key, int value)
{
    writeValue(section, key, value);
}

void WriteSetting(const QString &section, const QString &key, const QByteArray &value)
{
    writeValue(section, key, value);
}
