// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "tests/suite/accounting/TestOffice.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QFile>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {
constexpr int contracts = 69;
}

class TestCTblFileDocs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void fileComesBackByteForByte_data();
    void fileComesBackByteForByte();
    void largestFileIsKept_data();
    void largestFileIsKept();
    void oneByteMoreThanTheLimitIsRefused();
    void fileThatCannotBeKeptIsRefused_data();
    void fileThatCannotBeKeptIsRefused();
    void closedDatabaseRefuses();
    void nameComesWithoutItsFolder();
    void listReadsNoContents();
    void personalFilesAreTheirUsersOnly();
    void filesOfOtherRecordsAreNotListed();
    void deletingARecordTakesItsFilesOnly();
    void deletingForOneUserLeavesTheOthers();
    void safeNameHoldsNothingHarmful_data();
    void safeNameHoldsNothingHarmful();

private:
    QString write(const QString &name, const QByteArray &data);
    int add(int record, CTblFileDocs::Scope scope, int user);

    TestOffice m_office;
    QTemporaryDir m_folder;
};

void TestCTblFileDocs::init()
{
    GetDBSetting()->SetClosedDB(false);
    m_office.database.run(u"DELETE FROM FileDocs"_s);
}

QString TestCTblFileDocs::write(const QString &name, const QByteArray &data)
{
    const QString path = m_folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
        return {};
    return path;
}

int TestCTblFileDocs::add(int record, CTblFileDocs::Scope scope, int user)
{
    return CTblFileDocs::addFile(contracts, record, scope, user, write(u"a.txt"_s, "text"));
}

void TestCTblFileDocs::fileComesBackByteForByte_data()
{
    QTest::addColumn<QByteArray>("data");
    QByteArray everyByte;
    for (int i = 0; i < 256; ++i)
        everyByte.append(char(i));
    QTest::newRow("one byte") << QByteArray("x");
    QTest::newRow("every byte") << everyByte;
    QTest::newRow("quotes and backslashes") << QByteArray("'\"\\%_';--");
    QTest::newRow("zeros") << QByteArray(1000, '\0');
}

void TestCTblFileDocs::fileComesBackByteForByte()
{
    QFETCH(QByteArray, data);
    const int id = CTblFileDocs::addFile(contracts, 1, CTblFileDocs::General, m_office.admin,
                                         write(u"قولنامه.pdf"_s, data));
    QString name;
    QByteArray stored;
    QVERIFY(CTblFileDocs::content(id, m_office.clerk, &name, &stored));
    QCOMPARE(name, u"قولنامه.pdf"_s);
    QCOMPARE(stored, data);
}

void TestCTblFileDocs::largestFileIsKept_data()
{
    QTest::addColumn<char>("byte");
    QTest::newRow("plain") << 'x';
    // Every byte doubles in the statement.
    QTest::newRow("zeros") << '\0';
}

void TestCTblFileDocs::largestFileIsKept()
{
    QFETCH(char, byte);
    const QByteArray data(CTblFileDocs::maxFileBytes, byte);
    const int id = CTblFileDocs::addFile(contracts, 1, CTblFileDocs::General, m_office.admin,
                                         write(u"large.bin"_s, data));
    QString name;
    QByteArray stored;
    QVERIFY(CTblFileDocs::content(id, m_office.admin, &name, &stored));
    QVERIFY(stored == data);
}

void TestCTblFileDocs::oneByteMoreThanTheLimitIsRefused()
{
    const QString path = write(u"larger.bin"_s, QByteArray(CTblFileDocs::maxFileBytes + 1, 'x'));
    bool refused = false;
    try {
        CTblFileDocs::addFile(contracts, 1, CTblFileDocs::General, m_office.admin, path);
    } catch (const KAccountingError &error) {
        refused = true;
        QVERIFY(error.userMessage().contains(u"25"_s));
    }
    QVERIFY(refused);
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM FileDocs"_s), u"0"_s);
}

void TestCTblFileDocs::fileThatCannotBeKeptIsRefused_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << m_folder.filePath(u"missing.txt"_s);
    QTest::newRow("folder") << m_folder.path();
    QTest::newRow("empty") << write(u"empty.txt"_s, QByteArray());
    QTest::newRow("no name") << QString();
}

void TestCTblFileDocs::fileThatCannotBeKeptIsRefused()
{
    QFETCH(QString, path);
    QVERIFY_THROWS_EXCEPTION(KAccountingError,
                             CTblFileDocs::addFile(contracts, 1, CTblFileDocs::General, m_office.admin, path));
    QCOMPARE(m_office.database.value(u"SELECT COUNT(*) FROM FileDocs"_s), u"0"_s);
}

void TestCTblFileDocs::closedDatabaseRefuses()
{
    GetDBSetting()->SetClosedDB(true);
    QVERIFY_THROWS_EXCEPTION(KAccountingError, add(1, CTblFileDocs::General, m_office.admin));
}

void TestCTblFileDocs::nameComesWithoutItsFolder()
{
    add(1, CTblFileDocs::General, m_office.admin);
    QCOMPARE(CTblFileDocs::list(contracts, 1, CTblFileDocs::General, m_office.admin).constFirst().name,
             u"a.txt"_s);
}

