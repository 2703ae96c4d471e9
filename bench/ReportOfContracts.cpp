// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// The list of 10,000 contracts to a PDF file and to a spreadsheet; the spreadsheet against a bare loop of the library over
// the same cells, made ready beforehand, and against openpyxl; the PDF against a bare QPdfWriter that draws the same texts in
// the same columns, each on one line where it is known to stand.

#include "bench/BenchOffice.h"
#include "bench/SampleReporter.h"
#include "bench/Trial.h"
#include "bench/WorkProcess.h"

#include "auto/contracts/CDlgAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/accounting/reports/ReportPainter.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QPdfWriter>

#include <xlsxwriter.h>

#include <cstdio>
#include <string>

using namespace Qt::StringLiterals;

namespace {

const int contractCount = Trial::size(10'000);

// A cell as the library takes it.
struct BareCell
{
    enum Kind {
        Nothing,
        Text,
        Number,
        Date
    } kind = Nothing;
    std::string text;
    double number = 0;
    lxw_datetime date = {};
};

const ListReport *report = nullptr;
std::vector<std::vector<BareCell>> bareRows;
QString folder;

QString pdfPath()
{
    return folder + u"/list.pdf"_s;
}

QString sheetPath()
{
    return folder + u"/list.xlsx"_s;
}

BareCell bareCell(const KListModel::Cell &cell)
{
    BareCell bare;
    if (cell.value.typeId() == QMetaType::Int) {
        bare.kind = BareCell::Number;
        bare.number = cell.value.toDouble();
    } else if (!cell.text.isEmpty()) {
        bare.kind = BareCell::Text;
        bare.text = cell.text.toStdString();
    }
    return bare;
}

// The sheet's rows: the columns of the list, followed by the dates once more as dates.
void prepareBareRows()
{
    bareRows.push_back({});
    for (const KListModel::Column &column : report->columns())
        bareRows.back().push_back({BareCell::Text, column.title.toStdString()});
    for (const KListModel::Row &row : report->rows()) {
        bareRows.push_back({});
        for (const KListModel::Cell &cell : row.cells)
            bareRows.back().push_back(bareCell(cell));
        for (int column = 0; column < row.cells.size(); ++column) {
            if (!report->columns().at(column).isDate)
                continue;
            const QDate date = row.cells.at(column).value.toDate();
            bareRows.back().push_back({});
            if (date.isValid())
                bareRows.back().back() = {BareCell::Date, {}, 0, {date.year(), date.month(), date.day(), 0, 0, 0}};
        }
    }
}

void bareSheet(benchmark::State &state)
{
    const QByteArray path = (folder + u"/bare.xlsx"_s).toLocal8Bit();
    for (auto _ : state) {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        lxw_workbook *workbook = workbook_new_opt(path.constData(), &options);
        lxw_worksheet *sheet = workbook_add_worksheet(workbook, nullptr);
        lxw_format *dateFormat = workbook_add_format(workbook);
        format_set_num_format(dateFormat, "yyyy-mm-dd");
        for (size_t row = 0; row < bareRows.size(); ++row) {
            for (size_t column = 0; column < bareRows[row].size(); ++column) {
                BareCell &cell = bareRows[row][column];
                const auto at = static_cast<lxw_col_t>(column);
                if (cell.kind == BareCell::Text)
                    worksheet_write_string(sheet, static_cast<lxw_row_t>(row), at, cell.text.c_str(), nullptr);
                else if (cell.kind == BareCell::Number)
                    worksheet_write_number(sheet, static_cast<lxw_row_t>(row), at, cell.number, nullptr);
                else if (cell.kind == BareCell::Date)
                    worksheet_write_datetime(sheet, static_cast<lxw_row_t>(row), at, &cell.date, dateFormat);
            }
        }
        if (workbook_close(workbook) != LXW_NO_ERROR)
            state.SkipWithError("the sheet could not be written");
    }
}

void reportSheet(benchmark::State &state)
{
    for (auto _ : state) {
        if (!ReportOutput::writeSpreadsheet(*report, sheetPath()))
            state.SkipWithError("stopped");
    }
}

// For the peer, which reads them once.
QJsonValue jsonOf(const BareCell &cell)
{
    switch (cell.kind) {
    case BareCell::Text:
        return QString::fromStdString(cell.text);
    case BareCell::Number:
        return cell.number;
    case BareCell::Date:
        return QJsonObject{{u"date"_s, QDate(cell.date.year, cell.date.month, cell.date.day).toString(Qt::ISODate)}};
    case BareCell::Nothing:
        break;
    }
    return QJsonValue::Null;
}

void writeCellsForPeer()
{
    QJsonArray rows;
    for (const std::vector<BareCell> &row : bareRows) {
        QJsonArray cells;
        for (const BareCell &cell : row)
            cells.append(jsonOf(cell));
        rows.append(cells);
    }
    QFile file(folder + u"/cells.json"_s);
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(rows).toJson(QJsonDocument::Compact)) < 0)
        qFatal("the cells could not be written");
}

