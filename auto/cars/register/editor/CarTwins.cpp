// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CarTwins.h"

#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/search/SearchKinds.h"

using namespace Qt::StringLiterals;

const QList<CarTwins::Field> &CarTwins::fields()
{
    static const QList<Field> fields{
        {u"sNumOfPlates"_s, Twins::Sort::Plate, u"پلاک"_s, TwinSettings::plate},
        {u"sChassisNum"_s, Twins::Sort::Number, u"شماره شاسی"_s, TwinSettings::chassis},
        {u"sNumOfEngines"_s, Twins::Sort::Number, u"شماره موتور"_s, TwinSettings::engine},
        {u"sVIN"_s, Twins::Sort::Number, u"VIN"_s, TwinSettings::vin},
    };
    return fields;
}

QString CarTwins::Field::ofCar() const
{
    return name + u" این خودرو"_s;
}

std::optional<Twin> CarTwins::find(const Field &field, const QString &text, qint32 exceptID, int database)
{
    return Twins::find(SearchKinds::Cars, field.column, field.sort, text, exceptID, database);
}

void CarTwins::requireAllowed(CTblAutomobilInformations &car)
{
    // The row is still as it was; a new one has none.
    CTblAutomobilInformations stored(car.database());
    QStringList columns;
    for (const Field &field : fields())
        columns.append(field.column);
    stored.SetColumns(columns);
    const bool isStored = car.m_iID > 0 && stored.IsRecordExist(u"iID"_s, car.m_iID);
    for (const Field &field : fields()) {
        const QString text = car.value(field.column).toString();
        if (text.trimmed().isEmpty() || (isStored && stored.value(field.column).toString() == text) || !TwinSettings::binds(field.refused, car.database()))
            continue;
        if (const std::optional<Twin> twin = find(field, text, car.m_iID, car.database()))
            throw FieldRefused(TwinSettings::refusal(field.ofCar(), *twin), field.column);
    }
}
