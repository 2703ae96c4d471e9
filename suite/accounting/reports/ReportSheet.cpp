// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/reports/ReportSheet.h"

#include "suite/utility/values/Money.h"

#include <QFile>
#include <QFileInfo>
#include <QStringEncoder>
#include <QUuid>

#include <xlsxwriter.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowsPerStep = 500;
constexpr uint8_t a4 = 9;
constexpr uint8_t readsFromTheRight = 2;
constexpr qsizetype longestSheetName = 31;
constexpr qsizetype longestCellText = 32767; // of a spreadsheet
constexpr double widestSheetColumn = 60;          // characters
// A spreadsheet counts its days from here; earlier ones stay text.
const QDate firstSheetDate(1900, 3, 1);

// The characters that a sheet's name may not hold become blanks.
QByteArray sheetName(QString title)
{
    for (QChar &character : title) {
        if (u"[]:*?/\\'"_s.contains(character))
            character = u' ';
    }
    title = title.simplified().left(longestSheetName).trimmed();
    return title.isEmpty() ? QByteArray("Sheet1") : title.toUtf8();
}

// In a page header & begins a command.
QByteArray headerText(QString title)
{
    return u"&C"_s.append(title.left(100).replace(u'&', u"&&"_s)).toUtf8();
}

lxw_datetime sheetDate(const QDate &date)
{
    return {date.year(), date.month(), date.day(), 0, 0, 0.0};
}

uint8_t horizontal(Qt::Alignment alignment)
{
    if (alignment & Qt::AlignHCenter)
        return LXW_ALIGN_CENTER;
    return alignment & Qt::AlignLeft ? LXW_ALIGN_LEFT : LXW_ALIGN_RIGHT;
}

std::filesystem::path nativePath(const QString &path)
{
    return path.toStdU16String();
}

}

ReportSheet::ReportSheet(const ListReport &report)
    : m_report(report)
{
    std::vector<SheetColumn> dates;
    for (const ListReport::ShownColumn &shown : report.shownColumns()) {
        m_columns.push_back({shown.column, false});
        if (report.columns().at(shown.column).isDate)
            dates.push_back({shown.column, true});
    }
    m_columns.insert(m_columns.end(), dates.begin(), dates.end());
}

ReportSheet::Result ReportSheet::write(const QString &path, const ReportProgress &progress)
{
    const QString aside = path + u'.' + QUuid::createUuid().toString(QUuid::Id128) + u".part"_s;
    const QByteArray name = QFile::encodeName(aside);
    // Opened once here first: the library reports a folder that cannot be written to only at the very end.
    if (QFile probe(aside); !probe.open(QIODevice::WriteOnly))
        return Failed;
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    lxw_workbook *workbook = workbook_new_opt(name.constData(), &options);
    Result result = workbook ? fill(workbook, progress) : Failed;
    if (workbook && result == Written)
        result = workbook_close(workbook) == LXW_NO_ERROR ? Written : Failed;
    else if (workbook)
        lxw_workbook_free(workbook);
    std::error_code error;
    if (result == Written) {
        std::filesystem::rename(nativePath(aside), nativePath(path), error);
        if (error)
            result = Failed;
    }
    if (result != Written)
        QFile::remove(aside);
    return result;
}

ReportSheet::Result ReportSheet::fill(lxw_workbook *workbook, const ReportProgress &progress)
{
    lxw_worksheet *sheet = workbook_add_worksheet(workbook, sheetName(m_report.shownTitle()).constData());
    if (!sheet)
        return Failed;
    makeFormats(workbook);
    arrange(sheet);
    writeTitles(workbook, sheet);
    const QVector<KListModel::Row> &rows = m_report.rows();
    for (int row = 0; row < rows.size(); ++row) {
        if (progress && row % rowsPerStep == 0 && !progress(row, static_cast<int>(rows.size())))
            return Stopped;
        if (!writeRow(sheet, static_cast<unsigned>(row) + 1, rows.at(row)))
            return Failed;
    }
    for (size_t i = 0; i < m_columns.size(); ++i) {
        const auto column = static_cast<lxw_col_t>(i);
        worksheet_set_column(sheet, column, column, std::min(static_cast<double>(m_columns[i].longest) + 3, widestSheetColumn), nullptr);
    }
    return Written;
}

