// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KProcess.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr int answerWithin = 3000; // milliseconds

// The desktop's opener is started without a word about what came of it, so whether there is a program is asked before.
bool isKnownToHaveNone(const QString &scheme)
{
    QProcess question;
    question.start(u"xdg-mime"_s, {u"query"_s, u"default"_s, u"x-scheme-handler/"_s + scheme});
    if (!question.waitForFinished(answerWithin) || question.exitStatus() != QProcess::NormalExit || question.exitCode() != 0)
        return false;
    return question.readAllStandardOutput().trimmed().isEmpty();
}

}

bool KProcess::Execute(const QString &program, const QString &argument)
{
    if (program.compare(u"Explorer"_s, Qt::CaseInsensitive) != 0)
        return QProcess::startDetached(program, {argument});
    const QFileInfo path(QDir::fromNativeSeparators(argument));
    return path.exists() && QDesktopServices::openUrl(QUrl::fromLocalFile(path.absoluteFilePath()));
}

bool KProcess::openLink(const QUrl &link)
{
    return link.isValid() && !isKnownToHaveNone(link.scheme()) && QDesktopServices::openUrl(link);
}
