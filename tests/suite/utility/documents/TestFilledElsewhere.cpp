// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/KMSWord.h"

#include "tests/suite/utility/documents/DocxMaker.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

using D = DocxMaker;

// Another program opens what was filled here, and its own documents are filled here. Needs LibreOffice and pdftotext.
class TestFilledElsewhere : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void documentOfAnotherProgram();
    void documentWithSplitInstructions();

private:
    QString printedText(const QString &document);

    QTemporaryDir m_folder;
};

// As plain text; a hand of its own keeps the user's settings out, and lets it run beside an open one.
QString TestFilledElsewhere::printedText(const QString &document)
{
    QProcess office;
    office.start(u"soffice"_s,
                 {u"-env:UserInstallation=file://"_s + m_folder.filePath(u"profile"_s), u"--headless"_s,
                  u"--convert-to"_s, u"pdf"_s, u"--outdir"_s, m_folder.path(), document});
    if (!office.waitForFinished(120'000) || office.exitCode() != 0)
        return u"LibreOffice: "_s + office.errorString() + QString::fromLocal8Bit(office.readAllStandardError());
    QProcess reader;
    reader.start(u"pdftotext"_s,
                 {m_folder.filePath(QFileInfo(document).completeBaseName() + u".pdf"_s), u"-"_s});
    if (!reader.waitForFinished(30'000) || reader.exitCode() != 0)
        return u"pdftotext: "_s + reader.errorString() + QString::fromLocal8Bit(reader.readAllStandardError());
    return QString::fromUtf8(reader.readAllStandardOutput());
}

void TestFilledElsewhere::documentOfAnotherProgram()
{
    const QString letter = u"" TZ_TEST_SOURCE "/data/merge-letter.docx"_s;
    QVERIFY(QFile::exists(letter));
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY2(word.OpenDocument(letter, 1), qUtf8Printable(word.Failure()));
    const QStringList names{u"Name"_s, u"Family"_s, u"Amount"_s, u"sumTax1"_s,
                            u"NumOfPlates"_s, u"iCode"_s, u"Not ours"_s};
    for (const QString &name : names)
        QVERIFY2(word.GetFields().Contains(name), qUtf8Printable(name));
    const QStringList values{u"رضا"_s, u"کریمی"_s, u"1,250,000"_s, u"90,001"_s,
                             u"IR-77"_s, u"4711"_s, u"with a blank"_s};
    QCOMPARE(word.SetFieldsValue(names, values, 7), 8); // the family stands twice
    QVERIFY(word.SaveAs(m_folder.path()));
    const QString text = printedText(word.FullName());
    for (const QString &value : values)
        QVERIFY2(text.contains(value), qUtf8Printable(value + u" is not in: "_s + text));
    QVERIFY2(text.contains(u"Contract 4711"_s), qUtf8Printable(text));
    QVERIFY2(!text.contains(u'<'), qUtf8Printable(text)); // the other program's own sign for a field
    for (const QByteArray &part : D::partNames(word.FullName()))
        QVERIFY2(!D::part(word.FullName(), part).contains("MERGEFIELD"), part.constData());
}

void TestFilledElsewhere::documentWithSplitInstructions()
{
    const QString path = m_folder.filePath(u"split.docx"_s);
    const QByteArray look = "<w:rPr><w:b/><w:rtl/></w:rPr>";
    DocxMaker maker(D::paragraph(D::runs("Plates ") + D::mark("begin", look) + D::code(" MERGEF", look) + D::code("IELD Num", look)
                                 + D::code("OfPlates \\* MERGEFOR", look) + D::code("MAT ", look) + D::mark("separate", look) + D::runs("«Num")
                                 + D::runs("OfPlates»") + D::mark("end", look) + D::runs(" end")));
    QVERIFY(maker.write(path));
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY(word.OpenDocument(path, 1));
    QCOMPARE(word.SetFieldsValue({u"NumOfPlates"_s}, {u"IR-77\n12-345"_s}, 1), 1);
    QVERIFY(QDir(m_folder.path()).mkdir(u"out"_s));
    QVERIFY(word.SaveAs(m_folder.filePath(u"out"_s)));
    const QString text = printedText(word.FullName());
    QVERIFY2(text.contains(u"Plates IR-77\n12-345 end"_s), qUtf8Printable(text));
}

static const RegisteredTest<TestFilledElsewhere, QCoreApplication> registeredFilledElsewhere;
#include "TestFilledElsewhere.moc"
