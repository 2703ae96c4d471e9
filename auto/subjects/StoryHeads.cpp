// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/subjects/StoryHeads.h"

#include "auto/db/CTblAutomobilInformations.h"
#include "auto/words/WordLists.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/records/KChangedValues.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

using Tone = StoryEvent::Tone;

QString amountWord(double amount)
{
    return IsEquals(amount, 0) ? QString() : DToMoney(amount);
}

QString range(const QString &from, const QString &to)
{
    if (from.isEmpty() && to.isEmpty())
        return {};
    return from.isEmpty() ? u"تا %1"_s.arg(to) : to.isEmpty() ? u"از %1"_s.arg(from)
                                                              : u"%1 تا %2"_s.arg(from, to);
}

QString yearWord(int year)
{
    return year > 0 ? QString::number(year) : QString();
}

// The note that named it first; empty where it is the price of now, and for a car that is older than the log.
QString firstPrice(const QString &noted, double price)
{
    for (const KChangedValue &value : KChangedValues::fromJson(noted.toUtf8())) {
        if (value.column != "dAmount"_L1)
            continue;
        const double first = IsEquals(value.before.toDouble(), 0) ? value.after.toDouble() : value.before.toDouble();
        return IsEquals(first, price) ? QString() : amountWord(first);
    }
    return {};
}

QString withComma(QStringList words)
{
    words.removeAll(QString());
    return words.join(u"، "_s);
}

}

std::optional<StoryHead> StoryHeads::ofCar(qint32 key, int database)
{
    CTblTemp row(database);
    row.Open(true, false, true);
    row.ExecuteQuery(KSql::formatted("SELECT b.sName,m.sName,a.iYear,c.sName,a.iFunction,a.sNumOfPlates,a.dAmount,a.bSold,a.iArchiveUserID,COALESCE(a.dateIntroduction,a.dateCreate)"
                                     ",o.sName2,buyer.sName2,a.sVIN,a.sChassisNum,a.dateCreate,COALESCE(NULLIF(u.sName,''),u.sUser),a.dSoldAmount,DATEDIFF(NOW(),COALESCE(a.dateIntroduction,a.dateCreate))"
                                     ",(SELECT n.sValues FROM Changes n WHERE n.sTable='AutomobilInformations' AND n.iRecordID=a.iID AND n.sValues LIKE '%\"dAmount\"%' ORDER BY n.iID LIMIT 1)"
                                     ",(SELECT t.oPicture FROM Thumbnails t WHERE t.iTable=%2 AND t.iRecordID=a.iID AND t.iPictureID=0)"
                                     " FROM AutomobilInformations a LEFT JOIN CarBrands b ON b.iID=a.iAutomobilType LEFT JOIN CarModels m ON m.iID=a.iModel"
                                     " LEFT JOIN Items c ON c.iID=a.iColor LEFT JOIN Persons o ON o.iID=a.iPersonID LEFT JOIN Persons buyer ON buyer.iID=a.iPersonBuyerID"
                                     " LEFT JOIN Users u ON u.iID=a.iUserID WHERE a.iID=%1",
                                     key, int(CTblAutomobilInformations::recordKind)));
    if (!row.HasResultRow())
        return {};
    const bool isSold = row.GetLongFieldValue(7) != 0;
    const bool isArchived = row.GetLongFieldValue(8) != 0;
    const int driven = row.GetLongFieldValue(4);
    StoryHead head;
    head.title = u"%1 %2"_s.arg(row.GetTextFieldValue(0), row.GetTextFieldValue(1)).simplified();
    if (head.title.isEmpty())
        head.title = u"خودرو"_s;
    head.second = withComma({row.GetLongFieldValue(2) > 0 ? u"مدل %1"_s.arg(row.GetLongFieldValue(2)) : QString(), row.GetTextFieldValue(3), driven > 0 ? u"%1 کیلومتر"_s.arg(DToMoney(driven, 0)) : QString()});
    head.plate = row.GetTextFieldValue(5).simplified();
    head.state = isSold ? u"فروخته شده"_s : isArchived ? u"بایگانی"_s
                                                       : u"موجود"_s;
    head.tone = isSold || isArchived ? Tone::Neutral : Tone::Good;
    head.facts = {{u"مالک"_s, row.GetTextFieldValue(10)}, {u"خریدار"_s, row.GetTextFieldValue(11)}, {u"مبلغ"_s, amountWord(row.GetDoubleFieldValue(6))}, {u"قیمت نخست"_s, firstPrice(row.GetTextFieldValue(18), row.GetDoubleFieldValue(6))}, {u"مبلغ فروش"_s, isSold ? amountWord(row.GetDoubleFieldValue(16)) : QString()}, {u"در نمایشگاه"_s, isSold || !row.GetDateFieldValue(9).isValid() ? QString() : u"%1 روز"_s.arg(row.GetLongFieldValue(17))}, {u"شماره شاسی"_s, row.GetTextFieldValue(13)}, {u"VIN"_s, row.GetTextFieldValue(12)}};
    head.entered = row.GetDateFieldValue(14);
    head.enteredBy = row.GetTextFieldValue(15);
    head.picture = row.GetBinaryFieldValue(19);
    return head;
}