void otherSheet(benchmark::State &state)
{
    const auto peer = WorkProcess::peer(u"write_sheet.py"_s, {folder + u"/cells.json"_s, folder + u"/other.xlsx"_s});
    for (auto _ : state) {
        if (!peer->work())
            state.SkipWithError("the sheet could not be written");
    }
}

// Where the bare page has its rows and columns: as many rows as the report's pages have, widths as the report's.
struct BarePage
{
    int rows = 0;
    std::vector<double> widths;
    QFont font;
};
BarePage barePage;

void barePdf(benchmark::State &state)
{
    constexpr double margin = 140;
    const QVector<KListModel::Row> &rows = report->rows();
    const QVector<ListReport::ShownColumn> columns = report->shownColumns();
    for (auto _ : state) {
        QPdfWriter writer(folder + u"/bare.pdf"_s);
        writer.setResolution(PaperPages::resolution);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins({});
        QPainter painter(&writer);
        painter.setLayoutDirection(Qt::RightToLeft);
        painter.setFont(barePage.font);
        const double line = std::ceil(QFontMetricsF(barePage.font).height() * 1.15);
        for (int row = 0; row < rows.size(); ++row) {
            if (row > 0 && row % barePage.rows == 0)
                writer.newPage();
            double right = writer.width() - margin;
            const double y = margin + (row % barePage.rows + 1) * line;
            for (int i = 0; i < columns.size(); ++i) {
                const double width = barePage.widths[static_cast<size_t>(i)];
                right -= width;
                painter.drawText(QRectF(right, y, width, line), Qt::AlignRight | Qt::TextSingleLine, rows.at(row).cells.at(columns.at(i).column).text);
            }
        }
    }
}

void reportPdf(benchmark::State &state)
{
    for (auto _ : state) {
        if (!ReportOutput::writePdf(*report, pdfPath()))
            state.SkipWithError("stopped");
    }
}

// One run by itself: how long it takes, what memory it adds while it works, how large its file is.
void measure(const char *name, const QString &path, bool (*write)(const ListReport &, const QString &, const ReportProgress &))
{
    releaseFreeMemory();
    const long idle = currentMemory();
    resetPeakMemory();
    QElapsedTimer clock;
    clock.start();
    if (!write(*report, path, {}))
        qFatal("stopped");
    std::printf("%s of 10,000 rows: %.2f s, peak memory over the idle window %.1f MiB, file %.1f MiB\n", name,
                static_cast<double>(clock.elapsed()) / 1000, static_cast<double>(peakMemory() - idle) / 1024,
                static_cast<double>(QFileInfo(path).size()) / (1 << 20));
}

}

BENCHMARK(bareSheet)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();
BENCHMARK(reportSheet)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(9))->UseRealTime();
BENCHMARK(otherSheet)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(5))->UseRealTime();
BENCHMARK(barePdf)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(7))->UseRealTime();
BENCHMARK(reportPdf)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(7))->UseRealTime();

int main(int argc, char **argv)
{
    KApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    const BenchOffice office(contractCount);
    const QTemporaryDir files;
    folder = files.path();

    WriteSetting(u"AutomobilContracts"_s, u"iMaxRows"_s, contractCount);
    CDlgAutomobilContracts contracts;
    contracts.filters().set(u"archive", 0);
    contracts.filters().set(u"returned", 0);
    contracts.filters().set(u"inactive", true);
    contracts.open();
    if (contracts.list()->count() != contractCount)
        qFatal("wrong number of rows");
    ListReport list(u"گالری اتومبیل"_s, u"لیست قراردادها"_s);
    list.setTable(u"List"_s, contracts.list());
    list.buildStandard(u"لیست قراردادها"_s);
    report = &list;

    measure("PDF", pdfPath(), &ReportOutput::writePdf);
    measure("spreadsheet", sheetPath(), &ReportOutput::writeSpreadsheet);
    ReportPainter pages(list);
    if (!pages.layOut())
        return 1;
    std::printf("pages: %d\n", pages.pageCount());
    prepareBareRows();
    writeCellsForPeer();
    barePage = {std::max(1, contractCount / pages.pageCount()), pages.columnWidths(), QApplication::font()};
    barePage.font.setPixelSize(qRound(list.layout().fontSize * PaperPages::resolution / 72.0));
    barePage.font.setHintingPreference(QFont::PreferNoHinting);

    SampleReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.finish() ? 0 : 1;
}
