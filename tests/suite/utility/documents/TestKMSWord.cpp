// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/KMSWord.h"

#include "tests/suite/utility/documents/DocxMaker.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTest>

#include <pugixml.hpp>

using namespace Qt::StringLiterals;

using D = DocxMaker;

// Every form that a merge field has, and what becomes of it.
class TestKMSWord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everyFormOfField_data();
    void everyFormOfField();
    void namesMatchWhole_data();
    void namesMatchWhole();
    void fieldsAreListed();
    void valuesAreShaped_data();
    void valuesAreShaped();
    void propertiesOfTheResultAreKept();
    void propertiesOfASimpleFieldsResultAreKept();
    void propertiesWithoutAResultAreTheMarks();
    void charformatLooksAsItsInstruction();
    void rightToLeftMarksAreKept();
    void headersFootersAndNotes();
    void textBoxesInBothBranches();
    void brokenFieldsStay_data();
    void brokenFieldsStay();
    void fieldOverParagraphsMakesThemOne();
    void fieldOverASectionBreakStays();
    void valueInAnInstruction_data();
    void valueInAnInstruction();
    void bookmarksOutliveTheField();
    void otherPrefixesAreUnderstood();
    void countLimitsTheLists();
    void batchesFollowOneAnother();
    void fillingAgainChangesNothing();
    void mailMergeSourceGoes();

private:
    void fill(const DocxMaker &maker, const QStringList &names, const QStringList &values);
    QByteArray saved(const QByteArray &part = "word/document.xml") const { return D::part(m_result, part); }

    QTemporaryDir m_folder;
    QString m_template, m_result;
    int m_filled = 0;
};

void TestKMSWord::init()
{
    m_template = m_folder.filePath(u"template.docx"_s);
    m_result = m_folder.filePath(u"result.docx"_s);
    QFile::remove(m_result);
}

void TestKMSWord::fill(const DocxMaker &maker, const QStringList &names, const QStringList &values)
{
    QVERIFY(maker.write(m_template));
    KMSWord word;
    word.SetVisible(0);
    QVERIFY(word.Init());
    QVERIFY2(word.OpenDocument(m_template, 1), qUtf8Printable(word.Failure()));
    m_filled = word.SetFieldsValue(names, values, static_cast<int>(names.size()));
    QVERIFY2(word.SaveAs(m_result), qUtf8Printable(word.Failure()));
    QCOMPARE(word.FullName(), m_result);
    word.Close();
    word.Quit();
}

void TestKMSWord::everyFormOfField_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("shown");
    const QByteArray split = D::mark("begin") + D::code(" MERGE") + "<w:proofErr w:type=\"spellStart\"/>" + D::code("FIELD  Na")
        + D::code("me \\* MERGE") + D::code("FORMAT ") + D::mark("separate") + D::runs("«Na") + D::runs("me»") + D::mark("end");
    const QByteArray oneRun = "<w:r><w:t>a</w:t><w:fldChar w:fldCharType=\"begin\"/><w:instrText>MERGEFIELD Name</w:instrText>"
                              "<w:fldChar w:fldCharType=\"separate\"/><w:t>x</w:t><w:fldChar w:fldCharType=\"end\"/><w:t>b</w:t></w:r>";
    const QByteArray noResult = D::mark("begin") + D::code("MERGEFIELD Name") + D::mark("end");
    const QByteArray inResult = D::mark("begin") + D::code("MERGEFIELD Name") + D::mark("separate") + D::runs("x")
        + D::complex("PAGE", "7") + D::simple("MERGEFIELD Name", "y") + D::mark("end");
    const QByteArray inOther = D::mark("begin") + D::code("HYPERLINK \"x\"") + D::mark("separate")
        + D::complex("MERGEFIELD Name", "x") + D::mark("end");
    QTest::newRow("simple") << D::simple("MERGEFIELD Name", "«Name»") << u"علی|"_s;
    QTest::newRow("simple with switches") << D::simple("MERGEFIELD  Name  \\* MERGEFORMAT", "x") << u"علی|"_s;
    QTest::newRow("simple, empty") << QByteArray("<w:fldSimple w:instr=\"MERGEFIELD Name\"/>") << u"علی|"_s;
    QTest::newRow("complex") << D::runs("a ") + D::complex("MERGEFIELD Name", "x") + D::runs(" b") << u"a علی b|"_s;
    QTest::newRow("complex, lower case") << D::complex("mergefield Name", "x") << u"علی|"_s;
    QTest::newRow("instruction split over runs") << split << u"علی|"_s;
    QTest::newRow("all in one run") << oneRun << u"aعلیb|"_s;
    QTest::newRow("without a result") << noResult << u"علی|"_s;
    QTest::newRow("fields in the result") << inResult << u"علی|"_s;
    QTest::newRow("in the result of another field") << inOther << u"علی|"_s;
    QTest::newRow("quoted name") << D::complex("MERGEFIELD \"Name\"", "x") << u"علی|"_s;
    QTest::newRow("quoted name with a blank") << D::complex("MERGEFIELD \"Full name\" \\* MERGEFORMAT", "x") << u"علی رضایی|"_s;
    QTest::newRow("in a link") << QByteArray("<w:hyperlink>") + D::complex("MERGEFIELD Name", "x") + "</w:hyperlink>" << u"علی|"_s;
    QTest::newRow("in a content control")
        << QByteArray("<w:sdt><w:sdtPr/><w:sdtContent>") + D::complex("MERGEFIELD Name", "x") + "</w:sdtContent></w:sdt>" << u"علی|"_s;
    QTest::newRow("inserted text") << QByteArray("<w:ins>") + D::complex("MERGEFIELD Name", "x") + "</w:ins>" << u"علی|"_s;
    QTest::newRow("two beside each other") << D::complex("MERGEFIELD Name", "x") + D::complex("MERGEFIELD Name", "y") << u"علیعلی|"_s;
    QTest::newRow("ending in a simple one's neighbour") << D::simple("MERGEFIELD Name", "x") + D::simple("MERGEFIELD Name", "y")
                                                        << u"علیعلی|"_s;
}

