// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/sheets/CsvText.h"
#include "suite/utility/sheets/SheetFile.h"
#include "tests/support/RegisteredTest.h"

#include <QStringEncoder>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString asLines(const Sheet &sheet)
{
    QStringList lines;
    for (const QList<SheetCell> &row : sheet.rows) {
        QStringList cells;
        for (const SheetCell &cell : row)
            cells.append(cell.text);
        lines.append(cells.join(u'|'));
    }
    return lines.join(u'/');
}

}

class TestCsvText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cells_data();
    void cells();
    void encodings_data();
    void encodings();
    void windowsArabic();
    void refusals_data();
    void refusals();
};

void TestCsvText::cells_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("cells");
    QTest::newRow("comma") << u"a,b\nc,d\n"_s << u"a|b/c|d"_s;
    QTest::newRow("semicolon, though there are commas") << u"a;b;c\n1,5;2;3"_s << u"a|b|c/1,5|2|3"_s;
    QTest::newRow("tab") << u"نام\tمبلغ\r\nعلی\t1,000\r\n"_s << u"نام|مبلغ/علی|1,000"_s;
    QTest::newRow("one column") << u"a\nb"_s << u"a/b"_s;
    QTest::newRow("quotes") << u"\"a,b\",\"c \"\"d\"\"\""_s << u"a,b|c \"d\""_s;
    QTest::newRow("line break in a cell") << u"\"a\nb\",c\nd,e"_s << u"a\nb|c/d|e"_s;
    QTest::newRow("quote inside") << u"5\" pipe,b"_s << u"5\" pipe|b"_s;
    QTest::newRow("behind the quotes") << u"\"a\"x,b"_s << u"ax|b"_s;
    QTest::newRow("empty lines keep their place") << u"a,b\n\n\nc,d"_s << u"a|b///c|d"_s;
    QTest::newRow("blank cells at the end") << u"a,b,,\n , \nc"_s << u"a|b//c"_s;
    QTest::newRow("old line ends") << u"a,b\rc,d"_s << u"a|b/c|d"_s;
    QTest::newRow("separators in quotes do not count") << u"\"a;b;c;d\",e\n"_s << u"a;b;c;d|e"_s;
}

void TestCsvText::cells()
{
    QFETCH(QString, text);
    QTEST(asLines(CsvText::read(text.toUtf8())), "cells");
}

void TestCsvText::encodings_data()
{
    QTest::addColumn<QByteArray>("file");
    const QString text = u"گچپژ,یک\nکتاب,ي ك"_s;
    const auto wide = [&](QStringConverter::Encoding encoding, const QByteArray &mark) {
        QStringEncoder encoder(encoding);
        const QByteArray bytes = encoder(text);
        return mark + bytes;
    };
    QTest::newRow("UTF-8") << text.toUtf8();
    QTest::newRow("UTF-8 with its mark") << "\xEF\xBB\xBF" + text.toUtf8();
    QTest::newRow("UTF-16 little-endian") << wide(QStringConverter::Utf16LE, "\xFF\xFE");
    QTest::newRow("UTF-16 big-endian") << wide(QStringConverter::Utf16BE, "\xFE\xFF");
    QTest::newRow("UTF-16 without a mark") << wide(QStringConverter::Utf16LE, {});
    QTest::newRow("UTF-16 big-endian without a mark") << wide(QStringConverter::Utf16BE, {});
}

void TestCsvText::encodings()
{
    QFETCH(QByteArray, file);
    QCOMPARE(asLines(CsvText::read(file)), u"گچپژ|یک/کتاب|ي ك"_s);
}

void TestCsvText::windowsArabic()
{
    // As another program wrote "نام,گچپژ / علي,ك".
    QCOMPARE(asLines(CsvText::read(QByteArray::fromHex("e4c7e32c908d818e0adae1ed2cdf"))), u"نام|گچپژ/علي|ك"_s);
}

void TestCsvText::refusals_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("trouble");
    QTest::addColumn<int>("row");
    using T = SheetError::Trouble;
    const auto row = [](const char *name, const QByteArray &file, T trouble, int at = 0) { QTest::newRow(name) << file << static_cast<int>(trouble) << at; };
    row("a picture", QByteArray("\x89PNG\r\n\x1a\n\x01\x02", 10), T::NotText);
    row("nulls", QByteArray("a,b\0c\0\0d", 8), T::NotText);
    row("an open quote", "a,b\n\"c,d\ne,f\n", T::OpenQuote, 2);
    row("rows", QByteArray("a\n").repeated(SheetFile::maxRows + 1), T::TooManyRows, SheetFile::maxRows);
    row("columns", "a\n" + QByteArray("b,").repeated(SheetFile::maxColumns + 1) + "\n", T::TooManyColumns, 2);
    row("an old spreadsheet", QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8), T::OldFormat);
    row("nothing", {}, T::Empty);
    row("blanks", " , ,\n\n  \n", T::Empty);
    row("too large", QByteArray(SheetFile::maxBytes + 1, 'a'), T::TooLarge);
}

void TestCsvText::refusals()
{
    QFETCH(QByteArray, file);
    QFETCH(int, trouble);
    QFETCH(int, row);
    try {
        SheetFile::read(file);
    } catch (const SheetError &error) {
        QCOMPARE(static_cast<int>(error.trouble()), trouble);
        QCOMPARE(error.row(), row);
        return;
    }
    QFAIL("it was read");
}

static const RegisteredTest<TestCsvText, QCoreApplication> registeredCsvText;
#include "TestCsvText.moc"
