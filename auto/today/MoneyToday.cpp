// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/today/MoneyToday.h"

#include "auto/contracts/figures/ContractSettlement.h"
#include "auto/contracts/overdue/CTblDueInstalments.h"
#include "auto/contracts/receipts/ContractDues.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/utility/values/Money.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr int instalmentDaysAhead = 7;
constexpr int unsettledDaysBack = 183;

void take(KMySQL &record, const QString &column, const CTblTemp &row, int position)
{
    switch (record.column(column)->kind) {
    case KColumn::Kind::Double: return record.setValue(column, row.GetDoubleFieldValue(position));
    case KColumn::Kind::Date: return record.setValue(column, row.GetDateFieldValue(position));
    case KColumn::Kind::Text: return record.setValue(column, row.GetTextFieldValue(position));
    default: return record.setValue(column, row.GetLongFieldValue(position));
    }
}

double restOf(const CTblAutomobilContracts &contract, int side, double received, bool levySeparate)
{
    return ContractSettlement{ContractDues::charged(contract, side, levySeparate), received}.rest();
}

QString whoOwes(const CTblAutomobilContracts &contract, const std::array<double, 2> &rests)
{
    if (rests[0] > 0 && rests[1] > 0)
        return contract.m_sName1 + u" و "_s + contract.m_sName2;
    return rests[0] > 0 ? contract.m_sName1 + u"، فروشنده"_s : contract.m_sName2 + u"، خریدار"_s;
}

}

TodayContent MoneyToday::instalments(const TodayFrame &frame)
{
    TodayContent content;
    const KSql due = "ap.date<" + frame.begin(instalmentDaysAhead + 1);
    content.listTable = u"AutomobilPayments"_s;
    content.request = {.condition = due, .conditionText = u"سررسید تا %1 روز دیگر"_s.arg(instalmentDaysAhead)};
    // Of the current department, which is the first.
    const KSql counted = "ap.iDepartmentID=COALESCE((SELECT MIN(iID) FROM Departments),ap.iDepartmentID) AND ap.iStatus=0 AND ac.iStatus=0 AND ac.iArchiveUserID=0 AND " + due + " AND " + Placeholders::none(u"AutomobilContracts"_s, u"ac.iID"_s);
    CTblTemp query(frame.database);
    // All that is due is counted, but only of what stands on the card is read what it says.
    const KSql shown = "SELECT ap.iID,COUNT(*) OVER() found FROM AutomobilPayments ap JOIN AutomobilContracts ac ON ac.iID=ap.iAutomobilContractID WHERE " + counted
        + KSql::formatted(" ORDER BY ap.date,ap.iID LIMIT %1", int(TodayContent::mostLines));
    query.ExecuteQuery(KSql::formatted(
                           "SELECT ap.iID,ap.date,ap.dAmount-COALESCE((SELECT SUM(IF(r.iKind=%1,-r.dAmount,r.dAmount)) FROM Receipts r WHERE r.iTable=%2"
                           " AND r.iRecordID=ac.iID AND r.iPaymentID=ap.iID AND r.iStatus=%3),0),COALESCE(NULLIF(p.sName2,''),ac.sName2),ap.iNum,"
                           "IF(ac.iNum<>0,ac.iNum,ac.iCode),shown.found FROM (",
                           int(CTblReceipts::paid), int(CTblAutomobilContracts::recordKind), int(CTblReceipts::valid))
                       + shown + ") shown JOIN AutomobilPayments ap ON ap.iID=shown.iID JOIN AutomobilContracts ac ON ac.iID=ap.iAutomobilContractID"
                                 " LEFT JOIN Persons p ON p.iID=ap.iPersonID ORDER BY ap.date,ap.iID");
    for (; query.HasResultRow(); query.MoveNextResult()) {
        const int days = static_cast<int>(frame.today.daysTo(query.GetDateFieldValue(1).date()));
        content.count = query.GetLongFieldValue(6);
        content.lines.append({.table = content.listTable,
                              .key = query.GetLongFieldValue(0),
                              .name = query.GetTextFieldValue(3),
                              .line = u"قسط %1، قرارداد %2"_s.arg(query.GetLongFieldValue(4)).arg(query.GetLongFieldValue(5)),
                              .amount = roundToDecimals(query.GetDoubleFieldValue(2), frame.decimals),
                              .chip = TodayCards::dayText(days),
                              .tone = TodayCards::dayTone(days)});
    }
    content.tone = content.lines.isEmpty() ? TodayTone::Quiet : content.lines.constFirst().tone;
    return content;
}

// What is owed follows from columns that no statement can weigh, so that all contracts of the time are looked at.
TodayContent MoneyToday::unsettled(const TodayFrame &frame)
{
    TodayContent content;
    content.listTable = u"AutomobilContracts"_s;
    const bool levySeparate = frame.settings && ContractSettings::of(*frame.settings).levySeparate;
    const QStringList columns = ContractDues::chargedColumns() + QStringList{u"iCode"_s, u"iNum"_s, u"dateContract"_s, u"sName1"_s, u"sName2"_s};
    QList<KSql> read{"c.iID", ContractDues::receivedOf(1), ContractDues::receivedOf(2)};
    for (const QString &column : columns)
        read.append(KSql::name(u"c."_s + column));
    CTblAutomobilContracts contract(frame.database);
    CTblTemp query(frame.database);
    query.ExecuteQuery("SELECT " + KSql::joined(read, ",") + " FROM AutomobilContracts c WHERE c.iStatus=0 AND c.iArchiveUserID=0 AND c.dateContract>="
                       + frame.begin(-unsettledDaysBack) + " AND c.dateContract<" + frame.begin(1 - frame.unsettledDays) + " AND "
                       + Placeholders::none(contract.GetTableName(), u"c.iID"_s) + " ORDER BY c.dateContract,c.iID");
    QList<int> owing;
    for (; query.HasResultRow(); query.MoveNextResult()) {
        for (int index = 0; index < columns.size(); ++index)
            take(contract, columns.at(index), query, index + 3);
        const std::array rests{restOf(contract, 1, query.GetDoubleFieldValue(1), levySeparate), restOf(contract, 2, query.GetDoubleFieldValue(2), levySeparate)};
        if (rests[0] <= 0 && rests[1] <= 0)
            continue;
        owing.append(query.GetLongFieldValue(0));
        if (content.lines.size() < TodayContent::mostLines)
            content.lines.append({.table = content.listTable,
                                  .key = owing.constLast(),
                                  .name = u"قرارداد %1"_s.arg(contract.number()),
                                  .line = whoOwes(contract, rests),
                                  .amount = rests[0] + rests[1],
                                  .chip = u"%1 روز"_s.arg(contract.m_dateContract.date().daysTo(frame.today))});
    }
    content.count = owing.size();
    content.extent = u"شش ماه گذشته"_s;
    content.request = {.condition = owing.isEmpty() ? KSql("1=0") : "iID IN (" + KSql::list(owing) + ")", .conditionText = u"تسویه نشده، شش ماه گذشته"_s};
    return content;
}
