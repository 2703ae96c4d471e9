// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/instalments/PlanSheet.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/crm/persons/CTblPersonsMini.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

QString inWords(double amount, const QString &unit)
{
    const QString words = amountInWords(amount);
    return words.isEmpty() ? QString() : u"%1 %2"_s.arg(words, unit);
}

// A party is a person of the office's, or was typed in by hand.
QString partyName(int person, const QString &typed)
{
    const QString name = person > 0 ? CTblPersonsMini::GetName(person) : QString();
    return name.isEmpty() ? typed : name;
}

}

PaperSheet PlanSheet::of(const Source &source)
{
    using C = PaperSheet::Column;
    PaperSheet sheet;
    sheet.kind = u"PlanPaper"_s;
    sheet.title = u"برنامه اقساط قرارداد"_s;
    sheet.fileName = u"اقساط قرارداد %1"_s.arg(source.number);
    sheet.marks = {{u"شماره قرارداد :"_s, QString::number(source.number)}, {u"تاریخ قرارداد :"_s, shamsiText(source.date)}};
    sheet.facts = {{.label = u"فروشنده :"_s, .text = source.first, .isStrong = true},
                   {.label = u"خریدار :"_s, .text = source.second, .isStrong = true},
                   {.label = u"خودرو :"_s, .text = source.car},
                   {.label = u"پلاک :"_s, .text = source.plate, .isCode = true},
                   {.label = u"شماره شاسی :"_s, .text = source.chassis, .isCode = true}};
    sheet.columns = {{u"قسط"_s, 8, C::Centred}, {u"سررسید"_s, 16, C::Centred}, {u"مبلغ"_s, 20, C::Amount, true}, {u"مبلغ به حروف"_s, 56}};
    double total = 0, received = 0;
    for (const StoredInstalments::Row &row : source.rows) {
        sheet.rows.append({{QString::number(row.number)}, {shamsiText(row.date.date())}, {DToMoney(row.due), row.due}, {inWords(row.due, source.moneyUnit)}});
        total += row.due;
        received += row.received;
    }
    sheet.totals = {{u"جمع اقساط :"_s, u"%1 %2"_s.arg(DToMoney(total), source.moneyUnit), true}, {u"به حروف :"_s, inWords(total, source.moneyUnit)}};
    if (!IsEquals(received, 0))
        sheet.totals.append({u"تا کنون دریافت شده :"_s, u"%1 %2"_s.arg(DToMoney(received), source.moneyUnit)});
    sheet.notes = u"این برگه بخشی از قرارداد شماره %1 است."_s.arg(source.number);
    sheet.signatures = {{u"امضای فروشنده"_s, source.first}, {u"امضای خریدار"_s, source.second}, {u"مهر و امضای نمایشگاه"_s, source.office}};
    return sheet;
}

std::optional<PaperSheet> PlanSheet::read(int contractID, const QString &office)
{
    CTblAutomobilContracts contract;
    if (!contract.IsRecordExist(u"iID"_s, contractID))
        return {};
    std::vector<StoredInstalments::Row> rows = StoredInstalments::load(contractID);
    if (rows.empty())
        return {};
    return of({.number = contract.number(),
               .date = contract.m_dateContract.date(),
               .office = office,
               .first = partyName(contract.m_iPersonFirstID, contract.m_sName1),
               .second = partyName(contract.m_iPersonSecondID, contract.m_sName2),
               .car = contract.m_sAutomobilName,
               .plate = contract.m_sNumOfPlates,
               .chassis = contract.m_sChassisNum,
               .rows = std::move(rows),
               .moneyUnit = OfficeSettings::read().moneyUnitName()});
}
