// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/accounting/reports/ReportPainter.h"
#include "tests/suite/accounting/reports/SampleReport.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPrinter>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

// What the program prints; its standard error fails the caller's comparison.
QByteArray outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60'000) || process.exitCode() != 0)
        return "failed: " + process.readAllStandardError();
    return process.readAllStandardOutput();
}

// The text of a PDF page by page, the shaped letters taken back to the ones that were typed.
QStringList pdfPages(const QString &path)
{
    const QByteArray text = outputOf(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path, QStringLiteral("-")});
    QString plain = QString::fromUtf8(text).normalized(QString::NormalizationForm_KC);
    // The extraction puts marks of direction in where a blank may have stood.
    plain.replace(QRegularExpression(QStringLiteral("[\\x{200e}\\x{200f}\\x{202a}-\\x{202e}\\x{2066}-\\x{2069}]")), QStringLiteral(" "));
    QStringList pages = plain.split(u'\f');
    pages.removeLast(); // behind the last form feed
    return pages;
}

// Whether one line of the page holds all words of the text. Their order is not asked: the extraction puts numbers between
// words that read from the right in an order of its own.
bool holds(const QString &page, const QString &text)
{
    const QStringList lines = page.split(u'\n');
    return std::any_of(lines.cbegin(), lines.cend(), [&](const QString &line) {
        QStringList words = line.simplified().split(u' ');
        for (const QString &word : text.split(u' ')) {
            if (!words.removeOne(word))
                return false;
        }
        return true;
    });
}

QImage firstPageOf(const ListReport &report)
{
    constexpr double scale = 0.2;
    ReportPainter painter(report);
    if (!painter.layOut())
        return {};
    QImage image((painter.paperSize() * scale).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter onto(&image);
    onto.scale(scale, scale);
    painter.paint(onto, 0);
    return image;
}

struct SheetCell
{
    QString type; // empty: a number
    QString text;
};

// The first sheet's cells by their reference, read without the library that wrote them.
QHash<QString, SheetCell> sheetCells(const QByteArray &xml)
{
    QHash<QString, SheetCell> cells;
    QString reference;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        if (reader.name() == u"c") {
            reference = reader.attributes().value(QStringLiteral("r")).toString();
            cells[reference].type = reader.attributes().value(QStringLiteral("t")).toString();
        } else if (reader.name() == u"v" || reader.name() == u"t") {
            cells[reference].text = reader.readElementText();
        }
    }
    return cells;
}

QByteArray sheetXml(const QString &path)
{
    static const QString program =
        QStringLiteral("import sys, zipfile; sys.stdout.buffer.write(zipfile.ZipFile(sys.argv[1]).read(sys.argv[2]))");
    return outputOf(QStringLiteral("python3"),
                    {QStringLiteral("-c"), program, path, QStringLiteral("xl/worksheets/sheet1.xml")});
}

// Asks to stop at that call.
ReportProgress stopAt(int call, int *calls)
{
    return [call, calls](int, int) { return ++*calls < call; };
}

constexpr int wideColumns = 30;

// Eight digits that no other cell has.
QString wideCell(int row, int column)
{
    return QStringLiteral("%1%2").arg(column, 2, 10, QChar(u'0')).arg(row, 6, 10, QChar(u'0'));
}

// More columns than fit across a paper.
ListReport wideReport(int rowCount)
{
    QVector<KListModel::Column> columns{{QStringLiteral("ردیف"), Qt::AlignCenter, 40}};
    for (int column = 1; column < wideColumns; ++column)
        columns.append({QStringLiteral("ستون %1").arg(column), Qt::AlignRight, 80});
    QVector<KListModel::Row> rows;
    for (int row = 1; row <= rowCount; ++row) {
        KListModel::Row cells{row, {{QString::number(row), row}}};
        for (int column = 1; column < wideColumns; ++column)
            cells.cells.append({wideCell(row, column)});
        rows.append(cells);
    }
    ListReport report(QStringLiteral("گالری اتومبیل"), QStringLiteral("پهن"));
    report.setText(QStringLiteral("Count"), QStringLiteral("تعداد : %1").arg(rowCount));
    report.setTable(QStringLiteral("List"), columns, rows);
    report.buildStandard(QStringLiteral("پهن"));
    return report;
}

}

