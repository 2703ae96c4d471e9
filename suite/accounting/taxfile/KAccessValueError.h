// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/frame/KAccountingError.h"

#include <QStringList>

// A value that a column of an Access file does not take. It names table, column and record as the file does; who knows what they
// are to the user says it again with retold.
class TZACCOUNTINGDATA_EXPORT KAccessValueError : public KAccountingError
{
public:
    // The helper's words about it: its code, the table, the column, the record from 1, and the most characters or the value.
    explicit KAccessValueError(const QStringList &words);
    ~KAccessValueError() override;

    // Whether an error of that code is one.
    static bool isAbout(const QString &code);

    QString table() const { return m_words.value(1); }
    QString column() const { return m_words.value(2); }
    int record() const { return m_words.value(3).toInt(); }
    // The same about a record and a column of other names.
    KAccountingError retold(const QString &record, const QString &column) const;

private:
    QStringList m_words;
};
