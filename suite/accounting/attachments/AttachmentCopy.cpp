// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/AttachmentCopy.h"

#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/utility/values/TemporaryFolders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// Goes when the program ends; what a program leaves that is ended from outside goes at the next start.
struct CopyFolder
{
    const QString path = TemporaryFolders::make(TemporaryFolders::Purpose::Attachment);
    ~CopyFolder() { TemporaryFolders::remove(path); }
};

QString copyFolder()
{
    static const CopyFolder instance;
    return instance.path;
}

}

bool AttachmentCopy::isProgram(const QString &name)
{
    static const QStringList suffixes =
        u"appimage apk app bash bat cmd com command cpl desktop exe hta jar js jse lnk msc msi msp pif pl ps1 "
        "py pyw rb reg run scr scf sh url vb vbe vbs wsf wsh xdg-open zsh"_s
            .split(u' ');
    return suffixes.contains(QFileInfo(CTblFileDocs::safeFileName(name)).suffix().toLower());
}

QString AttachmentCopy::write(int id, const QString &name, const QByteArray &data)
{
    const QString number = QString::number(id);
    const QDir folder(copyFolder());
    if (copyFolder().isEmpty() || !(folder.exists(number) || folder.mkdir(number)))
        return {};
    const QString path = folder.filePath(number + u'/' + CTblFileDocs::safeFileName(name));
    // A copy made before is read-only; it is replaced, not written into.
    QFile::remove(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size() || !file.flush())
        return {};
    file.setPermissions(QFile::ReadOwner);
    return path;
}
