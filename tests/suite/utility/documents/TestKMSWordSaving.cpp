// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/documents/KMSWord.h"

#include "tests/suite/utility/documents/DocxMaker.h"
#include "tests/support/RegisteredTest.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

using D = DocxMaker;

// Where a document goes, and what a failure leaves behind.
class TestKMSWordSaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void folderTakesTheDocumentUnderItsOwnName_data();
    void folderTakesTheDocumentUnderItsOwnName();
    void olderFileIsReplaced();
    void templateIsNotOverwritten();
    void openedToWriteIsOverwritten();
    void missingFolder();
    void folderThatCannotBeWritten();
    void fileInPlaceOfAFolder();
    void linkIsNotFollowed();
    void newFileIsItsOwnersAlone();
    void otherPartsAreTheSame();
    void savedTwice();

private:
    QStringList files(const QString &folder) const
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    std::optional<QTemporaryDir> m_folder;
    QString m_template, m_out;
    KMSWord m_word;
};

void TestKMSWordSaving::init()
{
    m_folder.emplace();
    m_template = m_folder->filePath(u"قرارداد ۱.docx"_s);
    m_out = m_folder->filePath(u"out"_s);
    QVERIFY(QDir().mkdir(m_out));
    QVERIFY(DocxMaker(D::paragraph(D::complex("MERGEFIELD F", "x"))).setPart("word/media/image1.png", QByteArray(70'000, 'p')).write(m_template));
    QVERIFY(m_word.Init());
    QVERIFY(m_word.OpenDocument(m_template, 1));
    QCOMPARE(m_word.SetFieldsValue({u"F"_s}, {u"v"_s}, 1), 1);
}

void TestKMSWordSaving::folderTakesTheDocumentUnderItsOwnName_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("without a separator") << QString();
    QTest::newRow("with a separator") << u"/"_s;
}

void TestKMSWordSaving::folderTakesTheDocumentUnderItsOwnName()
{
    QFETCH(QString, end);
    QVERIFY2(m_word.SaveAs(m_out + end), qUtf8Printable(m_word.Failure()));
    QCOMPARE(m_word.FullName(), m_out + u"/قرارداد ۱.docx"_s);
    QCOMPARE(files(m_out), QStringList{u"قرارداد ۱.docx"_s});
    QCOMPARE(D::shown(m_word.FullName()), u"v|"_s);
    QCOMPARE(D::shown(m_template), u"x|"_s);
}

void TestKMSWordSaving::olderFileIsReplaced()
{
    const QString path = m_out + u"/a.docx"_s;
    QFile older(path);
    QVERIFY(older.open(QIODevice::WriteOnly));
    older.write("older");
    older.close();
    QVERIFY(m_word.SaveAs(path));
    QCOMPARE(D::shown(path), u"v|"_s);
    QCOMPARE(files(m_out), QStringList{u"a.docx"_s});
}

void TestKMSWordSaving::templateIsNotOverwritten()
{
    QVERIFY(!m_word.SaveAs(m_template));
    QVERIFY(!m_word.SaveAs(m_folder->path()));
    QVERIFY(!m_word.SaveAs(m_out + u"/../قرارداد ۱.docx"_s));
    QCOMPARE(D::shown(m_template), u"x|"_s);
}

void TestKMSWordSaving::openedToWriteIsOverwritten()
{
    QVERIFY(m_word.OpenDocument(m_template, 0));
    QCOMPARE(m_word.SetFieldsValue({u"F"_s}, {u"w"_s}, 1), 1);
    QVERIFY(m_word.SaveAs(m_template));
    QCOMPARE(D::shown(m_template), u"w|"_s);
}

void TestKMSWordSaving::missingFolder()
{
    QVERIFY(!m_word.SaveAs(m_out + u"/none/a.docx"_s));
    QVERIFY(!m_word.Failure().isEmpty());
    QVERIFY(files(m_out).isEmpty());
    QVERIFY(m_word.SaveAs(m_out)); // the document is still there for another place
}

// A folder that no user may write to, not even the superuser.
void TestKMSWordSaving::folderThatCannotBeWritten()
{
    const QString path = u"/proc/a.docx"_s;
    QVERIFY(!m_word.SaveAs(path));
    QVERIFY(!m_word.Failure().isEmpty());
    QVERIFY(!QFile::exists(path));
    QCOMPARE(m_word.FullName(), m_template);
}

void TestKMSWordSaving::fileInPlaceOfAFolder()
{
    QVERIFY(m_word.SaveAs(m_out + u"/a.docx"_s));
    QVERIFY(!m_word.SaveAs(m_out + u"/a.docx/b.docx"_s));
    QCOMPARE(files(m_out), QStringList{u"a.docx"_s});
}

void TestKMSWordSaving::linkIsNotFollowed()
{
    const QString victim = m_folder->filePath(u"victim"_s);
    QFile file(victim);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("mine");
    file.close();
    QVERIFY(QFile::link(victim, m_out + u"/a.docx"_s));
    QVERIFY(!m_word.SaveAs(m_out + u"/a.docx"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("mine"));
}

void TestKMSWordSaving::newFileIsItsOwnersAlone()
{
    QVERIFY(m_word.SaveAs(m_out));
    const auto others = QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ReadOther | QFileDevice::WriteOther;
    QVERIFY(!(QFileInfo(m_word.FullName()).permissions() & others));
}

void TestKMSWordSaving::otherPartsAreTheSame()
{
    QVERIFY(m_word.SaveAs(m_out));
    QCOMPARE(D::partNames(m_word.FullName()), D::partNames(m_template));
    for (const QByteArray &name : D::partNames(m_template))
        if (name != "word/document.xml")
            QCOMPARE(D::part(m_word.FullName(), name), D::part(m_template, name));
}

void TestKMSWordSaving::savedTwice()
{
    QVERIFY(m_word.SaveAs(m_out + u"/a.docx"_s));
    QVERIFY(m_word.SaveAs(m_out + u"/b.docx"_s));
    QCOMPARE(D::part(m_out + u"/a.docx"_s, "word/document.xml"), D::part(m_out + u"/b.docx"_s, "word/document.xml"));
}

static const RegisteredTest<TestKMSWordSaving, QCoreApplication> registeredKMSWordSaving;
#include "TestKMSWordSaving.moc"
