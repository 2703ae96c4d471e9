// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/DatabaseDump.h"
#include "tests/support/OrdinaryRights.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// The kind of error with which taking or restoring fails; Kind::InUse when it does not.
template <typename Operation>
ServerError refusal(Operation operation)
{
    try {
        operation();
    } catch (const ServerError &error) {
        return error;
    }
    return {ServerError::Kind::InUse, {}};
}

}

class TestDatabaseDump : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aDumpBringsEverythingBack();
    void aDumpIsForTheUserAlone();
    void twoDumpsOfOneSecondAreBothKept();
    void theNewestIsListedFirst();
    void tablesMadeAfterTheDumpAreGoneAfterRestoring();
    void aCancelledDumpLeavesNothing();
    void aCancelledRestoringChangesNothing();
    void anIncompleteFileIsRefusedAndChangesNothing();
    void aFileWithABadStatementChangesNothing();
    void aMissingToolIsNamed();
    void aFolderWithoutWritePermissionIsNamed();
    void aDatabaseThatIsNotThereLeavesNothing();

private:
    DatabaseDump dump() const { return {m_database.settings(), m_temporary->path()}; }
    QStringList files() const { return QDir(m_temporary->path()).entryList(QDir::Files | QDir::Hidden); }
    void fill(int rows);
    QString countOf(const QString &table) { return m_database.value(u"SELECT COUNT(*) FROM "_s + table); }
    QStringList databases();

    TestDatabase m_database;
    std::unique_ptr<QTemporaryDir> m_temporary;
};

void TestDatabaseDump::init()
{
    m_temporary = std::make_unique<QTemporaryDir>();
    m_database.recreate();
}

void TestDatabaseDump::fill(int rows)
{
    m_database.run(u"CREATE TABLE Cars (iID INT PRIMARY KEY AUTO_INCREMENT, sName VARCHAR(50) CHARACTER SET utf8,"
                   " sEmoji VARCHAR(20), oData LONGBLOB, date DATETIME, dPrice DOUBLE)"_s);
    m_database.run(u"INSERT INTO Cars (sName, sEmoji, oData, date, dPrice) VALUES"
                   " ('پژو ۴۰۵ ''جی‌ال‌ایکس''\\\\', '🚗', 0x00FF0A0D1A275C00, NULL, 1234567890.25)"_s);
    m_database.run(u"INSERT INTO Cars (sName, oData) SELECT CONCAT('r', seq), REPEAT('x', 1000) FROM seq_1_to_%1"_s.arg(rows));
}

QStringList TestDatabaseDump::databases()
{
    return m_database.value(u"SELECT GROUP_CONCAT(schema_name) FROM information_schema.schemata WHERE schema_name LIKE '%1\\_%'"_s
                                .arg(m_database.name()))
        .split(QLatin1Char(','), Qt::SkipEmptyParts);
}

void TestDatabaseDump::aDumpBringsEverythingBack()
{
    fill(3);
    const QString checksum = u"SELECT MD5(GROUP_CONCAT(CONCAT_WS('|', iID, sName, sEmoji, HEX(oData),"
                             " IFNULL(date, 'null'), dPrice) ORDER BY iID)) FROM Cars"_s;
    const QString before = m_database.value(checksum);
    const QString definition = m_database.value(u"SELECT GROUP_CONCAT(column_name, column_type, IFNULL(character_set_name, '')"
                                                " ORDER BY ordinal_position) FROM information_schema.columns WHERE table_schema = DATABASE()"_s);
    QVERIFY(!before.isEmpty());
    const QString file = dump().take();
    QVERIFY(DatabaseDump::isWhole(file));
    m_database.run(u"UPDATE Cars SET sName = 'lost'"_s);
    m_database.run(u"ALTER TABLE Cars DROP COLUMN sEmoji"_s);
    dump().restore(file);
    QCOMPARE(m_database.value(checksum), before);
    QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(column_name, column_type, IFNULL(character_set_name, '')"
                              " ORDER BY ordinal_position) FROM information_schema.columns WHERE table_schema = DATABASE()"_s),
             definition);
    QCOMPARE(databases(), QStringList());
}

void TestDatabaseDump::aDumpIsForTheUserAlone()
{
    fill(1);
    const QString file = dump().take();
    QCOMPARE(QFile::permissions(file)
                 & (QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther),
             QFile::Permissions());
    QCOMPARE(files(), QStringList{QFileInfo(file).fileName()});
}

void TestDatabaseDump::twoDumpsOfOneSecondAreBothKept()
{
    fill(1);
    const QString first = dump().take();
    const QString second = dump().take();
    QVERIFY(first != second);
    QCOMPARE(dump().existing(), (QStringList{second, first}));
}

