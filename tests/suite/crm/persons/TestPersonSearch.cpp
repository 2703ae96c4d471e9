// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/PersonSearch.h"

#include "suite/db/CTblTemp.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

// The conditions run against the database, with rows as other programs may have written them: no standard form.
class TestPersonSearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nothingTypedGivesNoCondition_data();
    void nothingTypedGivesNoCondition();
    void finds_data();
    void finds();
    void nothingTypedLeavesTheQuotes_data();
    void nothingTypedLeavesTheQuotes();
    void namesFollowThePersianAlphabet();
    void fiftyThousandPersonsAreSearchedUpToTheLimit();

private:
    QStringList found(const QString &typed);
    void insertRaw(const QString &name, int code, const QString &national, const QString &mobile, const QString &tel);

    Office m_office;
};

void TestPersonSearch::insertRaw(const QString &name, int code, const QString &national, const QString &mobile,
                                 const QString &tel)
{
    m_office.db.run(QStringLiteral("INSERT INTO Persons(sName2,iCode,sNationalCode,sMobile,sTel) "
                                   "VALUES('%1',%2,'%3','%4','%5')")
                        .arg(name)
                        .arg(code)
                        .arg(national, mobile, tel));
}

void TestPersonSearch::initTestCase()
{
    insertRaw(QStringLiteral("علی رضایی"), 1, QStringLiteral("0076229645"), QStringLiteral("09121234567"), {});
    insertRaw(QStringLiteral("علي كريمي"), 2, QStringLiteral("1583250689"), QStringLiteral("۰۹۳۵۵۵۵۶۶۷۷"), {});
    insertRaw(QStringLiteral("محمدرضا مؤمنی"), 3, {}, QStringLiteral("0912-765-4321"), {});
    insertRaw(QStringLiteral("محمد رضا هاشمي نژاد"), 4, {}, {}, QStringLiteral("02188776655"));
    insertRaw(QStringLiteral("آرش می\u200Cنو"), 12, {}, {}, {});
    insertRaw(QStringLiteral("John O\\'Neil"), 5, {}, {}, {});
    insertRaw(QStringLiteral("50% سهام"), 6, {}, {}, {});
    m_office.db.run(QStringLiteral("INSERT INTO Persons(sName2,iCode) VALUES('بی شماره',77)"));
}

QStringList TestPersonSearch::found(const QString &typed)
{
    CTblTemp temp;
    temp.ExecuteQuery(QStringLiteral("SELECT iCode FROM Persons WHERE %1 ORDER BY iCode")
                          .arg(PersonSearch::condition(typed)));
    QStringList codes;
    for (; temp.HasResultRow(); temp.MoveNextResult())
        codes.append(temp.GetTextFieldValue(0));
    return codes;
}

void TestPersonSearch::nothingTypedGivesNoCondition_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("empty") << QString();
    QTest::newRow("blanks") << QStringLiteral("  \u200C ");
    QTest::newRow("marks only") << QStringLiteral("' \" % _ \\ [ ] -");
}

void TestPersonSearch::nothingTypedGivesNoCondition()
{
    QFETCH(QString, typed);
    QCOMPARE(PersonSearch::condition(typed), QString());
}

void TestPersonSearch::finds_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("codes");
    const auto row = [](const char *name, const QString &typed, const QStringList &codes) {
        QTest::newRow(name) << typed << codes;
    };
    const QStringList bothAli{QStringLiteral("1"), QStringLiteral("2")};
    row("Persian yeh finds both forms", QStringLiteral("علی"), bothAli);
    row("Arabic yeh finds both forms", QStringLiteral("علي"), bothAli);
    row("Arabic kaf typed", QStringLiteral("كريمي"), {QStringLiteral("2")});
    row("Persian kaf typed, Arabic stored", QStringLiteral("کریمی"), {QStringLiteral("2")});
    row("words in any order", QStringLiteral("رضایی علی"), {QStringLiteral("1")});
    row("every word must be there", QStringLiteral("علی مؤمنی"), {});
    row("part of a word", QStringLiteral("رضا"), {QStringLiteral("1"), QStringLiteral("3"), QStringLiteral("4")});
    row("typed in one, stored in two", QStringLiteral("محمدرضا"), {QStringLiteral("3"), QStringLiteral("4")});
    row("typed in two, stored in one", QStringLiteral("محمد رضا"), {QStringLiteral("3"), QStringLiteral("4")});
    row("hamza left out", QStringLiteral("مومنی"), {QStringLiteral("3")});
    row("alef without madda", QStringLiteral("ارش"), {QStringLiteral("12")});
    row("joiner stored, not typed", QStringLiteral("مینو"), {QStringLiteral("12")});
    row("joiner typed as a blank", QStringLiteral("می نو"), {QStringLiteral("12")});
    row("Latin in any case", QStringLiteral("JOHN"), {QStringLiteral("5")});
    row("quote typed", QStringLiteral("o'neil"), {QStringLiteral("5")});
    row("ASCII digits", QStringLiteral("09121"), {QStringLiteral("1")});
    row("Persian digits typed", QStringLiteral("۰۹۱۲"), {QStringLiteral("1"), QStringLiteral("3")});
    row("Arabic digits typed", QStringLiteral("٠٩١٢"), {QStringLiteral("1"), QStringLiteral("3")});
    row("Persian digits stored", QStringLiteral("0935"), {QStringLiteral("2")});
    row("hyphens stored", QStringLiteral("09127654321"), {QStringLiteral("3")});
    row("national code", QStringLiteral("0076229645"), {QStringLiteral("1")});
    row("end of a national code", QStringLiteral("50689"), {QStringLiteral("2")});
    row("telephone", QStringLiteral("88776655"), {QStringLiteral("4")});
    row("code", QStringLiteral("77"), {QStringLiteral("2"), QStringLiteral("4"), QStringLiteral("77")});
    row("person whose other columns are NULL", QStringLiteral("بی شماره"), {QStringLiteral("77")});
    row("percent stored and typed", QStringLiteral("50% سهام"), {QStringLiteral("6")});
    row("percent is no wildcard", QStringLiteral("5%7"), {});
    row("underscore is no wildcard", QStringLiteral("5_7"), {});
    row("name and number together", QStringLiteral("علی ۰۹۱۲"), {QStringLiteral("1")});
    // Code 1 and national code 007... stand side by side.
    row("never from one column into the next", QStringLiteral("100762"), {});
    row("nobody", QStringLiteral("زصضط"), {});
}

