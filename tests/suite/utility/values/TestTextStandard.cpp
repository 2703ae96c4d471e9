// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/TextStandard.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class TestTextStandard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standard_data();
    void standard();
    void standardOfStandardIsItself_data() { standard_data(); }
    void standardOfStandardIsItself();
    void sameKey_data();
    void sameKey();
    void differentKeys_data();
    void differentKeys();
    void persianLettersStandWhereTheAlphabetHasThem();
    void digits();
};

void TestTextStandard::standard_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QString &text, const QString &expected) {
        QTest::newRow(name) << text << expected;
    };
    row("empty", QString(), QString());
    row("only blanks", u" \t "_s, QString());
    row("Arabic yeh", u"علي"_s, u"علی"_s);
    row("alef maksura", u"على"_s, u"علی"_s);
    row("Arabic kaf", u"كريم"_s, u"کریم"_s);
    row("Persian digits", u"پلاک ۱۲۳"_s, u"پلاک 123"_s);
    row("Arabic digits", u"٠٩٨"_s, u"098"_s);
    row("blanks at the ends", u"  رضا  "_s, u"رضا"_s);
    row("runs of blanks", u"علی   رضا"_s, u"علی رضا"_s);
    row("no-break blank and tab", u"علی\u00A0\tرضا"_s, u"علی رضا"_s);
    row("non-joiner between letters stays", u"می\u200Cرود"_s, u"می\u200Cرود"_s);
    row("two non-joiners are one", u"می\u200C\u200Cرود"_s, u"می\u200Cرود"_s);
    row("non-joiner beside a blank goes", u"می\u200C رود"_s, u"می رود"_s);
    row("non-joiner after a blank goes", u"می \u200Cرود"_s, u"می رود"_s);
    row("non-joiner at the ends goes", u"\u200Cرضا\u200C"_s, u"رضا"_s);
    row("non-joiner before a digit goes", u"پژو\u200C206"_s, u"پژو206"_s);
    row("kashida", u"رضـــا"_s, u"رضا"_s);
    row("direction marks", u"\u200Fرضا\u200E\u202B"_s, u"رضا"_s);
    row("shapes of old fonts", u"\uFEAD\uFEBF\uFE8E"_s, u"رضا"_s);
    row("lines stay", u"یک \n دو"_s, u"یک\nدو"_s);
    row("Latin letters stay", u"Peugeot 206"_s, u"Peugeot 206"_s);
    row("vowel signs stay", u"مُحمّد"_s, u"مُحمّد"_s);
    row("hamza forms stay", u"مؤمن آقا"_s, u"مؤمن آقا"_s);
}

void TestTextStandard::standard()
{
    QFETCH(QString, text);
    QTEST(ConvertToStandard(text), "expected");
}

void TestTextStandard::standardOfStandardIsItself()
{
    QFETCH(QString, text);
    const QString once = ConvertToStandard(text);
    QCOMPARE(ConvertToStandard(once), once);
}

void TestTextStandard::sameKey_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    const auto row = [](const char *name, const QString &first, const QString &second) {
        QTest::newRow(name) << first << second;
    };
    row("yeh and kaf", u"كيان"_s, u"کیان"_s);
    row("digits", u"۰۹۱۲"_s, u"0912"_s);
    row("blank or none", u"علی رضا"_s, u"علیرضا"_s);
    row("non-joiner or none", u"علی\u200Cرضا"_s, u"علیرضا"_s);
    row("alef with madda", u"آقایی"_s, u"اقایی"_s);
    row("hamza on yeh", u"رئیسی"_s, u"رییسی"_s);
    row("hamza on waw", u"مؤمنی"_s, u"مومنی"_s);
    row("hamza alone", u"رجاء"_s, u"رجا"_s);
    row("heh with yeh", u"خانۀ ما"_s, u"خانه ما"_s);
    row("vowel signs", u"مُحمّد"_s, u"محمد"_s);
    row("Latin case", u"BMW"_s, u"bmw"_s);
}

void TestTextStandard::sameKey()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QCOMPARE(searchKey(first), searchKey(second));
    QVERIFY(!searchKey(first).isEmpty());
}

void TestTextStandard::differentKeys_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("other letters") << u"سعید"_s << u"صعید"_s;
    QTest::newRow("other digits") << u"0912"_s << u"0921"_s;
    QTest::newRow("with and without alef") << u"آرضا"_s << u"رضا"_s;
}

void TestTextStandard::differentKeys()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QVERIFY(searchKey(first) != searchKey(second));
}

void TestTextStandard::persianLettersStandWhereTheAlphabetHasThem()
{
    QStringList names{u"یاس"_s, u"کامران"_s, u"پرویز"_s, u"تقی"_s, u"گیتی"_s, u"لاله"_s, u"بهرام"_s, u"چنگیز"_s, u"ژاله"_s, u"سارا"_s, u"زهرا"_s, u"وحید"_s, u"هما"_s};
    std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) { return comparePersian(a, b) < 0; });
    QCOMPARE(names.join(u' '), u"بهرام پرویز تقی چنگیز زهرا ژاله سارا کامران گیتی لاله وحید هما یاس"_s);
}

void TestTextStandard::digits()
{
    const QString text = u" ۱۲٣ كد \u200C4 "_s;
    QCOMPARE(toAsciiDigits(text), u" 123 كد \u200C4 "_s);
    QCOMPARE(toAsciiDigits(u"۰۱۲۳۴۵۶۷۸۹٠١٢٣٤٥٦٧٨٩"_s), u"01234567890123456789"_s);
}

static const RegisteredTest<TestTextStandard, QCoreApplication> registeredTextStandard;
#include "TestTextStandard.moc"
