// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoToday.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "host/demo/DemoTimes.h"
#include "host/demo/RecordBulkInsert.h"
#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/attachments/CTblCustomFields.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/RightsRoles.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/reminders/CTblAlarm.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/followups/CTblFollowUps.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

struct Colleague
{
    QStringView user; // and password
    QStringView name;
    QStringView role;
};

constexpr Colleague colleagues[] = {
    {u"forush", u"نگار محمدی", u"کارمند فروش"},
    {u"sandogh", u"بهزاد کریمی", u"صندوقدار"},
    {u"hesabdar", u"مینا یزدانی", u"حسابدار"},
};

struct Waiting
{
    int days;
    int hour;
    QStringView text;
};

constexpr Waiting reminders[] = {
    {0, 0, u"تماس با خریدار برای تعیین وقت محضر"},
    {0, 0, u"بردن چک‌های سررسید به بانک"},
    {0, 23, u"تحویل سند خودروی فروخته‌شده"},
    {1, 10, u"آگهی خودروهای تازه در روزنامه"},
    {3, 11, u"تمدید بیمه خودروهای نمایشگاه"},
    {9, 9, u"پرداخت اجاره نمایشگاه"},
};

struct Promise
{
    int days;
    QStringView note;
};

constexpr Promise promises[] = {
    {-1, u"گفت تا دیروز واریز می‌کند، هنوز ننشسته است"},
    {0, u"امروز عصر برای پرداخت می‌آید"},
    {3, u"منتظر وصول چک خودش است، سه روز مهلت خواست"},
};

QList<int> keys(const KSql &statement, int database)
{
    QList<int> keys;
    CTblTemp query(database);
    query.Open(false, false, true);
    for (query.ExecuteQuery(statement); query.HasResultRow(); query.MoveNextResult())
        keys.append(query.GetLongFieldValue(0));
    return keys;
}

void run(const KSql &statement, int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    query.ExecuteQuery(statement);
}

// The seller has written every third contract.
void writeColleagues(int database)
{
    for (const Colleague &colleague : colleagues) {
        const int user = CTblUsers::create(colleague.user.toString(), colleague.user.toString(), colleague.name.toString(), false, database);
        const QHash<QString, int> rights = RightsRoles::rightsOf(colleague.role.toString());
        for (const KSecurity::Form &form : KSecurity::forms())
            KSecurity::setRights(user, form.name, rights.value(form.name));
        if (colleague.role == u"کارمند فروش")
            run(KSql::formatted("UPDATE AutomobilContracts SET iUserID=%1 WHERE MOD(iCode,3)=0", user), database);
    }
}

void writeReminders(int user, const QDate &today, int database)
{
    CTblAlarm alarm(database);
    for (const Waiting &waiting : reminders) {
        alarm.AddNew();
        alarm.m_iUserID = user;
        alarm.m_date = QDateTime(today.addDays(waiting.days), QTime(waiting.hour, waiting.hour == 0 ? 5 : 30), Qt::UTC);
        alarm.m_sDesc = waiting.text.toString();
        // The first page has them; a window of them would stand before all else at the first login.
        alarm.m_dateTold = alarm.m_date;
        alarm.Update(true);
    }
}

// What was said about the instalments that are overdue for longest.
void writePromises(int user, const QDate &today, int database)
{
    CTblTemp overdue(database);
    overdue.Open(false, false, true);
    overdue.ExecuteQuery(KSql::formatted("SELECT p.iID,p.iAutomobilContractID FROM AutomobilPayments p WHERE p.iStatus=0 AND p.date<%1 ORDER BY p.date DESC,p.iID LIMIT %2",
                                         DateToSQL(midnight(today)), int(std::size(promises))));
    CTblFollowUps row(database);
    for (const Promise &promise : promises) {
        if (!overdue.HasResultRow())
            return;
        row.AddNew();
        row.m_iTable = CTblAutomobilContracts::recordKind;
        row.m_iRecordID = overdue.GetLongFieldValue(1);
        row.m_iPaymentID = overdue.GetLongFieldValue(0);
        row.m_iKind = CTblFollowUps::due;
        row.m_date = QDateTime(today.addDays(-3), QTime(11, 20), Qt::UTC);
        row.m_sNote = promise.note.toString();
        row.m_datePromised = midnight(today.addDays(promise.days));
        row.m_iUserID = user;
        row.Update(true);
        overdue.MoveNextResult();
    }
}

// Two customers of the last contracts were born on this day of the year.
void writeBirthdays(const QDate &today, int database)
{
    const QList<int> persons = keys(KSql::formatted("SELECT iID FROM Persons WHERE iKind=%1 AND iStatus=%2 ORDER BY iID DESC LIMIT 2", int(CTblPersons::kindNatural), int(CTblPersons::statusActive)), database);
    const ShamsiDate day = GetShamsi(today);
    int age = 34;
    for (const int person : persons) {
        run(KSql::formatted("UPDATE Persons SET dateBirth=%1 WHERE iID=%2", DateToSQL(midnight(ConvertToMiladi(day.year - age, day.month, qMin(day.day, 29)))), person), database);
        age += 13;
    }
}

