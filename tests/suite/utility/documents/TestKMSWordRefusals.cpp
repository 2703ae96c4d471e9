// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/KMSWord.h"

#include "tests/suite/utility/documents/DocxMaker.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using D = DocxMaker;

namespace {

// Puts other bytes of the same length wherever they stand: names and sizes in the zip's own tables.
QByteArray patched(QByteArray zip, const QByteArray &from, const QByteArray &to)
{
    return zip.replace(from, to);
}

QByteArray nested(const QByteArray &element, int depth)
{
    return ("<w:" + element + ">").repeated(depth) + ("</w:" + element + ">").repeated(depth);
}

QByteArray utf16(const QByteArray &xml)
{
    const QString text = QString::fromUtf8(xml);
    return QByteArray("\xFF\xFE") + QByteArray(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
}

QByteArray document(const QByteArray &before)
{
    return before + D::wrapped("w:document", "<w:body><w:p/></w:body>").mid(D::wrapped("w:document", {}).indexOf('\n') + 1);
}

QByteArray declaredSmaller(qint64 size)
{
    // The bomb says that it holds a hundred bytes, in the local header and in the directory.
    QByteArray zip = DocxMaker().setPart("word/media/bomb.bin", QByteArray(size, '\0')).zip();
    const quint32 real = static_cast<quint32>(size), said = 100;
    return zip.replace(QByteArray(reinterpret_cast<const char *>(&real), 4), QByteArray(reinterpret_cast<const char *>(&said), 4));
}

} // namespace

// Files that are no documents, or that could harm: nothing of them is opened, and nothing is written.
class TestKMSWordRefusals : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refused_data();
    void refused();
    void takenThoughUnusual_data();
    void takenThoughUnusual();
    void aFolderIsNoDocument();
    void aMissingFileIsNoDocument();
    void withoutInitNothingOpens();
    void aRefusalClosesWhatWasOpen();

private:
    QTemporaryDir m_folder;
};

