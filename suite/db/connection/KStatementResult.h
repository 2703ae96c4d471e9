// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/KConnection.h"

// The rows that a free statement returned and the one of them that is read now. Empty until set.
class KStatementResult
{
public:
    // Stands on the first row; a null result has none.
    void set(KConnection::Result rows);
    void clear() { set({}); }

    qint64 rowCount() const;
    bool hasRow() const { return m_row != nullptr; }
    // To the next row; false when there is none. To be called on a row only.
    bool moveNext();

    // Value of the row, columns from 0, as one of the types of KColumnValue: qint32, double, QString, QDateTime, KLongBinary.
    // NULL, a missing column and no row read as a constructed one.
    template <class Value>
    Value value(int column) const;

private:
    const char *cell(int column) const;

    KConnection::Result m_rows;
    char **m_row = nullptr;
    const unsigned long *m_lengths = nullptr;
};
