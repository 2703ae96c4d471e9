// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/TemporaryFolders.h"

#include <QFileInfo>
#include <QLockFile>
#include <QTemporaryDir>

#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QString prefix(TemporaryFolders::Purpose purpose)
{
    return purpose == TemporaryFolders::Purpose::Contract ? u"tzauto-contract-"_s : u"tzauto-attachment-"_s;
}

// Of the folders that this program holds.
std::map<QString, std::unique_ptr<QLockFile>> &heldMarks()
{
    static std::map<QString, std::unique_ptr<QLockFile>> marks;
    return marks;
}

std::unique_ptr<QLockFile> markOf(const QString &folder)
{
    auto mark = std::make_unique<QLockFile>(folder + u"/.in-use"_s);
    // Only a program that has ended lets go of it, however long it runs.
    mark->setStaleLockTime(0);
    return mark;
}

}

QString TemporaryFolders::make(Purpose purpose, const QString &parent)
{
    QTemporaryDir folder(QDir(parent).filePath(prefix(purpose) + u"XXXXXX"_s));
    std::unique_ptr<QLockFile> mark = markOf(folder.path());
    if (!folder.isValid() || !mark->tryLock())
        return {};
    folder.setAutoRemove(false);
    heldMarks()[folder.path()] = std::move(mark);
    return folder.path();
}

void TemporaryFolders::remove(const QString &folder)
{
    if (heldMarks().erase(folder) > 0)
        QDir(folder).removeRecursively();
}

void TemporaryFolders::removeLeft(const QString &parent)
{
    const QStringList names{prefix(Purpose::Attachment) + u'*', prefix(Purpose::Contract) + u'*'};
    const QFileInfoList folders = QDir(parent).entryInfoList(names, QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot);
    for (const QFileInfo &folder : folders) {
        const QString path = folder.filePath();
        if (markOf(path)->tryLock())
            QDir(path).removeRecursively();
    }
}
