// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/search/SearchQuery.h"
#include "suite/accounting/search/SearchText.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

// Which keys a text has, and by which ways of typing they are found.
class TestSearchText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void finds_data();
    void finds();
    void doesNotFind_data();
    void doesNotFind();
    void keysFitTheirColumn_data();
    void keysFitTheirColumn();
    void marks_data();
    void marks();
    void ofNothing();
};

namespace {

bool isFound(const QStringList &keys, const SearchQuery::Starts &starts)
{
    return std::ranges::any_of(starts, [&](const QString &start) { return std::ranges::any_of(keys, [&](const QString &key) { return key.startsWith(start); }); });
}

// As the index is asked: the whole, or each of several words.
bool isFoundBy(const QStringList &keys, const QString &typed)
{
    const SearchQuery query = SearchQuery::of(typed);
    return isFound(keys, query.whole) || (query.words.size() > 1 && std::ranges::all_of(query.words, [&](const auto &starts) { return isFound(keys, starts); }));
}

using Maker = QStringList (*)(const QString &);

QStringList explanation(const QString &text)
{
    return SearchText::ofExplanation(text);
}

}
Q_DECLARE_METATYPE(Maker)

void TestSearchText::finds_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("typed");
    const Maker name = &SearchText::ofName;
    QTest::newRow("name: order, beginnings") << name << u"علی احمدی"_s << QStringList{u"علی احمدی"_s, u"احمدی علی"_s, u"احم"_s, u"عل"_s, u"ع"_s, u"احمدی، علی"_s};
    QTest::newRow("name: Arabic yeh and kaf") << name << u"مجيد كشاورزي"_s << QStringList{u"مجید کشاورزی"_s, u"کشاورزی"_s, u"كشاورزي"_s};
    QTest::newRow("name: alef") << name << u"آرش أحمدی"_s << QStringList{u"ارش احمدی"_s, u"آرش"_s};
    QTest::newRow("name: joined and apart") << name << u"علی‌رضا کریمی"_s << QStringList{u"علیرضا"_s, u"علی رضا کریمی"_s, u"علی‌رضا"_s, u"کریمی علیرضا"_s};
    QTest::newRow("name: written apart") << name << u"علی رضا کریمی"_s << QStringList{u"علیرضا کریمی"_s, u"کریمی رضا"_s, u"علی کریمی"_s};
    QTest::newRow("name: four words, any of them") << name << u"سید محمد علی رضایی"_s << QStringList{u"محمد رضایی"_s, u"رضایی سید"_s, u"رضایی علی محمد"_s};
    QTest::newRow("name: vowel signs, kashida") << name << u"محمّد کـــریمی"_s << QStringList{u"محمد"_s, u"کریمی"_s};
    QTest::newRow("name: Latin case") << name << u"Ali AHMADI"_s << QStringList{u"ahmadi"_s, u"ALI"_s};

    const Maker telephone = &SearchText::ofTelephone;
    const QStringList mobile{u"09121006327"_s, u"۰۹۱۲۱۰۰۶۳۲۷"_s, u"٠٩١٢١٠٠٦٣٢٧"_s, u"+989121006327"_s, u"00989121006327"_s, u"9121006327"_s, u"0912 100 6327"_s, u"0912-100-6327"_s, u"0912"_s, u"6327"_s, u"1006327"_s};
    for (const char *stored : {"09121006327", "+98 912 100 6327", "0098-9121006327", "9121006327"})
        QTest::newRow(stored) << telephone << QString::fromLatin1(stored) << mobile;
    QTest::newRow("telephone of a town") << telephone << u"021-88776655"_s << QStringList{u"02188776655"_s, u"+982188776655"_s, u"88776655"_s, u"6655"_s};

    const Maker plate = &SearchText::ofPlate;
    const QStringList plates{u"12ب34567"_s, u"12 ب 345 ایران 67"_s, u"۱۲ ب ۳۴۵ ایران ۶۷"_s, u"67 345 ب 12"_s, u"ایران 67 345 ب 12"_s, u"12-ب-345-67"_s, u"پلاک 12ب345"_s, u"12ب"_s, u"345 67"_s, u"ب 345"_s, u"34567"_s, u"345"_s};
    for (const QString &stored : {u"12 ب 345 ایران 67"_s, u"12ب34567"_s, u"۱۲ب۳۴۵ایران۶۷"_s, u"67 345 ب 12"_s})
        QTest::newRow(qPrintable(u"plate "_s + stored)) << plate << stored << plates;
    QTest::newRow("plate with alef") << plate << u"11 الف 222 ایران 33"_s << QStringList{u"11الف22233"_s, u"11 ا 222 33"_s, u"۱۱ آ ۲۲۲ ایران ۳۳"_s};
    QTest::newRow("plate of a free zone") << plate << u"کیش 12345"_s << QStringList{u"کیش 12345"_s, u"کیش"_s, u"12345"_s, u"۱۲۳"_s};

    const Maker longNumber = &SearchText::ofLongNumber;
    QTest::newRow("VIN") << longNumber << u"NAAM01CA5EK123456"_s << QStringList{u"NAAM01CA5EK123456"_s, u"naam01"_s, u"123456"_s, u"K123456"_s, u"NAAM 01CA 5EK1"_s, u"456"_s};
    QTest::newRow("chassis with blanks") << longNumber << u"NAAN 11-FE 65432"_s << QStringList{u"NAAN11FE65432"_s, u"65432"_s, u"۶۵۴۳۲"_s};
    QTest::newRow("code") << Maker(&SearchText::ofCode) << u"0012345678"_s << QStringList{u"0012345678"_s, u"۰۰۱۲۳"_s};
    QTest::newRow("explanation") << Maker(&explanation) << u"رنگ‌شدگی درِ راست؛ بیمه تا آبان 1405"_s << QStringList{u"بیمه"_s, u"بیمه راست"_s, u"رنگشدگی"_s, u"1405"_s, u"آبا"_s};
}

