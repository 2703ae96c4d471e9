// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/TextStandard.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTest>

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
    row("only blanks", QStringLiteral(" \t "), QString());
    row("Arabic yeh", QStringLiteral("علي"), QStringLiteral("علی"));
    row("alef maksura", QStringLiteral("على"), QStringLiteral("علی"));
    row("Arabic kaf", QStringLiteral("كريم"), QStringLiteral("کریم"));
    row("Persian digits", QStringLiteral("پلاک ۱۲۳"), QStringLiteral("پلاک 123"));
    row("Arabic digits", QStringLiteral("٠٩٨"), QStringLiteral("098"));
    row("blanks at the ends", QStringLiteral("  رضا  "), QStringLiteral("رضا"));
    row("runs of blanks", QStringLiteral("علی   رضا"), QStringLiteral("علی رضا"));
    row("no-break blank and tab", QStringLiteral("علی\u00A0\tرضا"), QStringLiteral("علی رضا"));
    row("non-joiner between letters stays", QStringLiteral("می\u200Cرود"), QStringLiteral("می\u200Cرود"));
    row("two non-joiners are one", QStringLiteral("می\u200C\u200Cرود"), QStringLiteral("می\u200Cرود"));
    row("non-joiner beside a blank goes", QStringLiteral("می\u200C رود"), QStringLiteral("می رود"));
    row("non-joiner after a blank goes", QStringLiteral("می \u200Cرود"), QStringLiteral("می رود"));
    row("non-joiner at the ends goes", QStringLiteral("\u200Cرضا\u200C"), QStringLiteral("رضا"));
    row("non-joiner before a digit goes", QStringLiteral("پژو\u200C206"), QStringLiteral("پژو206"));
    row("kashida", QStringLiteral("رضـــا"), QStringLiteral("رضا"));
    row("direction marks", QStringLiteral("\u200Fرضا\u200E\u202B"), QStringLiteral("رضا"));
    row("shapes of old fonts", QStringLiteral("\uFEAD\uFEBF\uFE8E"), QStringLiteral("رضا"));
    row("lines stay", QStringLiteral("یک \n دو"), QStringLiteral("یک\nدو"));
    row("Latin letters stay", QStringLiteral("Peugeot 206"), QStringLiteral("Peugeot 206"));
    row("vowel signs stay", QStringLiteral("مُحمّد"), QStringLiteral("مُحمّد"));
    row("hamza forms stay", QStringLiteral("مؤمن آقا"), QStringLiteral("مؤمن آقا"));
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
    row("yeh and kaf", QStringLiteral("كيان"), QStringLiteral("کیان"));
    row("digits", QStringLiteral("۰۹۱۲"), QStringLiteral("0912"));
    row("blank or none", QStringLiteral("علی رضا"), QStringLiteral("علیرضا"));
    row("non-joiner or none", QStringLiteral("علی\u200Cرضا"), QStringLiteral("علیرضا"));
    row("alef with madda", QStringLiteral("آقایی"), QStringLiteral("اقایی"));
    row("hamza on yeh", QStringLiteral("رئیسی"), QStringLiteral("رییسی"));
    row("hamza on waw", QStringLiteral("مؤمنی"), QStringLiteral("مومنی"));
    row("hamza alone", QStringLiteral("رجاء"), QStringLiteral("رجا"));
    row("heh with yeh", QStringLiteral("خانۀ ما"), QStringLiteral("خانه ما"));
    row("vowel signs", QStringLiteral("مُحمّد"), QStringLiteral("محمد"));
    row("Latin case", QStringLiteral("BMW"), QStringLiteral("bmw"));
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
    QTest::newRow("other letters") << QStringLiteral("سعید") << QStringLiteral("صعید");
    QTest::newRow("other digits") << QStringLiteral("0912") << QStringLiteral("0921");
    QTest::newRow("with and without alef") << QStringLiteral("آرضا") << QStringLiteral("رضا");
}

void TestTextStandard::differentKeys()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QVERIFY(searchKey(first) != searchKey(second));
}

void TestTextStandard::digits()
{
    const QString text = QStringLiteral(" ۱۲٣ كد \u200C4 ");
    QCOMPARE(toAsciiDigits(text), QStringLiteral(" 123 كد \u200C4 "));
    QCOMPARE(toAsciiDigits(QStringLiteral("۰۱۲۳۴۵۶۷۸۹٠١٢٣٤٥٦٧٨٩")), QStringLiteral("01234567890123456789"));
}

static const RegisteredTest<TestTextStandard, QCoreApplication> registered;
#include "TestTextStandard.moc"
