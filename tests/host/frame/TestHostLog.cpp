// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/frame/HostLog.h"

#include "host/frame/StartupClock.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestHostLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { HostLog::stop(); }
    void whatCameBeforeTheFolderIsKnownIsKept();
    void theLogOfTheStartBeforeIsKeptAndNoOlderOne();
    void onlyTheOwnerReadsIt();
    void phasesOfTheStartHaveOneLineEach();
    void aFolderThatCannotBeWrittenIsTold();
};

namespace {

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void writeOneStart(const QString &folder, const char *words)
{
    HostLog::collect();
    QVERIFY(HostLog::start(folder));
    qInfo("%s", words);
    HostLog::stop();
}

}

void TestHostLog::whatCameBeforeTheFolderIsKnownIsKept()
{
    const QTemporaryDir folder;
    HostLog::collect();
    qInfo("early words");
    QVERIFY(HostLog::start(folder.path()));
    qInfo("later words");
    const QString text = textOf(HostLog::fileName(folder.path()));
    QVERIFY(text.contains(u"early words"_s));
    QVERIFY(text.indexOf(u"early words"_s) < text.indexOf(u"later words"_s));
}

void TestHostLog::theLogOfTheStartBeforeIsKeptAndNoOlderOne()
{
    const QTemporaryDir folder;
    writeOneStart(folder.path(), "first start");
    writeOneStart(folder.path(), "second start");
    writeOneStart(folder.path(), "third start");
    const QString now = textOf(HostLog::fileName(folder.path()));
    const QString before = textOf(HostLog::previousFileName(folder.path()));
    QVERIFY(now.contains(u"third start"_s));
    QVERIFY(!now.contains(u"second start"_s));
    QVERIFY(before.contains(u"second start"_s));
    QVERIFY(!before.contains(u"first start"_s));
}

void TestHostLog::onlyTheOwnerReadsIt()
{
    const QTemporaryDir folder;
    writeOneStart(folder.path(), "words");
    const QFile::Permissions others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    QVERIFY(!(QFile::permissions(HostLog::fileName(folder.path())) & others));
}

void TestHostLog::phasesOfTheStartHaveOneLineEach()
{
    const QTemporaryDir folder;
    HostLog::collect();
    QVERIFY(HostLog::start(folder.path()));
    StartupClock clock;
    clock.reached("server");
    clock.passed("total");
    const QString text = textOf(HostLog::fileName(folder.path()));
    QVERIFY2(text.contains(QRegularExpression(u"startup: server \\d+\\n"_s)), qPrintable(text));
    QVERIFY2(text.contains(QRegularExpression(u"startup: total \\d+\\n"_s)), qPrintable(text));
}

void TestHostLog::aFolderThatCannotBeWrittenIsTold()
{
    const QTemporaryDir folder;
    HostLog::collect();
    QVERIFY(!HostLog::start(folder.filePath(u"not there"_s)));
}

static const RegisteredTest<TestHostLog, QCoreApplication> registeredHostLog;
#include "TestHostLog.moc"