void TestSearchText::finds()
{
    QFETCH(Maker, maker);
    QFETCH(QString, text);
    QFETCH(QStringList, typed);
    const QStringList keys = maker(text);
    for (const QString &one : typed)
        QVERIFY2(isFoundBy(keys, one), qPrintable(one + u" in "_s + keys.join(u'|')));
}

void TestSearchText::doesNotFind_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("typed");
    QTest::newRow("within a word") << Maker(&SearchText::ofName) << u"علی احمدی"_s << u"حمدی"_s;
    QTest::newRow("another word") << Maker(&SearchText::ofName) << u"علی احمدی"_s << u"علی رضایی"_s;
    QTest::newRow("another plate") << Maker(&SearchText::ofPlate) << u"12 ب 345 ایران 67"_s << u"12 ب 346 ایران 67"_s;
    QTest::newRow("other digits") << Maker(&SearchText::ofTelephone) << u"09121006327"_s << u"6328"_s;
    QTest::newRow("short word of an explanation") << Maker(&explanation) << u"با دو در"_s << u"دو"_s;
}

void TestSearchText::doesNotFind()
{
    QFETCH(Maker, maker);
    QFETCH(QString, text);
    QFETCH(QString, typed);
    QVERIFY(!isFoundBy(maker(text), typed));
}

void TestSearchText::keysFitTheirColumn_data()
{
    QTest::addColumn<Maker>("maker");
    const std::pair<const char *, Maker> makers[] = {{"name", &SearchText::ofName}, {"code", &SearchText::ofCode}, {"long number", &SearchText::ofLongNumber}, {"telephone", &SearchText::ofTelephone}, {"plate", &SearchText::ofPlate}, {"explanation", &explanation}};
    for (const auto &[title, maker] : makers)
        QTest::newRow(title) << maker;
}

// What a person typed into a field may be anything.
void TestSearchText::keysFitTheirColumn()
{
    QFETCH(Maker, maker);
    for (const QString &text : {QString(300, u'ب'), QString(300, u'7'), u"😀😀 علی 😀"_s, u"\n\t"_s, u"'; DROP TABLE SearchKeys; --"_s, QString(), u"؟!"_s}) {
        for (const QString &key : maker(text)) {
            QVERIFY(!key.isEmpty() && key.size() <= SearchText::longestKey);
            QVERIFY(std::ranges::none_of(key, [](QChar c) { return c.isSurrogate() || c.isSpace(); }));
        }
    }
    QCOMPARE(maker(QString()), QStringList());
    QCOMPARE(maker(u" - "_s), QStringList());
}

void TestSearchText::marks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("word") << u"مجید کشاورز"_s << u"كشاورز"_s << QStringList{u"کشاورز"_s};
    QTest::newRow("both words, other order") << u"علی احمدی"_s << u"احمدی علی"_s << QStringList{u"علی"_s, u"احمدی"_s};
    QTest::newRow("digits of another script") << u"کد ملی 4100011970"_s << u"۴۱۰۰"_s << QStringList{u"4100"_s};
    QTest::newRow("plate as one") << u"پلاک 12 ب 345 ایران 67"_s << u"۱۲ب۳۴۵"_s << QStringList{u"12 ب 345"_s};
    QTest::newRow("telephone with its country") << u"موبایل 09121006327"_s << u"+98912"_s << QStringList{u"912"_s};
    QTest::newRow("nothing of it") << u"مجید کشاورز"_s << u"رستمی"_s << QStringList{};
    QTest::newRow("nothing typed") << u"مجید"_s << QString() << QStringList{};
}

void TestSearchText::marks()
{
    QFETCH(QString, text);
    QFETCH(QString, typed);
    QFETCH(QStringList, shown);
    QStringList marked;
    for (const SearchText::Mark &mark : SearchText::marks(text, typed))
        marked.append(text.mid(mark.start, mark.length));
    QCOMPARE(marked, shown);
}

void TestSearchText::ofNothing()
{
    for (const QString &typed : {QString(), u"  "_s, u"-"_s, u"\u200c"_s, u"😀"_s})
        QVERIFY(SearchQuery::of(typed).isEmpty());
    QCOMPARE(SearchText::ofNumber(0), QStringList());
}

static const RegisteredTest<TestSearchText> registeredSearchText;
#include "TestSearchText.moc"
