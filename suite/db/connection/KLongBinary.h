// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

// Value of a LONGBLOB column. Empty and NULL are the same.
struct KLongBinary
{
    QByteArray data;

    bool isEmpty() const { return data.isEmpty(); }
    bool operator==(const KLongBinary &) const = default;
};
