// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractFilingDialogs.h"
#include "auto/contracts/printing/FiledContract.h"
#include "auto/contracts/receipts/ContractDeleting.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/bin/Bin.h"
#include "suite/accounting/bin/BinRestoring.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/conversion/PdfConversion.h"
#include "tests/auto/contracts/printing/PrintedContracts.h"
#include "tests/suite/utility/documents/DocxMaker.h"
#include "tests/support/FaultProxy.h"
#include "tests/support/RegisteredTest.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString contractForm = u"AutomobilContracts"_s;

// Nothing where it was taken.
QString refusedBy(const std::function<void()> &work)
{
    try {
        work();
    } catch (const KAccountingError &error) {
        return error.userMessage();
    }
    return {};
}

QString pdfText(const QByteArray &pdf, const QString &folder)
{
    QFile file(folder + u"/read.pdf"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write(pdf) != pdf.size())
        return {};
    file.close();
    QProcess reader;
    reader.start(u"pdftotext"_s, {file.fileName(), u"-"_s});
    return reader.waitForFinished() ? QString::fromUtf8(reader.readAllStandardOutput()) : QString();
}

}

// The paper as it was handed over, whatever becomes of the contract.
class TestFiledContract : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    std::unique_ptr<QTemporaryDir> m_folder;

    QString value(const QString &sql) { return m_office->database().value(sql); }
    // Versions and attached files of all contracts.
    QString standing() { return value(u"SELECT CONCAT((SELECT COUNT(*) FROM FiledPapers),' ',(SELECT COUNT(*) FROM FileDocs))"_s); }

    ContractFilingDialogs::Options options(const QString &program = {})
    {
        return {.places = {u"" TZ_TEMPLATES ""_s, m_folder->path()}, .program = program, .opens = false};
    }

    // A word processor that does this instead. $folder and $document are what it is asked for.
    QString processor(const QString &does)
    {
        QFile script(m_folder->filePath(u"processor.sh"_s));
        if (!script.open(QIODevice::WriteOnly))
            return {};
        script.write("#!/bin/sh\nfor last; do document=$last; done\nfolder=$(dirname \"$document\")\npdf=${document%.*}.pdf\n" + does.toUtf8() + '\n');
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return script.fileName();
    }
    QString writesPdf() { return processor(u"printf '%%PDF-1.6\\n%%%%EOF\\n' > \"$pdf\""_s); }

    FiledContract::Stamp stampOf(int contract)
    {
        CTblAutomobilContracts row;
        row.IsRecordExist(u"iID"_s, contract);
        return FiledContract::stamp(row);
    }
    QString noticeOf(int contract)
    {
        CTblAutomobilContracts row;
        row.IsRecordExist(u"iID"_s, contract);
        return FiledContract::notice(row);
    }
    QString somePdf()
    {
        QFile file(m_folder->filePath(u"قرارداد.pdf"_s));
        return file.open(QIODevice::WriteOnly) && file.write("%PDF-1.6\n%%EOF\n") > 0 ? file.fileName() : QString();
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void init()
    {
        m_office->clear();
        m_office->logInAsAdmin();
        for (const char *table : {"FiledPapers", "FileDocs", "Templates", "Bin", "BinRows"})
            m_office->database().run(u"DELETE FROM "_s + QLatin1String(table));
        m_folder = std::make_unique<QTemporaryDir>();
        g_pDlgWarning->takeShown();
        g_pDlgMessage->takeShown();
        g_pDlgYesNo->takeShown();
    }

    // By the real word processor, read back from outside.
    void paperSaysItsVersionAndHash()
    {
        const int contract = PrintedContracts::add(*m_office, 0);
        const QString hash = stampOf(contract).hash;
        QVERIFY2(ContractFilingDialogs::run(contract, nullptr, options()), qPrintable(g_pDlgWarning->takeShown().join(u'\n')));
        QCOMPARE(g_pDlgMessage->takeShown(), QStringList{u"نسخه 1 قرارداد با پرونده‌های عمومی آن بایگانی شد."_s});
        QCOMPARE(standing(), u"1 1"_s);
        QCOMPARE(value(u"SELECT sName FROM FileDocs"_s), u"قرارداد %1 نسخه 1.pdf"_s.arg(value(u"SELECT iCode FROM AutomobilContracts"_s)));
        QCOMPARE(value(u"SELECT SHA2(oData,256)=sFileHash AND iTable=69 AND iRecordID=%1 FROM FiledPapers JOIN FileDocs USING(iTable,iRecordID) WHERE iFileDocID=FileDocs.iID"_s.arg(contract)), u"1"_s);
        QCOMPARE(value(u"SELECT sValuesHash FROM FiledPapers"_s), hash);
        const QByteArray pdf = QByteArray::fromHex(value(u"SELECT HEX(oData) FROM FileDocs"_s).toLatin1());
        const QString text = pdfText(pdf, m_folder->path());
        QVERIFY2(text.contains(u"SHA-256 "_s + hash), qPrintable(text));
        QVERIFY2(text.contains(u"نسخه"_s) || text.contains(u"ﻧﺴﺨﻪ"_s) || text.contains(u"هخسن"_s), qPrintable(text));
        QCOMPARE(noticeOf(contract), QString());
    }

    // An office's template has footers or none, for the first page or even ones alone: whichever page is shown says what it belongs to.
    void everyPageSaysTheHash_data()
    {
        const QByteArray end = "<w:sectPr>%1<w:pgSz w:w=\"8391\" w:h=\"11906\"/><w:pgMar w:top=\"850\" w:right=\"850\" w:bottom=\"850\" w:left=\"850\" w:header=\"400\" w:footer=\"400\" w:gutter=\"0\"/></w:sectPr>";
        const QByteArray own = "<w:footerReference w:type=\"default\" r:id=\"r0\"/>";
        const QByteArray between = DocxMaker::paragraph("</w:p><w:p><w:pPr>" + QByteArray(end).replace("%1", "") + "</w:pPr>");
        QTest::addColumn<QByteArray>("middle");
        QTest::addColumn<QByteArray>("section");
        QTest::addColumn<bool>("hasFooter");
        QTest::addColumn<QByteArray>("settings");
        const QByteArray none = QByteArray(end).replace("%1", "");
        QTest::newRow("no footer") << QByteArray() << none << false << QByteArray();
        QTest::newRow("nothing about its pages") << QByteArray() << QByteArray() << false << QByteArray();
        QTest::newRow("a footer") << QByteArray() << QByteArray(end).replace("%1", own) << true << QByteArray();
        QTest::newRow("a footer that nothing shows") << QByteArray() << none << true << QByteArray();
        QTest::newRow("none on the first page") << QByteArray() << QByteArray(end).replace("%1", own).replace("</w:sectPr>", "<w:titlePg/></w:sectPr>") << true << QByteArray();
        QTest::newRow("none on even pages") << QByteArray() << QByteArray(end).replace("%1", own) << true << QByteArray("<w:evenAndOddHeaders/>");
        QTest::newRow("two sections without one") << between << none << false << QByteArray();
        QTest::newRow("one in the second section alone") << between << QByteArray(end).replace("%1", own) << true << QByteArray();
    }
    void everyPageSaysTheHash()
    {
        QFETCH(QByteArray, middle);
        QFETCH(QByteArray, section);
        QFETCH(bool, hasFooter);
        QFETCH(QByteArray, settings);
        QByteArray body;
        for (int i = 0; i < 110; ++i)
            body += (i == 55 ? middle : QByteArray()) + DocxMaker::paragraph(DocxMaker::runs("line " + QByteArray::number(i)));
        DocxMaker maker{QByteArray()};
        if (hasFooter)
            maker.addTextPart("footer", DocxMaker::paragraph(DocxMaker::runs("OWN")));
        if (!settings.isEmpty()) {
            maker.addRelationship("http://schemas.openxmlformats.org/officeDocument/2006/relationships/settings", "settings.xml");
            maker.setPart("word/settings.xml", DocxMaker::wrapped("w:settings", settings), "application/vnd.openxmlformats-officedocument.wordprocessingml.settings+xml");
        }
        QByteArray document = DocxMaker::wrapped("w:document", "<w:body>" + body + section + "</w:body>");
        if (!document.contains("xmlns:r="))
            document.replace("<w:document ", "<w:document xmlns:r=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships\" ");
        maker.setPart("word/document.xml", document);
        const QDir templates(m_folder->filePath(u"templates"_s));
        QVERIFY(templates.mkpath(u"."_s) && maker.write(templates.filePath(ContractPrinting::templateName(0))));
        const int contract = PrintedContracts::add(*m_office, 0);
        const QString hash = stampOf(contract).hash;
        ContractFilingDialogs::Options own = options();
        own.places.templates = templates.path();
        QVERIFY2(ContractFilingDialogs::run(contract, nullptr, own), qPrintable(g_pDlgWarning->takeShown().join(u'\n')));
        const QString text = pdfText(QByteArray::fromHex(value(u"SELECT HEX(oData) FROM FileDocs"_s).toLatin1()), m_folder->path());
        const qsizetype pages = text.count(u'\f');
        QVERIFY2(pages > 1, qPrintable(text));
        // On narrow paper the hash has a line of its own.
        const QStringList each = text.split(u'\f');
        for (qsizetype page = 0; page < pages; ++page)
            QVERIFY2(each.at(page).count(hash) == 1, qPrintable(text));
    }

    void laterChangeIsToldAtTheNextPrint()
    {
        const int contract = PrintedContracts::add(*m_office, 0);
        QVERIFY(ContractFilingDialogs::run(contract, nullptr, options(writesPdf())));
        m_office->database().run(u"UPDATE AutomobilContracts SET dAmount=dAmount+1"_s);
        const QString notice = noticeOf(contract);
        QVERIFY2(notice.startsWith(u"این قرارداد پس از نسخه 1"_s) && notice.contains(u"مبلغ"_s), qPrintable(notice));
        g_pDlgMessage->takeShown();
        QVERIFY(ContractFilingDialogs::run(contract, nullptr, options(writesPdf())));
        QCOMPARE(g_pDlgMessage->takeShown(), (QStringList{notice, u"نسخه 2 قرارداد با پرونده‌های عمومی آن بایگانی شد."_s}));
        QCOMPARE(noticeOf(contract), QString());
        // What no paper says changes nothing.
        m_office->database().run(u"UPDATE AutomobilContracts SET iArchiveUserID=1"_s);
        QCOMPARE(noticeOf(contract), QString());
        m_office->database().run(u"INSERT INTO AutomobilPayments(iAutomobilContractID,iNum,dAmount,date) VALUES(%1,1,5,NOW())"_s.arg(contract));
        QVERIFY2(noticeOf(contract).contains(u"اقساط"_s), qPrintable(noticeOf(contract)));
    }

    void filingTheSameTwiceIsAsked()
    {
        const int contract = PrintedContracts::add(*m_office, 0);
        QVERIFY(ContractFilingDialogs::run(contract, nullptr, options(writesPdf())));
        g_pDlgYesNo->answerNext(KMessageDialog::No);
        QVERIFY(!ContractFilingDialogs::run(contract, nullptr, options(writesPdf())));
        QCOMPARE(g_pDlgYesNo->takeShown().size(), 1);
        QCOMPARE(standing(), u"1 1"_s);
        g_pDlgYesNo->answerNext(KMessageDialog::Yes);
        QVERIFY(ContractFilingDialogs::run(contract, nullptr, options(writesPdf())));
        QCOMPARE(standing(), u"2 2"_s);
    }

    void processorThatFailsFilesNothing_data()
    {
        QTest::addColumn<QString>("does");
        QTest::newRow("ends with an error") << u"exit 3"_s;
        QTest::newRow("writes nothing") << u"true"_s;
        QTest::newRow("dies half-way") << u"printf '%%PDF-1.6\\nhalf' > \"$pdf\"; kill -9 $$"_s;
        QTest::newRow("writes no PDF") << u"echo text > \"$pdf\""_s;
    }

    void processorThatFailsFilesNothing()
    {
        QFETCH(QString, does);
        const int contract = PrintedContracts::add(*m_office, 0);
        QVERIFY(!ContractFilingDialogs::run(contract, nullptr, options(processor(does))));
        QCOMPARE(g_pDlgWarning->takeShown(), QStringList{u"واژه‌پرداز PDF قرارداد را نساخت و چیزی بایگانی نشد."_s});
        QCOMPARE(standing(), u"0 0"_s);
    }

    // With what it started itself.
    void processorThatHangsIsEnded()
    {
        const int contract = PrintedContracts::add(*m_office, 0);
        ContractFilingDialogs::Options hanging = options(processor(u"sleep 600 & echo $! > \"$folder/../child\"; wait"_s));
        hanging.limitMilliseconds = 1000;
        QVERIFY(!ContractFilingDialogs::run(contract, nullptr, hanging));
        const QStringList told = g_pDlgWarning->takeShown();
        QVERIFY2(told.size() == 1 && told.constFirst().contains(u"1 ثانیه"_s), qPrintable(told.join(u'\n')));
        QCOMPARE(standing(), u"0 0"_s);
        QFile child(m_folder->filePath(u"child"_s));
        QVERIFY(child.open(QIODevice::ReadOnly));
        const QString status = u"/proc/%1/cmdline"_s.arg(QString::fromLatin1(child.readAll().trimmed()));
        QTRY_VERIFY([&] { QFile left(status); return !left.open(QIODevice::ReadOnly) || !left.readAll().contains("sleep"); }());
    }

    void cancelEndsTheProcessor()
    {
        PdfConversion conversion{.document = m_folder->filePath(u"a.docx"_s), .folder = m_folder->path(), .program = processor(u"sleep 600"_s)};
        int pulses = 0;
        QVERIFY(conversion.run([&pulses](int, int) { return ++pulses < 3; }) == PdfConversion::Outcome::Cancelled);
        QCOMPARE(pulses, 3);
    }

    void missingProcessorIsNamedWithItsPackage()
    {
        const QByteArray path = qgetenv("PATH");
        const int contract = PrintedContracts::add(*m_office, 0);
        qputenv("PATH", m_folder->path().toUtf8());
        const bool filed = ContractFilingDialogs::run(contract, nullptr, options());
        qputenv("PATH", path);
        QVERIFY(!filed);
        const QStringList told = g_pDlgWarning->takeShown();
        QVERIFY2(told.size() == 1 && told.constFirst().contains(u"libreoffice-writer-nogui"_s), qPrintable(told.join(u'\n')));
        QCOMPARE(standing(), u"0 0"_s);
    }

    // Another desk was there while the PDF was made.
    void changedMeanwhileIsNotFiled()
    {
        const int contract = PrintedContracts::add(*m_office, 0);
        const FiledContract::Stamp stamp = stampOf(contract);
        const QString pdf = somePdf();
        m_office->database().run(u"UPDATE AutomobilContracts SET sDeal='دیگر'"_s);
        QVERIFY(refusedBy([&] { FiledContract::file(contract, stamp, pdf); }).contains(u"تغییر کرد"_s));
        QCOMPARE(standing(), u"0 0"_s);
        const FiledContract::Stamp again = stampOf(contract);
        QVERIFY(FiledContract::file(contract, again, pdf) > 0);
        // The same number again, of the other desk or of a button pressed twice.
        QVERIFY(refusedBy([&] { FiledContract::file(contract, again, pdf); }).contains(u"نسخه 1"_s));
        QCOMPARE(standing(), u"1 1"_s);
    }

    void deletedMeanwhileIsToldAndNotFiled()
    {
        const int contract = PrintedContracts::add(*m_office, 0);
        const FiledContract::Stamp stamp = stampOf(contract);
        m_office->database().run(u"DELETE FROM AutomobilContracts"_s);
        try {
            FiledContract::file(contract, stamp, somePdf());
            QFAIL("filed with a contract that is gone");
        } catch (const RowChanged &changed) {
            QVERIFY(changed.kind() == RowChanged::Kind::Gone);
        }
        QCOMPARE(standing(), u"0 0"_s);
    }

    void lineCutAtCommitFilesBothOrNeither_data()
    {
        QTest::addColumn<int>("fault");
        QTest::addColumn<QString>("left");
        QTest::newRow("before") << int(FaultProxy::Fault::CutBeforeCommit) << u"0 0"_s;
        QTest::newRow("after") << int(FaultProxy::Fault::CutAfterCommit) << u"1 1"_s;
    }

    void lineCutAtCommitFilesBothOrNeither()
    {
        QFETCH(int, fault);
        QFETCH(QString, left);
        const int contract = PrintedContracts::add(*m_office, 0);
        const FiledContract::Stamp stamp = stampOf(contract);
        FaultProxy proxy(m_office->database().settings());
        KConnection::configure(0, proxy.settings());
        KConnection::forThread().run(QByteArrayLiteral("SELECT 1"));
        proxy.failAtCommit(static_cast<FaultProxy::Fault>(fault));
        bool isTold = false;
        try {
            FiledContract::file(contract, stamp, somePdf());
        } catch (const CMySQLException &) {
            isTold = true;
        }
        KConnection::configure(0, m_office->database().settings());
        QCOMPARE(isTold, fault == int(FaultProxy::Fault::CutBeforeCommit));
        QCOMPARE(standing(), left);
    }

    void filingAsksTheRightToChange()
    {
        const int contract = PrintedContracts::add(*m_office, 0);
        const FiledContract::Stamp stamp = stampOf(contract);
        m_office->logInAs(u"clerk"_s, contractForm, KSecurity::allRights & ~KSecurity::Modify);
        const QString refusal = KSecurity::refusalText(contractForm, KSecurity::Modify);
        QCOMPARE(refusedBy([&] { FiledContract::file(contract, stamp, somePdf()); }), refusal);
        QCOMPARE(refusedBy([&] { stampOf(contract); }), refusal);
        QCOMPARE(standing(), u"0 0"_s);
    }

    void papersGoToTheBinAndComeBackWithTheirContract()
    {
        const int contract = PrintedContracts::add(*m_office, 0);
        QVERIFY(FiledContract::file(contract, stampOf(contract), somePdf()) > 0);
        const QString before = value(u"SELECT CONCAT_WS('|',iTable,iRecordID,iVersion,iFileDocID,sValuesHash,sValues,sFileHash) FROM FiledPapers"_s);
        CTblAutomobilContracts row;
        QVERIFY(row.IsRecordExist(u"iID"_s, contract));
        ContractDeleting::run(row);
        QCOMPARE(standing(), u"0 0"_s);
        const std::optional<Bin::Entry> entry = Bin::entryOf(contractForm, contract);
        QVERIFY(entry);
        BinRestoring::run(*entry);
        QCOMPARE(value(u"SELECT CONCAT_WS('|',iTable,iRecordID,iVersion,iFileDocID,sValuesHash,sValues,sFileHash) FROM FiledPapers"_s), before);
        QCOMPARE(noticeOf(contract), QString());
    }
};

static const RegisteredTest<TestFiledContract, KApplication> registeredFiledContract;

#include "TestFiledContract.moc"
