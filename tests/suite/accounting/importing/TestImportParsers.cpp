// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportParsers.h"
#include "suite/utility/values/ShamsiDate.h"
#include "tests/support/RegisteredTest.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

SheetCell numberCell(double number)
{
    return {QString::number(number, 'g', 15), SheetCell::Kind::Number, number};
}

}

class TestImportParsers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dates_data();
    void dates();
    void values_data();
    void values();
    void problems_data();
    void problems();
    void datesOfASheet();
};

void TestImportParsers::dates_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("day");
    const QDate shamsi = ConvertToMiladi(1405, 8, 29);
    QTest::newRow("usual") << u"1405/08/29"_s << shamsi;
    QTest::newRow("short") << u"1405/8/29"_s << shamsi;
    QTest::newRow("Persian digits") << u"۱۴۰۵/۰۸/۲۹"_s << shamsi;
    QTest::newRow("day first") << u"29/08/1405"_s << shamsi;
    QTest::newRow("hyphens") << u"1405-08-29"_s << shamsi;
    QTest::newRow("points") << u"29.8.1405"_s << shamsi;
    QTest::newRow("eight digits") << u"14050829"_s << shamsi;
    QTest::newRow("month by name") << u"29 آبان 1405"_s << shamsi;
    QTest::newRow("with a time") << u"1405/08/29 10:20:30"_s << shamsi;
    QTest::newRow("Gregorian") << u"2026-11-20"_s << QDate(2026, 11, 20);
    QTest::newRow("Gregorian with a time") << u"2026-11-20T00:00:00"_s << QDate(2026, 11, 20);
    QTest::newRow("Gregorian, day first") << u"20/11/2026"_s << QDate(2026, 11, 20);
    QTest::newRow("Gregorian, eight digits") << u"20261120"_s << QDate(2026, 11, 20);
    QTest::newRow("a year of two digits") << u"05/08/29"_s << QDate();
    QTest::newRow("30 Esfand of an ordinary year") << u"1404/12/30"_s << QDate();
    QTest::newRow("month 13") << u"1405/13/01"_s << QDate();
    QTest::newRow("a word") << u"فردا"_s << QDate();
    QTest::newRow("another month") << u"29 ژوئن 1405"_s << QDate();
    QTest::newRow("a count of days") << u"46102"_s << QDate();
}

void TestImportParsers::dates()
{
    QFETCH(QString, text);
    QFETCH(QDate, day);
    QCOMPARE(ImportParsers::dateIn(text), day);
    const ImportParsed parsed = ImportParsers::date()({text});
    QCOMPARE(parsed.value.toDate(), day);
    QCOMPARE(parsed.problem.isEmpty(), day.isValid());
}

void TestImportParsers::datesOfASheet()
{
    const QDate day(1980, 3, 21);
    QCOMPARE(ImportParsers::date()({u"1980-03-21"_s, SheetCell::Kind::Date, 29301, day}).value.toDateTime(), QDateTime(day, QTime(0, 0), Qt::UTC));
}

void TestImportParsers::values_data()
{
    QTest::addColumn<ImportParser>("parser");
    QTest::addColumn<SheetCell>("cell");
    QTest::addColumn<QVariant>("value");
    using namespace ImportParsers;
    const auto row = [](const char *name, const ImportParser &parser, const SheetCell &cell, const QVariant &value) { QTest::newRow(name) << parser << cell << value; };
    row("nothing", money(), {}, {});
    row("blanks", date(), {u"  "_s}, {});
    row("the dash of a list", text(), {u"-"_s}, {});
    row("another keyboard", text(), {u" علي  كريمي "_s}, u"علی کریمی"_s);
    row("money with groups", money(), {u"1,250,000"_s}, 1250000.0);
    row("money in Persian digits", money(), {u"۱٬۲۵۰٬۰۰۰"_s}, 1250000.0);
    row("money of a sheet", money(), numberCell(1250000.5), 1250000.5);
    row("whole of a sheet", whole(1, 3000), numberCell(1400), 1400LL);
    row("whole in Persian digits", whole(1, 3000), {u"۱۴۰۰"_s}, 1400LL);
    row("a word of another keyboard", word({{u"مشکی"_s, 3}}), {u"مشكي"_s}, 3);
    row("a word in capitals", word({{u"male"_s, 0}, {u"female"_s, 1}}), {u"Female"_s}, 1);
    row("yes", flag(), {u"بله"_s}, 1);
    row("a tick of a sheet", flag(), {u"0"_s, SheetCell::Kind::Flag}, 0);
    row("a mobile that lost its nought", digits(11, 1), numberCell(9121234567), u"09121234567"_s);
    row("a mobile with hyphens", digits(11, 1), {u"0912-123 4567"_s}, u"09121234567"_s);
    row("digits of too few", digits(11, 1), {u"1234"_s}, u"1234"_s);
    row("a percentage", percent(), {u"12.5"_s}, 12.5);
}

void TestImportParsers::values()
{
    QFETCH(ImportParser, parser);
    QFETCH(SheetCell, cell);
    const ImportParsed parsed = parser(cell);
    QCOMPARE(parsed.problem, QString());
    QTEST(parsed.value, "value");
}

void TestImportParsers::problems_data()
{
    QTest::addColumn<ImportParser>("parser");
    QTest::addColumn<SheetCell>("cell");
    QTest::addColumn<QString>("says");
    using namespace ImportParsers;
    const auto row = [](const char *name, const ImportParser &parser, const SheetCell &cell, const QString &says) { QTest::newRow(name) << parser << cell << says; };
    row("money in words", money(), {u"ده میلیون"_s}, u"مبلغ نیست"_s);
    row("money below nothing", money(), {u"-5"_s}, u"باید از 0"_s);
    row("money beyond all", money(), numberCell(1e16), u"باید از 0"_s);
    row("half a year", whole(1, 3000), numberCell(1400.5), u"عدد درست نیست"_s);
    row("a year too high", whole(1, 3000), {u"4000"_s}, u"باید از 1 تا 3000"_s);
    row("a word nobody knows", word({{u"مرد"_s, 0}, {u"زن"_s, 1}}), {u"؟"_s}, u"مرد، زن"_s);
    row("an error of a formula", text(), {u"#REF!"_s, SheetCell::Kind::Error}, u"#REF!"_s);
    row("a picture in a text", text(), {u"علی 😀"_s}, u"شکلک"_s);
    row("over a hundred", percent(), {u"101"_s}, u"باید از 0 تا 100"_s);
}

void TestImportParsers::problems()
{
    QFETCH(ImportParser, parser);
    QFETCH(SheetCell, cell);
    QFETCH(QString, says);
    const ImportParsed parsed = parser(cell);
    QVERIFY(!parsed.value.isValid());
    QVERIFY2(parsed.problem.contains(says), qPrintable(parsed.problem));
}

static const RegisteredTest<TestImportParsers, QCoreApplication> registeredImportParsers;
#include "TestImportParsers.moc"
