// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/values/PlateText.h"

#include "suite/utility/values/CodeText.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestPlateText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void plates_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("plate");
        const auto row = [](const char *name, const QString &text, const QString &plate = u"12 ب 345 ایران 67"_s) {
            QTest::newRow(name) << text << plate;
        };
        row("as it is read", u"12 ب 345 ایران 67"_s);
        row("from the other end", u"67 ایران 345 ب 12"_s);
        row("region first", u"ایران 67 12 ب 345"_s);
        row("region first without the country", u"67 12 ب 345"_s);
        row("region first, the country behind it", u"67 ایران 12 ب 345"_s);
        row("region first, then from the other end", u"ایران 67 - 345 ب 12"_s);
        row("typed from the right", u"345 ب 12 ایران 67"_s);
        row("country behind the region", u"12 ب 345 67 ایران"_s);
        row("without the country", u"12 ب 345 67"_s);
        row("without blanks", u"12ب34567"_s);
        row("with separators", u"12ب345-67"_s);
        row("with a slash and a bar", u"12/ب/345 | 67"_s);
        row("with the country and no blanks", u"12ب345ایران67"_s);
        row("Persian digits", u"۱۲ ب ۳۴۵ ایران ۶۷"_s);
        row("Arabic digits", u"١٢ ب ٣٤٥ ایران ٦٧"_s);
        row("Arabic yeh", u"12 ب 345 ايران 67"_s);
        row("with the word before it", u"پلاک: 12 ب 345 ایران 67"_s);
        row("with marks of direction", CodeText::shown(u"12 ب 345 ایران 67"_s));
        row("alef by its name", u"12 الف 345 ایران 67"_s, u"12 الف 345 ایران 67"_s);
        row("alef by its letter", u"12 ا 345 67"_s, u"12 الف 345 ایران 67"_s);
        row("heh with a kashida", u"12 هـ 345 ایران 67"_s, u"12 ه 345 ایران 67"_s);
        row("yeh of the other keyboard", u"12ي34567"_s, u"12 ی 345 ایران 67"_s);
        row("kaf of the other keyboard", u"12ك34567"_s, u"12 ک 345 ایران 67"_s);
        row("letter read out", u"12 دال 345 ایران 67"_s, u"12 د 345 ایران 67"_s);
        row("the letters of the blue band", u"IR IRAN 12 ب 345 67"_s);
    }

    void plates()
    {
        QFETCH(QString, text);
        const std::optional<PlateText> plate = PlateText::of(text);
        QVERIFY(plate);
        QTEST(plate->text(), "plate");
        // What is shown of it is the same plate.
        QCOMPARE(PlateText::of(plate->text()), plate);
    }

    void partsStandInTheOrderOfThePlate()
    {
        const PlateText expected{u"12"_s, u"ب"_s, u"345"_s, u"67"_s};
        QCOMPARE(PlateText::of(u"67 ایران 345 ب 12"_s), std::optional(expected));
    }

    void begun_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown"); // null: it cannot become a plate
        const auto row = [](const char *name, const QString &typed, const QString &shown) { QTest::newRow(name) << typed << shown; };
        row("one digit", u"1"_s, u"1"_s);
        row("two digits", u"12"_s, u"12"_s);
        row("the letter", u"12ب"_s, u"12 ب"_s);
        row("a digit behind it", u"12ب3"_s, u"12 ب 3"_s);
        row("three digits", u"12 ب345"_s, u"12 ب 345"_s);
        row("the region begins", u"12 ب 3456"_s, u"12 ب 345 ایران 6"_s);
        row("whole", u"12ب34567"_s, u"12 ب 345 ایران 67"_s);
        row("country typed", u"12 ب 345 ایران"_s, u"12 ب 345"_s);
        row("alef", u"12ا3"_s, u"12 الف 3"_s);
        row("a digit too many", u"12ب345678"_s, {});
        row("a motorcycle", u"123"_s, {});
        row("a town behind digits", u"12 ته"_s, {});
        row("a letter first", u"ب"_s, {});
        row("the region first", u"6712ب"_s, {});
        row("a part cut short", u"12 ب 34 5"_s, {});
    }

    void begun()
    {
        QFETCH(QString, typed);
        const std::optional<PlateText> plate = PlateText::begun(typed);
        QTEST(plate ? plate->typedText() : QString(), "shown");
        QCOMPARE(plate && plate->isWhole(), PlateText::of(typed) && plate);
    }

    void oneSpellingOfAPlateAndEveryOtherTextAsItIs()
    {
        QCOMPARE(PlateText::oneSpelling(u"۶۷-۳۴۵ب۱۲"_s), u"12 ب 345 ایران 67"_s);
        QCOMPARE(PlateText::oneSpelling(u"  تهران ۱۱ - ۱۲۳۴۵"_s), u"  تهران ۱۱ - ۱۲۳۴۵"_s);
    }

    void others_data()
    {
        QTest::addColumn<QString>("text");
        const auto row = [](const char *name, const QString &text) { QTest::newRow(name) << text; };
        row("nothing", QString());
        row("half typed", u"12 ب 34"_s);
        row("a digit too many", u"12 ب 345 ایران 678"_s);
        row("no letter", u"12 345 67"_s);
        row("two letters", u"12 ب ج 345 67"_s);
        row("a letter that no plate has", u"12 چ 345 67"_s);
        row("Latin letter", u"12 D 345 67"_s);
        row("letter before the digits", u"ب 12 345 67"_s);
        row("region between", u"12 ب 67 345"_s);
        row("country beside another part", u"12 ایران ب 345 67"_s);
        row("the country twice", u"ایران 12 ب 345 ایران 67"_s);
        row("with a town, as before", u"تهران 12 345 ب 67"_s);
        row("free zone", u"کیش 12345"_s);
        row("motorcycle", u"123 12345"_s);
        row("passage", u"گذر موقت"_s);
    }

    void others()
    {
        QFETCH(QString, text);
        QVERIFY(!PlateText::of(text));
    }
};

static const RegisteredTest<TestPlateText> registeredPlateText;
#include "TestPlateText.moc"
