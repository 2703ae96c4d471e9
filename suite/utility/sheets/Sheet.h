// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/sheets/TzSheetsExport.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <exception>
#include <string>

// A cell as it was read: what a reader of the file sees, and what it means where the file says so.
struct SheetCell
{
    enum class Kind {
        Text, // also of a file that knows nothing else
        Number,
        Date, // Gregorian, or the day that a spreadsheet's count of days stands for
        Flag,
        Error // what a formula could not compute
    };

    QString text; // a number in its shortest plain form, a date as 2026-03-21, a flag as 1 or 0; empty: there is nothing
    Kind kind = Kind::Text;
    double number = 0;
    QDate date = {};

    bool isEmpty() const { return text.isEmpty(); }
};

// One sheet of a file. Rows have the cells up to the last one that holds something; a row without any is empty and keeps its place,
// so that row n of the list is row n+1 of the file.
struct Sheet
{
    QString name; // empty: the file has no names
    QList<QList<SheetCell>> rows;

    SheetCell cell(qsizetype row, qsizetype column) const { return rows.value(row).value(column); }
    qsizetype columns() const
    {
        qsizetype widest = 0;
        for (const QList<SheetCell> &row : rows)
            widest = qMax(widest, row.size());
        return widest;
    }
};

// Why a file is not read.
class TZSHEETS_EXPORT SheetError : public std::exception
{
public:
    enum class Trouble {
        TooLarge,
        TooManyRows,
        TooManyColumns,
        OldFormat, // the binary one of spreadsheets before 2007
        NotText,   // neither a spreadsheet nor text
        OpenQuote, // a quoted cell that does not end; row: where it begins
        Damaged,   // looks like a spreadsheet and cannot be read
        Empty      // nothing in it
    };

    explicit SheetError(Trouble trouble, int row = 0, std::string detail = {})
        : m_trouble(trouble)
        , m_row(row)
        , m_detail(std::move(detail)) { }

    Trouble trouble() const { return m_trouble; }
    int row() const { return m_row; }                                       // from 1; 0: the file as a whole
    const char *what() const noexcept override { return m_detail.c_str(); } // in English, for the log

private:
    Trouble m_trouble;
    int m_row;
    std::string m_detail;
};
