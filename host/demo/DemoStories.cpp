// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoStories.h"

#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/treasury/followups/CTblFollowUps.h"

#include <QTime>

using namespace Qt::StringLiterals;

namespace {

struct Said
{
    int daysAgo;
    CTblFollowUps::Kind kind;
    QStringView note;
    int nextAfter; // days from the last day; below 0: no next date
};

constexpr Said aboutCars[] = {
    {21, CTblFollowUps::call, u"مالک گفت تا پنج درصد پایین می‌آید", -1},
    {9, CTblFollowUps::note, u"لاستیک‌ها تازه عوض شده؛ فاکتور را می‌آورد", -1},
};

// One each, of the newest cars.
constexpr Said planned[] = {
    {2, CTblFollowUps::call, u"خریدار پس‌فردا برای کارشناسی می‌آید", 0},
    {1, CTblFollowUps::note, u"سند را از مالک بگیرم", 0},
};

void say(int recordKind, int recordID, const Said &said, int userID, const QDate &lastDay, int database)
{
    CTblFollowUps row(database);
    row.Open(false, false, true);
    row.AddNew();
    row.m_iTable = recordKind;
    row.m_iRecordID = recordID;
    row.m_iKind = said.kind;
    row.m_date = QDateTime(lastDay.addDays(-said.daysAgo), QTime(10, 15).addSecs(recordID % 50 * 60), Qt::UTC);
    row.m_sNote = said.note.toString();
    row.m_datePromised = said.nextAfter < 0 ? QDateTime() : lastDay.addDays(said.nextAfter).startOfDay(Qt::UTC);
    row.m_iUserID = userID;
    row.Update(true);
}

// As the log of changes would have noted it then.
void lowerPrice(int car, double now, int daysAgo, double before, int userID, const QDate &lastDay, int database)
{
    const QByteArray values = KChangedValues::toJson({{u"dAmount"_s, before, now}});
    CTblTemp note(database);
    note.Open(false, false, true);
    note.ExecuteQuery(KSql::formatted("INSERT INTO Changes(sTable,iRecordID,iKind,iUserID,sComputer,date,sValues) VALUES('AutomobilInformations',%1,1,%2,'demo',%3+INTERVAL 990 MINUTE,%4)",
                                      car, userID, DateToSQL(lastDay.addDays(-daysAgo).startOfDay(Qt::UTC)), KSql::quoted(QString::fromUtf8(values))));
}

}

void DemoStories::write(int cars, int userID, const QDate &lastDay, int database)
{
    CTblAutomobilInformations car(database);
    car.SetColumns({u"dAmount"_s, u"iPersonID"_s});
    // Those that had come before anything was said about them.
    car.m_filter = KSql::formatted("bSold=0 AND dAmount>0 AND dateCreate<%1", DateToSQL(lastDay.addDays(-30).startOfDay(Qt::UTC)));
    car.m_sort = "iID DESC";
    car.SetLimit(cars);
    std::size_t plans = 0;
    for (car.Open(false, true, true); !car.IsEOF(); car.MoveNext()) {
        lowerPrice(car.m_iID, car.m_dAmount * 1.04, 18, car.m_dAmount * 1.1, userID, lastDay, database);
        lowerPrice(car.m_iID, car.m_dAmount, 6, car.m_dAmount * 1.04, userID, lastDay, database);
        for (const Said &said : aboutCars)
            say(CTblAutomobilInformations::recordKind, car.m_iID, said, userID, lastDay, database);
        if (plans < std::size(planned))
            say(CTblAutomobilInformations::recordKind, car.m_iID, planned[plans++], userID, lastDay, database);
        if (car.m_iPersonID > 0)
            say(RecordKind::Person, car.m_iPersonID, {4, CTblFollowUps::call, u"شماره تازه‌اش را داد", -1}, userID, lastDay, database);
    }
}