void TestKMSWord::everyFormOfField()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, shown);
    fill(DocxMaker(D::paragraph(content)), {u"Name"_s, u"Full name"_s},
         {u"علی"_s, u"علی رضایی"_s});
    QCOMPARE(D::shown(m_result), shown);
    QCOMPARE(m_filled, static_cast<int>(shown.count(u"علی"_s)));
    QVERIFY(!saved().contains("MERGEFIELD"));
    if (!content.contains("HYPERLINK")) {
        QVERIFY(!saved().contains("fldChar"));
        QVERIFY(!saved().contains("fldSimple"));
        QVERIFY(!saved().contains("instrText"));
    }
}

void TestKMSWord::namesMatchWhole_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<int>("index");
    QTest::newRow("the same") << u"NC"_s << QStringList{u"N"_s, u"NC"_s} << 1;
    QTest::newRow("not a beginning") << u"NC"_s << QStringList{u"N"_s} << -1;
    QTest::newRow("not an end") << u"p"_s << QStringList{u"PC"_s, u"pC"_s} << -1;
    QTest::newRow("case alone") << u"PC"_s << QStringList{u"pc"_s} << 0;
    QTest::newRow("the same before case alone") << u"Pc"_s << QStringList{u"PC"_s, u"Pc"_s} << 1;
    QTest::newRow("two by case alone") << u"pC"_s << QStringList{u"PC"_s, u"Pc"_s} << -1;
    QTest::newRow("one by case alone, twice") << u"pc"_s << QStringList{u"PC"_s, u"PC"_s} << 0;
    QTest::newRow("no name") << QString() << QStringList{u"PC"_s} << -1;
}

void TestKMSWord::namesMatchWhole()
{
    QFETCH(QString, field);
    QFETCH(QStringList, names);
    QTEST(Fields::indexOfName(names, field), "index");
}

void TestKMSWord::fieldsAreListed()
{
    const QByteArray table = "<w:tbl><w:tr><w:tc>" + D::paragraph(D::complex("MERGEFIELD \"Full name\"", "y")) + "</w:tc></w:tr></w:tbl>";
    DocxMaker maker(D::paragraph(D::simple("MERGEFIELD Name", "x") + D::complex("PAGE", "1")) + table);
    maker.addTextPart("header", D::paragraph(D::complex("MERGEFIELD Name", "x")));
    QVERIFY(maker.write(m_template));
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY(word.OpenDocument(m_template, 1));
    const Fields before(word.GetFields());
    QCOMPARE(before.GetNames(), (QStringList{u"Name"_s, u"Full name"_s, u"Name"_s}));
    QCOMPARE(before.GetCount(), 3);
    QCOMPARE(before.GetName(1), u"Full name"_s);
    QVERIFY(before.Contains(u"Name"_s));
    QVERIFY(!before.Contains(u"Nam"_s));
    QCOMPARE(word.SetFieldsValue({u"Name"_s}, {u"1"_s}, 1), 2);
    QCOMPARE(word.GetFields().GetNames(), QStringList{u"Full name"_s});
    word.Close();
    QCOMPARE(word.GetFields().GetCount(), 0);
}

