// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/OfficeServer.h"

#include "host/HostOptions.h"
#include "suite/accounting/KMessageDialog.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestOfficeServer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { g_pDlgWarning->answerAll(true); }
    void cleanup() { g_pDlgWarning->answerAll(false); }
    void passwordIsTheFirstLine_data();
    void passwordIsTheFirstLine();
    void aFileThatOthersReadIsRefused();
    void aFileThatIsNotThereIsTold();
    void aServerThatIsNotThereIsToldOnce();
};

namespace {

QString writeFile(const QTemporaryDir &folder, const QByteArray &text, QFile::Permissions permissions)
{
    QFile file(folder.filePath(QStringLiteral("word")));
    if (!file.open(QIODevice::WriteOnly))
        return {};
    file.write(text);
    file.setPermissions(permissions);
    return file.fileName();
}

}

void TestOfficeServer::passwordIsTheFirstLine_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("password");
    QTest::newRow("one line") << QByteArray("word") << "word";
    QTest::newRow("with its end") << QByteArray("word\nmore\n") << "word";
    QTest::newRow("with two end signs") << QByteArray("word\r\n") << "word";
    QTest::newRow("blanks belong to it") << QByteArray(" a b \n") << " a b ";
    QTest::newRow("Persian") << QByteArray("راز\n") << "راز";
    QTest::newRow("empty") << QByteArray() << "";
}

void TestOfficeServer::passwordIsTheFirstLine()
{
    QFETCH(QByteArray, text);
    const QTemporaryDir folder;
    QString error;
    const auto password =
        OfficeServer::readPassword(writeFile(folder, text, QFile::ReadOwner | QFile::WriteOwner), &error);
    QVERIFY2(password, qPrintable(error));
    QTEST(*password, "password");
}

void TestOfficeServer::aFileThatOthersReadIsRefused()
{
    const QTemporaryDir folder;
    for (const QFile::Permission other : {QFile::ReadGroup, QFile::ReadOther}) {
        QString error;
        QVERIFY(!OfficeServer::readPassword(writeFile(folder, "word", QFile::ReadOwner | QFile::WriteOwner | other), &error));
        QVERIFY(error.contains(folder.path()));
    }
}

void TestOfficeServer::aFileThatIsNotThereIsTold()
{
    QString error;
    QVERIFY(!OfficeServer::readPassword(QStringLiteral("/nowhere/word"), &error));
    QVERIFY(error.contains(QStringLiteral("/nowhere/word")));
}

void TestOfficeServer::aServerThatIsNotThereIsToldOnce()
{
    const QTemporaryDir folder;
    HostOptions options;
    options.connect = true;
    options.host = QStringLiteral("127.0.0.1");
    options.port = 1;
    options.database = QStringLiteral("books");
    options.user = QStringLiteral("sara");
    options.passwordFile = writeFile(folder, "word", QFile::ReadOwner | QFile::WriteOwner);
    QVERIFY(!OfficeServer::connect(options, nullptr));
    QCOMPARE(g_pDlgWarning->takeShown().size(), 1);
}

QTEST_MAIN(TestOfficeServer)
#include "TestOfficeServer.moc"
