// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/KMSWord.h"

#include "tests/suite/utility/documents/DocxMaker.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include <pugixml.hpp>

using namespace Qt::StringLiterals;

using D = DocxMaker;

namespace {

QByteArray field(const QByteArray &name)
{
    return D::complex("MERGEFIELD " + name, "x");
}

// What the test calls "Yes" says something, everything else called "No..." does not.
bool says(const QString &name)
{
    return !name.startsWith(u"No");
}

QByteArray part(const QByteArray &mark, const QByteArray &content)
{
    return field(mark) + content + field("EndIf");
}

QByteArray cell(const QByteArray &content, const QByteArray &properties = "<w:tcW w:w=\"100\"/>")
{
    return "<w:tc><w:tcPr>" + properties + "</w:tcPr>" + D::paragraph(content) + "</w:tc>";
}

QByteArray row(const QByteArray &cells, bool titles = false)
{
    return "<w:tr>" + QByteArray(titles ? "<w:trPr><w:tblHeader/></w:trPr>" : "") + cells + "</w:tr>";
}

QByteArray table(const QByteArray &rows)
{
    return "<w:tbl><w:tblPr/><w:tblGrid/>" + rows + "</w:tbl>";
}

QByteArray text(const QByteArray &words)
{
    return D::paragraph(D::runs(words));
}

// One pixel.
const QByteArray png = QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg==");

}

// What a template leaves out, repeats and puts in by its marks.
class TestDocumentParts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void marksSayWhatTheyAskFor_data();
    void marksSayWhatTheyAskFor();
    void partIsLeftOutOrKept_data();
    void partIsLeftOutOrKept();
    void whatIsLeftEmptyGoes_data();
    void whatIsLeftEmptyGoes();
    void neighbourTakesTheRoomOfACell();
    void headersAndTextBoxesHaveMarksToo();
    void markInATextBoxOfAnotherGoesWithIt();
    void paragraphThatEndsASectionStays();
    void markWithoutItsOtherHalfCostsNoWords_data();
    void markWithoutItsOtherHalfCostsNoWords();
    void bookmarksAroundAPartStayWhole();
    void rowComesOnceForEachRow();
    void rowWithoutRowsGoes();
    void paragraphOutsideATableIsRepeated();
    void rowTooLargeToBeRepeatedStays();
    void pictureStandsInItsPlace_data();
    void pictureStandsInItsPlace();
    void pictureThatIsMissingLeavesNothing();
    void templateWithoutMarksStaysAsItIs();
    void manyMarksAreQuick();

private:
    void fill(const DocxMaker &maker);
    QByteArray saved(const QByteArray &name = "word/document.xml") const { return D::part(m_result, name); }
    QString shown() const { return D::shown(m_result); }

    QTemporaryDir m_folder;
    QString m_template, m_result;
    DocumentParts m_parts;
    QStringList m_unpaired;
};

void TestDocumentParts::init()
{
    m_template = m_folder.filePath(u"template.docx"_s);
    m_result = m_folder.filePath(u"result.docx"_s);
    QFile::remove(m_result);
    m_parts = {};
    m_parts.says = says;
}

void TestDocumentParts::fill(const DocxMaker &maker)
{
    QVERIFY(maker.write(m_template));
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY2(word.OpenDocument(m_template, 1), qUtf8Printable(word.Failure()));
    m_unpaired = word.UnpairedMarks();
    QVERIFY2(word.SetParts(m_parts), qUtf8Printable(word.Failure()));
    QVERIFY2(word.SaveAs(m_result), qUtf8Printable(word.Failure()));
    QVERIFY2(word.OpenDocument(m_result, 1), qUtf8Printable(word.Failure()));
}

void TestDocumentParts::marksSayWhatTheyAskFor_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("keeps");
    QTest::newRow("one field that says something") << u"If_Yes"_s << int(PartMark::If) << true;
    QTest::newRow("one that does not") << u"If_No"_s << int(PartMark::If) << false;
    QTest::newRow("one of two") << u"If_No_Yes"_s << int(PartMark::If) << true;
    QTest::newRow("none of two") << u"If_No_No2"_s << int(PartMark::If) << false;
    QTest::newRow("the other way round") << u"IfNot_No_No2"_s << int(PartMark::IfNot) << true;
    QTest::newRow("the other way round, one says something") << u"IfNot_No_Yes"_s << int(PartMark::IfNot) << false;
    QTest::newRow("in any letters") << u"IF_no"_s << int(PartMark::If) << true;
    QTest::newRow("asks for nothing") << u"If_"_s << int(PartMark::If) << true;
    QTest::newRow("end") << u"endif"_s << int(PartMark::End) << true;
    QTest::newRow("a field like a mark") << u"Iffy"_s << int(PartMark::None) << true;
}

