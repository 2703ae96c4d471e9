// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/letters/Letter.h"
#include "suite/crm/letters/LetterSheet.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestLetter : public QObject
{
    Q_OBJECT

    static Letter sample() { return {QDate(2026, 11, 23), u"1405/7"_s, u"تحویل خودرو"_s, u"خودرو آماده است."_s}; }

private Q_SLOTS:
    void addressesEachAsIsDue()
    {
        using Address = LetterRecipient::Address;
        QCOMPARE(Letter::salutation({1, u"علی رضایی"_s, Address::Man}), u"جناب آقای علی رضایی"_s);
        QCOMPARE(Letter::salutation({1, u"مریم احمدی"_s, Address::Woman}), u"سرکار خانم مریم احمدی"_s);
        QCOMPARE(Letter::salutation({1, u"شرکت آریا"_s, Address::Company}), u"شرکت آریا"_s);
    }

    void namesTheFirstOfMany()
    {
        QList<LetterRecipient> recipients;
        for (int i = 1; i <= 5; ++i)
            recipients.append({i, u"نام%1"_s.arg(i), LetterRecipient::Address::Company});
        QCOMPARE(Letter::addressees(recipients.mid(0, 3)), u"نام1، نام2، نام3"_s);
        QCOMPARE(Letter::addressees(recipients), u"نام1، نام2، نام3 و 2 گیرنده دیگر"_s);
        QCOMPARE(Letter::addressees({}), QString());
    }

    void nextNumber_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("next");
        QTest::newRow("first") << QString() << u"1405/1"_s;
        QTest::newRow("counted on") << u"1405/9"_s << u"1405/10"_s;
        QTest::newRow("new year") << u"1404/87"_s << u"1405/1"_s;
        QTest::newRow("year to come stays") << u"1406/3"_s << u"1406/4"_s;
        QTest::newRow("with the office's letters") << u"ص/1404/087-الف"_s << u"ص/1404/088-الف"_s;
        QTest::newRow("new year keeps what is behind") << u"1404/12/الف"_s << u"1405/1/الف"_s;
        QTest::newRow("width is kept") << u"L-0099"_s << u"L-0100"_s;
        QTest::newRow("Persian figures") << u"۱۴۰۵/۹"_s << u"1405/10"_s;
        QTest::newRow("no figures") << u"بدون شماره"_s << u"1405/1"_s;
        QTest::newRow("only a year") << u"1405"_s << u"1406"_s;
        QTest::newRow("more figures than a number holds") << QString(30, u'9') << QString(15, u'9') + u"1000000000000000"_s;
    }
    void nextNumber()
    {
        QFETCH(QString, before);
        QFETCH(QString, next);
        QCOMPARE(Letter::numberAfter(before, 1405), next);
    }

    void paperTakesNothingThatTurnsOrHides_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("paper");
        QTest::newRow("plain") << u"سلام\nدوم"_s << u"سلام\nدوم"_s;
        QTest::newRow("override") << u"\u202eسلام\u202c و \u2067متن\u2069"_s << u"سلام و متن"_s;
        QTest::newRow("joiner and marks stay") << u"می‌شود\u200f (ABC\u200e)"_s << u"می‌شود\u200f (ABC\u200e)"_s;
        QTest::newRow("tab") << u"الف\tب"_s << u"الف    ب"_s;
        QTest::newRow("controls") << u"الف\u0000\u0007\rب"_s << u"الفب"_s;
        QTest::newRow("other line ends") << u"الف\u2028ب\u2029پ\fت"_s << u"الف\nب\nپ\nت"_s;
        QTest::newRow("nothing to see") << u" \n\t\n"_s << QString();
    }
    void paperTakesNothingThatTurnsOrHides()
    {
        QFETCH(QString, text);
        QFETCH(QString, paper);
        QCOMPARE(Letter::forPaper(text), paper);
    }

    void whatIsKeptIsReadBack()
    {
        const Letter letter = sample();
        QCOMPARE(Letter::fromJson(letter.toJson(u"جناب آقای علی"_s, u"m"_s)), letter);
        QVERIFY(letter.toJson({}, u"m"_s) != letter.toJson({}, u"n"_s));
        QCOMPARE(Letter::fromJson("{\"plan\":\"1\"}"), Letter());
        QCOMPARE(Letter::fromJson("no json"), Letter());
    }

    void sheetSaysAll()
    {
        const PaperSheet sheet = LetterSheet::of(sample(), {1, u"مریم احمدی"_s, LetterRecipient::Address::Woman}, u"نمایشگاه آریا"_s);
        QCOMPARE(sheet.opening, u"سرکار خانم مریم احمدی\nموضوع : تحویل خودرو"_s);
        QCOMPARE(sheet.body, u"خودرو آماده است.\n\nبا احترام"_s);
        QCOMPARE(sheet.marks.at(0).text, u"1405/09/02"_s);
        QCOMPARE(sheet.marks.at(1).text, u"1405/7"_s);
        QCOMPARE(sheet.signatures.constFirst().role, u"نمایشگاه آریا"_s);
        QCOMPARE(sheet.fileName, u"نامه 1405/7 تحویل خودرو"_s);
    }

    // An office that has not entered its details signs all the same.
    void whatIsEmptyLeavesNoLabel()
    {
        const PaperSheet sheet = LetterSheet::of({QDate(2026, 11, 23), {}, {}, u"متن"_s}, {1, u"شرکت آریا"_s, LetterRecipient::Address::Company}, {});
        QCOMPARE(sheet.opening, u"شرکت آریا"_s);
        QCOMPARE(sheet.marks.at(1).text, QString());
        QCOMPARE(sheet.signatures.constFirst().role, u"مهر و امضا"_s);
        QCOMPARE(sheet.signatures.constFirst().name, QString());
    }
};

static const RegisteredTest<TestLetter> registeredLetter;
#include "TestLetter.moc"
