// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/CarListColumns.h"

#include "auto/cars/register/gallery/CarStanding.h"
#include "auto/cars/web/PublicCars.h"
#include "auto/cars/web/PublicCondition.h"
#include "auto/db/AutomobilInformationColumns.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/KLookup.h"
#include "suite/utility/lists/KExtListCtrl.h"

using namespace Qt::StringLiterals;

namespace {

const QString mileageKey = u"mileage"_s;

KListColumn::Cell standingCell(KMySQL &record, int)
{
    const auto &car = static_cast<const AutomobilInformationColumns &>(record);
    const std::optional<int> days = CarStanding::days(car.m_dateIntroduction.date(), car.m_bSold != 0, QDate::currentDate());
    return days ? KListColumn::number(*days) : KListColumn::Cell{};
}

}

// The longest standing first: the first click on that title sorts by the date of introduction.
QList<KListColumn> CarListColumns::further()
{
    return {
        {.key = u"vin"_s, .title = u"VIN"_s, .width = 90, .sortKey = u"ai.sVIN"_s, .column = u"ai.sVIN"_s, .isCode = true, .optional = true},
        {.key = mileageKey, .title = u"کارکرد (کیلومتر)"_s, .width = 60, .sortKey = u"ai.iFunction"_s, .optional = true},
        {.key = u"standing"_s, .title = u"روزهای ماندن"_s, .width = 50, .sortKey = u"ai.dateIntroduction"_s, .cell = standingCell, .reads = {u"ai.dateIntroduction"_s, u"ai.bSold"_s}, .optional = true},
        {.key = webKey(), .title = PublicCondition::caption(), .width = 60, .optional = true},
    };
}

QString CarListColumns::webKey()
{
    return u"web"_s;
}

// Neither is a column of the joined view.
bool CarListColumns::completes(const KExtListCtrl &list)
{
    return list.isColumnShown(mileageKey) || list.isColumnShown(webKey());
}

void CarListColumns::complete(const KExtListCtrl &list, QVector<KListModel::Row> &rows)
{
    QList<int> cars;
    for (const KListModel::Row &row : std::as_const(rows))
        cars.append(row.key);
    if (list.isColumnShown(mileageKey)) {
        const QHash<int, QString> mileages = KLookup::names({u"AutomobilInformations"_s, u"iID"_s, u"iFunction"_s}, cars);
        for (KListModel::Row &row : rows) {
            if (const int mileage = mileages.value(row.key).toInt(); mileage > 0)
                row.cells[list.columnOf(mileageKey)] = KListColumn::number(mileage);
        }
    }
    if (list.isColumnShown(webKey())) {
        const QSet<qint32> ticked = PublicCars::among(cars);
        for (KListModel::Row &row : rows)
            row.cells[list.columnOf(webKey())] = KListColumn::yesOrDash(ticked.contains(row.key));
    }
}
