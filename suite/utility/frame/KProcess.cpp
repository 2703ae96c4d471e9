// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KProcess.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

bool KProcess::Execute(const QString &program, const QString &argument)
{
    if (program.compare(u"Explorer"_s, Qt::CaseInsensitive) != 0)
        return QProcess::startDetached(program, {argument});
    const QFileInfo path(QDir::fromNativeSeparators(argument));
    return path.exists() && QDesktopServices::openUrl(QUrl::fromLocalFile(path.absoluteFilePath()));
}
