// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/accounting/reports/ReportPainter.h"
#include "suite/utility/values/Provinces.h"
#include "tests/suite/accounting/reports/SampleReport.h"
#include "tests/support/RegisteredTest.h"

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QPainter>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

using namespace Qt::StringLiterals;

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

// The text of a PDF page by page, with shaped letters turned back into the ones that were typed.
QStringList pdfPages(const QString &path)
{
    const QByteArray text = outputOf(u"pdftotext"_s, {u"-layout"_s, path, u"-"_s});
    QString plain = QString::fromUtf8(text).normalized(QString::NormalizationForm_KC);
    // The extraction puts marks of direction in where a blank may have stood.
    plain.replace(QRegularExpression(u"[\\x{200e}\\x{200f}\\x{202a}-\\x{202e}\\x{2066}-\\x{2069}]"_s), u" "_s);
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
            reference = reader.attributes().value(u"r"_s).toString();
            cells[reference].type = reader.attributes().value(u"t"_s).toString();
        } else if (reader.name() == u"v" || reader.name() == u"t") {
            cells[reference].text = reader.readElementText();
        }
    }
    return cells;
}

QByteArray sheetXml(const QString &path)
{
    static const QString program =
        u"import sys, zipfile; sys.stdout.buffer.write(zipfile.ZipFile(sys.argv[1]).read(sys.argv[2]))"_s;
    return outputOf(u"python3"_s,
                    {u"-c"_s, program, path, u"xl/worksheets/sheet1.xml"_s});
}

// Asks to stop at that call.
ReportProgress stopAt(int call, int *calls)
{
    return [call, calls](int, int) { return ++*calls < call; };
}

// The font that the program's own window takes, for as long as this lives; where none was fetched, that of the system.
class ProgramFont
{
public:
    ProgramFont()
        : m_before(QApplication::font())
    {
        const QDir folder(QCoreApplication::applicationDirPath() + u"/../share/tzauto/fonts"_s);
        for (const QString &file : folder.entryList({u"*.ttf"_s}, QDir::Files)) {
            const int loaded = QFontDatabase::addApplicationFont(folder.filePath(file));
            m_loaded.append(loaded);
            if (file.contains(u"Regular"_s))
                QApplication::setFont(QFont(QFontDatabase::applicationFontFamilies(loaded).value(0)));
        }
    }
    ~ProgramFont()
    {
        QApplication::setFont(m_before);
        for (const int loaded : m_loaded)
            QFontDatabase::removeApplicationFont(loaded);
    }
    ProgramFont(const ProgramFont &) = delete;
    ProgramFont &operator=(const ProgramFont &) = delete;

private:
    QFont m_before;
    QList<int> m_loaded;
};

// The provinces and cities, each word once.
QStringList manyWords()
{
    static const QRegularExpression other(u"[^\\p{L}]+"_s);
    QStringList words;
    for (const QString &province : Provinces::names()) {
        words += province.split(other, Qt::SkipEmptyParts);
        for (const QString &city : Provinces::cities(province))
            words += city.split(other, Qt::SkipEmptyParts);
    }
    words.removeDuplicates();
    return words;
}

constexpr int wideColumns = 30;

// Eight digits that no other cell has.
QString wideCell(int row, int column)
{
    return u"%1%2"_s.arg(column, 2, 10, QChar(u'0')).arg(row, 6, 10, QChar(u'0'));
}

