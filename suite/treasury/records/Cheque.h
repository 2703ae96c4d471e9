// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QString>

// What stands on a cheque, without its amount and who hands it over.
struct Cheque
{
    QString sayad;  // its number in the central bank's register: 16 digits
    QString number; // the one printed on the leaf
    QString bank;
    QString branch;
    QString branchCode;
    QDateTime due;
    QString drawer; // empty: whoever hands it over

    bool operator==(const Cheque &) const = default;
};
