// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/connection/CMySQLException.h"
#include "suite/db/connection/KLongBinary.h"
#include "suite/db/TzDBExport.h"

#include <QDateTime>
#include <QVariant>

#include <variant>

class KTableSchema;

// A column of a record class, bound to the member that holds its value in the current row. Names are compared exactly.
struct TZDB_EXPORT KColumn
{
    enum class Kind {
        Long,
        Text,
        Date,
        Double,
        Bool, // a number of one byte
        LongBlob
    };
    // The record's own member.
    using Member = std::variant<qint32 *, double *, QString *, QDateTime *, KLongBinary *>;

    QString name;
    Kind kind;
    Member member;
    QString caption;
    QString lookupTable;
    QString lookupKey;
    QString lookupDisplay;

    QVariant value() const;
    void setValue(const QVariant &value) const;
    // Sets the member to its value as constructed.
    void clear() const;
    // Whether the member is as constructed: 0, empty, no date.
    bool isEmpty() const;
    // Whether the member still holds what value() returned earlier. NULL and the empty value are the same.
    bool isStill(const QVariant &before) const;
    // The member as it stands in a statement. Throws ValueTooLong for a value that no column of that kind holds.
    QByteArray literal() const;
    // Throws ValueTooLong or BadCharacter, with the caption, when the text member does not fit its column in the database.
    void requireFits(const KTableSchema &schema) const;

private:
    [[noreturn]] void refuse(CMySQLException::Category category, const char *why) const;
};