// One for each look: of two that look alike the library knows only the first by its number, and compares the other at every cell.
void ReportSheet::makeFormats(lxw_workbook *workbook)
{
    const int decimals = defaultMoneyDecimals();
    const QByteArray moneyFormat = decimals > 0 ? "#,##0." + QByteArray(decimals, '0') : QByteArray("#,##0");
    std::map<std::tuple<uint8_t, QByteArray, bool>, lxw_format *> made;
    for (SheetColumn &column : m_columns) {
        const uint8_t align = horizontal(m_report.columns().at(column.source).alignment);
        const auto make = [&](const QByteArray &numberFormat, bool rightToLeft) {
            lxw_format *&format = made[{align, numberFormat, rightToLeft}];
            if (format)
                return format;
            format = workbook_add_format(workbook);
            format_set_align(format, align);
            if (!numberFormat.isEmpty())
                format_set_num_format(format, numberFormat.constData());
            if (rightToLeft)
                format_set_reading_order(format, readsFromTheRight);
            return format;
        };
        if (column.dateValue) {
            column.format = make("yyyy\\-mm\\-dd", false);
            continue;
        }
        column.format = make({}, !m_report.columns().at(column.source).isDate);
        column.whole = make("0", false);
        column.money = make(moneyFormat, false);
    }
}

void ReportSheet::arrange(lxw_worksheet *sheet)
{
    worksheet_right_to_left(sheet);
    worksheet_freeze_panes(sheet, 1, 0);
    worksheet_set_paper(sheet, a4);
    if (m_report.layout().landscape)
        worksheet_set_landscape(sheet);
    worksheet_fit_to_pages(sheet, 1, 0);
    worksheet_repeat_rows(sheet, 0, 0);
    worksheet_set_header(sheet, headerText(m_report.shownTitle()).constData());
    worksheet_set_footer(sheet, "&C&P / &N");
    if (!m_columns.empty())
        worksheet_autofilter(sheet, 0, 0, static_cast<lxw_row_t>(m_report.rows().size()), static_cast<lxw_col_t>(m_columns.size() - 1));
}

void ReportSheet::writeTitles(lxw_workbook *workbook, lxw_worksheet *sheet)
{
    lxw_format *format = workbook_add_format(workbook);
    format_set_bold(format);
    format_set_align(format, LXW_ALIGN_CENTER);
    format_set_bg_color(format, 0xe9edf2);
    format_set_bottom(format, LXW_BORDER_THIN);
    format_set_reading_order(format, readsFromTheRight);
    for (size_t i = 0; i < m_columns.size(); ++i) {
        const QString title = titleOf(m_columns[i]);
        m_columns[i].longest = title.size() + 2; // and the filter's arrow
        worksheet_write_string(sheet, 0, static_cast<lxw_col_t>(i), title.toUtf8().constData(), format);
    }
}

QString ReportSheet::titleOf(const SheetColumn &column) const
{
    const QString &title = m_report.columns().at(column.source).title;
    return column.dateValue ? title + u" (میلادی)"_s : title;
}

bool ReportSheet::writeRow(lxw_worksheet *sheet, unsigned row, const KListModel::Row &from)
{
    lxw_col_t at = 0;
    for (SheetColumn &column : m_columns) {
        if (column.source < from.cells.size() && !writeCell(sheet, row, at, column, from.cells.at(column.source)))
            return false;
        ++at;
    }
    return true;
}

bool ReportSheet::writeCell(lxw_worksheet *sheet, unsigned row, unsigned short column, SheetColumn &target,
                            const KListModel::Cell &cell)
{
    target.longest = std::max(target.longest, cell.text.size());
    if (target.dateValue) {
        const QDate date = cell.value.toDate();
        if (!date.isValid() || date < firstSheetDate)
            return true;
        lxw_datetime value = sheetDate(date);
        return worksheet_write_datetime(sheet, row, column, &value, target.format) == LXW_NO_ERROR;
    }
    // What the list shows empty is empty here, also where it sorts by a number behind it.
    if (std::ranges::all_of(cell.text, [](QChar character) { return character.isSpace(); }))
        return true;
    switch (cell.value.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
        return worksheet_write_number(sheet, row, column, cell.value.toDouble(), target.whole) == LXW_NO_ERROR;
    case QMetaType::Double:
        return worksheet_write_number(sheet, row, column, cell.value.toDouble(), target.money) == LXW_NO_ERROR;
    default:
        break;
    }
    return worksheet_write_string(sheet, row, column, utf8(QStringView(cell.text).left(longestCellText)), target.format) == LXW_NO_ERROR;
}

// Valid until the next call.
const char *ReportSheet::utf8(QStringView text)
{
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    m_utf8.resize(encoder.requiredSpace(text.size()) + 1);
    *encoder.appendToBuffer(m_utf8.data(), text) = '\0';
    return m_utf8.constData();
}