void TestKMSWord::valuesAreShaped_data()
{
    QTest::addColumn<QByteArray>("instruction");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("shown");
    QTest::newRow("upper") << QByteArray("MERGEFIELD F \\* Upper") << u"ali b"_s << u"ALI B"_s;
    QTest::newRow("lower") << QByteArray("MERGEFIELD F \\*Lower") << u"ALI"_s << u"ali"_s;
    QTest::newRow("first letter") << QByteArray("MERGEFIELD F \\* FirstCap \\* MERGEFORMAT") << u"ali b"_s << u"Ali b"_s;
    QTest::newRow("every word") << QByteArray("MERGEFIELD F \\* Caps") << u"ali bc"_s << u"Ali Bc"_s;
    QTest::newRow("around") << QByteArray("MERGEFIELD F \\b \"Mr \" \\f \", \"") << u"Ali"_s << u"Mr Ali, "_s;
    QTest::newRow("nothing around a blank") << QByteArray("MERGEFIELD F \\b \"Mr \" \\f \",\"") << u" "_s << u" "_s;
    QTest::newRow("a single blank") << QByteArray("MERGEFIELD F") << u" "_s << u" "_s;
    QTest::newRow("blanks at both ends") << QByteArray("MERGEFIELD F") << u"  a  "_s << u"  a  "_s;
    QTest::newRow("empty") << QByteArray("MERGEFIELD F") << QString() << QString();
    QTest::newRow("line breaks of every kind") << QByteArray("MERGEFIELD F") << u"a\nb\r\nc\rd\ve\u2028f"_s
                                               << u"a\nb\nc\nd\ne\nf"_s;
    QTest::newRow("line breaks at the ends") << QByteArray("MERGEFIELD F") << u"\n\na\n"_s << u"\n\na\n"_s;
    QTest::newRow("tab") << QByteArray("MERGEFIELD F") << u"a\tb"_s << u"a\tb"_s;
    QTest::newRow("markup") << QByteArray("MERGEFIELD F") << u"<w:t>&amp;\"']]>"_s << u"<w:t>&amp;\"']]>"_s;
    QTest::newRow("signs that XML cannot hold") << QByteArray("MERGEFIELD F") << u"a\u0001\u0008b"_s + QChar(0xFFFE) + QChar(0xD800)
                                                << u"ab"_s;
    QTest::newRow("beyond the first plane") << QByteArray("MERGEFIELD F") << u"\U0001F697"_s << u"\U0001F697"_s;
    QTest::newRow("joiners and marks") << QByteArray("MERGEFIELD F") << u"می\u200cشود \u200fا\u200e"_s
                                       << u"می\u200cشود \u200fا\u200e"_s;
    QTest::newRow("pictures do not count") << QByteArray("MERGEFIELD F \\# \"#,##0\" \\@ \"yyyy\"") << u"1,250"_s << u"1,250"_s;
}

void TestKMSWord::valuesAreShaped()
{
    QFETCH(QByteArray, instruction);
    QFETCH(QString, value);
    QFETCH(QString, shown);
    fill(DocxMaker(D::paragraph(D::complex(instruction, "x"))), {u"F"_s}, {value});
    QCOMPARE(m_filled, 1);
    QCOMPARE(D::shown(m_result), shown + u'|');
    // Also for readers that drop blanks which nothing protects.
    QCOMPARE(saved().count("<w:t "), saved().count("xml:space=\"preserve\""));
}

