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
    office.start(QStringLiteral("soffice"),
                 {QStringLiteral("-env:UserInstallation=file://") + m_folder.filePath(QStringLiteral("profile")), QStringLiteral("--headless"),
                  QStringLiteral("--convert-to"), QStringLiteral("pdf"), QStringLiteral("--outdir"), m_folder.path(), document});
    if (!office.waitForFinished(120'000) || office.exitCode() != 0)
        return QStringLiteral("LibreOffice: ") + office.errorString() + QString::fromLocal8Bit(office.readAllStandardError());
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"),
                 {m_folder.filePath(QFileInfo(document).completeBaseName() + QStringLiteral(".pdf")), QStringLiteral("-")});
    if (!reader.waitForFinished(30'000) || reader.exitCode() != 0)
        return QStringLiteral("pdftotext: ") + reader.errorString() + QString::fromLocal8Bit(reader.readAllStandardError());
    return QString::fromUtf8(reader.readAllStandardOutput());
}

void TestFilledElsewhere::documentOfAnotherProgram()
{
    const QString letter = QStringLiteral(TZ_TEST_SOURCE "/data/merge-letter.docx");
    QVERIFY(QFile::exists(letter));
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY2(word.OpenDocument(letter, 1), qUtf8Printable(word.Failure()));
    const QStringList names{QStringLiteral("Name"), QStringLiteral("Family"), QStringLiteral("Amount"), QStringLiteral("sumTax1"),
                            QStringLiteral("NumOfPlates"), QStringLiteral("iCode"), QStringLiteral("Not ours")};
    for (const QString &name : names)
        QVERIFY2(word.GetFields().Contains(name), qUtf8Printable(name));
    const QStringList values{QStringLiteral("رضا"), QStringLiteral("کریمی"), QStringLiteral("1,250,000"), QStringLiteral("90,001"),
                             QStringLiteral("IR-77"), QStringLiteral("4711"), QStringLiteral("with a blank")};
    QCOMPARE(word.SetFieldsValue(names, values, 7), 8); // the family stands twice
    QVERIFY(word.SaveAs(m_folder.path()));
    const QString text = printedText(word.FullName());
    for (const QString &value : values)
        QVERIFY2(text.contains(value), qUtf8Printable(value + QStringLiteral(" is not in: ") + text));
    QVERIFY2(text.contains(QStringLiteral("Contract 4711")), qUtf8Printable(text));
    QVERIFY2(!text.contains(u'<'), qUtf8Printable(text)); // the other program's own sign for a field
    for (const QByteArray &part : D::partNames(word.FullName()))
        QVERIFY2(!D::part(word.FullName(), part).contains("MERGEFIELD"), part.constData());
}

void TestFilledElsewhere::documentWithSplitInstructions()
{
    const QString path = m_folder.filePath(QStringLiteral("split.docx"));
    const QByteArray look = "<w:rPr><w:b/><w:rtl/></w:rPr>";
    DocxMaker maker(D::paragraph(D::runs("Plates ") + D::mark("begin", look) + D::code(" MERGEF", look) + D::code("IELD Num", look)
                                 + D::code("OfPlates \\* MERGEFOR", look) + D::code("MAT ", look) + D::mark("separate", look) + D::runs("«Num")
                                 + D::runs("OfPlates»") + D::mark("end", look) + D::runs(" end")));
    QVERIFY(maker.write(path));
    KMSWord word;
    QVERIFY(word.Init());
    QVERIFY(word.OpenDocument(path, 1));
    QCOMPARE(word.SetFieldsValue({QStringLiteral("NumOfPlates")}, {QStringLiteral("IR-77\n12-345")}, 1), 1);
    QVERIFY(QDir(m_folder.path()).mkdir(QStringLiteral("out")));
    QVERIFY(word.SaveAs(m_folder.filePath(QStringLiteral("out"))));
    const QString text = printedText(word.FullName());
    QVERIFY2(text.contains(QStringLiteral("Plates IR-77\n12-345 end")), qUtf8Printable(text));
}

static const RegisteredTest<TestFilledElsewhere, QCoreApplication> registered;
#include "TestFilledElsewhere.moc"
