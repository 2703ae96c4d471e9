// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

// The list of 10,000 contracts to a PDF file and to a spreadsheet; the spreadsheet against a bare loop of the library over
// the same cells, made ready beforehand.

#include "bench/BenchOffice.h"
#include "bench/RatioReporter.h"
#include "bench/Trial.h"

#include "auto/contracts/CDlgAutomobilContracts.h"
#include "suite/accounting/frame/KApplication.h"
#include "suite/accounting/reports/ReportOutput.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/KSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileInfo>

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
BENCHMARK(reportPdf)->Unit(benchmark::kMillisecond)->Repetitions(Trial::repetitions(3))->UseRealTime();

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

    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return reporter.printRatio("spreadsheet of 10,000 rows / bare loop of the library", "reportSheet", "bareSheet", 1.5) ? 0 : 1;
}
