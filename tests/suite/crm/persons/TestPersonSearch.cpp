// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/persons/PersonSearch.h"

#include "suite/db/records/CTblTemp.h"
#include "tests/suite/crm/Office.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

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
    void filtersJoinTheSearchBehindTheStatus_data();
    void filtersJoinTheSearchBehindTheStatus();
    void fiftyThousandPersonsAreSearchedUpToTheLimit();

private:
    QStringList found(const QString &typed);
    void insertRaw(const QString &name, int code, const QString &national, const QString &mobile, const QString &tel);

    Office m_office;
};

void TestPersonSearch::insertRaw(const QString &name, int code, const QString &national, const QString &mobile,
                                 const QString &tel)
{
    m_office.db.run(u"INSERT INTO Persons(sName2,iCode,sNationalCode,sMobile,sTel) "
                    "VALUES('%1',%2,'%3','%4','%5')"_s
                        .arg(name)
                        .arg(code)
                        .arg(national, mobile, tel));
}

void TestPersonSearch::initTestCase()
{
    insertRaw(u"علی رضایی"_s, 1, u"0076229645"_s, u"09121234567"_s, {});
    insertRaw(u"علي كريمي"_s, 2, u"1583250689"_s, u"۰۹۳۵۵۵۵۶۶۷۷"_s, {});
    insertRaw(u"محمدرضا مؤمنی"_s, 3, {}, u"0912-765-4321"_s, {});
    insertRaw(u"محمد رضا هاشمي نژاد"_s, 4, {}, {}, u"02188776655"_s);
    insertRaw(u"آرش می\u200Cنو"_s, 12, {}, {}, {});
    insertRaw(u"John O\\'Neil"_s, 5, {}, {}, {});
    insertRaw(u"50% سهام"_s, 6, {}, {}, {});
    m_office.db.run(u"INSERT INTO Persons(sName2,iCode) VALUES('بی شماره',77)"_s);
}

QStringList TestPersonSearch::found(const QString &typed)
{
    CTblTemp temp;
    temp.ExecuteQuery(KSql::formatted("SELECT iCode FROM Persons WHERE %1 ORDER BY iCode", PersonSearch::condition(typed)));
    QStringList codes;
    for (; temp.HasResultRow(); temp.MoveNextResult())
        codes.append(temp.GetTextFieldValue(0));
    return codes;
}

void TestPersonSearch::nothingTypedGivesNoCondition_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("empty") << QString();
    QTest::newRow("blanks") << u"  \u200C "_s;
    QTest::newRow("marks only") << u"' \" % _ \\ [ ] -"_s;
}

void TestPersonSearch::nothingTypedGivesNoCondition()
{
    QFETCH(QString, typed);
    QVERIFY(PersonSearch::condition(typed).isEmpty());
}

void TestPersonSearch::finds_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("codes");
    const auto row = [](const char *name, const QString &typed, const QStringList &codes) {
        QTest::newRow(name) << typed << codes;
    };
    const QStringList bothAli{u"1"_s, u"2"_s};
    row("Persian yeh finds both forms", u"علی"_s, bothAli);
    row("Arabic yeh finds both forms", u"علي"_s, bothAli);
    row("Arabic kaf typed", u"كريمي"_s, {u"2"_s});
    row("Persian kaf typed, Arabic stored", u"کریمی"_s, {u"2"_s});
    row("words in any order", u"رضایی علی"_s, {u"1"_s});
    row("every word must be there", u"علی مؤمنی"_s, {});
    row("part of a word", u"رضا"_s, {u"1"_s, u"3"_s, u"4"_s});
    row("typed in one, stored in two", u"محمدرضا"_s, {u"3"_s, u"4"_s});
    row("typed in two, stored in one", u"محمد رضا"_s, {u"3"_s, u"4"_s});
    row("hamza left out", u"مومنی"_s, {u"3"_s});
    row("alef without madda", u"ارش"_s, {u"12"_s});
    row("joiner stored, not typed", u"مینو"_s, {u"12"_s});
    row("joiner typed as a blank", u"می نو"_s, {u"12"_s});
    row("Latin in any case", u"JOHN"_s, {u"5"_s});
    row("quote typed", u"o'neil"_s, {u"5"_s});
    row("ASCII digits", u"09121"_s, {u"1"_s});
    row("Persian digits typed", u"۰۹۱۲"_s, {u"1"_s, u"3"_s});
    row("Arabic digits typed", u"٠٩١٢"_s, {u"1"_s, u"3"_s});
    row("Persian digits stored", u"0935"_s, {u"2"_s});
    row("hyphens stored", u"09127654321"_s, {u"3"_s});
    row("national code", u"0076229645"_s, {u"1"_s});
    row("end of a national code", u"50689"_s, {u"2"_s});
    row("telephone", u"88776655"_s, {u"4"_s});
    row("code", u"77"_s, {u"2"_s, u"4"_s, u"77"_s});
    row("person whose other columns are NULL", u"بی شماره"_s, {u"77"_s});
    row("percent stored and typed", u"50% سهام"_s, {u"6"_s});
    row("percent is no wildcard", u"5%7"_s, {});
    row("underscore is no wildcard", u"5_7"_s, {});
    row("name and number together", u"علی ۰۹۱۲"_s, {u"1"_s});
    // Code 1 and national code 007... stand side by side.
    row("never from one column into the next", u"100762"_s, {});
    row("nobody", u"زصضط"_s, {});
}

