// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/PublicCars.h"

#include "auto/cars/web/PublicCondition.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblPublicCars.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"

using namespace Qt::StringLiterals;

namespace {

const QString carForm = u"AutomobilInformations"_s;

QList<qint32> keysBy(const KSql &statement, int database)
{
    QList<qint32> keys;
    CTblTemp query(database);
    query.Open(true, false, true);
    for (query.ExecuteQuery(statement); query.HasResultRow(); query.MoveNextResult())
        keys.append(query.GetLongFieldValue(0));
    return keys;
}

// Those that are there. Whoever deletes or ticks one of them waits until the unit ends; in the order of their keys, so that two who mark
// the same cars do not wait crosswise.
QList<qint32> lockedCars(const QList<qint32> &cars, int database)
{
    return keysBy("SELECT iID FROM AutomobilInformations WHERE iID IN (" + KSql::list(cars) + ") ORDER BY iID FOR UPDATE", database);
}

void tick(qint32 car, const QDateTime &now, int database)
{
    CTblPublicCars row(database);
    row.Open(false, false, true);
    row.AddNew();
    row.m_iCarID = car;
    row.m_iUserID = GetDBSetting()->GetUserID();
    row.m_dateCreate = now;
    row.Update(true);
}

void note(qint32 car, bool ticked, int database)
{
    const auto word = [](bool on) { return on ? u"بلی"_s : u"خیر"_s; };
    RecordSubjects::noteOn(CTblAutomobilInformations::recordKind, car, u"PublicCars"_s, {{PublicCondition::caption(), word(!ticked), word(ticked)}}, database);
}

}

int PublicCars::set(const QList<qint32> &cars, bool ticked, int *gone, int database)
{
    int changed = 0;
    qsizetype there = 0;
    if (gone)
        *gone = 0;
    if (cars.isEmpty())
        return 0;
    KTransaction::runReplayable(
        [&] {
            const QList<qint32> locked = lockedCars(cars, database);
            OfficeClosing::requireOpen(database);
            KSecurity::forgetRights();
            if (!KSecurity::IsGranted(carForm, KSecurity::Modify))
                throw KAccountingError(KSecurity::refusalText(carForm, KSecurity::Modify));
            const QSet<qint32> before = among(locked, database);
            QList<qint32> others = locked;
            others.removeIf([&](qint32 car) { return before.contains(car) == ticked; });
            const QDateTime now = GetDBSetting()->GetDBServerDate();
            for (const qint32 car : std::as_const(others)) {
                if (ticked)
                    tick(car, now, database);
                else
                    CTblPublicCars::deleteOf(car, database);
                note(car, ticked, database);
            }
            changed = int(others.size());
            there = locked.size();
        },
        database);
    if (gone)
        *gone = int(QSet<qint32>(cars.cbegin(), cars.cend()).size() - there);
    return changed;
}

QSet<qint32> PublicCars::among(const QList<qint32> &cars, int database)
{
    if (cars.isEmpty())
        return {};
    const QList<qint32> found = keysBy("SELECT iCarID FROM PublicCars WHERE iCarID IN (" + KSql::list(cars) + ")", database);
    return {found.cbegin(), found.cend()};
}

// What is not saved yet is nothing for strangers either.
KSql PublicCars::isShown()
{
    return PublicCondition::onOffer() + " AND " + Placeholders::none(carForm, u"ai.iID"_s);
}

int PublicCars::shownCount(int database)
{
    return keysBy("SELECT COUNT(*) FROM AutomobilInformations ai WHERE " + isShown(), database).value(0);
}