void TestDocumentParts::marksSayWhatTheyAskFor()
{
    QFETCH(QString, name);
    const PartMark mark = PartMark::of(name);
    QTEST(int(mark.kind), "kind");
    QTEST(mark.keeps(says), "keeps");
}

void TestDocumentParts::partIsLeftOutOrKept_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("shown");
    QTest::newRow("kept") << D::paragraph(D::runs("a ") + part("If_Yes", D::runs("b")) + D::runs(" c")) << u"a b c|"_s;
    QTest::newRow("left out") << D::paragraph(D::runs("a ") + part("If_No", D::runs("b")) + D::runs(" c")) << u"a  c|"_s;
    QTest::newRow("one of two is kept") << D::paragraph(part("If_Yes", D::runs("b")) + part("IfNot_Yes", D::runs("c"))) << u"b|"_s;
    QTest::newRow("over paragraphs") << D::paragraph(D::runs("a") + field("If_No") + D::runs("b")) + text("c") + D::paragraph(D::runs("d") + field("EndIf") + D::runs("e"))
                                     << u"a|e|"_s;
    QTest::newRow("marks on lines of their own, left out") << text("a") + D::paragraph(field("If_No")) + text("b") + table(row(cell(D::runs("c"))))
            + D::paragraph(field("EndIf")) + text("d")
                                                           << u"a|d|"_s;
    QTest::newRow("marks on lines of their own, kept") << text("a") + D::paragraph(field("If_Yes")) + text("b") + D::paragraph(field("EndIf")) + text("d")
                                                       << u"a|b|d|"_s;
    QTest::newRow("in each other, the outer goes") << D::paragraph(part("If_No", D::runs("a") + part("If_Yes", D::runs("b")) + D::runs("c")) + D::runs("d")) << u"d|"_s;
    QTest::newRow("in each other, the inner goes") << D::paragraph(part("If_Yes", D::runs("a") + part("If_No", D::runs("b")) + D::runs("c"))) << u"ac|"_s;
    QTest::newRow("with fields in it") << D::paragraph(part("If_No", D::complex("PAGE", "7") + field("Other")) + D::runs("d")) << u"d|"_s;
    QTest::newRow("simple fields as marks") << D::paragraph(D::simple("MERGEFIELD If_No", "x") + D::runs("a") + D::simple("MERGEFIELD EndIf", "x") + D::runs("b")) << u"b|"_s;
    QTest::newRow("an instruction split over runs") << D::paragraph(D::mark("begin") + D::code(" MERGEFIELD If") + D::code("_N") + D::code("o ") + D::mark("separate")
                                                                    + D::runs("«If") + D::runs("_No»") + D::mark("end") + D::runs("a") + field("EndIf") + D::runs("b"))
                                                    << u"b|"_s;
    QTest::newRow("marks in links and controls") << D::paragraph("<w:hyperlink>" + field("If_No") + "</w:hyperlink>" + D::runs("a") + "<w:sdt><w:sdtContent>" + D::runs("b")
                                                                 + field("EndIf") + D::runs("c") + "</w:sdtContent></w:sdt>")
                                                 << u"c|"_s;
}

void TestDocumentParts::partIsLeftOutOrKept()
{
    QFETCH(QByteArray, body);
    fill(DocxMaker(body));
    QTEST(shown(), "shown");
    QVERIFY(!saved().contains("If"));
    QCOMPARE(m_unpaired, QStringList());
}

