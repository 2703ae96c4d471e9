// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CarTwins.h"

#include "suite/accounting/search/SearchKinds.h"

using namespace Qt::StringLiterals;

const QList<CarTwins::Field> &CarTwins::fields()
{
    static const QList<Field> fields{
        {u"sNumOfPlates"_s, Twins::Sort::Plate, u"پلاک"_s},
        {u"sChassisNum"_s, Twins::Sort::Number, u"شماره شاسی"_s},
        {u"sNumOfEngines"_s, Twins::Sort::Number, u"شماره موتور"_s},
        {u"sVIN"_s, Twins::Sort::Number, u"VIN"_s},
    };
    return fields;
}

std::optional<Twin> CarTwins::find(const Field &field, const QString &text, qint32 exceptID, int database)
{
    return Twins::find(SearchKinds::Cars, field.column, field.sort, text, exceptID, database);
}