void TestKMSWord::propertiesOfTheResultAreKept()
{
    const QByteArray look = "<w:rPr><w:rFonts w:cs=\"B Nazanin\"/><w:b/><w:bCs/><w:sz w:val=\"28\"/><w:szCs w:val=\"28\"/><w:rtl/><w:cs/></w:rPr>";
    const QByteArray field = D::mark("begin") + D::code("MERGEFIELD F") + D::mark("separate") + "<w:r>" + look + "<w:t>«F»</w:t></w:r>"
        + D::mark("end");
    fill(DocxMaker(D::paragraph(field)), {u"F"_s}, {u"الف\nب"_s});
    QVERIFY(saved().contains("<w:p><w:r>" + look + QByteArray("<w:t xml:space=\"preserve\">الف</w:t><w:br/><w:t xml:space=\"preserve\">ب</w:t></w:r></w:p>")));
}

void TestKMSWord::propertiesOfASimpleFieldsResultAreKept()
{
    const QByteArray field = "<w:fldSimple w:instr=\"MERGEFIELD F\"><w:r/><w:r><w:rPr><w:b/><w:rtl/></w:rPr><w:t>x</w:t></w:r></w:fldSimple>";
    fill(DocxMaker(D::paragraph(field)), {u"F"_s}, {u"v"_s});
    QVERIFY(saved().contains("<w:p><w:r><w:rPr><w:b/><w:rtl/></w:rPr><w:t xml:space=\"preserve\">v</w:t></w:r></w:p>"));
}

void TestKMSWord::propertiesWithoutAResultAreTheMarks()
{
    const QByteArray look = "<w:rPr><w:i/><w:rtl/></w:rPr>";
    fill(DocxMaker(D::paragraph(D::mark("begin", look) + D::code("MERGEFIELD F", look) + D::mark("end", look))), {u"F"_s},
         {u"v"_s});
    QVERIFY(saved().contains("<w:p><w:r>" + look + "<w:t xml:space=\"preserve\">v</w:t></w:r></w:p>"));
}

void TestKMSWord::charformatLooksAsItsInstruction()
{
    const QByteArray field = D::mark("begin") + D::code("MERGEFIELD F \\* CHARFORMAT", "<w:rPr><w:b/></w:rPr>") + D::mark("separate")
        + "<w:r><w:rPr><w:i/></w:rPr><w:t>x</w:t></w:r>" + D::mark("end");
    fill(DocxMaker(D::paragraph(field)), {u"F"_s}, {u"v"_s});
    QVERIFY(saved().contains("<w:p><w:r><w:rPr><w:b/></w:rPr><w:t xml:space=\"preserve\">v</w:t></w:r></w:p>"));
}

void TestKMSWord::rightToLeftMarksAreKept()
{
    fill(DocxMaker(D::paragraph(D::complex("MERGEFIELD F", "\u200f«F»\u200f"))), {u"F"_s}, {u"12 ب 345"_s});
    QCOMPARE(D::shown(m_result), u"\u200f12 ب 345\u200f|"_s);
}

void TestKMSWord::headersFootersAndNotes()
{
    DocxMaker maker(D::paragraph(D::complex("MERGEFIELD F", "x")));
    const QByteArray text = D::paragraph(D::runs("F: ") + D::complex("MERGEFIELD F", "x"));
    maker.addTextPart("header", text).addTextPart("footer", text);
    maker.addTextPart("footnotes", "<w:footnote w:id=\"2\">" + text + "</w:footnote>");
    maker.addTextPart("endnotes", "<w:endnote w:id=\"2\">" + text + "</w:endnote>");
    fill(maker, {u"F"_s}, {u"ج"_s});
    QCOMPARE(m_filled, 5);
    for (const QByteArray part : {"header", "footer", "footnotes", "endnotes"}) {
        QCOMPARE(D::shown(m_result, "word/" + part + "1.xml"), u"F: ج|"_s);
        QVERIFY(!saved("word/" + part + "1.xml").contains("fldChar"));
    }
}

void TestKMSWord::textBoxesInBothBranches()
{
    const QByteArray box = "<w:txbxContent>" + D::paragraph(D::complex("MERGEFIELD F", "x")) + "</w:txbxContent>";
    const QByteArray drawing = "<w:r><mc:AlternateContent><mc:Choice Requires=\"wps\"><w:drawing><wps:wsp><wps:txbx>" + box
        + "</wps:txbx></wps:wsp></w:drawing></mc:Choice><mc:Fallback><w:pict><v:shape><v:textbox>" + box
        + "</v:textbox></v:shape></w:pict></mc:Fallback></mc:AlternateContent></w:r>";
    fill(DocxMaker(D::paragraph(D::runs("a") + drawing + D::complex("MERGEFIELD F", "x"))), {u"F"_s}, {u"v"_s});
    QCOMPARE(m_filled, 3);
    QCOMPARE(D::shown(m_result), u"av|v|v|"_s);
    QCOMPARE(saved().count("<mc:AlternateContent>"), 1);
    QVERIFY(!saved().contains("fldChar"));
}