void TestPersonSearch::finds()
{
    QFETCH(QString, typed);
    QTEST(found(typed), "codes");
}

void TestPersonSearch::nothingTypedLeavesTheQuotes_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("quote") << QStringLiteral("ع' OR '1'='1");
    QTest::newRow("backslash") << QStringLiteral("ع\\");
    QTest::newRow("open bracket") << QStringLiteral("ع[");
    QTest::newRow("closing bracket") << QStringLiteral("ع]");
    QTest::newRow("repeat") << QStringLiteral("ع{1000000}");
    QTest::newRow("comment") << QStringLiteral("ع-- ");
    QTest::newRow("beyond the basic plane") << QStringLiteral("ع\U0001F600");
}

void TestPersonSearch::nothingTypedLeavesTheQuotes()
{
    QFETCH(QString, typed);
    const QString condition = PersonSearch::condition(typed);
    QVERIFY(!condition.isEmpty());
    // RLIKE '...' per word: two quotes each, and none more.
    QCOMPARE(condition.count(u'\''), 2 * condition.count(QStringLiteral(" RLIKE ")));
    QVERIFY(!condition.contains(u'\\'));
    found(typed); // a statement that the server refuses throws
}

void TestPersonSearch::namesFollowThePersianAlphabet()
{
    TestDatabase &db = m_office.db;
    db.run(QStringLiteral("CREATE TABLE Letters (sName VARCHAR(20)) CHARSET=utf8"));
    db.run(QStringLiteral("INSERT INTO Letters VALUES('یاس'),('کامران'),('پرویز'),('تقی'),('گیتی'),('لاله'),('بهرام'),('چنگیز'),('ژاله'),('سارا'),('زهرا'),('وحید'),('هما')"));
    CTblTemp temp;
    temp.ExecuteQuery(QStringLiteral("SELECT sName FROM Letters ORDER BY ") + PersonSearch::alphabetical(QStringLiteral("sName")));
    QStringList names;
    for (; temp.HasResultRow(); temp.MoveNextResult())
        names.append(temp.GetTextFieldValue(0));
    QCOMPARE(names.join(u' '), QStringLiteral("بهرام پرویز تقی چنگیز زهرا ژاله سارا کامران گیتی لاله وحید هما یاس"));
}

void TestPersonSearch::fiftyThousandPersonsAreSearchedUpToTheLimit()
{
    m_office.db.run(QStringLiteral("INSERT INTO Persons(sName2,iCode,sNationalCode,sMobile,sTel) "
                                   "SELECT CONCAT('کاربر شماره ', seq), seq, LPAD(seq, 10, '0'), CONCAT('0919', LPAD(seq, 7, '0')), "
                                   "CONCAT('021', seq) FROM seq_100000_to_149999"));
    CTblTemp temp;
    const int rows = temp.ExecuteQuery(QStringLiteral("SELECT iID FROM Persons WHERE %1 ORDER BY %2 LIMIT 1000")
                                           .arg(PersonSearch::condition(QStringLiteral("کاربر ۱۲۳")),
                                                PersonSearch::alphabetical(QStringLiteral("sName2"))));
    QCOMPARE(rows, 1000);
}

static const RegisteredTest<TestPersonSearch, QCoreApplication> registered;
#include "TestPersonSearch.moc"
