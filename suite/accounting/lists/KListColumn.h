// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/lists/KListModel.h"

#include <QStringList>

#include <functional>

class KMySQL;

// A column of a list page: a row of the page's column table. A cell is what cell or show makes of the record, else the value of
// the record column as its kind reads: a text, a whole number, an amount, a Shamsi date.
struct TZACCOUNTING_EXPORT KListColumn
{
    using Cell = KListModel::Cell;

    QString key; // plain English, unique in the list: code and tests name the column by it
    QString title;
    int width = 80; // as KListModel::Column::width
    Qt::Alignment alignment = Qt::AlignCenter;
    QString sortKey = {};                                      // what a click on the title sorts by; empty: it does not sort
    QString column = {};                                       // the record column that is shown
    std::function<Cell(const QVariant &value)> show = {};      // the cell of a value of that column; empty: as its kind reads
    std::function<Cell(KMySQL &record, int number)> cell = {}; // the cell of a record, numbers counting from 1; goes before column
    QStringList reads = {};                                    // further record columns that cell, counts and warns read
    QString lookup = {};                                       // record column of keys whose names are shown, looked up for all rows at once;
                                                               // the cell is what stands where a key has no name
    QString emptyText = {};                                    // stands where the text would be empty
    bool isCode = false;                                       // as KListModel::Column::isCode
    bool countsRows = false;                                   // as KListModel::Column::countsRows
    bool optional = false;                                     // as KListModel::Column::optional; while it is off, nothing is read for it
    int widthOnceOn = 0;                                       // as KListModel::Column::widthOnceOn
    bool sums = false;                                         // as KListModel::Column::sums
    QString sumsBy = {};                                       // as KListModel::Column::sumsBy
    std::function<bool(KMySQL &record)> counts = {};           // of a column that sums: whether the record's amount counts; empty: each does
    std::function<bool(KMySQL &record)> warns = {};            // whether the cell of that record stands out; empty: it does not

    // The running number of the row.
    static KListColumn rowNumber(int width = 40);
    // For show: "بلی" for all but 0, else "-".
    static Cell yesOrDash(const QVariant &value);
    // For cell: an amount; a whole number.
    static Cell money(double amount);
    static Cell number(int number);
    // For cell: made of a record of that class.
    template <class Record, class Make>
    static std::function<Cell(KMySQL &, int)> of(Make make)
    {
        return [make](KMySQL &record, int) { return Cell(make(static_cast<const Record &>(record))); };
    }
};