void TestKMSWordRefusals::refused_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char *name, const QByteArray &file, const char *reason) {
        QTest::newRow(name) << file << QString::fromLatin1(reason);
    };
    row("empty", {}, "no zip");
    row("text", "Dear Mr", "no zip");
    row("an old document", QByteArray::fromHex("d0cf11e0a1b11ae1") + QByteArray(4096, '\0'), "no zip");
    row("a zip that breaks off", DocxMaker().zip().left(500), "no zip");
    row("a program with a zip behind it", "MZ" + DocxMaker().zip(), "no zip");
    row("encrypted", DocxMaker().encrypt("word/document.xml").zip(), "encrypted");
    row("absolute name", DocxMaker().setPart("/etc/cron.d/x", "x").zip(), "leads out");
    row("name that climbs out", DocxMaker().setPart("word/../../x", "x").zip(), "leads out");
    row("name that climbs out from the start", DocxMaker().setPart("../x", "x").zip(), "leads out");
    row("name that climbs out by backslashes", DocxMaker().setPart("word\\..\\..\\x", "x").zip(), "leads out");
    row("name with a drive", DocxMaker().setPart("C:/x", "x").zip(), "leads out");
    row("the same name twice", patched(DocxMaker().setPart("word/documenu.xml", "<a/>").zip(), "word/documenu.xml", "word/document.xml"), "stands twice");
    row("the same name twice but for case", DocxMaker().setPart("word/Document.xml", "<a/>").zip(), "stands twice");
    row("document type", DocxMaker().setPart("word/document.xml", document("<!DOCTYPE w:document [<!ENTITY a \"b\">]>")).zip(), "document type declaration");
    row("document type from elsewhere", DocxMaker().setPart("word/document.xml", document("<!DOCTYPE d SYSTEM \"file:///etc/passwd\">")).zip(), "document type declaration");
    row("document type in UTF-16", DocxMaker().setPart("word/document.xml", utf16(document("<!DOCTYPE d>"))).zip(), "document type declaration");
    row("document type in relationships", DocxMaker().setPart("_rels/.rels", "<!DOCTYPE d><Relationships/>").zip(), "document type declaration");
    row("document type in the content types", DocxMaker().setPart("[Content_Types].xml", "<!DOCTYPE d><Types/>").zip(), "document type declaration");
    row("document type in a part of no use", DocxMaker().setPart("customXml/item1.xml", "<!DOCTYPE d><d/>").zip(), "document type declaration");
    row("document type in a part that is XML by its type alone", DocxMaker().setPart("word/x.dat", "<!DOCTYPE d><d/>", "application/x+xml").zip(), "document type declaration");
    row("an encoding that hides", DocxMaker().setPart("word/document.xml", document("<?xml version=\"1.0\" encoding=\"UTF-7\"?>")).zip(), "encoding");
    row("no XML", DocxMaker().setPart("word/document.xml", "<w:document><w:body>").zip(), "unreadable XML");
    row("macros", DocxMaker().setPart("word/vbaProject.bin", "x").zip(), "macros");
    row("macros under another name", DocxMaker().setPart("word/x.bin", "x", "application/vnd.ms-office.vbaProject").zip(), "macros");
    row("a document type for macros", DocxMaker().setPart("word/document.xml", document({}), "application/vnd.ms-word.document.macroEnabled.main+xml").zip(), "macros");
    row("over 64 MiB unpacked", DocxMaker().setPart("word/media/a.bin", QByteArray(40 << 20, '\0')).setPart("word/media/b.bin", QByteArray(30 << 20, '\0')).zip(), "too large by what it declares");
    row("over 64 MiB unpacked, and lies about it", declaredSmaller((65LL << 20) + 12345), "too large unpacked");
    row("too many elements", DocxMaker().setPart("word/x.xml", "<a>" + QByteArray("<a/>").repeated(4'000'000) + "</a>").zip(), "too many elements");
    row("too deep", DocxMaker(nested("sdt", 600)).zip(), "nested too deep");
    row("far too deep", DocxMaker(nested("a", 500'000)).zip(), "nested too deep");
    row("fields too deep", DocxMaker("<w:p>" + D::mark("begin").repeated(1000) + D::mark("end").repeated(1000) + "</w:p>").zip(), "fields nested too deep");
    row("a look too large, many times", DocxMaker("<w:p><w:r><w:rPr>" + QByteArray("<w:b/>").repeated(1000) + "</w:rPr>" + QByteArray("<w:fldChar/>").repeated(1000) + "</w:r></w:p>").zip(), "look of a run");
    row("no body", DocxMaker().removePart("word/document.xml").zip(), "no word-processor document");
    row("no relationships", DocxMaker().removePart("_rels/.rels").zip(), "no word-processor document");
    row("no content types", DocxMaker().removePart("[Content_Types].xml").zip(), "content types");
    row("a spreadsheet", DocxMaker().setPart("word/document.xml", document({}), "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml").zip(), "no word-processor document");
    DocxMaker many;
    for (int i = 0; i < 4001; ++i)
        many.setPart("x/" + QByteArray::number(i), "x");
    row("over 4,000 entries", many.zip(), "too many entries");
    QByteArray spoiled = DocxMaker(D::runs("abcdefghij").repeated(50)).zip();
    const qsizetype at = spoiled.indexOf("word/document.xml") + 60;
    spoiled[at] = static_cast<char>(spoiled.at(at) ^ 0x55);
    row("spoiled contents", spoiled, "cannot be unpacked");
}

void TestKMSWordRefusals::refused()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, reason);
    const QString path = m_folder.filePath(u"hostile.docx"_s);
    QFile hostile(path);
    QVERIFY(hostile.open(QIODevice::WriteOnly));
    QCOMPARE(hostile.write(file), file.size());
    hostile.close();
    QElapsedTimer clock;
    clock.start();
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY(!word.OpenDocument(path, 1));
    QVERIFY2(word.Failure().contains(reason), qUtf8Printable(word.Failure()));
    QVERIFY2(clock.elapsed() < 20'000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(word.GetFields().GetCount(), 0);
    QVERIFY(word.FullName().isEmpty());
    QCOMPARE(word.SetFieldsValue({u"F"_s}, {u"v"_s}, 1), 0);
    QVERIFY(!word.SaveAs(m_folder.filePath(u"result.docx"_s)));
    QCOMPARE(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"hostile.docx"_s});
}

