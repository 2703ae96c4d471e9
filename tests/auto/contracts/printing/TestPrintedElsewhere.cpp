// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractPrinting.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/persons/CompanyLogo.h"
#include "tests/auto/contracts/printing/DocxParts.h"
#include "tests/auto/contracts/printing/PrintedContracts.h"
#include "tests/support/RegisteredTest.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Output of a program; its complaint in place of it, so that a comparison shows it.
QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(120'000) || process.exitCode() != 0)
        return program + u": "_s + process.errorString() + QString::fromLocal8Bit(process.readAllStandardError());
    return QString::fromUtf8(process.readAllStandardOutput());
}

// Words as a page shows them: no marks of direction, blanks as one, presentation forms as the letters that they are.
QString plain(QString text)
{
    static const QRegularExpression marks(u"[\\x{200b}-\\x{200f}\\x{202a}-\\x{202e}\\x{2066}-\\x{2069}\\x{0640}]"_s);
    return text.normalized(QString::NormalizationForm_KC).remove(marks).simplified();
}

}

// A printed contract as another program shows it. Needs LibreOffice, pdftotext, pdfinfo and pdftoppm.
class TestPrintedElsewhere : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    QTemporaryDir m_folder;

    static void describeOffice()
    {
        CompanyDetails company;
        company.name1 = u"نمایشگاه آریا"_s;
        company.address = u"تبریز، خیابان امام، نرسیده به میدان ساعت، شماره 12"_s;
        company.telephone = u"041-33330000"_s;
        company.write();
        QImage logo(120, 90, QImage::Format_RGB32);
        logo.fill(Qt::darkGreen);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::WriteOnly) && logo.save(&buffer, "PNG"));
        CompanyLogo::save(bytes, CompanyLogo::read().id);
    }

    // Each form stays beside the tests, as a page to look at.
    static void keepToLookAt(const QString &pdf, int type)
    {
        const QString kept = u"" TZ_PRINTED "/contract-%1"_s.arg(type);
        QVERIFY(QDir().mkpath(u"" TZ_PRINTED ""_s));
        const QString output = outputOf(u"pdftoppm"_s, {u"-png"_s, u"-r"_s, u"70"_s, pdf, kept});
        QVERIFY2(output.isEmpty(), qUtf8Printable(output));
    }

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void everyValueStandsOnThePagesOfAPrintedContract_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("pages");
        QTest::newRow("sale agreement") << 0 << 2;
        QTest::newRow("rent") << 1 << 2;
        QTest::newRow("instalment sale") << 2 << 3;
        QTest::newRow("letter") << 3 << 2;
    }

    void everyValueStandsOnThePagesOfAPrintedContract()
    {
        QFETCH(int, type);
        QFETCH(int, pages);
        m_office->clear();
        QString printed;
        ContractPrinting::Dialogs dialogs;
        // A letter's template is asked for.
        dialogs.warn = [type](ContractPrinting::Trouble) { QCOMPARE(type, 3); };
        dialogs.chooseTemplate = [] { return u"" TZ_TEMPLATES "/AutoLetter.docx"_s; };
        dialogs.open = [&printed](const QString &path) {
            printed = path;
            return true;
        };
        describeOffice();
        const int contract = PrintedContracts::add(*m_office, type);
        if (type == 2)
            PrintedContracts::addPlan(*m_office, contract);
        QVERIFY(ContractPrinting(dialogs, {u"" TZ_TEMPLATES ""_s, m_folder.path()}).print(contract));
        for (const QByteArray &part : readDocx(printed))
            QVERIFY(!part.contains("MERGEFIELD"));

        outputOf(u"soffice"_s,
                 {u"-env:UserInstallation=file://"_s + m_folder.filePath(u"profile"_s),
                  u"--headless"_s, u"--convert-to"_s, u"pdf"_s, u"--outdir"_s,
                  m_folder.path(), printed});
        const QString pdf = m_folder.filePath(QFileInfo(printed).completeBaseName() + u".pdf"_s);
        keepToLookAt(pdf, type);
        const QString about = outputOf(u"pdfinfo"_s, {pdf});
        QVERIFY2(about.contains(QRegularExpression(u"Pages: +%1\n"_s.arg(pages))), qUtf8Printable(about));
        const QString text = plain(outputOf(u"pdftotext"_s, {pdf, u"-"_s}));
        // The reader takes a page in its own order, so a value is looked for word by word.
        static const QRegularExpression separators(u"[ ،]"_s);
        QStringList values = PrintedContracts::values(type) + QStringList{u"نمایشگاه آریا"_s, u"041-33330000"_s, u"تبریز"_s};
        values.removeOne(u"تهران، بزرگراه رسالت"_s); // the office's own address stands in its place
        for (const QString &value : std::as_const(values))
            for (const QString &word : plain(value).split(separators, Qt::SkipEmptyParts))
                QVERIFY2(text.contains(word), qUtf8Printable(value + u" is not in: "_s + text));
        for (const QString &value : PrintedContracts::hiddenValues(type))
            QVERIFY2(!text.contains(value), qUtf8Printable(value + u" is in: "_s + text));
        static const QRegularExpression nothing(u"(^|[^0-9,/.:])0 *(ریال|تومان)|صفر ریال|\\([ ‌]*\\)"_s);
        QVERIFY2(!text.contains(nothing), qUtf8Printable(text));
        QVERIFY(!text.contains(u'«'));
        // The reader turns a line of both directions about, so a page's numbers are compared apart from their words.
        for (int page = 1; page <= pages; ++page) {
            const QString number = QString::number(page);
            const QString foot = plain(outputOf(u"pdftotext"_s, {u"-f"_s, number, u"-l"_s, number, u"-x"_s, u"0"_s, u"-y"_s, u"790"_s, u"-W"_s, u"600"_s, u"-H"_s, u"52"_s, pdf, u"-"_s}));
            QVERIFY2(foot.contains(u"صفحه"_s), qUtf8Printable(foot));
            QStringList numbers;
            for (const QRegularExpressionMatch &match : QRegularExpression(u"[0-9]+"_s).globalMatch(foot))
                numbers.append(match.captured());
            numbers.sort();
            QStringList expected{number, QString::number(pages)};
            expected.sort();
            QCOMPARE(numbers, expected);
        }
    }
};

static const RegisteredTest<TestPrintedElsewhere, KApplication> registeredPrintedElsewhere;

#include "TestPrintedElsewhere.moc"
