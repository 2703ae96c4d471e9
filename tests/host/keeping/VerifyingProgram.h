// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/keeping/BackupProcess.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

// Stands in for the program that verifies a backup: it keeps what it was called with and what it was told, and ends as the test wants.
class VerifyingProgram
{
public:
    explicit VerifyingProgram(int exitCode = 0)
    {
        endWith(exitCode);
        BackupProcess::setProgram(path());
    }
    ~VerifyingProgram() { BackupProcess::setProgram({}); }

    // sleeping: it does not end by itself.
    void endWith(int exitCode, bool sleeping = false)
    {
        QFile::remove(path());
        QFile script(path());
        const QString wait = sleeping ? u"exec sleep 600\n"_s : QString();
        const QString text = u"#!/bin/sh\nprintf '%s\\n' \"$@\" > %1/arguments\ncat > %1/input\n%2exit %3\n"_s;
        if (script.open(QIODevice::WriteOnly))
            script.write(QString(text).replace(u"%1"_s, m_folder.path()).replace(u"%2"_s, wait).replace(u"%3"_s, QString::number(exitCode)).toUtf8());
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    bool wasCalled() const { return QFile::exists(m_folder.filePath(u"input"_s)); }
    QString arguments() const { return read(u"arguments"_s); }
    QString input() const { return read(u"input"_s); }
    void forget()
    {
        QFile::remove(m_folder.filePath(u"arguments"_s));
        QFile::remove(m_folder.filePath(u"input"_s));
    }

private:
    QString path() const { return m_folder.filePath(u"verifies"_s); }
    QString read(const QString &name) const
    {
        QFile file(m_folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    QTemporaryDir m_folder;
};
