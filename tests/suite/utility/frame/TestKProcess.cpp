// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KProcess.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;

// Stands in for the desktop: it alone decides what opens a file.
class TestKProcess : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void open(const QUrl &url) { m_opened.append(url); }

private Q_SLOTS:
    void init();
    void cleanup() { QDesktopServices::unsetUrlHandler(u"file"_s); }
    void explorerOpensAFolder();
    void explorerOpensAFileWithAHardName();
    void aPathThatIsNotThere();
    void anotherProgramIsStarted();
    void aProgramThatIsNotThere();
    void linkIsOpenedWhereTheDesktopHasAProgram_data();
    void linkIsOpenedWhereTheDesktopHasAProgram();

private:
    QList<QUrl> m_opened;
    QTemporaryDir m_folder;
};

void TestKProcess::init()
{
    m_opened.clear();
    QDesktopServices::setUrlHandler(u"file"_s, this, "open");
}

void TestKProcess::explorerOpensAFolder()
{
    QVERIFY(KProcess::Execute(u"Explorer"_s, m_folder.path()));
    QVERIFY(KProcess::Execute(u"explorer"_s, m_folder.path() + QLatin1Char('/')));
    QCOMPARE(m_opened.size(), 2);
    QCOMPARE(QDir(m_opened.first().toLocalFile()), QDir(m_folder.path()));
}

void TestKProcess::explorerOpensAFileWithAHardName()
{
    const QString path = m_folder.filePath(u"قرارداد 12 #50%.docx"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(KProcess::Execute(u"Explorer"_s, path));
    QCOMPARE(m_opened.size(), 1);
    QCOMPARE(m_opened.first().toLocalFile(), path);
}

void TestKProcess::aPathThatIsNotThere()
{
    QVERIFY(!KProcess::Execute(u"Explorer"_s, m_folder.filePath(u"none"_s)));
    QVERIFY(!KProcess::Execute(u"Explorer"_s, QString()));
    QCOMPARE(m_opened.size(), 0);
}

void TestKProcess::anotherProgramIsStarted()
{
    const QString made = m_folder.filePath(u"made"_s);
    QVERIFY(KProcess::Execute(u"mkdir"_s, made));
    QTRY_VERIFY(QDir(made).exists());
    QCOMPARE(m_opened.size(), 0);
}

void TestKProcess::aProgramThatIsNotThere()
{
    QVERIFY(!KProcess::Execute(m_folder.filePath(u"no-such-program"_s), u"x"_s));
}

void TestKProcess::linkIsOpenedWhereTheDesktopHasAProgram_data()
{
    QTest::addColumn<QByteArray>("answer"); // of the desktop, as a script
    QTest::addColumn<bool>("opened");
    QTest::newRow("it has one") << QByteArray("echo phone.desktop") << true;
    QTest::newRow("it has none") << QByteArray("echo") << false;
    QTest::newRow("it cannot say") << QByteArray("exit 3") << true;
    QTest::newRow("it asks for that very scheme") << QByteArray("[ \"$*\" = 'query default x-scheme-handler/sms' ] && echo phone.desktop || echo") << true;
}

void TestKProcess::linkIsOpenedWhereTheDesktopHasAProgram()
{
    QFETCH(QByteArray, answer);
    QFile script(m_folder.filePath(u"xdg-mime"_s));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\n" + answer + '\n');
    script.close();
    QVERIFY(script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", m_folder.path().toLocal8Bit() + ':' + path);
    QDesktopServices::setUrlHandler(u"sms"_s, this, "open");
    QTEST(KProcess::openLink(QUrl(u"sms:+989121234567?body=x"_s)), "opened");
    QVERIFY(!KProcess::openLink(QUrl()));
    QDesktopServices::unsetUrlHandler(u"sms"_s);
    qputenv("PATH", path);
    QFETCH(bool, opened);
    QCOMPARE(m_opened.size(), opened ? 1 : 0);
}

static const RegisteredTest<TestKProcess, QApplication> registeredKProcess;
#include "TestKProcess.moc"