void TestDatabaseDump::theNewestIsListedFirst()
{
    const QStringList names{u"20260102-030405"_s, u"20251231-235959"_s, u"20260102-030405-2"_s};
    for (const QString &name : names) {
        QFile file(m_temporary->filePath(u"%1-%2.sql"_s.arg(m_database.name(), name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QFile other(m_temporary->filePath(u"other-20270101-000000.sql"_s));
    QVERIFY(other.open(QIODevice::WriteOnly));
    QStringList shown;
    for (const QString &path : dump().existing())
        shown << QFileInfo(path).completeBaseName().mid(m_database.name().size() + 1);
    QCOMPARE(shown, (QStringList{names[2], names[0], names[1]}));
}

void TestDatabaseDump::tablesMadeAfterTheDumpAreGoneAfterRestoring()
{
    fill(1);
    const QString file = dump().take();
    m_database.run(u"CREATE TABLE Later (i INT)"_s);
    m_database.run(u"DROP TABLE Cars"_s);
    dump().restore(file);
    QCOMPARE(m_database.value(u"SELECT GROUP_CONCAT(table_name) FROM information_schema.tables WHERE table_schema = DATABASE()"_s),
             u"Cars"_s);
    QCOMPARE(countOf(u"Cars"_s), u"2"_s);
}

void TestDatabaseDump::aCancelledDumpLeavesNothing()
{
    fill(60'000);
    qint64 told = 0;
    const ServerError error = refusal([&] {
        (void)dump().take([&told](qint64, qint64 expected) {
            told = expected;
            return false;
        });
    });
    QCOMPARE(error.kind(), ServerError::Kind::Cancelled);
    QVERIFY(told > 0);
    QCOMPARE(files(), QStringList());
}

void TestDatabaseDump::aCancelledRestoringChangesNothing()
{
    fill(60'000);
    const QString file = dump().take();
    m_database.run(u"DELETE FROM Cars WHERE iID > 5"_s);
    const ServerError error = refusal([&] { dump().restore(file, [](qint64, qint64) { return false; }); });
    QCOMPARE(error.kind(), ServerError::Kind::Cancelled);
    QCOMPARE(countOf(u"Cars"_s), u"5"_s);
    QCOMPARE(databases(), QStringList());
}

void TestDatabaseDump::anIncompleteFileIsRefusedAndChangesNothing()
{
    fill(2000);
    const QString file = dump().take();
    QVERIFY(QFile::resize(file, QFileInfo(file).size() / 2));
    QVERIFY(!DatabaseDump::isWhole(file));
    m_database.run(u"DELETE FROM Cars WHERE iID > 5"_s);
    const ServerError error = refusal([&] { dump().restore(file); });
    QCOMPARE(error.kind(), ServerError::Kind::DumpFailed);
    QVERIFY(error.userMessage().contains(file));
    QCOMPARE(countOf(u"Cars"_s), u"5"_s);
}

void TestDatabaseDump::aFileWithABadStatementChangesNothing()
{
    fill(1);
    const QString file = dump().take();
    QFile content(file);
    QVERIFY(content.open(QIODevice::ReadWrite));
    QByteArray text = content.readAll();
    text.replace("INSERT INTO", "INSERT ONTO");
    content.seek(0);
    QCOMPARE(content.write(text), text.size());
    content.close();
    m_database.run(u"DELETE FROM Cars"_s);
    const ServerError error = refusal([&] { dump().restore(file); });
    QCOMPARE(error.kind(), ServerError::Kind::DumpFailed);
    QVERIFY(error.userMessage().contains(file));
    QVERIFY2(error.detail().contains(u"1064"_s), qPrintable(error.detail()));
    QCOMPARE(countOf(u"Cars"_s), u"0"_s);
    QCOMPARE(databases(), QStringList());
}

void TestDatabaseDump::aMissingToolIsNamed()
{
    fill(1);
    ServerPrograms programs = ServerPrograms::installed();
    programs.dump = u"/nonexistent/mariadb-dump"_s;
    const ServerError error = refusal([&] { (void)DatabaseDump(m_database.settings(), m_temporary->path(), programs).take(); });
    QCOMPARE(error.kind(), ServerError::Kind::ProgramMissing);
    QVERIFY(error.userMessage().contains(programs.dump));
    QCOMPARE(files(), QStringList());
}

void TestDatabaseDump::aFolderWithoutWritePermissionIsNamed()
{
    fill(1);
    QVERIFY(QFile::setPermissions(m_temporary->path(),
                                  QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
    const OrdinaryRights ordinary;
    const ServerError error = refusal([&] { (void)dump().take(); });
    QCOMPARE(error.kind(), ServerError::Kind::DumpFailed);
    QVERIFY(error.userMessage().contains(m_temporary->path()));
}

void TestDatabaseDump::aDatabaseThatIsNotThereLeavesNothing()
{
    KConnectionSettings settings = m_database.settings();
    settings.database = u"never_made"_s;
    const ServerError error = refusal([&] { (void)DatabaseDump(settings, m_temporary->path()).take(); });
    QCOMPARE(error.kind(), ServerError::Kind::DumpFailed);
    QVERIFY(error.detail().contains(u"never_made"_s));
    QCOMPARE(files(), QStringList());
}

static const RegisteredTest<TestDatabaseDump, QCoreApplication> registeredDatabaseDump;
#include "TestDatabaseDump.moc"
