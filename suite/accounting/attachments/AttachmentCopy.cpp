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

// Programs, scripts, byte code, shortcuts and launchers, packages, and documents that carry macros. A document whose format
// may or may not hold macros is none: its own program asks.
const QStringList &suffixesOfPrograms()
{
    static const QStringList suffixes =
        u"ac accde accdr action ade adp air apk app appimage application appref-ms appx appxbundle awk bas bash bat beam bin "
        "bundle cab chm class cmd com command cpl csh deb desktop diagcab dll dmg docm dotm drv dylib ear elc elf exe fish flatpak "
        "flatpakref gadget hlp hta inf ins iqy iso isp jar jnlp js jse ko ksh lib library-ms lnk lua luac mam mcf mde msc msh "
        "msh1 msh2 msi msix msixbundle msp mst msu ocx oqy osx out paf party pcd php pif pkg pl plx pm potm ppam ppsm pptm prg ps1 "
        "ps1xml ps2 ps2xml psc1 psc2 psd1 psm1 py pyc pyd pyo pyw pyz pyzw rb reg rpm rqy run scf scpt scptd scr script sct "
        "search-ms service settingcontent-ms sh shb shs sldm slk snap so sys tcl terminal theme udl url vb vba vbe vbs vhd vhdx vxd war "
        "webloc website workflow ws wsc wsf wsh xbap xdg-open xla xlam xll xlm xlsb xlsm xltm zsh"_s
            .split(u' ');
    return suffixes;
}

}

bool AttachmentCopy::isProgram(const QString &name)
{
    return suffixesOfPrograms().contains(QFileInfo(CTblFileDocs::safeFileName(name)).suffix().toLower());
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
