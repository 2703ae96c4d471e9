// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/twins/Twins.h"

#include <QList>

// Another car of the register with the same VIN, plate, chassis or engine number.
namespace CarTwins {

struct Field
{
    QString column;
    Twins::Sort sort = Twins::Sort::Number;
    QString name; // "شماره شاسی"
};

const QList<Field> &fields();
std::optional<Twin> find(const Field &field, const QString &text, qint32 exceptID, int database = 0);

}
