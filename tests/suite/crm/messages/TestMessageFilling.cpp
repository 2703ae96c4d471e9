// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/MessageFilling.h"

#include "tests/support/HostileTexts.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

// A text and its fields: what is filled in, what goes, what is told.
class TestMessageFilling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filled_data();
    void filled();
    void hostileValueStaysOneValue();
    void wrong_data();
    void wrong();
    void digits_data();
    void digits();
};

void TestMessageFilling::filled_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a field") << u"{نام}، سلام"_s << u"آقای علی رضایی، سلام"_s;
    QTest::newRow("Arabic letters, blanks and a non-joiner in the name") << u"تا { تاريخ‌سررسيد }"_s << u"تا ۱۴۰۵/۰۸/۰۲"_s;
    QTest::newRow("twice") << u"{نام} {نام}"_s << u"آقای علی رضایی آقای علی رضایی"_s;
    QTest::newRow("money keeps its groups and unit") << u"مبلغ {مبلغ}."_s << u"مبلغ ۱,۲۵۰,۰۰۰ ریال."_s;
    QTest::newRow("empty in brackets goes with its words") << u"قسط[ خودروی {خودرو}] شما"_s << u"قسط شما"_s;
    QTest::newRow("brackets themselves go") << u"قسط[ به مبلغ {مبلغ}]"_s << u"قسط به مبلغ ۱,۲۵۰,۰۰۰ ریال"_s;
    QTest::newRow("one empty of two takes both along") << u"قسط[ {مبلغ} {خودرو}]"_s << u"قسط"_s;
    QTest::newRow("empty outside of brackets leaves no gap") << u"قسط {خودرو} شما"_s << u"قسط شما"_s;
    QTest::newRow("a line of an empty field is gone") << u"یک\n{خودرو}\nدو"_s << u"یک\nدو"_s;
    QTest::newRow("an empty line stays") << u"یک\n\nدو"_s << u"یک\n\nدو"_s;
    QTest::newRow("brackets without a field stay") << u"[نمایشگاه] {نام}"_s << u"[نمایشگاه] آقای علی رضایی"_s;
    QTest::newRow("a bracket alone stays") << u"[{نام}"_s << u"[آقای علی رضایی"_s;
    QTest::newRow("an unknown field stays as typed") << u"{مبلق}"_s << u"{مبلق}"_s;
    QTest::newRow("an open brace stays") << u"{مبلغ"_s << u"{مبلغ"_s;
    QTest::newRow("a value is no field") << u"{تو در تو}"_s << u"{نام} [x]"_s;
    QTest::newRow("a value's new lines and direction marks are gone") << u"{ناجور}!"_s << u"الف ب!"_s;
    QTest::newRow("an address of the web") << u"نشانی: www.a.ir/12 و 12"_s << u"نشانی: www.a.ir/12 و ۱۲"_s;
    QTest::newRow("nothing") << QString() << QString();
}

void TestMessageFilling::filled()
{
    const QHash<QString, QString> values{{u"نام"_s, u"آقای علی رضایی"_s},
                                         {u"مبلغ"_s, u"1,250,000 ریال"_s},
                                         {u"تاریخ سررسید"_s, u"1405/08/02"_s},
                                         {u"خودرو"_s, u" "_s},
                                         {u"تو در تو"_s, u"{نام} [x]"_s},
                                         {u"ناجور"_s, u"\u202eالف\n\u200f\tب\u2069"_s}};
    QFETCH(QString, text);
    QTEST(MessageFilling::filled(text, values), "expected");
}

void TestMessageFilling::hostileValueStaysOneValue()
{
    QStringList texts = hostileTexts();
    texts << u"{نام}"_s << u"[{نام}]"_s << u"}{"_s << u"]["_s << u"محمد"_s.repeated(2000);
    for (const QString &text : texts) {
        const QString filled = MessageFilling::filled(u"<[{نام}]>"_s, {{u"نام"_s, text}});
        QVERIFY2(filled.startsWith(u'<') && filled.endsWith(u'>') && !filled.contains(u'\n'), qPrintable(filled));
        // But for blanks, signs that control, and digits, all of it is there.
        QString kept = filled.mid(1, filled.size() - 2);
        QString typed = text;
        const auto isBlank = [](QChar c) { return c.isSpace() || c.category() == QChar::Other_Control; };
        QCOMPARE(MessageFilling::withPersianDigits(kept.removeIf(isBlank)), MessageFilling::withPersianDigits(typed.removeIf(isBlank)));
    }
}

void TestMessageFilling::wrong_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("told"); // "line:at+length text"
    QTest::newRow("nothing wrong") << u"{نام} [ {مبلغ}]"_s << QString();
    QTest::newRow("Arabic letters") << u"{كد}"_s << QString();
    QTest::newRow("unknown") << u"سلام\n{مبلق} {نام}"_s << u"2:5+6 {مبلق}"_s;
    QTest::newRow("empty braces") << u"{}"_s << u"1:0+2 {}"_s;
    QTest::newRow("one that stays open") << u"{نام"_s << u"1:0+1 {"_s;
    QTest::newRow("one that was never opened") << u"نام}"_s << u"1:3+1 }"_s;
    QTest::newRow("open over a line's end") << u"{نا\nم}"_s << u"1:0+1 { | 2:5+1 }"_s;
    QTest::newRow("one within another") << u"{{نام}}"_s << u"1:0+1 { | 1:6+1 }"_s;
}

void TestMessageFilling::wrong()
{
    QFETCH(QString, text);
    QStringList told;
    for (const MessageFilling::Wrong &wrong : MessageFilling::wrong(text, {u"نام"_s, u"مبلغ"_s, u"کد"_s}))
        told.append(u"%1:%2+%3 %4"_s.arg(wrong.line).arg(wrong.at).arg(wrong.length).arg(wrong.text));
    QTEST(told.join(u" | "_s), "told");
}

void TestMessageFilling::digits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Persian text") << u"قسط 12، 09121234567"_s << u"قسط ۱۲، ۰۹۱۲۱۲۳۴۵۶۷"_s;
    QTest::newRow("Latin text") << u"Instalment 12"_s << u"Instalment 12"_s;
    QTest::newRow("a code of Latin letters") << u"شاسی NAS12 سال 1400"_s << u"شاسی NAS12 سال ۱۴۰۰"_s;
    QTest::newRow("Arabic digits stay") << u"قسط ٣"_s << u"قسط ٣"_s;
}

void TestMessageFilling::digits()
{
    QFETCH(QString, text);
    QTEST(MessageFilling::withPersianDigits(text), "expected");
}

static const RegisteredTest<TestMessageFilling> registeredMessageFilling;

#include "TestMessageFilling.moc"
