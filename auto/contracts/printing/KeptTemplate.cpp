// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/KeptTemplate.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace {

bool copyInto(const QString &path, QSaveFile &copy)
{
    constexpr qint64 chunk = 1 << 20;
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly))
        return false;
    while (!source.atEnd()) {
        const QByteArray bytes = source.read(chunk);
        if (bytes.isEmpty() || copy.write(bytes) != bytes.size())
            return false;
    }
    return true;
}

}

bool KeptTemplate::stage(const QString &path, const QString &folder, const QString &typeName)
{
    if (!QDir().mkpath(folder))
        return false;
    QSet<QString> names = {QFileInfo(path).fileName()};
    if (!typeName.isEmpty())
        names.insert(typeName);
    for (const QString &name : std::as_const(names)) {
        const QString target = QDir(folder).filePath(name);
        // A file chosen from the folder itself need not be copied.
        if (QFileInfo::exists(target) && QFileInfo(target) == QFileInfo(path))
            continue;
        m_copies.push_back(std::make_unique<QSaveFile>(target));
        if (!copyInto(path, *m_copies.back()))
            return false;
    }
    return true;
}

bool KeptTemplate::commit()
{
    bool done = true;
    for (const auto &copy : m_copies)
        done = copy->commit() && done;
    m_copies.clear();
    return done;
}
