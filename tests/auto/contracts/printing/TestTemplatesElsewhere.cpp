// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractFilling.h"
#include "auto/contracts/printing/TemplateCheck.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/utility/documents/KMSWord.h"
#include "tests/auto/contracts/printing/DocxParts.h"
#include "tests/auto/contracts/printing/PrintedContracts.h"
#include "tests/support/RegisteredTest.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

void run(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    QVERIFY2(process.waitForFinished(120'000) && process.exitCode() == 0, process.readAllStandardError().constData());
}

}

// Templates with the marks, written by other programs. Needs LibreOffice, pdftotext and python3-docx.
class TestTemplatesElsewhere : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    QTemporaryDir m_folder;

    QString path(const QString &name) const { return m_folder.filePath(name); }
    void convert(const QString &file, const QString &format)
    {
        run(u"soffice"_s, {u"-env:UserInstallation=file://"_s + path(u"profile"_s), u"--headless"_s, u"--convert-to"_s, format, u"--outdir"_s, m_folder.path(), file});
    }
    void makeTemplate(bool byLibreOffice)
    {
        QFile::remove(path(u"template.docx"_s));
        const QString kind = byLibreOffice ? u"fodt"_s : u"docx"_s;
        run(u"/usr/bin/python3"_s, {u"-B"_s, u"" TZ_SCRIPTS "/office_template.py"_s, kind, path(u"template."_s + kind)});
        if (byLibreOffice)
            convert(path(u"template.fodt"_s), u"docx:MS Word 2007 XML"_s);
        QVERIFY(QFile::exists(path(u"template.docx"_s)));
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void templateOfAnotherProgramIsFilled_data()
    {
        QTest::addColumn<bool>("byLibreOffice");
        QTest::addColumn<int>("type");
        QTest::newRow("LibreOffice, sale") << true << 0;
        QTest::newRow("LibreOffice, rent") << true << 1;
        QTest::newRow("LibreOffice, instalment sale") << true << 2;
        QTest::newRow("python-docx, sale") << false << 0;
        QTest::newRow("python-docx, rent") << false << 1;
        QTest::newRow("python-docx, instalment sale") << false << 2;
    }

    void templateOfAnotherProgramIsFilled()
    {
        QFETCH(bool, byLibreOffice);
        QFETCH(int, type);
        m_office->clear();
        makeTemplate(byLibreOffice);
        QFile file(path(u"template.docx"_s));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const TemplateCheck check = TemplateCheck::of(file.readAll(), type);
        QVERIFY2(check.isUsable(), qUtf8Printable(check.refusal));
        QVERIFY2(check.isClean(), qUtf8Printable((check.unknown + check.hidden + check.unpaired).join(u' ')));

        const int key = PrintedContracts::add(*m_office, type, [](CTblAutomobilContracts &c) {
            c.m_sVIN.clear();
            c.m_sRentTime.clear();
        });
        if (type == 2)
            PrintedContracts::addPlan(*m_office, key);
        CTblAutomobilContracts contract;
        QVERIFY(contract.IsRecordExist(u"iID"_s, key));
        KMSWord word;
        QVERIFY(word.Init() && word.OpenDocument(path(u"template.docx"_s), 1));
        ContractFilling::fill(word, contract);
        QCOMPARE(word.GetFields().GetCount(), 0);
        QVERIFY(word.SaveAs(path(u"filled.docx"_s)));
        convert(path(u"filled.docx"_s), u"pdf"_s);
        run(u"pdftotext"_s, {u"-layout"_s, path(u"filled.pdf"_s), path(u"filled.txt"_s)});
        QFile output(path(u"filled.txt"_s));
        QVERIFY(output.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(output.readAll());

        const auto says = [&](const QString &words) { return text.contains(words); };
        for (const QString &words : {u"Amount 12,850,000,000"_s, u"Colour"_s, u"Signed 1284567"_s, u"Header"_s, u"Letterhead"_s})
            QVERIFY2(says(words), qUtf8Printable(text));
        QVERIFY2(!says(u"VIN"_s), qUtf8Printable(text));
        QCOMPARE(says(u"Delay 5,250,000 a day."_s), type == 2);
        QCOMPARE(says(u"Delay"_s), type == 2);
        QCOMPARE(says(u"delay"_s), type == 2);
        QCOMPARE(says(u"Rent 910,000,000 without a period."_s), type == 1);
        QCOMPARE(says(u"Rent"_s), type == 1);
        QCOMPARE(says(u"Plan of 3"_s), type == 2);
        for (const QString &words : {u"Number"_s, u"610,000,001"_s, u"610,000,002"_s, u"610,000,003"_s, u"1405/11/01"_s})
            QCOMPARE(says(words), type == 2);
        QVERIFY2(!says(u"If_"_s) && !says(u"EndIf"_s) && !says(u"<"_s), qUtf8Printable(text));
    }
};

static const RegisteredTest<TestTemplatesElsewhere, KApplication> registeredTemplatesElsewhere;

#include "TestTemplatesElsewhere.moc"
