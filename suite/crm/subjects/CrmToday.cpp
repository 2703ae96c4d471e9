// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/subjects/CrmToday.h"

#include "suite/accounting/today/TodayPlans.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int oldestAge = 100;

KSql dueReminders(const TodayFrame &frame)
{
    return KSql::formatted("iStatus=0 AND iUserID=%1 AND date<", frame.userID) + frame.begin(1);
}

KSql remindersOf(const TodayFrame &frame)
{
    return "SELECT iID,date,sDesc,'' about,COUNT(*) OVER() found FROM Alarms WHERE " + dueReminders(frame) + KSql::formatted(" ORDER BY date,iID LIMIT %1", int(TodayContent::mostLines));
}

// Everybody who was born on this day of the Shamsi year: one day of each year, which an index finds.
KSql bornToday(const TodayFrame &frame)
{
    const ShamsiDate today = GetShamsi(frame.today);
    QList<KSql> days;
    for (int age = 1; age <= oldestAge; ++age) {
        // Who was born on the last day of a leap year is congratulated in other years on the day before.
        const int year = today.year - age;
        for (int day = today.day; day <= (today.month == 12 && today.day == shamsiDaysInMonth(today.year, 12) ? 30 : today.day); ++day) {
            if (const QDate born = ConvertToMiladi(year, today.month, day); born.isValid())
                days.append(DateToSQL(QDateTime(born, QTime(0, 0), Qt::UTC)));
        }
    }
    return days.isEmpty() ? KSql("1=0") : "iStatus=0 AND dateBirth IN (" + KSql::joined(days, ",") + ")";
}

TodayContent birthdays(const TodayFrame &frame)
{
    TodayContent content;
    content.listTable = u"Persons"_s;
    content.request = {.condition = bornToday(frame), .conditionText = u"زادروز امروز"_s};
    CTblTemp query(frame.database);
    query.ExecuteQuery("SELECT iID,sName2,COALESCE(NULLIF(sMobile,''),sTel),dateBirth,COUNT(*) OVER() FROM Persons WHERE " + bornToday(frame)
                       + KSql::formatted(" ORDER BY sName2,iID LIMIT %1", int(TodayContent::mostLines)));
    for (; query.HasResultRow(); query.MoveNextResult()) {
        const int age = GetShamsi(frame.today).year - GetShamsi(query.GetDateFieldValue(3).date()).year;
        content.count = query.GetLongFieldValue(4);
        content.lines.append({.table = u"Persons"_s,
                              .key = query.GetLongFieldValue(0),
                              .name = query.GetTextFieldValue(1),
                              .line = query.GetTextFieldValue(2),
                              .chip = u"%1 سالگی"_s.arg(age),
                              .tone = TodayTone::Good});
    }
    content.tone = content.count > 0 ? TodayTone::Good : TodayTone::Quiet;
    return content;
}

}

void CrmToday::enter()
{
    TodayPlans::add({.card = {.id = u"reminders"_s, .title = u"یادآوری‌های امروز"_s, .icon = u":/icons/calendar.svg"_s, .column = TodayCard::People, .rank = 0, .emptyText = u"برای امروز یادآوری ندارید."_s, .countText = u"%1 یادآوری"_s},
                     .table = u"Alarms"_s,
                     .select = &remindersOf,
                     .request = [](const TodayFrame &frame) { return KListRequest{.condition = dueReminders(frame), .conditionText = u"تا امروز"_s}; }});
    TodayCards::enter({.form = u"Persons"_s,
                       .cards = {{.id = u"birthdays"_s, .title = u"زادروزهای امروز"_s, .icon = u":/icons/users.svg"_s, .column = TodayCard::People, .rank = 4}},
                       .read = [](const TodayFrame &frame) { return QList{birthdays(frame)}; }});
}