void TestKMSWord::brokenFieldsStay_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("filled");
    QTest::addColumn<QString>("shown");
    const QByteArray good = D::complex("MERGEFIELD F", "x");
    const QByteArray open = D::mark("begin") + D::code("MERGEFIELD F") + D::mark("separate") + D::runs("open");
    const QByteArray cell = "<w:tbl><w:tr><w:tc>" + D::paragraph(open) + "</w:tc><w:tc>" + D::paragraph(D::mark("end") + good)
        + "</w:tc></w:tr></w:tbl>";
    QTest::newRow("no end, then a good one") << D::paragraph(open) + D::paragraph(good) << 1 << u"open|v|"_s;
    QTest::newRow("an end alone") << D::paragraph(D::mark("end") + good) << 1 << u"v|"_s;
    QTest::newRow("from cell to cell") << cell << 1 << u"open|v|"_s;
    QTest::newRow("begun inside a simple one")
        << D::paragraph("<w:fldSimple w:instr=\"MERGEFIELD G\">" + open + "</w:fldSimple>" + D::mark("end") + good) << 1 << u"openv|"_s;
    QTest::newRow("an end inside a simple one within another")
        << D::paragraph(D::mark("begin") + D::code("MERGEFIELD G") + D::mark("separate") + "<w:fldSimple w:instr=\"MERGEFIELD F\">" + D::mark("end")
                        + D::runs("x") + "</w:fldSimple>" + D::runs("y") + D::mark("end"))
        << 1 << u"vy|"_s;
    QTest::newRow("another name") << D::paragraph(D::complex("MERGEFIELD Other", "stays")) << 0 << u"stays|"_s;
    QTest::newRow("no name") << D::paragraph(D::complex("MERGEFIELD \\* Upper", "stays")) << 0 << u"stays|"_s;
    QTest::newRow("another kind") << D::paragraph(D::complex("PAGE F", "stays") + D::simple("MERGEFIELDS F", "too")) << 0
                                  << u"staystoo|"_s;
    QTest::newRow("deleted text") << D::paragraph("<w:del>" + D::mark("begin") + D::code("MERGEFIELD F") + D::mark("end") + "</w:del>" + good) << 1
                                  << u"v|"_s;
}

void TestKMSWord::brokenFieldsStay()
{
    QFETCH(QByteArray, body);
    fill(DocxMaker(body), {u"F"_s}, {u"v"_s});
    QTEST(m_filled, "filled");
    QTEST(D::shown(m_result), "shown");
}

void TestKMSWord::fieldOverParagraphsMakesThemOne()
{
    const QByteArray body = D::paragraph("<w:pPr><w:bidi/></w:pPr>" + D::runs("a ") + D::mark("begin") + D::code("MERGEFIELD F") + D::mark("separate") + D::runs("1"))
        + D::paragraph("<w:bookmarkStart w:id=\"1\" w:name=\"b\"/>" + D::runs("2"))
        + "<w:tbl><w:tr><w:tc>" + D::paragraph(D::simple("MERGEFIELD F", "3")) + "</w:tc></w:tr></w:tbl>"
        + D::paragraph(D::runs("4") + D::mark("end") + D::runs(" b ") + D::complex("MERGEFIELD F", "5") + "<w:bookmarkEnd w:id=\"1\"/>")
        + D::paragraph(D::runs("c"));
    fill(DocxMaker(body), {u"F"_s}, {u"v"_s});
    QCOMPARE(D::shown(m_result), u"a v b v|c|"_s);
    QVERIFY(!saved().contains("w:tbl"));
    QCOMPARE(saved().count("<w:bidi/>"), 1);
    QCOMPARE(saved().count("bookmarkStart"), 1);
    QCOMPARE(saved().count("bookmarkEnd"), 1);
}