void TestDocumentParts::whatIsLeftEmptyGoes_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("paragraphs");
    QTest::addColumn<int>("cells");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("tables");
    const QByteArray no = part("If_No", D::runs("a")), yes = part("If_Yes", D::runs("b"));
    const QByteArray joined = "<w:tcW w:w=\"100\"/><w:vMerge/>";
    QTest::newRow("a paragraph") << text("a") + D::paragraph(no) + text("c") << 2 << 0 << 0 << 0;
    QTest::newRow("a paragraph of two") << text("a") + D::paragraph(no + D::runs(" ") + no) << 1 << 0 << 0 << 0;
    QTest::newRow("not one with a picture") << text("a") + D::paragraph(no + "<w:r><w:drawing/></w:r>") << 2 << 0 << 0 << 0;
    QTest::newRow("not one with a page break") << text("a") + D::paragraph(no + "<w:r><w:br w:type=\"page\"/></w:r>") << 2 << 0 << 0 << 0;
    QTest::newRow("a cell") << table(row(cell(no) + cell(yes))) << 1 << 1 << 1 << 1;
    QTest::newRow("a row") << table(row(cell(no) + cell(no)) + row(cell(yes))) << 1 << 1 << 1 << 1;
    QTest::newRow("a table") << text("a") + table(row(cell(no) + cell(no)) + row(cell(no))) + text("c") << 2 << 0 << 0 << 0;
    QTest::newRow("a table in a cell, with the cell") << table(row("<w:tc>" + table(row(cell(no))) + "<w:p/></w:tc>" + cell(yes))) << 1 << 1 << 1 << 1;
    QTest::newRow("a table in a cell, with everything") << text("a") + table(row("<w:tc>" + table(row(cell(no))) + "<w:p/></w:tc>" + cell(no))) + text("c") << 2 << 0 << 0 << 0;
    QTest::newRow("no cell below titles") << table(row(cell(D::runs("t")) + cell(D::runs("t")), true) + row(cell(no) + cell(yes))) << 4 << 4 << 2 << 1;
    QTest::newRow("but a whole row below titles") << table(row(cell(D::runs("t")) + cell(D::runs("t")), true) + row(cell(no) + cell(no))) << 2 << 2 << 1 << 1;
    QTest::newRow("no cell that is joined to another") << table(row(cell(no, joined) + cell(yes))) << 2 << 2 << 1 << 1;
    QTest::newRow("not the last paragraph of a cell with a table") << table(row("<w:tc>" + table(row(cell(yes))) + D::paragraph(no) + "</w:tc>")) << 2 << 2 << 2 << 2;
    QTest::newRow("not what keeps two tables apart") << table(row(cell(yes))) + D::paragraph(no) + table(row(cell(yes))) << 3 << 2 << 2 << 2;
    QTest::newRow("nothing that was empty before") << text("") + table(row(cell("") + cell(yes))) << 3 << 2 << 1 << 1;
}

void TestDocumentParts::whatIsLeftEmptyGoes()
{
    QFETCH(QByteArray, body);
    fill(DocxMaker(body));
    const QByteArray document = saved();
    QTEST(int(document.count("<w:p>") + document.count("<w:p/>")), "paragraphs");
    QTEST(int(document.count("<w:tc>")), "cells");
    QTEST(int(document.count("<w:tr>")), "rows");
    QTEST(int(document.count("<w:tbl>")), "tables");
    QVERIFY(!shown().contains(u'a') || body.contains(">a<"));
}

void TestDocumentParts::neighbourTakesTheRoomOfACell()
{
    const QByteArray no = part("If_No", D::runs("a"));
    fill(DocxMaker(table(row(cell(no, "<w:tcW w:w=\"10\"/>") + cell(D::runs("b"), "<w:tcW w:w=\"20\"/><w:gridSpan w:val=\"2\"/>") + cell(no, "<w:tcW w:w=\"40\"/>")))));
    QVERIFY2(saved().contains("<w:tcPr><w:tcW w:w=\"70\"/><w:gridSpan w:val=\"4\"/></w:tcPr>"), saved().constData());
}

void TestDocumentParts::headersAndTextBoxesHaveMarksToo()
{
    const QByteArray no = part("If_No", D::runs("gone"));
    const QByteArray box = "<w:r><w:drawing><w:txbxContent>" + D::paragraph(no + D::runs("in the box")) + "</w:txbxContent></w:drawing></w:r>";
    DocxMaker maker(D::paragraph(box) + text("body"));
    maker.addTextPart("header", D::paragraph(no));
    fill(maker);
    QVERIFY(!saved().contains("gone"));
    QVERIFY(saved().contains("in the box"));
    // A header needs a paragraph.
    const QByteArray header = saved("word/header1.xml");
    QVERIFY2(!header.contains("gone") && header.contains("<w:p"), header.constData());
}

