// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListColumn.h"
#include "suite/db/records/KMySQL.h"

#include <QSet>

#include <functional>

// The longest figure that a column of a list shows in any of its rows (KListModel::longestFigure), found while a record set goes through
// them and without a cell for each: of amounts and numbers the lowest and the highest tell it, of words their numbers.
class KListFigures
{
public:
    // value: the record column that the cells show; null where none is. It outlives the object.
    KListFigures(const KListColumn &column, const KMySQL::Column *value);

    // The row of the record that the set stands on now. make: its cell.
    void note(const std::function<KListModel::Cell()> &make);
    // A text that may stand in the column besides.
    void noteText(const QString &text);

    QString longest() const;

private:
    enum class Kind {
        Plain,   // the member as its type reads
        Words,   // made of a whole number alone
        Counted, // the running number
        Made     // of whatever the column likes
    };

    void note(const double *amount) { noteAmount(*amount); }
    void note(const qint32 *number) { noteAmount(*number); }
    void note(const QString *text) { noteText(*text); }
    void note(const QDateTime *date);
    void note(const KLongBinary *) { }
    void noteAmount(double amount);
    void noteWords(const std::function<KListModel::Cell()> &make);
    void noteMade(const std::function<KListModel::Cell()> &make);
    void noteCell(const KListModel::Cell &cell);

    KListModel::Column m_column; // what tells how its texts read
    const KMySQL::Column *m_value;
    Kind m_kind = Kind::Made;
    int m_noted = 0;
    bool m_hasFigures = false;
    double m_lowest = 0;
    double m_highest = 0;
    QSet<qint32> m_known;
    QString m_longest;
};