// More columns than fit across a paper.
ListReport wideReport(int rowCount)
{
    QVector<KListModel::Column> columns{{u"ردیف"_s, Qt::AlignCenter, 40}};
    for (int column = 1; column < wideColumns; ++column)
        columns.append({u"ستون %1"_s.arg(column), Qt::AlignRight, 80});
    QVector<KListModel::Row> rows;
    for (int row = 1; row <= rowCount; ++row) {
        KListModel::Row cells{row, {{QString::number(row), row}}};
        for (int column = 1; column < wideColumns; ++column)
            cells.cells.append({wideCell(row, column)});
        rows.append(cells);
    }
    ListReport report(u"گالری اتومبیل"_s, u"پهن"_s);
    report.setText(u"Count"_s, u"تعداد : %1"_s.arg(rowCount));
    report.setTable(u"List"_s, columns, rows);
    report.buildStandard(u"پهن"_s);
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
        QVERIFY(ReportOutput::writePdf(report, path(u"a.pdf"_s)));
        const QStringList pages = pdfPages(path(u"a.pdf"_s));
        QCOMPARE(pages.size(), painter.pageCount());
        for (int page = 0; page < pages.size(); ++page) {
            for (const QString &text : {u"لیست قراردادها"_s, u"ردیف"_s, u"توضیحات"_s,
                                        u"نمایشگاه نمونه"_s, u"تاریخ چاپ"_s, u"1405/08/29"_s,
                                        u"صفحه %1 از %2"_s.arg(page + 1).arg(pages.size())})
                QVERIFY2(holds(pages.at(page), text), qPrintable(u"%1: %2\n%3"_s.arg(page).arg(text, pages.at(page))));
            QCOMPARE(holds(pages.at(page), u"تعداد : 200"_s), page == pages.size() - 1);
        }
        const QString whole = pages.join(u'\n');
        for (int row = 1; row <= 200; ++row) {
            const QString text = u"%1 خریدار شماره %1 %2"_s.arg(row).arg(DToMoney(1'250'000.0 * row));
            QVERIFY2(holds(whole, text), qPrintable(text));
        }
    }

    void emptyListIsOnePageWithItsHead()
    {
        QVERIFY(ReportOutput::writePdf(sampleReport(0), path(u"a.pdf"_s)));
        const QStringList pages = pdfPages(path(u"a.pdf"_s));
        QCOMPARE(pages.size(), 1);
        QVERIFY(holds(pages.first(), u"صفحه 1 از 1"_s));
        QVERIFY(holds(pages.first(), u"تعداد : 0"_s));
        QVERIFY(holds(pages.first(), u"ردیف"_s));
    }

    void longTextIsWrappedAndNothingOfItIsLost()
    {
        ListReport report = sampleReport(2);
        QStringList words;
        for (int i = 0; i < 2'500; ++i)
            words << u"w%1"_s.arg(i);
        QVector<KListModel::Row> rows = report.rows();
        rows[0].cells[4].text = words.join(u' ');
        report.setTable(u"List"_s, report.columns(), rows);
        ReportPainter painter(report);
        QVERIFY(painter.layOut());
        QVERIFY2(painter.pageCount() > 1, "a row longer than a page goes on");
        QVERIFY(ReportOutput::writePdf(report, path(u"a.pdf"_s)));
        const QString text = pdfPages(path(u"a.pdf"_s)).join(u' ');
        for (const QString &word : std::as_const(words))
            QVERIFY2(text.contains(QRegularExpression(u"\\b%1\\b"_s.arg(word))), qPrintable(word));
    }

    void tableThatIsTooWideGoesOnOverTheNextSheet()
    {
        constexpr int rowCount = 60;
        const ListReport report = wideReport(rowCount);
        ReportPainter painter(report);
        QVERIFY(painter.layOut());
        QVERIFY(ReportOutput::writePdf(report, path(u"a.pdf"_s)));
        const QStringList pages = pdfPages(path(u"a.pdf"_s));
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
            QVERIFY2(holds(page, u"ردیف"_s), qPrintable(page));
    }

    void summaryNeverStandsAlone_data()
    {
        QTest::addColumn<bool>("wide");
        QTest::newRow("one sheet") << false;
        QTest::newRow("a table that goes on over the next sheet") << true;
    }

    void summaryNeverStandsAlone()
    {
        QFETCH(bool, wide);
        for (int rowCount = 20; rowCount < 60; ++rowCount) {
            QVERIFY(ReportOutput::writePdf(wide ? wideReport(rowCount) : sampleReport(rowCount), path(u"a.pdf"_s)));
            const QStringList pages = pdfPages(path(u"a.pdf"_s));
            for (const QString &page : pages) {
                static const QRegularExpression cell(u"\\b[0-9]{8}\\b|خریدار"_s);
                QVERIFY2(page.contains(cell), qPrintable(u"%1 rows:\n%2"_s.arg(rowCount).arg(page)));
                QCOMPARE(holds(page, u"تعداد : %1"_s.arg(rowCount)), &page == &pages.last());
            }
        }
    }

    void columnsStandFromTheRightAndFillThePaper()
    {
        ListReport report = sampleReport(5);
        ReportLayout layout = report.layout();
        layout.columns = {{u"توضیحات"_s, 0}, {u"نام"_s, 50}};
        layout.landscape = true;
        report.setLayout(layout);
        ReportPainter painter(report);
        QVERIFY(painter.layOut());
        QVERIFY(painter.paperSize().width() > painter.paperSize().height());
        const double width = painter.columnWidths().at(0) + painter.columnWidths().at(1);
        QCOMPARE(painter.columnWidths().at(1), width / 2);
        QVERIFY(ReportOutput::writePdf(report, path(u"a.pdf"_s)));
        // The extraction keeps what stands left on the paper left in its line.
        const QString page = pdfPages(path(u"a.pdf"_s)).first();
        const QRegularExpression titles(u"نام +توضیحات"_s);
        QVERIFY2(page.contains(titles), qPrintable(page));
        QVERIFY(page.contains(QRegularExpression(u"خریدار.* تحویل"_s)));
        QVERIFY(!page.contains(u"مبلغ"_s));
    }

    void codesReadFromLeftToRightLettersToo()
    {
        const QString plate = u"12 ب 345 ایران 67"_s;
        const auto firstPage = [](bool isCode, const QString &text) {
            ListReport report(u"g"_s, u"r"_s);
            report.setTable(u"List"_s, {{u"پلاک"_s, Qt::AlignCenter, 80, {}, false, isCode}}, {{1, {{text}}}});
            report.buildStandard(u"عنوان"_s);
            return firstPageOf(report);
        };
        // As a text that is turned round by hand.
        QCOMPARE(firstPage(true, plate), firstPage(false, u"67 ایران 345 ب 12"_s));
        QVERIFY(firstPage(true, plate) != firstPage(false, plate));
    }

    void wordsOfCrowdedColumnsStayWhole()
    {
        const QStringList words{u"ردیف"_s, u"فروشنده"_s, u"خریدار"_s, u"توضیحات"_s,
                                u"بایگانی"_s, u"انقضاء"_s, u"سند"_s, u"تاریخ"_s,
                                u"مبلغ"_s, u"شماره"_s};
        QVector<KListModel::Column> columns;
        KListModel::Row row{1, {}};
        for (const QString &word : words) {
            columns.append({word, Qt::AlignRight});
            row.cells.append({u"تحویل خودرو پس از تسویه کامل حساب "_s + word});
        }
        ListReport report(u"g"_s, u"r"_s);
        report.setTable(u"List"_s, columns, {row});
        report.buildStandard(u"عنوان"_s);
        QVERIFY(ReportOutput::writePdf(report, path(u"a.pdf"_s)));
        const QString page = pdfPages(path(u"a.pdf"_s)).first().simplified();
        for (const QString &word : words)
            QVERIFY2(page.split(u' ').count(word) == 2, qPrintable(word + u'\n' + page));
    }

    // A letter in a shape that stands for no character is missing in the text that a search or a screen reader takes.
    void textTakenFromThePdfIsWhole()
    {
        const ProgramFont font;
        ListReport report(u"g"_s, u"r"_s);
        const QStringList titles{u"ردیف"_s, u"توضیحات"_s, u"بایگانی"_s, u"مابه"_s, u"التفاوت"_s, u"بستانکار"_s, u"مدیریت"_s, u"چیدمان"_s};
        QVector<KListModel::Column> columns;
        for (const QString &title : titles)
            columns.append({title, Qt::AlignRight});
        const QStringList words = manyWords();
        QVERIFY(words.size() > 300);
        QVector<KListModel::Row> rows;
        for (int first = 0; first < words.size(); first += int(columns.size())) {
            KListModel::Row row{first + 1, {}};
            for (const QString &word : words.mid(first, columns.size()))
                row.cells.append({word});
            rows.append(row);
        }
        report.setTable(u"List"_s, columns, rows);
        report.buildStandard(u"گزارش قراردادهای اجاره به شرط تملیک"_s);
        QVERIFY(ReportOutput::writePdf(report, path(u"a.pdf"_s)));
        const QStringList pages = pdfPages(path(u"a.pdf"_s));
        QSet<QString> found;
        for (const QString &page : pages) {
            const QStringList onPage = page.simplified().split(u' ');
            for (const QString &word : titles + u"گزارش قراردادهای اجاره به شرط تملیک"_s.split(u' '))
                QVERIFY2(onPage.contains(word), qPrintable(word + u'\n' + page));
            found.unite(QSet<QString>(onPage.cbegin(), onPage.cend()));
        }
        QStringList missing;
        for (const QString &word : words) {
            if (!found.contains(word))
                missing.append(word);
        }
        QCOMPARE(missing, QStringList());
    }

    void printerGetsThePagesOfItsRange()
    {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path(u"printed.pdf"_s));
        printer.setFromTo(2, 3);
        const ListReport report = sampleReport(200);
        ReportPainter painter(report);
        QVERIFY(painter.layOut());
        QVERIFY(ReportOutput::print(report, printer));
        const QStringList pages = pdfPages(path(u"printed.pdf"_s));
        QCOMPARE(pages.size(), 2);
        QVERIFY(holds(pages.first(), u"صفحه 2 از %1"_s.arg(painter.pageCount())));
        QVERIFY(holds(pages.last(), u"صفحه 3 از %1"_s.arg(painter.pageCount())));
    }

    void spreadsheetHoldsNumbersTextsAndDates()
    {
        QVERIFY(ReportOutput::writeSpreadsheet(sampleReport(300), path(u"a.xlsx"_s)));
        const QByteArray xml = sheetXml(path(u"a.xlsx"_s));
        const QHash<QString, SheetCell> cells = sheetCells(xml);
        QStringList titles;
        for (const QChar column : u"ABCDEF"_s)
            titles << cells.value(QString(column) + u'1').text;
        QCOMPARE(titles, (QStringList{u"ردیف"_s, u"نام"_s, u"مبلغ"_s, u"تاریخ"_s, u"توضیحات"_s, u"تاریخ (میلادی)"_s}));
        QCOMPARE(cells.value(u"A301"_s).type, QString());
        QCOMPARE(cells.value(u"A301"_s).text, u"300"_s);
        QCOMPARE(cells.value(u"B301"_s).type, u"inlineStr"_s);
        QCOMPARE(cells.value(u"B301"_s).text, u"خریدار شماره 300"_s);
        QCOMPARE(cells.value(u"C301"_s).type, QString());
        QCOMPARE(cells.value(u"C301"_s).text.toDouble(), 375'000'000.0);
        QCOMPARE(cells.value(u"D2"_s).text, u"1405/08/29"_s);
        QCOMPARE(cells.value(u"F2"_s).type, QString());
        // 2026-11-20 in days of a spreadsheet.
        QCOMPARE(cells.value(u"F2"_s).text.toDouble(), 46346.0);
        QVERIFY(!cells.contains(u"E3"_s));
        QVERIFY(!cells.contains(u"A302"_s));
        QVERIFY(xml.contains("rightToLeft=\"1\""));
        QVERIFY(xml.contains("state=\"frozen\""));
        QVERIFY(xml.contains("ySplit=\"1\""));
        QVERIFY(xml.contains("<cols>"));
        QCOMPARE(files(), QStringList{u"a.xlsx"_s});
    }

    void spreadsheetFollowsTheLayoutsColumns()
    {
        ListReport report = sampleReport(1);
        ReportLayout layout = report.layout();
        layout.columns = {{u"مبلغ"_s, 0}, {u"ردیف"_s, 0}};
        report.setLayout(layout);
        QVERIFY(ReportOutput::writeSpreadsheet(report, path(u"a.xlsx"_s)));
        const QHash<QString, SheetCell> cells = sheetCells(sheetXml(path(u"a.xlsx"_s)));
        QCOMPARE(cells.size(), 4);
        QCOMPARE(cells.value(u"A1"_s).text, u"مبلغ"_s);
        QCOMPARE(cells.value(u"B2"_s).text, u"1"_s);
    }

    void cellThatShowsNothingIsEmpty()
    {
        ListReport report(u"g"_s, u"r"_s);
        report.setTable(u"List"_s, {{u"مبلغ"_s}, {u"کد"_s}, {u"جمع"_s}},
                        {{1, {{QString(), 0.0}, {u" "_s, 0}, {u"0"_s, 0.0}}}});
        report.buildStandard(u"r"_s);
        QVERIFY(ReportOutput::writeSpreadsheet(report, path(u"a.xlsx"_s)));
        const QHash<QString, SheetCell> cells = sheetCells(sheetXml(path(u"a.xlsx"_s)));
        QVERIFY(!cells.contains(u"A2"_s));
        QVERIFY(!cells.contains(u"B2"_s));
        QCOMPARE(cells.value(u"C2"_s).text, u"0"_s);
    }

    void sumsBelowTheTableAreNumbers()
    {
        ListReport report = sampleReport(2);
        report.addFooter({{2, u"جمع مبلغ"_s, 3'750'000}});
        QVERIFY(ReportOutput::writeSpreadsheet(report, path(u"a.xlsx"_s)));
        const QHash<QString, SheetCell> cells = sheetCells(sheetXml(path(u"a.xlsx"_s)));
        QCOMPARE(cells.value(u"C4"_s).text, u"جمع مبلغ"_s);
        QCOMPARE(cells.value(u"C5"_s).type, QString());
        QCOMPARE(cells.value(u"C5"_s).text.toDouble(), 3'750'000.0);
    }

    void textThatLooksLikeAFormulaStaysAText()
    {
        ListReport report(u"g"_s, u"a/b*c?[d]"_s);
        report.setTable(u"List"_s, {{u"متن"_s}}, {{1, {{u"=1+1"_s}}}});
        report.buildStandard(u"a/b*c?[d] : یک عنوان بسیار بلند برای یک برگه"_s);
        QVERIFY(ReportOutput::writeSpreadsheet(report, path(u"a.xlsx"_s)));
        const SheetCell cell = sheetCells(sheetXml(path(u"a.xlsx"_s))).value(u"A2"_s);
        QCOMPARE(cell.type, u"inlineStr"_s);
        QCOMPARE(cell.text, u"=1+1"_s);
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
        QVERIFY(!write(report, path(u"new"_s), stopAt(call, &calls)));
        QCOMPARE(calls, call);
        QCOMPARE(files(), QStringList());

        QFile old(path(u"old"_s));
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("before");
        old.close();
        calls = 0;
        QVERIFY(!write(report, old.fileName(), stopAt(call, &calls)));
        QCOMPARE(files(), QStringList{u"old"_s});
        QVERIFY(old.open(QIODevice::ReadOnly));
        QCOMPARE(old.readAll(), QByteArray("before"));
    }

    void fileIsReplacedWhenTheNewOneIsWhole()
    {
        for (const QString &name : {u"a.pdf"_s, u"a.xlsx"_s}) {
            QFile old(path(name));
            QVERIFY(old.open(QIODevice::WriteOnly));
            old.write("before");
        }
        QVERIFY(ReportOutput::writePdf(sampleReport(3), path(u"a.pdf"_s)));
        QVERIFY(ReportOutput::writeSpreadsheet(sampleReport(3), path(u"a.xlsx"_s)));
        QCOMPARE(pdfPages(path(u"a.pdf"_s)).size(), 1);
        QVERIFY(sheetXml(path(u"a.xlsx"_s)).startsWith("<?xml"));
        QCOMPARE(files().size(), 2);
    }

    void folderThatIsNotThereIsToldOf()
    {
        const QString nowhere = path(u"none/a"_s);
        QVERIFY_THROWS_EXCEPTION(KAccountingError, (void)ReportOutput::writePdf(sampleReport(1), nowhere));
        QVERIFY_THROWS_EXCEPTION(KAccountingError, (void)ReportOutput::writeSpreadsheet(sampleReport(1), nowhere));
    }

    void progressGrowsToTheEnd()
    {
        int last = -1;
        bool grows = true;
        QVERIFY(ReportOutput::writeSpreadsheet(sampleReport(2'000), path(u"a.xlsx"_s), [&](int done, int total) {
            grows = grows && done > last && total == 2'000;
            last = done;
            return true;
        }));
        QVERIFY(grows);
        QVERIFY(last >= 1'500);
    }
};

static const RegisteredTest<TestReportOutput, QApplication> registeredReportOutput;
#include "TestReportOutput.moc"