void TestDocumentParts::markInATextBoxOfAnotherGoesWithIt()
{
    const QByteArray box = "<w:r><w:drawing><w:txbxContent>" + D::paragraph(part("If_No", D::runs("b")) + field("Logo") + field("Num")) + "</w:txbxContent></w:drawing></w:r>";
    const auto around = [&](const QByteArray &name) {
        return D::mark("begin") + D::code("MERGEFIELD " + name) + D::mark("separate") + box + D::mark("end");
    };
    m_parts.tables = {{{u"Num"_s}, {{u"1"_s}}}};
    m_parts.pictures = {{u"Logo"_s, {}, 0, 0, 18, {}}};
    fill(DocxMaker(D::paragraph(around("If_Yes") + D::runs("a") + around("EndIf")) + D::paragraph(around("Logo") + D::runs("c"))));
    QCOMPARE(shown(), u"a|c|"_s);
    QCOMPARE(m_unpaired, QStringList());
}

void TestDocumentParts::paragraphThatEndsASectionStays()
{
    fill(DocxMaker(D::paragraph(field("If_No") + D::runs("a")) + "<w:p><w:pPr><w:sectPr/></w:pPr><w:r><w:t>b</w:t></w:r></w:p>" + D::paragraph(D::runs("c") + field("EndIf"))
                   + text("d")));
    QVERIFY(saved().contains("sectPr"));
    QVERIFY(!shown().contains(u'b'));
    QVERIFY(shown().endsWith(u"d|"_s));
}

void TestDocumentParts::markWithoutItsOtherHalfCostsNoWords_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QStringList>("unpaired");
    QTest::newRow("no end") << D::paragraph(field("If_No") + D::runs("a")) << QStringList{u"If_No"_s};
    QTest::newRow("no beginning") << D::paragraph(D::runs("a") + field("EndIf")) << QStringList{u"EndIf"_s};
    QTest::newRow("the end in another cell") << table(row(cell(field("If_No") + D::runs("a")) + cell(D::runs("b") + field("EndIf")))) << QStringList{u"If_No"_s, u"EndIf"_s};
    QTest::newRow("the end in a table") << D::paragraph(field("If_No") + D::runs("a")) + table(row(cell(field("EndIf")))) << QStringList{u"If_No"_s, u"EndIf"_s};
}

void TestDocumentParts::markWithoutItsOtherHalfCostsNoWords()
{
    QFETCH(QByteArray, body);
    fill(DocxMaker(body));
    QTEST(m_unpaired, "unpaired");
    QVERIFY2(shown().contains(u'a'), qUtf8Printable(shown()));
    QVERIFY(!saved().contains("MERGEFIELD"));
}

void TestDocumentParts::bookmarksAroundAPartStayWhole()
{
    fill(DocxMaker(D::paragraph("<w:bookmarkStart w:id=\"1\" w:name=\"b\"/>" + D::runs("a") + field("If_No") + "<w:bookmarkEnd w:id=\"1\"/>" + D::runs("b")) + text("c")
                   + D::paragraph(D::runs("d") + field("EndIf") + D::runs("e"))));
    QCOMPARE(shown(), u"a|e|"_s);
    QVERIFY(saved().contains("bookmarkEnd"));
}

void TestDocumentParts::rowComesOnceForEachRow()
{
    m_parts.tables = {{{u"Num"_s, u"Amount"_s}, {{u"1"_s, u"10"_s}, {u"2"_s, u"20"_s}}}};
    fill(DocxMaker(table(row(cell(D::runs("number")) + cell(D::runs("amount")), true) + row(cell(field("Num")) + cell(field("Amount") + field("Num") + field("Other")))
                         + row(cell(D::runs("end"))))));
    QCOMPARE(shown(), u"number|amount|1|101x|2|202x|end|"_s);
}

void TestDocumentParts::rowWithoutRowsGoes()
{
    m_parts.tables = {{{u"Num"_s}, {}}};
    fill(DocxMaker(text("a") + table(row(cell(field("Num")))) + D::paragraph(field("Num") + D::runs(" of them")) + text("b")));
    QCOMPARE(shown(), u"a|b|"_s);
    QVERIFY(!saved().contains("<w:tbl>"));
}

