// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractPrinting.h"
#include "suite/accounting/frame/KApplication.h"
#include "tests/auto/contracts/printing/DocxParts.h"
#include "tests/auto/contracts/printing/PrintedContracts.h"
#include "tests/support/RegisteredTest.h"

#include <QFileInfo>
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

// A printed contract as another program shows it. Needs LibreOffice, pdftotext and pdfinfo.
class TestPrintedElsewhere : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestOffice> m_office;
    QTemporaryDir m_folder;

private Q_SLOTS:
    void initTestCase() { m_office = std::make_unique<TestOffice>(); }
    void cleanupTestCase() { m_office.reset(); }

    void everyValueStandsOnTheTwoPagesOfAPrintedContract_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("sale agreement") << 0;
        QTest::newRow("rent") << 1;
        QTest::newRow("instalment sale") << 2;
    }

    void everyValueStandsOnTheTwoPagesOfAPrintedContract()
    {
        QFETCH(int, type);
        m_office->clear();
        QString printed;
        ContractPrinting::Dialogs dialogs;
        dialogs.warn = [](ContractPrinting::Trouble) { QFAIL("nothing should be missing"); };
        dialogs.chooseTemplate = [] { return QString(); };
        dialogs.open = [&printed](const QString &path) {
            printed = path;
            return true;
        };
        QVERIFY(ContractPrinting(dialogs, {u"" TZ_TEMPLATES ""_s, m_folder.path()}).print(PrintedContracts::add(*m_office, type)));
        for (const QByteArray &part : readDocx(printed))
            QVERIFY(!part.contains("MERGEFIELD"));

        outputOf(u"soffice"_s,
                 {u"-env:UserInstallation=file://"_s + m_folder.filePath(u"profile"_s),
                  u"--headless"_s, u"--convert-to"_s, u"pdf"_s, u"--outdir"_s,
                  m_folder.path(), printed});
        const QString pdf = m_folder.filePath(QFileInfo(printed).completeBaseName() + u".pdf"_s);
        const QString pages = outputOf(u"pdfinfo"_s, {pdf});
        QVERIFY2(pages.contains(QRegularExpression(u"Pages: +2\n"_s)), qUtf8Printable(pages));
        const QString text = plain(outputOf(u"pdftotext"_s, {pdf, u"-"_s}));
        // The reader takes a page in its own order, so a value is looked for word by word.
        static const QRegularExpression separators(u"[ ،]"_s);
        for (const QString &value : PrintedContracts::values())
            for (const QString &word : plain(value).split(separators, Qt::SkipEmptyParts))
                QVERIFY2(text.contains(word), qUtf8Printable(value + u" is not in: "_s + text));
        QVERIFY(!text.contains(u'«'));
    }
};

static const RegisteredTest<TestPrintedElsewhere, KApplication> registeredPrintedElsewhere;

#include "TestPrintedElsewhere.moc"
