// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/sheets/SheetFile.h"
#include "suite/utility/sheets/XlsxBook.h"
#include "suite/utility/sheets/XlsxStyles.h"
#include "tests/suite/utility/documents/DocxMaker.h"
#include "tests/support/RegisteredTest.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray relationships = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

QByteArray relationship(const QByteArray &id, const QByteArray &sort, const QByteArray &target)
{
    return "<Relationship Id=\"" + id + "\" Type=\"" + relationships + sort + "\" Target=\"" + target + "\"/>";
}

// A book of one sheet with those rows, and what a test puts beside it.
DocxMaker book(const QByteArray &rows, const QByteArray &texts = {}, const QByteArray &styles = {}, const QByteArray &properties = {})
{
    DocxMaker maker;
    maker.removePart("word/document.xml");
    maker.setPart("_rels/.rels", "<Relationships>" + relationship("a", "officeDocument", "/xl/workbook.xml") + "</Relationships>");
    maker.setPart("xl/workbook.xml", "<workbook xmlns:r=\"" + relationships.chopped(1) + "\">" + properties + "<sheets><sheet name=\"one\" sheetId=\"1\" r:id=\"s\"/></sheets></workbook>");
    maker.setPart("xl/_rels/workbook.xml.rels", "<Relationships>" + relationship("s", "worksheet", "worksheets/../worksheets/one.xml") + relationship("t", "sharedStrings", "texts.xml") + relationship("y", "styles", "styles.xml") + "</Relationships>");
    maker.setPart("xl/texts.xml", "<sst>" + texts + "</sst>");
    maker.setPart("xl/styles.xml", "<styleSheet>" + styles + "</styleSheet>");
    maker.setPart("xl/worksheets/one.xml", "<worksheet><sheetData>" + rows + "</sheetData></worksheet>");
    return maker;
}

QString shown(const Sheet &sheet)
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

class TestXlsxBook : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void writtenElsewhere();
    void cells_data();
    void cells();
    void countsFrom1904();
    void formats_data();
    void formats();
    void hostile_data();
    void hostile();
};

void TestXlsxBook::writtenElsewhere()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"book.xlsx"_s);
    QProcess python;
    // Debian's own, which has its packages.
    python.start(u"/usr/bin/python3"_s, {QStringLiteral(TZ_TEST_SOURCE "/written_elsewhere.py"), path});
    QVERIFY(python.waitForFinished(60'000));
    QVERIFY2(python.exitCode() == 0, python.readAllStandardError().constData());
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));

    const QList<Sheet> sheets = SheetFile::read(file.readAll());
    QCOMPARE(sheets.size(), 2);
    QCOMPARE(sheets.at(0).name, u"اشخاص"_s);
    QCOMPARE(shown(sheets.at(0)), u"نام|تاریخ تولد|مبلغ|فعال|جمع/علی|1980-03-21|1250000|1/زهرا|1999-12-31|12.5|0//پس از سطر خالی||0.1"_s);
    const Sheet &first = sheets.constFirst();
    QCOMPARE(first.cell(1, 1).kind, SheetCell::Kind::Date);
    QCOMPARE(first.cell(2, 1).date, QDate(1999, 12, 31));
    QCOMPARE(first.cell(1, 2).kind, SheetCell::Kind::Number);
    QCOMPARE(first.cell(1, 3).kind, SheetCell::Kind::Flag);
    QCOMPARE(first.cell(4, 2).kind, SheetCell::Kind::Number);
    QCOMPARE(shown(sheets.at(1)), u"/|تنها"_s);
}

void TestXlsxBook::cells_data()
{
    QTest::addColumn<QByteArray>("rows");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &rows, const QString &expected) { QTest::newRow(name) << rows << expected; };
    row("shared, with runs and without how it is read aloud", R"(<row r="1"><c r="A1" t="s"><v>1</v></c></row>)", u"علی رضا"_s);
    row("inline", R"(<row r="1"><c r="A1" t="inlineStr"><is><r><t>a</t></r><r><t xml:space="preserve"> b</t></r></is></c></row>)", u"a b"_s);
    row("a formula's value", R"(<row r="1"><c r="A1" t="str"><f>B1&amp;C1</f><v>x</v></c><c r="B1"><f>1+1</f><v>2</v></c></row>)", u"x|2"_s);
    row("a formula nobody has computed", R"(<row r="1"><c r="A1"><f>1+1</f></c><c r="B1"><v>1</v></c></row>)", u"|1"_s);
    row("references left out", R"(<row><c><v>1</v></c><c><v>2</v></c></row><row><c><v>3</v></c></row>)", u"1|2/3"_s);
    row("gaps", R"(<row r="3"><c r="C3"><v>1</v></c></row>)", u"//||1"_s);
    row("a large number", R"(<row r="1"><c r="A1"><v>9123456789</v></c><c r="B1"><v>1.2345678901234E13</v></c></row>)", u"9123456789|12345678901234"_s);
    row("an error", R"(<row r="1"><c r="A1" t="e"><v>#DIV/0!</v></c></row>)", u"#DIV/0!"_s);
    row("a date written out", R"(<row r="1"><c r="A1" t="d"><v>2026-03-21T00:00:00</v></c></row>)", u"2026-03-21"_s);
    row("a date by its own format", R"(<row r="1"><c r="A1" s="2"><v>46102</v></c><c r="B1" s="1"><v>46102.75</v></c><c r="C1" s="0"><v>46102</v></c></row>)", u"2026-03-21|2026-03-21|46102"_s);
}