void TestPersonSearch::finds()
{
    QFETCH(QString, typed);
    QTEST(found(typed), "codes");
}

void TestPersonSearch::nothingTypedLeavesTheQuotes_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("quote") << u"ع' OR '1'='1"_s;
    QTest::newRow("backslash") << u"ع\\"_s;
    QTest::newRow("open bracket") << u"ع["_s;
    QTest::newRow("closing bracket") << u"ع]"_s;
    QTest::newRow("repeat") << u"ع{1000000}"_s;
    QTest::newRow("comment") << u"ع-- "_s;
    QTest::newRow("beyond the basic plane") << u"ع\U0001F600"_s;
}

void TestPersonSearch::nothingTypedLeavesTheQuotes()
{
    QFETCH(QString, typed);
    const QString condition = PersonSearch::condition(typed).text();
    QVERIFY(!condition.isEmpty());
    // RLIKE '...' per word: two quotes each, and none more.
    QCOMPARE(condition.count(u'\''), 2 * condition.count(u" RLIKE "_s));
    QVERIFY(!condition.contains(u'\\'));
    found(typed); // a statement that the server refuses throws
}

void TestPersonSearch::filtersJoinTheSearchBehindTheStatus_data()
{
    QTest::addColumn<KFilterValues>("values");
    QTest::addColumn<QString>("condition");
    const QString typed = u"علی"_s;
    const QString found = PersonSearch::condition(typed).text();
    QTest::newRow("nothing typed") << KFilterValues{} << u"iStatus=0"_s;
    QTest::newRow("blanks typed") << KFilterValues{{u"search"_s, u"  "_s}} << u"iStatus=0"_s;
    QTest::newRow("inactive ones too") << KFilterValues{{u"inactive"_s, true}} << QString();
    QTest::newRow("typed") << KFilterValues{{u"search"_s, typed}} << u"iStatus=0 AND "_s + found;
    QTest::newRow("typed, inactive ones too") << KFilterValues{{u"search"_s, typed}, {u"inactive"_s, true}} << found;
}

void TestPersonSearch::filtersJoinTheSearchBehindTheStatus()
{
    QFETCH(KFilterValues, values);
    QTEST(KListFilter::condition(PersonSearch::filters(), values, 0).text(), "condition");
}

void TestPersonSearch::fiftyThousandPersonsAreSearchedUpToTheLimit()
{
    m_office.db.run(u"INSERT INTO Persons(sName2,iCode,sNationalCode,sMobile,sTel) "
                    "SELECT CONCAT('کاربر شماره ', seq), seq, LPAD(seq, 10, '0'), CONCAT('0919', LPAD(seq, 7, '0')), "
                    "CONCAT('021', seq) FROM seq_100000_to_149999"_s);
    CTblTemp temp;
    const int rows = temp.ExecuteQuery(KSql::formatted("SELECT iID FROM Persons WHERE %1 ORDER BY %2 LIMIT 1000",
                                                       PersonSearch::condition(u"کاربر ۱۲۳"_s), KSql::alphabetical("sName2")));
    QCOMPARE(rows, 1000);
}

static const RegisteredTest<TestPersonSearch, QCoreApplication> registeredPersonSearch;
#include "TestPersonSearch.moc"
