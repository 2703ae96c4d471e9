// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/subjects/TreasuryToday.h"

#include "suite/accounting/today/TodayPlans.h"
#include "suite/accounting/books/totals/AccountTotals.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/cheques/ChequesDue.h"
#include "suite/treasury/followups/CTblFollowUps.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace {

// How far the card looks ahead.
constexpr int daysAhead = 7;

// Of the cheques that the card counts, as the register's condition.
KSql dueCheques(const TodayFrame &frame)
{
    return ChequesDue::openCondition() + " AND dateDue<" + frame.begin(daysAhead + 1);
}

QString chequeLine(const QString &bank, const QString &number, int kind)
{
    QStringList parts;
    if (kind == CTblReceipts::paid)
        parts.append(u"پرداختی"_s);
    if (!bank.isEmpty())
        parts.append(bank);
    if (!number.isEmpty())
        parts.append(u"چک %1"_s.arg(number));
    return parts.join(u"، "_s);
}

TodayContent cheques(const TodayFrame &frame)
{
    TodayContent content;
    content.listTable = u"Cheques"_s;
    content.request = {.condition = dueCheques(frame), .conditionText = u"سررسید تا %1 روز دیگر"_s.arg(daysAhead)};
    CTblTemp query(frame.database);
    // All that are due are counted, but only of those on the card the drawer is looked up.
    query.ExecuteQuery(KSql::formatted("SELECT c.iID,c.iKind,c.sBank,c.sNumber,c.dAmount,c.dateDue,IF(c.sDrawer<>'' AND c.iKind=%1,c.sDrawer,p.sName2),c.found FROM ("
                                       "SELECT iID,iKind,sBank,sNumber,dAmount,dateDue,sDrawer,iPersonID,COUNT(*) OVER() found FROM Cheques WHERE ",
                                       int(CTblReceipts::received))
                       + dueCheques(frame) + KSql::formatted(" ORDER BY dateDue,iID LIMIT %1) c LEFT JOIN Persons p ON p.iID=c.iPersonID ORDER BY c.dateDue,c.iID", int(TodayContent::mostLines)));
    for (; query.HasResultRow(); query.MoveNextResult()) {
        const int days = static_cast<int>(frame.today.daysTo(query.GetDateFieldValue(5).date()));
        content.count = query.GetLongFieldValue(7);
        content.lines.append({.table = u"Cheques"_s,
                              .key = query.GetLongFieldValue(0),
                              .name = query.GetTextFieldValue(6),
                              .line = chequeLine(query.GetTextFieldValue(2), query.GetTextFieldValue(3), query.GetLongFieldValue(1)),
                              .amount = query.GetDoubleFieldValue(4),
                              .chip = TodayCards::dayText(days),
                              .tone = TodayCards::dayTone(days)});
    }
    content.tone = content.lines.isEmpty() ? TodayTone::Quiet : content.lines.constFirst().tone;
    return content;
}

// The accounts that documents stand on.
TodayContent cashBox(const TodayFrame &frame)
{
    TodayContent content;
    CTblTemp query(frame.database);
    query.ExecuteQuery("SELECT m.iCode,m.sName,s.dBed-s.dBes FROM (" + AccountTotals::sums(AccountLevel::Moeen, {}, {}, "iHesabKolCode IN (1101,1102)")
                       + ") s JOIN HesabMoeen m ON m.iCode=s.code WHERE s.iRows>0 ORDER BY m.iCode");
    for (; query.HasResultRow(); query.MoveNextResult()) {
        ++content.count;
        if (content.lines.size() < TodayContent::mostLines)
            content.lines.append({.name = query.GetTextFieldValue(1), .amount = query.GetDoubleFieldValue(2)});
    }
    return content;
}

// What a note is about, by the kind of its record.
using NoteNames = QMap<int, KSql>;

NoteNames &noteNames()
{
    static NoteNames names{{RecordKind::Person, "(SELECT p.sName2 FROM Persons p WHERE p.iID=f.iRecordID)"}};
    return names;
}

KSql plannedNotes(const TodayFrame &frame, const NoteNames &names)
{
    KSql about = "CASE f.iTable";
    for (auto name = names.cbegin(); name != names.cend(); ++name)
        about += KSql::formatted(" WHEN %1 THEN ", name.key()) + name.value();
    const KSql kind = KSql::formatted("IF(f.iKind=%1,%2,%3)", int(CTblFollowUps::call), KSql::quoted(CTblFollowUps::kindName(CTblFollowUps::call)), KSql::quoted(CTblFollowUps::kindName(CTblFollowUps::note)));
    return "SELECT f.iID,f.datePromised,f.sNote,COALESCE(NULLIF(" + about + " END,'')," + kind + ") about,COUNT(*) OVER() found FROM FollowUps f WHERE "
        + CTblFollowUps::planned(frame.userID, frame.begin(1)) + KSql::formatted(" ORDER BY f.datePromised,f.iID LIMIT %1", int(TodayContent::mostLines));
}

// The names are copied: the day is read on a thread of its own.
void enterNotes()
{
    TodayPlans::add({.card = {.id = u"notes"_s, .title = u"تماس‌ها و یادداشت‌های امروز"_s, .icon = u":/icons/edit.svg"_s, .column = TodayCard::People, .rank = 1, .countText = u"%1 تماس و یادداشت"_s},
                     .table = u"FollowUps"_s,
                     .select = [names = noteNames()](const TodayFrame &frame) { return plannedNotes(frame, names); }});
}

}

void TreasuryToday::enter()
{
    enterNotes();
    TodayCards::enter({.form = u"Cheques"_s,
                       .cards = {{.id = u"cheques"_s, .title = u"چک‌های سررسید"_s, .icon = u":/icons/receipt.svg"_s, .column = TodayCard::Money, .rank = 1, .emptyText = u"تا یک هفته دیگر چکی سررسید نمی‌شود."_s, .countText = u"%1 چک سررسید"_s}},
                       .read = [](const TodayFrame &frame) { return QList{cheques(frame)}; }});
    TodayCards::enter({.form = u"Receipts"_s,
                       .cards = {{.id = u"cash"_s, .title = u"موجودی صندوق و بانک"_s, .icon = u":/icons/money.svg"_s, .column = TodayCard::Figures, .rank = 1, .emptyText = u"هنوز پولی دریافت یا پرداخت نشده است."_s}},
                       .read = [](const TodayFrame &frame) { return QList{cashBox(frame)}; }});
}

void TreasuryToday::nameNotesAbout(int recordKind, const KSql &name)
{
    if (name.isEmpty())
        noteNames().remove(recordKind);
    else
        noteNames().insert(recordKind, name);
    enterNotes();
}