void TestXlsxBook::cells()
{
    QFETCH(QByteArray, rows);
    const QByteArray texts = "<si><t>a</t></si><si><r><t>علی</t></r><r><t> رضا</t></r><rPh><t>ali</t></rPh></si>";
    const QByteArray styles = "<numFmts><numFmt numFmtId=\"170\" formatCode=\"yyyy/mm/dd\"/></numFmts><cellStyleXfs><xf numFmtId=\"14\"/></cellStyleXfs>"
                              "<cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/><xf numFmtId=\"170\"/></cellXfs>";
    QTEST(shown(XlsxBook::read(book(rows, texts, styles).zip()).constFirst()), "expected");
}

void TestXlsxBook::countsFrom1904()
{
    const QByteArray file = book(R"(<row><c s="0"><v>1</v></c></row>)", {}, "<cellXfs><xf numFmtId=\"14\"/></cellXfs>", "<workbookPr date1904=\"1\"/>").zip();
    QCOMPARE(shown(XlsxBook::read(file).constFirst()), u"1904-01-02"_s);
}

void TestXlsxBook::formats_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<bool>("isDate");
    QTest::newRow("general") << u"General"_s << false;
    QTest::newRow("a day") << u"yyyy\\-mm\\-dd"_s << true;
    QTest::newRow("with a language") << u"[$-3000401]d/m/yy;@"_s << true;
    QTest::newRow("money") << u"#,##0 \"day\""_s << false;
    QTest::newRow("an escaped letter") << u"0\\d"_s << false;
    QTest::newRow("red") << u"[Red]0.00"_s << false;
    QTest::newRow("a time") << u"hh:mm"_s << false;
}

void TestXlsxBook::formats()
{
    QFETCH(QString, code);
    QTEST(XlsxStyles::isDateFormat(code), "isDate");
}

void TestXlsxBook::hostile_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("reason");
    const auto row = [](const char *name, const QByteArray &file, const QByteArray &reason) { QTest::newRow(name) << file << reason; };
    const QByteArray cell = R"(<row r="1"><c r="A1"><v>1</v></c></row>)";
    row("a bomb", book(cell).setPart("xl/media/a.bin", QByteArray(300 << 20, '\0')).zip(), "too large by what it declares");
    row("leads out", book(cell).setPart("../evil", "x").zip(), "leads out of the document");
    row("an entity", book(cell).setPart("xl/texts.xml", "<!DOCTYPE s [<!ENTITY a \"x\">]><sst><si><t>&a;</t></si></sst>").zip(), "document type");
    row("entities of entities", book(cell).setPart("xl/worksheets/one.xml", "<!DOCTYPE s [<!ENTITY a \"xxxx\"><!ENTITY b \"&a;&a;&a;\">]><worksheet>&b;</worksheet>").zip(), "document type");
    row("an entity of nobody", book(cell).setPart("xl/texts.xml", "<sst><si><t>&a;</t></si></sst>").zip(), "ntity");
    row("nested deep", book(QByteArray("<a>").repeated(5000) + QByteArray("</a>").repeated(5000)).zip(), "nested too deep");
    row("no workbook", book(cell).removePart("xl/workbook.xml").zip(), "no workbook");
    row("broken", book("<row><c").zip(), "");
    row("a text that is not there", book(R"(<row><c t="s"><v>7</v></c></row>)").zip(), "not in the table of texts");
    row("a text before the first", book(R"(<row><c t="s"><v>-1</v></c></row>)").zip(), "not in the table of texts");
    row("encrypted", book(cell).encrypt("xl/worksheets/one.xml").zip(), "encrypted");
    row("cut short", book(cell).zip().chopped(40), "no zip");
    row("row number of billions", book(R"(<row r="4000000000"><c r="A4000000000"><v>1</v></c></row>)").zip(), "");
    row("a row before the first", book(R"(<row r="0"><c r="A0"><v>1</v></c></row>)").zip(), "");
    row("column of no end", book(R"(<row r="1"><c r="ZZZZZZZZZZZZZZZZZZZZ1"><v>1</v></c></row>)").zip(), "");
}

void TestXlsxBook::hostile()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, reason);
    try {
        SheetFile::read(file);
    } catch (const SheetError &error) {
        QVERIFY2(QByteArray(error.what()).contains(reason), error.what());
        return;
    }
    QFAIL("it was read");
}

static const RegisteredTest<TestXlsxBook, QCoreApplication> registeredXlsxBook;
#include "TestXlsxBook.moc"
