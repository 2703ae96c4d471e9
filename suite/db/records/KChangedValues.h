// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/TzDBExport.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QVariant>

// What a change did to one column: its values before and after, as KColumn::value() returns them. Invalid: the column was empty
// (NULL, an empty text, no date, 0 of a row that did not exist).
struct KChangedValue
{
    QString column;
    QVariant before;
    QVariant after;
    // The column's values are never noted, only that they changed.
    bool isSecret = false;
};

// The changed columns of one row, as the table Changes keeps them: a JSON array of [column, before, after], [column] for a
// secret one. Numbers stay numbers, dates are texts of ISO 8601 without a zone, of binary data only its size in bytes is kept.
class TZDB_EXPORT KChangedValues
{
public:
    static QByteArray toJson(const QList<KChangedValue> &values);
    // Values that cannot be read are left out: a history that is damaged in one row is still shown. Dates come back as texts.
    static QList<KChangedValue> fromJson(const QByteArray &json);
};