std::optional<StoryHead> StoryHeads::ofContract(qint32 key, int database)
{
    CTblTemp row(database);
    row.Open(true, false, true);
    row.ExecuteQuery(KSql::formatted("SELECT c.iCode,c.iContractType,c.sAutomobilName,c.sNumOfPlates,c.dAmount,c.dCommission,c.dateContract,c.bReturn,c.iStatus"
                                     ",COALESCE(f.sName2,c.sName1),COALESCE(s.sName2,c.sName2),c.dateCreate,COALESCE(NULLIF(u.sName,''),u.sUser)"
                                     " FROM AutomobilContracts c LEFT JOIN Persons f ON f.iID=c.iPersonFirstID LEFT JOIN Persons s ON s.iID=c.iPersonSecondID"
                                     " LEFT JOIN Users u ON u.iID=c.iUserID WHERE c.iID=%1",
                                     key));
    if (!row.HasResultRow())
        return {};
    const bool isReturned = row.GetLongFieldValue(7) != 0;
    const bool isVoid = row.GetLongFieldValue(8) == 1;
    StoryHead head;
    head.title = u"قرارداد %1"_s.arg(row.GetLongFieldValue(0));
    head.second = withComma({WordLists::textAt(WordLists::contractTypes(), row.GetLongFieldValue(1)), row.GetTextFieldValue(2).simplified()});
    head.plate = row.GetTextFieldValue(3).simplified();
    head.state = isVoid ? u"باطل"_s : isReturned ? u"برگشتی"_s
                                                 : QString();
    head.tone = Tone::Danger;
    head.facts = {{u"طرف اول"_s, row.GetTextFieldValue(9)}, {u"طرف دوم"_s, row.GetTextFieldValue(10)}, {u"مبلغ"_s, amountWord(row.GetDoubleFieldValue(4))}, {u"کمیسیون"_s, amountWord(row.GetDoubleFieldValue(5))}, {u"تاریخ قرارداد"_s, shamsiText(row.GetDateFieldValue(6).date())}};
    head.entered = row.GetDateFieldValue(11).isValid() ? row.GetDateFieldValue(11) : row.GetDateFieldValue(6);
    head.enteredBy = row.GetTextFieldValue(12);
    return head;
}

std::optional<StoryHead> StoryHeads::ofDemand(qint32 key, int database)
{
    CTblTemp row(database);
    row.Open(true, false, true);
    row.ExecuteQuery(KSql::formatted("SELECT d.iCode,p.sName2,p.sMobile,b.sName,c.sName,d.iModelFrom,d.iModelUpTo,d.dAmountFrom,d.dAmountUpTo,d.dateMaxTimeNeed,d.iArchiveUserID,d.dateCreate"
                                     ",COALESCE(NULLIF(u.sName,''),u.sUser) FROM AutomobilDemands d LEFT JOIN Persons p ON p.iID=d.iPersonID LEFT JOIN CarBrands b ON b.iID=d.iAutomobilType"
                                     " LEFT JOIN Items c ON c.iID=d.iColor LEFT JOIN Users u ON u.iID=d.iUserID WHERE d.iID=%1",
                                     key));
    if (!row.HasResultRow())
        return {};
    const bool isArchived = row.GetLongFieldValue(10) != 0;
    StoryHead head;
    head.title = u"تقاضای %1"_s.arg(row.GetTextFieldValue(1)).simplified();
    head.second = withComma({u"کد %1"_s.arg(row.GetLongFieldValue(0)), row.GetTextFieldValue(3), row.GetTextFieldValue(4)});
    head.state = isArchived ? u"بایگانی"_s : u"باز"_s;
    head.tone = isArchived ? Tone::Neutral : Tone::Good;
    head.facts = {{u"موبایل"_s, row.GetTextFieldValue(2)}, {u"سال"_s, range(yearWord(row.GetLongFieldValue(5)), yearWord(row.GetLongFieldValue(6)))}, {u"مبلغ"_s, range(amountWord(row.GetDoubleFieldValue(7)), amountWord(row.GetDoubleFieldValue(8)))}, {u"تا تاریخ"_s, shamsiText(row.GetDateFieldValue(9).date())}};
    head.entered = row.GetDateFieldValue(11);
    head.enteredBy = row.GetTextFieldValue(12);
    return head;
}
