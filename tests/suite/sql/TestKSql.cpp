// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/db/records/CTblTemp.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/RegisteredTest.h"
#include "tests/support/TestDatabase.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTest>

#include <type_traits>

// What is typed is no part of a statement, and nothing makes it one but quoted(): it does not compile.
static_assert(!std::is_constructible_v<KSql, QString>);
static_assert(!std::is_constructible_v<KSql, QStringView>);
static_assert(!std::is_constructible_v<KSql, QByteArray>);
static_assert(!std::is_constructible_v<KSql, const char *>);
static_assert(!std::is_constructible_v<KSql, std::string>);
static_assert(!std::is_constructible_v<KSql, char (&)[9]>);
static_assert(!std::is_assignable_v<KSql &, QString>);
static_assert(!std::is_assignable_v<decltype(KMySQL::m_filter) &, QString>);
static_assert(!std::is_assignable_v<decltype(KMySQL::m_sort) &, QString>);
static_assert(!std::is_invocable_v<decltype([](auto &&text) -> decltype(std::declval<CTblTemp>().ExecuteQuery(text)) { return 0; }), QString>);
static_assert(!std::is_invocable_v<decltype([](auto &&text) -> decltype(KSql() + text) { return {}; }), QString>);
static_assert(!std::is_invocable_v<decltype([](auto &&text) -> decltype(KSql::formatted("%1", text)) { return {}; }), QString>);
static_assert(!std::is_invocable_v<decltype([](auto &&text) -> decltype(std::declval<KConnection>().run(text)) { return {}; }), QString>);
static_assert(KStatementValue::conversion<QString>() == 0);
static_assert(KStatementValue::conversion<const char *>() == 0);
static_assert(std::is_constructible_v<KSql, const char (&)[9]>);

// Statements and their parts.
class TestKSql : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quotedTextIsOneLiteral_data()
    {
        QTest::addColumn<QString>("text");
        for (const QString &text : hostileTexts())
            QTest::addRow("%s", qUtf8Printable(QString(text).replace(QChar(0), u'0'))) << text;
        QTest::newRow("empty") << u""_s;
        QTest::newRow("Persian") << u"پژو ۲۰۶، «صندوق‌دار»"_s;
        QTest::newRow("above the basic plane") << u"خودرو 🚗"_s;
    }

    void quotedTextIsOneLiteral()
    {
        QFETCH(QString, text);
        CTblTemp temp;
        temp.Open(false, false, true);
        QCOMPARE(temp.ExecuteQuery(KSql::formatted("SELECT %1,7", KSql::quoted(text))), 1);
        QCOMPARE(temp.GetTextFieldValue(0), text);
        QCOMPARE(temp.GetLongFieldValue(1), 7);
    }

    void everyByteComesBack()
    {
        QByteArray bytes;
        for (int byte = 0; byte < 256; ++byte)
            bytes += static_cast<char>(byte);
        CTblTemp temp;
        temp.Open(false, false, true);
        temp.ExecuteQuery(KSql::formatted("SELECT HEX(_binary %1)", KSql::quoted(bytes)));
        QCOMPARE(QByteArray::fromHex(temp.GetTextFieldValue(0).toLatin1()), bytes);
    }

    void aValueIsNeverReadAsAPlaceholder()
    {
        QCOMPARE(KSql::formatted("a=%1 AND b=%2 AND c=%1", KSql::quoted(u"%2' %1"_s), 7).text(),
                 uR"(a='%2\' %1' AND b=7 AND c='%2\' %1')"_s);
        QCOMPARE(KSql::formatted("50% of %1", qint64{5'000'000'000}).text(), u"50% of 5000000000"_s);
    }

    void namesAndOrdersAreCheckedLetterByLetter_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isName");
        QTest::addColumn<bool>("isOrder");
        const auto row = [](const char *text, bool isName, bool isOrder) { QTest::newRow(text) << QString::fromUtf8(text) << isName << isOrder; };
        row("iCode", true, true);
        row("ai.iCode", true, true);
        row("ad.iCode DESC", false, true);
        row("iFiscalYear DESC,iNum DESC", false, true);
        row("dAmount-dDiscount+dTax", false, true);
        row("sName; DROP TABLE Users", false, false);
        row("sName--", false, false);
        row("sName,(SELECT 1)", false, false);
        row("iID\n", false, false);
        row("SLEEP(9)", false, false);
        row("`iID`", false, false);
        row("iID DESC DESC", false, false);
        row("a.b.c", false, false);
        row("1", false, false);
        row("نام", false, false);
        row("", false, false);
    }

    void namesAndOrdersAreCheckedLetterByLetter()
    {
        QFETCH(QString, text);
        QFETCH(bool, isName);
        QFETCH(bool, isOrder);
        QCOMPARE(KSql::name(text).text(), isName ? text : QString());
        QCOMPARE(KSql::order(text).text(), isOrder ? text : QString());
    }

    void listsJoinTheirParts()
    {
        QCOMPARE(KSql::list(QList<int>{3, -1, 7}).text(), u"3,-1,7"_s);
        QVERIFY(KSql::list(QList<int>()).isEmpty());
        QCOMPARE(KSql(" AND a=1 AND b=2").withoutStart(" AND ").text(), u"a=1 AND b=2"_s);
        QCOMPARE(KSql("a=1").withoutStart(" AND ").text(), u"a=1"_s);
    }

    void dayIsALiteralInAnyLanguage_data()
    {
        QTest::addColumn<QDateTime>("value");
        QTest::addColumn<QString>("sql");
        QTest::newRow("midnight") << QDateTime(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC) << u"'2026-11-20'"_s;
        QTest::newRow("late in the day") << QDateTime(QDate(2026, 1, 2), QTime(23, 59, 59), Qt::UTC) << u"'2026-01-02'"_s;
        QTest::newRow("no date") << QDateTime() << u"NULL"_s;
    }

    void dayIsALiteralInAnyLanguage()
    {
        QFETCH(QDateTime, value);
        QFETCH(QString, sql);
        QCOMPARE(DateToSQL(value).text(), sql);
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::Persian));
        const QString inPersian = DateToSQL(value).text();
        QLocale::setDefault(before);
        QCOMPARE(inPersian, sql);
    }

private:
    TestDatabase m_database;
};

static const RegisteredTest<TestKSql, QCoreApplication> registeredKSql;
#include "TestKSql.moc"