void TestKMSWord::fieldOverASectionBreakStays()
{
    const QByteArray body = D::paragraph("<w:pPr><w:sectPr/></w:pPr>" + D::mark("begin") + D::code("MERGEFIELD F") + D::mark("separate") + D::runs("1"))
        + D::paragraph(D::runs("2") + D::mark("end"));
    fill(DocxMaker(body), {u"F"_s}, {u"v"_s});
    QCOMPARE(m_filled, 0);
    QCOMPARE(D::shown(m_result), u"1|2|"_s);
}

void TestKMSWord::valueInAnInstruction_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("word");
    QTest::newRow("becomes a quoted word") << QByteArray(" IF ") << QByteArray("\"a \\\"b\\\" c\"");
    QTest::newRow("stands in quotes already") << QByteArray(" IF \"") << QByteArray("a \\\"b\\\" c");
}

void TestKMSWord::valueInAnInstruction()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, word);
    const QByteArray field = D::mark("begin") + D::code(before) + D::complex("MERGEFIELD F", "x") + D::code("=1 2 3") + D::mark("separate")
        + D::runs("old") + D::mark("end");
    fill(DocxMaker(D::paragraph(field)), {u"F"_s}, {u"a \"b\"\nc"_s});
    QCOMPARE(m_filled, 1);
    pugi::xml_document document;
    QVERIFY(document.load_string(saved().constData(), pugi::parse_full | pugi::parse_ws_pcdata));
    QByteArray instruction;
    for (const auto &node : document.select_nodes("//w:instrText"))
        instruction += node.node().text().get();
    QCOMPARE(instruction, before + word + "=1 2 3");
    // The word processor works the field out anew; what it shows until then is not ours to know.
    QCOMPARE(QByteArray(document.select_node("//w:fldChar[@w:fldCharType='begin']/@w:dirty").attribute().value()), QByteArray("true"));
    QCOMPARE(D::shown(m_result), u"old|"_s);
}

void TestKMSWord::bookmarksOutliveTheField()
{
    const QByteArray inSimple = "<w:fldSimple w:instr=\"MERGEFIELD F\"><w:bookmarkStart w:id=\"1\" w:name=\"a\"/>" + D::runs("x") + "</w:fldSimple>";
    fill(DocxMaker(D::paragraph(inSimple + "<w:bookmarkEnd w:id=\"1\"/>")), {u"F"_s}, {u"v"_s});
    QCOMPARE(D::shown(m_result), u"v|"_s);
    QCOMPARE(saved().count("bookmarkStart"), 1);
    QVERIFY(saved().indexOf("bookmarkStart") < saved().indexOf("bookmarkEnd"));
}

void TestKMSWord::otherPrefixesAreUnderstood()
{
    DocxMaker maker;
    const QByteArray document = D::wrapped("w:document", "<w:body>" + D::paragraph(D::complex("MERGEFIELD F", "x")) + "</w:body>");
    fill(maker.setPart("word/document.xml", QByteArray(document).replace("w:", "ns0:").replace("xmlns:w=", "xmlns:ns0=")), {u"F"_s},
         {u"v"_s});
    QCOMPARE(D::shown(m_result), u"v|"_s);
    QVERIFY(saved().contains("<ns0:t xml:space=\"preserve\">v</ns0:t>"));
}

void TestKMSWord::countLimitsTheLists()
{
    QVERIFY(DocxMaker(D::paragraph(D::simple("MERGEFIELD A", "a") + D::simple("MERGEFIELD B", "b"))).write(m_template));
    const QStringList names{u"A"_s, u"B"_s};
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY(word.OpenDocument(m_template, 1));
    QCOMPARE(word.SetFieldsValue(names, {u"1"_s, u"2"_s}, 0), 0);
    QCOMPARE(word.SetFieldsValue(names, {u"1"_s, u"2"_s}, -1), 0);
    QCOMPARE(word.SetFieldsValue(names, {u"1"_s, u"2"_s}, 1), 1);
    QCOMPARE(word.SetFieldsValue(names, {u"1"_s}, 9), 0);
    QCOMPARE(word.GetFields().GetNames(), QStringList{u"B"_s});
}