void TestKMSWordRefusals::takenThoughUnusual_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("plain") << DocxMaker().zip();
    QTest::newRow("in UTF-16") << DocxMaker().setPart("word/document.xml", utf16(document("<?xml version=\"1.0\" encoding=\"UTF-16\"?>"))).zip();
    QTest::newRow("words of a document type in text") << DocxMaker(D::paragraph(D::runs("&lt;!DOCTYPE vbaProject.bin .."))).zip();
    QTest::newRow("names with dots and Persian letters") << DocxMaker().setPart("word/media/..تصویر...png", "x").zip();
    QTest::newRow("folders of their own") << DocxMaker().setPart("word/media/", "").zip();
    QTest::newRow("60 MiB of pictures") << DocxMaker().setPart("word/media/a.bin", QByteArray(60 << 20, '\0')).zip();
    QTest::newRow("tables in tables") << DocxMaker(nested("tbl", 300)).zip();
    QTest::newRow("a body of another name") << DocxMaker()
                                                   .removePart("word/document.xml")
                                                   .setPart("word/document2.xml", document({}), "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml")
                                                   .setPart("_rels/.rels", "<Relationships><Relationship Id=\"r\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument\" Target=\"/word/document2.xml\"/></Relationships>")
                                                   .zip();
}

void TestKMSWordRefusals::takenThoughUnusual()
{
    QFETCH(QByteArray, file);
    const QString path = m_folder.filePath(u"good.docx"_s);
    QFile good(path);
    QVERIFY(good.open(QIODevice::WriteOnly));
    QCOMPARE(good.write(file), file.size());
    good.close();
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY2(word.OpenDocument(path, 1), qUtf8Printable(word.Failure()));
    QVERIFY2(word.SaveAs(m_folder.filePath(u"copy.docx"_s)), qUtf8Printable(word.Failure()));
    QVERIFY2(word.OpenDocument(m_folder.filePath(u"copy.docx"_s), 1), qUtf8Printable(word.Failure()));
    word.Close();
    QVERIFY(QFile::remove(path));
    QVERIFY(QFile::remove(m_folder.filePath(u"copy.docx"_s)));
}

void TestKMSWordRefusals::aFolderIsNoDocument()
{
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY(!word.OpenDocument(m_folder.path(), 1));
}

void TestKMSWordRefusals::aMissingFileIsNoDocument()
{
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY(!word.OpenDocument(m_folder.filePath(u"none.docx"_s), 1));
    QVERIFY(!word.OpenDocument(QString(), 1));
}

void TestKMSWordRefusals::withoutInitNothingOpens()
{
    const QString path = m_folder.filePath(u"plain.docx"_s);
    QVERIFY(DocxMaker().write(path));
    KMSWord word;
    QVERIFY(!word.OpenDocument(path, 1));
    QVERIFY(word.Init());
    QVERIFY(word.OpenDocument(path, 1));
    word.Quit();
    QVERIFY(word.FullName().isEmpty());
    QVERIFY(!word.OpenDocument(path, 1));
}

void TestKMSWordRefusals::aRefusalClosesWhatWasOpen()
{
    const QString path = m_folder.filePath(u"plain.docx"_s);
    QVERIFY(DocxMaker().write(path));
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY(word.OpenDocument(path, 1));
    QVERIFY(!word.OpenDocument(m_folder.path(), 1));
    QVERIFY(!word.SaveAs(m_folder.filePath(u"result.docx"_s)));
    QVERIFY(!QFile::exists(m_folder.filePath(u"result.docx"_s)));
}

static const RegisteredTest<TestKMSWordRefusals, QCoreApplication> registeredKMSWordRefusals;
#include "TestKMSWordRefusals.moc"
