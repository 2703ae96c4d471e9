// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/connection/CMySQLException.h"
#include "tests/support/RegisteredTest.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

using Category = CMySQLException::Category;

class TestCMySQLException : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The numbers are those of the server's and the client library's manuals.
    void categoryOfTheServersCode_data()
    {
        QTest::addColumn<unsigned int>("code");
        QTest::addColumn<Category>("category");
        const auto row = [](const char *name, unsigned int code, Category category) { QTest::newRow(name) << code << category; };
        row("no socket", 2002, Category::ConnectionLost);
        row("no host", 2003, Category::ConnectionLost);
        row("unknown host", 2005, Category::ConnectionLost);
        row("server has gone away", 2006, Category::ConnectionLost);
        row("lost during query", 2013, Category::ConnectionLost);
        row("server shuts down", 1053, Category::ConnectionLost);
        row("connection was killed", 1927, Category::ConnectionLost);
        row("duplicate entry", 1062, Category::DuplicateKey);
        row("duplicate entry of a named key", 1586, Category::DuplicateKey);
        row("deadlock", 1213, Category::LockConflict);
        row("lock wait timeout", 1205, Category::LockWait);
        row("text too long", 1406, Category::ValueTooLong);
        row("number out of range", 1264, Category::ValueTooLong);
        row("character of another set", 1366, Category::BadCharacter);
        row("syntax", 1064, Category::BadStatement);
        row("no such table", 1146, Category::BadStatement);
        row("no such column", 1054, Category::BadStatement);
        row("column is there", 1060, Category::AlreadySo);
        row("table is there", 1050, Category::AlreadySo);
        row("disk full", 1021, Category::DiskFull);
        row("table full", 1114, Category::DiskFull);
        row("anything else", 1105, Category::Other);
        row("no code", 0, Category::Other);
    }

    void categoryOfTheServersCode()
    {
        QFETCH(unsigned int, code);
        QTEST(CMySQLException::categoryOf(code), "category");
    }

    void everyCategoryHasASentenceOfItsOwn()
    {
        QSet<QString> sentences;
        const QList<Category> all{Category::ConnectionLost, Category::DuplicateKey, Category::LockConflict, Category::LockWait,
                                  Category::GivenUp, Category::OutcomeUnknown, Category::ValueTooLong, Category::BadCharacter,
                                  Category::BadStatement, Category::AlreadySo, Category::DiskFull,
                                  Category::NoCurrentRow, Category::Other};
        for (const Category category : all) {
            const QString sentence = CMySQLException(category, 0, u"server's words"_s, u"SELECT 'secret'"_s).userMessage();
            QVERIFY(sentence.endsWith(u'.'));
            QVERIFY(sentence.at(0).script() == QChar::Script_Arabic);
            QVERIFY(!sentence.contains(u"secret"_s));
            QVERIFY(!sentence.contains(u"words"_s));
            sentences.insert(sentence);
        }
        QCOMPARE(sentences.size(), all.size());
    }

    // Whoever reads the list anew after a save must not be told that nothing was saved.
    void lostReadSaysNothingAboutWhatWasSaved()
    {
        const auto told = [](Category category, const QString &statement) { return CMySQLException(category, 2013, QString(), statement).userMessage(); };
        for (const Category category : {Category::ConnectionLost, Category::GivenUp}) {
            QVERIFY(told(category, u"UPDATE Persons SET iCode=1"_s).contains(u"ذخیره نشد"_s));
            QVERIFY(told(category, u"SELECT iID FROM Persons WHERE iID=1 LIMIT 1 FOR UPDATE"_s).contains(u"ذخیره نشد"_s));
            QVERIFY(!told(category, u"SELECT iID FROM Persons"_s).contains(u"ذخیره"_s));
        }
    }

    void columnToBlameIsNamedByItsCaption()
    {
        for (const Category category : {Category::ValueTooLong, Category::BadCharacter}) {
            CMySQLException error(category, 0, QString());
            const QString unnamed = error.userMessage();
            QVERIFY(!unnamed.contains(u'«'));
            error.setColumnCaption(u"شماره پلاک "_s);
            QVERIFY(error.userMessage().contains(u"«شماره پلاک»"_s));
        }
    }

    void keepsWhatTheLogNeeds()
    {
        const CMySQLException error(Category::DuplicateKey, 1062, u"Duplicate entry"_s, u"INSERT"_s);
        QCOMPARE(error.GetErrorMessage(), u"Duplicate entry"_s);
        QCOMPARE(error.serverCode(), 1062U);
        QCOMPARE(error.statement(), u"INSERT"_s);
        QCOMPARE(QByteArray(error.what()), QByteArray("Duplicate entry"));
    }
};

static const RegisteredTest<TestCMySQLException> registeredCMySQLException;
#include "TestCMySQLException.moc"