class TestReportOutput : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;

    QString path(const QString &name) const { return m_folder->filePath(name); }
    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::Files); }

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(m_folder->isValid());
    }

    void pdfHoldsEveryRowAndItsHeadOnEveryPage()
    {
        const ListReport report = sampleReport(200);
        ReportPainter painter(report);
        QVERIFY(painter.layOut());
        QVERIFY(painter.pageCount() > 3);
        QVERIFY(ReportOutput::writePdf(report, path(QStringLiteral("a.pdf"))));
        const QStringList pages = pdfPages(path(QStringLiteral("a.pdf")));
        QCOMPARE(pages.size(), painter.pageCount());
        for (int page = 0; page < pages.size(); ++page) {
            for (const QString &text : {QStringLiteral("لیست قراردادها"), QStringLiteral("ردیف"), QStringLiteral("توضیحات"),
                                        QStringLiteral("نمایشگاه نمونه"), QStringLiteral("تاریخ چاپ"), QStringLiteral("1405/08/29"),
                                        QStringLiteral("صفحه %1 از %2").arg(page + 1).arg(pages.size())})
                QVERIFY2(holds(pages.at(page), text), qPrintable(QStringLiteral("%1: %2\n%3").arg(page).arg(text, pages.at(page))));
            QCOMPARE(holds(pages.at(page), QStringLiteral("تعداد : 200")), page == pages.size() - 1);
        }
        const QString whole = pages.join(u'\n');
        for (int row = 1; row <= 200; ++row) {
            const QString text = QStringLiteral("%1 خریدار شماره %1 %2").arg(row).arg(DToMoney(1'250'000.0 * row));
            QVERIFY2(holds(whole, text), qPrintable(text));
        }
    }

    void emptyListIsOnePageWithItsHead()
    {
        QVERIFY(ReportOutput::writePdf(sampleReport(0), path(QStringLiteral("a.pdf"))));
        const QStringList pages = pdfPages(path(QStringLiteral("a.pdf")));
        QCOMPARE(pages.size(), 1);
        QVERIFY(holds(pages.first(), QStringLiteral("صفحه 1 از 1")));
        QVERIFY(holds(pages.first(), QStringLiteral("تعداد : 0")));
        QVERIFY(holds(pages.first(), QStringLiteral("ردیف")));
    }

    void longTextIsWrappedAndNothingOfItIsLost()
    {
        ListReport report = sampleReport(2);
        QStringList words;
        for (int i = 0; i < 2'500; ++i)
            words << QStringLiteral("w%1").arg(i);
        QVector<KListModel::Row> rows = report.rows();
        rows[0].cells[4].text = words.join(u' ');
        report.setTable(QStringLiteral("List"), report.columns(), rows);
        ReportPainter painter(report);
        QVERIFY(painter.layOut());
        QVERIFY2(painter.pageCount() > 1, "a row longer than a page goes on");
        QVERIFY(ReportOutput::writePdf(report, path(QStringLiteral("a.pdf"))));
        const QString text = pdfPages(path(QStringLiteral("a.pdf"))).join(u' ');
        for (const QString &word : std::as_const(words))
            QVERIFY2(text.contains(QRegularExpression(QStringLiteral("\\b%1\\b").arg(word))), qPrintable(word));
    }

    void tableThatIsTooWideGoesOnOverTheNextSheet()
    {
        constexpr int rowCount = 60;
        const ListReport report = wideReport(rowCount);
        ReportPainter painter(report);
        QVERIFY(painter.layOut());
        QVERIFY(ReportOutput::writePdf(report, path(QStringLiteral("a.pdf"))));
        const QStringList pages = pdfPages(path(QStringLiteral("a.pdf")));
        QCOMPARE(pages.size(), painter.pageCount());
        for (int row = 1; row <= rowCount; ++row) {
            QList<qsizetype> first;
            for (qsizetype page = 0; page < pages.size(); ++page) {
                if (pages.at(page).contains(wideCell(row, 1)))
                    first.append(page);
            }
            QCOMPARE(first.size(), 1);
            // The rest of the row stands whole there and on the sheets that follow.
            const QString rest = pages.mid(first.first()).join(u'\n');
            for (int column = 2; column < wideColumns; ++column)
                QVERIFY2(rest.contains(wideCell(row, column)), qPrintable(wideCell(row, column)));
        }
        for (const QString &page : pages)
            QVERIFY2(holds(page, QStringLiteral("ردیف")), qPrintable(page));
    }

    void noSheetOfAWideTableIsEmpty()
    {
        bool summaryStoodAlone = false;
        for (int rowCount = 20; rowCount < 60; ++rowCount) {
            QVERIFY(ReportOutput::writePdf(wideReport(rowCount), path(QStringLiteral("a.pdf"))));
            const QStringList pages = pdfPages(path(QStringLiteral("a.pdf")));
            for (const QString &page : pages) {
                const bool hasRows = page.contains(QRegularExpression(QStringLiteral("\\b[0-9]{8}\\b")));
                const bool hasSummary = holds(page, QStringLiteral("تعداد : %1").arg(rowCount));
                QVERIFY2(hasRows || hasSummary, qPrintable(QStringLiteral("%1 rows:\n%2").arg(rowCount).arg(page)));
                QCOMPARE(hasSummary, &page == &pages.last());
                summaryStoodAlone = summaryStoodAlone || !hasRows;
            }
        }
        QVERIFY(summaryStoodAlone);
    }

    void columnsStandFromTheRightAndFillThePaper()
    {
        ListReport report = sampleReport(5);
        ReportLayout layout = report.layout();
        layout.columns = {{QStringLiteral("توضیحات"), 0}, {QStringLiteral("نام"), 50}};
        layout.landscape = true;
        report.setLayout(layout);
        ReportPainter painter(report);
        QVERIFY(painter.layOut());
        QVERIFY(painter.paperSize().width() > painter.paperSize().height());
        const double width = painter.columnWidths().at(0) + painter.columnWidths().at(1);
        QCOMPARE(painter.columnWidths().at(1), width / 2);
        QVERIFY(ReportOutput::writePdf(report, path(QStringLiteral("a.pdf"))));
        // The extraction keeps what stands left on the paper left in its line.
        const QString page = pdfPages(path(QStringLiteral("a.pdf"))).first();
        const QRegularExpression titles(QStringLiteral("نام +توضیحات"));
        QVERIFY2(page.contains(titles), qPrintable(page));
        QVERIFY(page.contains(QRegularExpression(QStringLiteral("خریدار.* تحویل"))));
        QVERIFY(!page.contains(QStringLiteral("مبلغ")));
    }

    void codesReadFromLeftToRightLettersToo()
    {
        const QString plate = QStringLiteral("12 ب 345 ایران 67");
        const auto firstPage = [](bool isCode, const QString &text) {
            ListReport report(QStringLiteral("g"), QStringLiteral("r"));
            report.setTable(QStringLiteral("List"), {{QStringLiteral("پلاک"), Qt::AlignCenter, 80, {}, false, isCode}}, {{1, {{text}}}});
            report.buildStandard(QStringLiteral("عنوان"));
            return firstPageOf(report);
        };
        // As a text that is turned round by hand.
        QCOMPARE(firstPage(true, plate), firstPage(false, QStringLiteral("67 ایران 345 ب 12")));
        QVERIFY(firstPage(true, plate) != firstPage(false, plate));
    }

    void wordsOfCrowdedColumnsStayWhole()
    {
        const QStringList words{QStringLiteral("ردیف"), QStringLiteral("فروشنده"), QStringLiteral("خریدار"), QStringLiteral("توضیحات"),
                                QStringLiteral("بایگانی"), QStringLiteral("انقضاء"), QStringLiteral("سند"), QStringLiteral("تاریخ"),
                                QStringLiteral("مبلغ"), QStringLiteral("شماره")};
        QVector<KListModel::Column> columns;
        KListModel::Row row{1, {}};
        for (const QString &word : words) {
            columns.append({word, Qt::AlignRight});
            row.cells.append({QStringLiteral("تحویل خودرو پس از تسویه کامل حساب ") + word});
        }
        ListReport report(QStringLiteral("g"), QStringLiteral("r"));
        report.setTable(QStringLiteral("List"), columns, {row});
        report.buildStandard(QStringLiteral("عنوان"));
        QVERIFY(ReportOutput::writePdf(report, path(QStringLiteral("a.pdf"))));
        const QString page = pdfPages(path(QStringLiteral("a.pdf"))).first().simplified();
        for (const QString &word : words)
            QVERIFY2(page.split(u' ').count(word) == 2, qPrintable(word + u'\n' + page));
    }

    void printerGetsThePagesOfItsRange()
    {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path(QStringLiteral("printed.pdf")));
        printer.setFromTo(2, 3);
        const ListReport report = sampleReport(200);
        ReportPainter painter(report);
        QVERIFY(painter.layOut());
        QVERIFY(ReportOutput::print(report, printer));
        const QStringList pages = pdfPages(path(QStringLiteral("printed.pdf")));
        QCOMPARE(pages.size(), 2);
        QVERIFY(holds(pages.first(), QStringLiteral("صفحه 2 از %1").arg(painter.pageCount())));
        QVERIFY(holds(pages.last(), QStringLiteral("صفحه 3 از %1").arg(painter.pageCount())));
    }

    void spreadsheetHoldsNumbersTextsAndDates()
    {
        QVERIFY(ReportOutput::writeSpreadsheet(sampleReport(300), path(QStringLiteral("a.xlsx"))));
        const QByteArray xml = sheetXml(path(QStringLiteral("a.xlsx")));
        const QHash<QString, SheetCell> cells = sheetCells(xml);
        QStringList titles;
        for (const QChar column : QStringLiteral("ABCDEF"))
            titles << cells.value(QString(column) + u'1').text;
        QCOMPARE(titles, (QStringList{QStringLiteral("ردیف"), QStringLiteral("نام"), QStringLiteral("مبلغ"), QStringLiteral("تاریخ"), QStringLiteral("توضیحات"), QStringLiteral("تاریخ (میلادی)")}));
        QCOMPARE(cells.value(QStringLiteral("A301")).type, QString());
        QCOMPARE(cells.value(QStringLiteral("A301")).text, QStringLiteral("300"));
        QCOMPARE(cells.value(QStringLiteral("B301")).type, QStringLiteral("inlineStr"));
        QCOMPARE(cells.value(QStringLiteral("B301")).text, QStringLiteral("خریدار شماره 300"));
        QCOMPARE(cells.value(QStringLiteral("C301")).type, QString());
        QCOMPARE(cells.value(QStringLiteral("C301")).text.toDouble(), 375'000'000.0);
        QCOMPARE(cells.value(QStringLiteral("D2")).text, QStringLiteral("1405/08/29"));
        QCOMPARE(cells.value(QStringLiteral("F2")).type, QString());
        // 2026-11-20 in days of a spreadsheet.
        QCOMPARE(cells.value(QStringLiteral("F2")).text.toDouble(), 46346.0);
        QVERIFY(!cells.contains(QStringLiteral("E3")));
        QVERIFY(!cells.contains(QStringLiteral("A302")));
        QVERIFY(xml.contains("rightToLeft=\"1\""));
        QVERIFY(xml.contains("state=\"frozen\""));
        QVERIFY(xml.contains("ySplit=\"1\""));
        QVERIFY(xml.contains("<cols>"));
        QCOMPARE(files(), QStringList{QStringLiteral("a.xlsx")});
    }

    void spreadsheetFollowsTheLayoutsColumns()
    {
        ListReport report = sampleReport(1);
        ReportLayout layout = report.layout();
        layout.columns = {{QStringLiteral("مبلغ"), 0}, {QStringLiteral("ردیف"), 0}};
        report.setLayout(layout);
        QVERIFY(ReportOutput::writeSpreadsheet(report, path(QStringLiteral("a.xlsx"))));
        const QHash<QString, SheetCell> cells = sheetCells(sheetXml(path(QStringLiteral("a.xlsx"))));
        QCOMPARE(cells.size(), 4);
        QCOMPARE(cells.value(QStringLiteral("A1")).text, QStringLiteral("مبلغ"));
        QCOMPARE(cells.value(QStringLiteral("B2")).text, QStringLiteral("1"));
    }

    void textThatLooksLikeAFormulaStaysAText()
    {
        ListReport report(QStringLiteral("g"), QStringLiteral("a/b*c?[d]"));
        report.setTable(QStringLiteral("List"), {{QStringLiteral("متن")}}, {{1, {{QStringLiteral("=1+1")}}}});
        report.buildStandard(QStringLiteral("a/b*c?[d] : یک عنوان بسیار بلند برای یک برگه"));
        QVERIFY(ReportOutput::writeSpreadsheet(report, path(QStringLiteral("a.xlsx"))));
        const SheetCell cell = sheetCells(sheetXml(path(QStringLiteral("a.xlsx")))).value(QStringLiteral("A2"));
        QCOMPARE(cell.type, QStringLiteral("inlineStr"));
        QCOMPARE(cell.text, QStringLiteral("=1+1"));
    }

    void stoppedWorkLeavesWhatStoodThere_data()
    {
        QTest::addColumn<bool>("sheet");
        QTest::addColumn<int>("call");
        for (const int call : {1, 2, 30}) {
            QTest::addRow("PDF, stopped at question %d", call) << false << call;
            if (call < 30)
                QTest::addRow("spreadsheet, stopped at question %d", call) << true << call;
        }
    }

    void stoppedWorkLeavesWhatStoodThere()
    {
        QFETCH(bool, sheet);
        QFETCH(int, call);
        const ListReport report = sampleReport(2'000);
        const auto write = sheet ? &ReportOutput::writeSpreadsheet : &ReportOutput::writePdf;
        int calls = 0;
        QVERIFY(!write(report, path(QStringLiteral("new")), stopAt(call, &calls)));
        QCOMPARE(calls, call);
        QCOMPARE(files(), QStringList());

        QFile old(path(QStringLiteral("old")));
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("before");
        old.close();
        calls = 0;
        QVERIFY(!write(report, old.fileName(), stopAt(call, &calls)));
        QCOMPARE(files(), QStringList{QStringLiteral("old")});
        QVERIFY(old.open(QIODevice::ReadOnly));
        QCOMPARE(old.readAll(), QByteArray("before"));
    }

    void fileIsReplacedWhenTheNewOneIsWhole()
    {
        for (const QString &name : {QStringLiteral("a.pdf"), QStringLiteral("a.xlsx")}) {
            QFile old(path(name));
            QVERIFY(old.open(QIODevice::WriteOnly));
            old.write("before");
        }
        QVERIFY(ReportOutput::writePdf(sampleReport(3), path(QStringLiteral("a.pdf"))));
        QVERIFY(ReportOutput::writeSpreadsheet(sampleReport(3), path(QStringLiteral("a.xlsx"))));
        QCOMPARE(pdfPages(path(QStringLiteral("a.pdf"))).size(), 1);
        QVERIFY(sheetXml(path(QStringLiteral("a.xlsx"))).startsWith("<?xml"));
        QCOMPARE(files().size(), 2);
    }

    void folderThatIsNotThereIsToldOf()
    {
        const QString nowhere = path(QStringLiteral("none/a"));
        QVERIFY_THROWS_EXCEPTION(KAccountingError, (void)ReportOutput::writePdf(sampleReport(1), nowhere));
        QVERIFY_THROWS_EXCEPTION(KAccountingError, (void)ReportOutput::writeSpreadsheet(sampleReport(1), nowhere));
    }

    void progressGrowsToTheEnd()
    {
        int last = -1;
        bool grows = true;
        QVERIFY(ReportOutput::writeSpreadsheet(sampleReport(2'000), path(QStringLiteral("a.xlsx")), [&](int done, int total) {
            grows = grows && done > last && total == 2'000;
            last = done;
            return true;
        }));
        QVERIFY(grows);
        QVERIFY(last >= 1'500);
    }
};

static const RegisteredTest<TestReportOutput, QApplication> registered;
#include "TestReportOutput.moc"