void TestDocumentParts::paragraphOutsideATableIsRepeated()
{
    m_parts.tables = {{{u"Num"_s}, {{u"1"_s}, {u"2"_s}, {QString()}}}};
    fill(DocxMaker(D::paragraph(D::runs("no. ") + field("Num"))));
    QCOMPARE(shown(), u"no. 1|no. 2|no. |"_s);
}

void TestDocumentParts::rowTooLargeToBeRepeatedStays()
{
    m_parts.tables = {{{u"Num"_s}, QList<QStringList>(5000, {u"1"_s})}};
    fill(DocxMaker(D::paragraph(field("Num") + QByteArray("<w:r><w:t>a</w:t></w:r>").repeated(1000))));
    QVERIFY(saved().contains("MERGEFIELD Num"));
    QVERIFY(saved().size() < 100'000);
}

void TestDocumentParts::pictureStandsInItsPlace_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::newRow("as high as usual") << QByteArray("Logo") << 36 << 18;
    QTest::newRow("as high as asked for") << QByteArray("Logo_30") << 60 << 30;
    QTest::newRow("not wider than a page") << QByteArray("logo_200") << 170 << 85;
}

void TestDocumentParts::pictureStandsInItsPlace()
{
    QFETCH(QByteArray, name);
    QFETCH(int, width);
    QFETCH(int, height);
    m_parts.pictures = {{u"Logo"_s, png, 2, 1, 18, u"a sign"_s}};
    DocxMaker maker(text("body"));
    maker.addTextPart("header", D::paragraph(D::runs("a") + field(name) + D::runs("b")));
    fill(maker);
    const QByteArray header = saved("word/header1.xml");
    QVERIFY(!header.contains("MERGEFIELD"));
    const QByteArray extent = "<wp:extent cx=\"" + QByteArray::number(width * 36000) + "\" cy=\"" + QByteArray::number(height * 36000) + "\"";
    QVERIFY2(header.contains(extent), header.constData());
    QVERIFY(header.indexOf(">a<") < header.indexOf("<w:drawing>") && header.indexOf("<w:drawing>") < header.indexOf(">b<"));
    QVERIFY(header.contains("descr=\"a sign\""));
    // The header's own relationships lead to the picture.
    const QByteArray relations = saved("word/_rels/header1.xml.rels");
    QVERIFY2(relations.contains("Id=\"filled1\"") && relations.contains("Target=\"/word/media/filled-logo.png\""), relations.constData());
    QVERIFY(header.contains("r:embed=\"filled1\""));
    QCOMPARE(saved("word/media/filled-logo.png"), png);
    QVERIFY(saved("[Content_Types].xml").contains("PartName=\"/word/media/filled-logo.png\" ContentType=\"image/png\""));
}

void TestDocumentParts::pictureThatIsMissingLeavesNothing()
{
    m_parts.pictures = {{u"Logo"_s, {}, 0, 0, 18, {}}};
    fill(DocxMaker(D::paragraph(D::runs("a") + field("Logo_30") + D::runs("b"))));
    QCOMPARE(shown(), u"ab|"_s);
    QVERIFY(!saved().contains("drawing"));
}

void TestDocumentParts::templateWithoutMarksStaysAsItIs()
{
    m_parts.tables = {{{u"Num"_s}, {{u"1"_s}}}};
    m_parts.pictures = {{u"Logo"_s, png, 1, 1, 18, {}}};
    const QByteArray body = text("") + table(row(cell("") + cell(field("Other")))) + text("a");
    fill(DocxMaker(body));
    QCOMPARE(saved(), D::part(m_template, "word/document.xml"));
    QCOMPARE(D::partNames(m_result), D::partNames(m_template));
}

void TestDocumentParts::manyMarksAreQuick()
{
    QElapsedTimer clock;
    clock.start();
    fill(DocxMaker(D::paragraph(part("If_No", D::runs("a"))).repeated(5000) + table(row(cell(part("If_No", D::runs("a")))).repeated(5000)) + text("b")));
    QCOMPARE(shown(), u"b|"_s);
    QVERIFY2(clock.elapsed() < 20'000, qPrintable(QString::number(clock.elapsed())));
}

static const RegisteredTest<TestDocumentParts, QCoreApplication> registeredDocumentParts;
#include "TestDocumentParts.moc"