void TestCTblFileDocs::listReadsNoContents()
{
    add(1, CTblFileDocs::General, m_office.admin);
    QStringList statements;
    KConnection::setStatementObserver([&statements](const QString &statement) { statements.append(statement); });
    const QList<CTblFileDocs::FileInfo> files = CTblFileDocs::list(contracts, 1, CTblFileDocs::General, m_office.admin);
    KConnection::setStatementObserver({});
    QCOMPARE(files.size(), 1);
    QCOMPARE(files.constFirst().userID, m_office.admin);
    QVERIFY(files.constFirst().created.isValid());
    QCOMPARE(statements.size(), 1);
    QVERIFY(!statements.constFirst().contains(u"oData"_s));
}

void TestCTblFileDocs::personalFilesAreTheirUsersOnly()
{
    const int id = add(1, CTblFileDocs::Personal, m_office.admin);
    QCOMPARE(CTblFileDocs::list(contracts, 1, CTblFileDocs::Personal, m_office.admin).size(), 1);
    QVERIFY(CTblFileDocs::list(contracts, 1, CTblFileDocs::Personal, m_office.clerk).isEmpty());
    QVERIFY(CTblFileDocs::list(contracts, 1, CTblFileDocs::General, m_office.admin).isEmpty());
    QString name;
    QByteArray data;
    QVERIFY(!CTblFileDocs::content(id, m_office.clerk, &name, &data));
    QVERIFY(!CTblFileDocs::deleteFile(id, m_office.clerk));
    QVERIFY(CTblFileDocs::content(id, m_office.admin, &name, &data));
    QVERIFY(CTblFileDocs::deleteFile(id, m_office.admin));
    QVERIFY(!CTblFileDocs::content(id, m_office.admin, &name, &data));
}

void TestCTblFileDocs::filesOfOtherRecordsAreNotListed()
{
    add(1, CTblFileDocs::General, m_office.admin);
    QVERIFY(CTblFileDocs::list(contracts, 2, CTblFileDocs::General, m_office.admin).isEmpty());
    QVERIFY(CTblFileDocs::list(68, 1, CTblFileDocs::General, m_office.admin).isEmpty());
}

void TestCTblFileDocs::deletingARecordTakesItsFilesOnly()
{
    add(1, CTblFileDocs::General, m_office.admin);
    add(1, CTblFileDocs::Personal, m_office.clerk);
    add(2, CTblFileDocs::General, m_office.admin);
    CTblFileDocs::DeleteAllRelatedRecords(contracts, 1, 0);
    QCOMPARE(m_office.database.value(u"SELECT GROUP_CONCAT(iRecordID) FROM FileDocs"_s), u"2"_s);
}

void TestCTblFileDocs::deletingForOneUserLeavesTheOthers()
{
    add(1, CTblFileDocs::Personal, m_office.admin);
    add(1, CTblFileDocs::Personal, m_office.clerk);
    CTblFileDocs::DeleteAllRelatedRecords(contracts, 1, m_office.clerk);
    QCOMPARE(m_office.database.value(u"SELECT GROUP_CONCAT(iUserID) FROM FileDocs"_s),
             QString::number(m_office.admin));
}

void TestCTblFileDocs::safeNameHoldsNothingHarmful_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("safe");
    QTest::newRow("plain") << u"قرارداد 12.docx"_s << u"قرارداد 12.docx"_s;
    QTest::newRow("folders") << u"../../etc/passwd"_s << u"_.._etc_passwd"_s;
    QTest::newRow("backslashes") << u"..\\a\\b.txt"_s << u"_a_b.txt"_s;
    QTest::newRow("drive") << u"C:x.txt"_s << u"C_x.txt"_s;
    QTest::newRow("hidden") << u".profile"_s << u"profile"_s;
    QTest::newRow("control characters") << u"a\nb\tc.txt"_s << u"abc.txt"_s;
    QTest::newRow("turned by a direction mark") << QString(u"x"_s + QChar(0x202E) + u"txt.exe"_s)
                                                << u"xtxt.exe"_s;
    QTest::newRow("device") << u"con.txt"_s << u"_con.txt"_s;
    QTest::newRow("numbered device") << u"LPT1"_s << u"_LPT1"_s;
    QTest::newRow("dots at the end") << u"a.txt. ."_s << u"a.txt"_s;
    QTest::newRow("nothing left") << u"..."_s << u"file"_s;
    QTest::newRow("empty") << QString() << u"file"_s;
    QTest::newRow("long") << QString(QString(300, u'a') + u".pdf"_s)
                          << QString(QString(96, u'a') + u".pdf"_s);
}

void TestCTblFileDocs::safeNameHoldsNothingHarmful()
{
    QFETCH(QString, name);
    QFETCH(QString, safe);
    QCOMPARE(CTblFileDocs::safeFileName(name), safe);
}

static const RegisteredTest<TestCTblFileDocs, QCoreApplication> registeredCTblFileDocs;
#include "TestCTblFileDocs.moc"