void TestKMSWord::batchesFollowOneAnother()
{
    const QByteArray body = D::paragraph(D::complex("MERGEFIELD NC", "x") + D::runs("/") + D::complex("MERGEFIELD N", "x") + D::runs("/")
                                         + D::complex("MERGEFIELD iCode", "x") + D::runs("/") + D::complex("MERGEFIELD p", "skipped"));
    QVERIFY(DocxMaker(body).write(m_template));
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY(word.OpenDocument(m_template, 1));
    QCOMPARE(word.SetFieldsValue({u"NC"_s, u"iCode"_s}, {u"1"_s, u"7"_s}, 2), 2);
    QCOMPARE(word.SetFieldsValue({u"N"_s, u"iCode"_s}, {u"2"_s, u"8"_s}, 2), 1);
    QVERIFY(word.SaveAs(m_result));
    QCOMPARE(D::shown(m_result), u"1/2/7/skipped|"_s);
    QVERIFY(saved().contains("MERGEFIELD p"));
}

void TestKMSWord::fillingAgainChangesNothing()
{
    DocxMaker maker(D::paragraph(D::complex("MERGEFIELD F", "x") + D::complex("MERGEFIELD Other", "y")));
    fill(maker.addTextPart("header", D::paragraph(D::simple("MERGEFIELD F", "x"))), {u"F"_s}, {u"MERGEFIELD F"_s});
    const QByteArray body = saved();
    const QByteArray header = saved("word/header1.xml");
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY(word.OpenDocument(m_result, 0));
    QCOMPARE(word.SetFieldsValue({u"F"_s}, {u"another"_s}, 1), 0);
    QVERIFY(word.SaveAs(m_result));
    QCOMPARE(saved(), body);
    QCOMPARE(saved("word/header1.xml"), header);
}

void TestKMSWord::mailMergeSourceGoes()
{
    const QByteArray relationship = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/";
    DocxMaker maker(D::paragraph(D::complex("MERGEFIELD F", "x")));
    maker.setPart("word/settings.xml", D::wrapped("w:settings", "<w:zoom w:percent=\"100\"/><w:mailMerge><w:mainDocumentType w:val=\"formLetters\"/><w:dataType w:val=\"native\"/><w:query w:val=\"SELECT * FROM `Office`\"/><w:dataSource r:id=\"rId1\"/><w:odso><w:src r:id=\"rId2\"/><w:recipientData r:id=\"rId3\"/></w:odso></w:mailMerge><w:rtlGutter/>"),
                  "application/vnd.openxmlformats-officedocument.wordprocessingml.settings+xml");
    maker.setPart("word/recipientData.xml", D::wrapped("w:recipients", ""), "application/vnd.openxmlformats-officedocument.wordprocessingml.mailMergeRecipientData+xml");
    maker.setPart("word/_rels/settings.xml.rels", "<Relationships xmlns=\"http://schemas.openxmlformats.org/package/2006/relationships\"><Relationship Id=\"rId1\" Type=\"" + relationship + "mailMergeSource\" Target=\"file:///C:/people.accdb\" TargetMode=\"External\"/><Relationship Id=\"rId2\" Type=\"" + relationship + "mailMergeHeaderSource\" Target=\"file:///C:/head.accdb\" TargetMode=\"External\"/><Relationship Id=\"rId3\" Type=\"" + relationship + "recipientData\" Target=\"recipientData.xml\"/><Relationship Id=\"rId4\" Type=\"" + relationship + "attachedTemplate\" Target=\"file:///C:/Normal.dotm\" TargetMode=\"External\"/></Relationships>");
    maker.addRelationship(relationship + "settings", "settings.xml");
    fill(maker, {}, {});
    QVERIFY(!saved("word/settings.xml").contains("mailMerge"));
    QVERIFY(saved("word/settings.xml").contains("<w:zoom w:percent=\"100\"/><w:rtlGutter/>"));
    const QByteArray relationships = saved("word/_rels/settings.xml.rels");
    QVERIFY(!relationships.contains("ccdb"));
    QVERIFY(!relationships.contains("recipientData"));
    QVERIFY(relationships.contains("attachedTemplate"));
    QVERIFY(!D::partNames(m_result).contains("word/recipientData.xml"));
    QVERIFY(!saved("[Content_Types].xml").contains("recipientData"));
    QVERIFY(saved("[Content_Types].xml").contains("settings+xml"));
}

static const RegisteredTest<TestKMSWord, QCoreApplication> registeredKMSWord;
#include "TestKMSWord.moc"