// The three cars on the lot whose insurance ends next, one of them already over.
void writeInsurances(const QDate &today, int database)
{
    int days = -4;
    for (const int car : keys("SELECT iID FROM AutomobilInformations WHERE bSold=0 AND iStatus=0 AND iArchiveUserID=0 ORDER BY iID DESC LIMIT 3", database)) {
        const QDate end = today.addDays(days);
        run(KSql::formatted("UPDATE AutomobilInformations SET sInsuranceStatus=%1,dateInsurance=%2 WHERE iID=%3", KSql::quoted(u"شخص ثالث تا %1"_s.arg(shamsiText(end))), DateToSQL(midnight(end)), car), database);
        days += 9;
    }
}

// Yesterday's car is what two of the latest customers asked for.
void writeMatches(int database)
{
    run("UPDATE AutomobilDemands d JOIN (SELECT * FROM AutomobilInformations WHERE bSold=0 AND iStatus=0 AND iArchiveUserID=0 ORDER BY iID DESC LIMIT 1) c "
        "SET d.iAutomobilType=c.iAutomobilType,d.iColor=0,d.iFacilities=0,d.iModelFrom=c.iYear-1,d.iModelUpTo=c.iYear+1,d.dAmountFrom=c.dAmount*0.9,d.dAmountUpTo=c.dAmount*1.05,"
        "d.dateMaxTimeNeed=NULL,d.iStatus=0 WHERE d.iArchiveUserID=0 AND d.iCode>(SELECT m.last FROM (SELECT MAX(iCode)-2 last FROM AutomobilDemands) m)",
        database);
}

void writeFields(int database)
{
    constexpr int contracts = CTblAutomobilContracts::recordKind;
    constexpr int cars = CTblAutomobilInformations::recordKind;
    const int met = CTblCustomFields::define(contracts, u"معرف مشتری"_s, CTblCustomFields::Text, database);
    const int shelf = CTblCustomFields::define(contracts, u"شماره زونکن"_s, CTblCustomFields::Number, database);
    const int owners = CTblCustomFields::define(cars, u"چند دست"_s, CTblCustomFields::Number, database);
    const int inspected = CTblCustomFields::define(cars, u"کارشناسی شده"_s, CTblCustomFields::YesNo, database);
    CTblCustomFieldRecords value(database);
    RecordBulkInsert values(value, {u"iFieldID"_s, u"iTable"_s, u"iRecordID"_s, u"sValue"_s});
    const auto add = [&](int field, int table, int record, const QString &text) {
        value.m_iFieldID = field;
        value.m_iTable = table;
        value.m_iRecordID = record;
        value.m_sValue = text;
        values.add();
    };
    for (const int contract : keys("SELECT iID FROM AutomobilContracts ORDER BY iID DESC LIMIT 20", database)) {
        add(met, contracts, contract, contract % 2 == 0 ? u"معرفی دوستان"_s : u"آگهی"_s);
        add(shelf, contracts, contract, QString::number(1200 + contract));
    }
    for (const int car : keys("SELECT iID FROM AutomobilInformations ORDER BY iID DESC LIMIT 20", database)) {
        add(owners, cars, car, QString::number(1 + car % 3));
        add(inspected, cars, car, car % 4 == 0 ? u"0"_s : u"1"_s);
    }
    values.flush();
}

// A note of the office's with the latest contracts, and a picture of the car's card with the latest cars that have one.
void writeFiles(int user, const QDate &today, int database)
{
    CTblFileDocs file(database);
    RecordBulkInsert files(file);
    const auto add = [&](int table, int record, const QString &name, const QByteArray &data) {
        file.m_iTable = table;
        file.m_iRecordID = record;
        file.m_iScope = CTblFileDocs::General;
        file.m_iUserID = user;
        file.m_sName = name;
        file.m_oData.data = data;
        file.m_dateCreate = QDateTime(today.addDays(-2), QTime(12, 0), Qt::UTC);
        files.add();
    };
    const QByteArray note = u"دفترخانه 214، تلفن 02144001122\nاصل سند و دو برگ کپی شناسنامه خریدار همراه باشد.\n"_s.toUtf8();
    for (const int contract : keys("SELECT iID FROM AutomobilContracts ORDER BY iID DESC LIMIT 5", database))
        add(CTblAutomobilContracts::recordKind, contract, u"قرار محضر.txt"_s, note);
    CTblAutomobilInformations car(database);
    car.SetColumns({u"oPicture"_s});
    car.m_filter = "oPicture IS NOT NULL";
    car.m_sort = "iID DESC";
    car.SetLimit(3);
    for (car.Open(true, true, true); !car.IsEOF(); car.MoveNext())
        add(CTblAutomobilInformations::recordKind, car.m_iID, u"کارشناسی بدنه.jpg"_s, car.m_oPicture.data);
    files.flush();
}

}

void DemoToday::write(int managerID, const QDate &today, int database)
{
    writeColleagues(database);
    writeReminders(managerID, today, database);
    writePromises(managerID, today, database);
    writeBirthdays(today, database);
    writeInsurances(today, database);
    writeMatches(database);
    writeFields(database);
    writeFiles(managerID, today, database);
}
