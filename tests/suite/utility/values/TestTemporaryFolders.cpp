// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/TemporaryFolders.h"

#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using TemporaryFolders::Purpose;

class TestTemporaryFolders : public QObject
{
    Q_OBJECT

    // As a program leaves one that is ended from outside: the mark is of a process that is no more.
    static QString leftBehind(const QTemporaryDir &parent, const QString &name)
    {
        const QString path = parent.filePath(name);
        QDir().mkpath(path + u"/7"_s);
        QFile document(path + u"/7/قرارداد.docx"_s);
        QFile mark(path + u"/.in-use"_s);
        const bool written = document.open(QIODevice::WriteOnly) && document.write("names") == 5 && mark.open(QIODevice::WriteOnly)
            && mark.write("4194304\ntzhost\n" + QSysInfo::machineHostName().toUtf8() + "\n\n\n") > 0;
        document.setPermissions(QFile::ReadOwner);
        return written ? path : QString();
    }

private Q_SLOTS:
    void aFolderIsThisUsersAlone()
    {
        const QTemporaryDir parent;
        for (const Purpose purpose : {Purpose::Attachment, Purpose::Contract}) {
            const QString path = TemporaryFolders::make(purpose, parent.path());
            QVERIFY(QFileInfo(path).isDir());
            QVERIFY(path.startsWith(parent.path() + u'/'));
            QVERIFY(!(QFile::permissions(path) & (QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther)));
        }
        QVERIFY(TemporaryFolders::make(Purpose::Contract, parent.filePath(u"missing"_s)).isEmpty());
    }

    void whatEndedProgramsLeftGoesAndWhatRunsStays()
    {
        const QTemporaryDir parent;
        const QString ours = TemporaryFolders::make(Purpose::Contract, parent.path());
        const QString left = leftBehind(parent, u"tzauto-contract-abcdef"_s);
        const QString opened = leftBehind(parent, u"tzauto-attachment-ghijkl"_s);
        const QString unmarked = parent.filePath(u"tzauto-contract-mnopqr"_s);
        const QString socket = parent.filePath(u"tzauto-1000"_s);
        QVERIFY(!left.isEmpty() && !opened.isEmpty() && QDir().mkdir(unmarked) && QDir().mkdir(socket));
        TemporaryFolders::removeLeft(parent.path());
        QVERIFY(QFileInfo(ours).isDir());
        QVERIFY(QFileInfo(socket).isDir());
        for (const QString &path : {left, opened, unmarked})
            QVERIFY2(!QFileInfo::exists(path), qPrintable(path));
    }

    void aRemovedFolderIsGone()
    {
        const QTemporaryDir parent;
        const QString path = TemporaryFolders::make(Purpose::Attachment, parent.path());
        QFile document(path + u"/a.txt"_s);
        QVERIFY(document.open(QIODevice::WriteOnly));
        TemporaryFolders::remove(path);
        QVERIFY(!QFileInfo::exists(path));
        // Only what was made here.
        QVERIFY(QDir().mkdir(parent.filePath(u"documents"_s)));
        TemporaryFolders::remove(parent.filePath(u"documents"_s));
        QVERIFY(QFileInfo(parent.filePath(u"documents"_s)).isDir());
    }

    void aLinkOfThatNameIsNotFollowed()
    {
        const QTemporaryDir parent;
        QVERIFY(QDir().mkdir(parent.filePath(u"documents"_s)));
        QVERIFY(QFile::link(parent.filePath(u"documents"_s), parent.filePath(u"tzauto-contract-abcdef"_s)));
        TemporaryFolders::removeLeft(parent.path());
        QVERIFY(QFileInfo(parent.filePath(u"documents"_s)).isDir());
    }
};

static const RegisteredTest<TestTemporaryFolders, QCoreApplication> registeredTemporaryFolders;
#include "TestTemporaryFolders.moc"
