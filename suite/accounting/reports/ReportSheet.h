// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/ReportPainter.h"

#include <memory>
#include <vector>

struct lxw_format;
struct lxw_workbook;
struct lxw_worksheet;

// The spreadsheet of a list report (see ReportOutput::writeSpreadsheet). Rows stream into the file: memory does not grow with
// their number.
class ReportSheet
{
public:
    enum Result {
        Written,
        Stopped, // progress asked to; nothing is left behind
        Failed
    };

    explicit ReportSheet(const ListReport &report);

    [[nodiscard]] Result write(const QString &path, const ReportProgress &progress);

private:
    struct SheetColumn
    {
        int source;     // column of the table
        bool dateValue; // the date behind the column's text
        lxw_format *format = nullptr;
        lxw_format *whole = nullptr;
        lxw_format *money = nullptr;
        qsizetype longest = 0; // characters
    };

    Result fill(lxw_workbook *workbook, const ReportProgress &progress);
    void makeFormats(lxw_workbook *workbook);
    void arrange(lxw_worksheet *sheet);
    void writeTitles(lxw_workbook *workbook, lxw_worksheet *sheet);
    bool writeRow(lxw_worksheet *sheet, unsigned row, const KListModel::Row &from);
    bool writeCell(lxw_worksheet *sheet, unsigned row, unsigned short column, SheetColumn &target, const KListModel::Cell &cell);
    QString titleOf(const SheetColumn &column) const;
    const char *utf8(QStringView text);

    const ListReport &m_report;
    std::vector<SheetColumn> m_columns;
    QByteArray m_utf8; // of the text under way
};
