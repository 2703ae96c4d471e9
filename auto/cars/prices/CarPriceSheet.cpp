// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/prices/CarPriceSheet.h"

#include "auto/db/CTblAutomobilInformations.h"
#include "auto/words/WordLists.h"
#include "suite/accounting/attachments/RecordPictures.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/KLookup.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

QString numberOrNothing(int number)
{
    return number > 0 ? QString::number(number) : QString();
}

}

QString CarPriceSheet::scanCode(int code)
{
    return u"CAR-%1"_s.arg(code);
}

PaperSheet CarPriceSheet::of(const Source &source)
{
    PaperSheet sheet;
    sheet.kind = u"CarPricePaper"_s;
    sheet.title = u"برگه قیمت"_s;
    sheet.fileName = u"برگه قیمت خودرو %1"_s.arg(source.code);
    sheet.marks = {{u"کد خودرو :"_s, QString::number(source.code)}};
    sheet.picture = source.picture;
    sheet.headline = source.name;
    sheet.facts = {{.label = u"سال تولید :"_s, .text = numberOrNothing(source.year), .isStrong = true},
                   {.label = u"رنگ :"_s, .text = source.color, .isStrong = true},
                   {.label = u"کارکرد :"_s, .text = source.kilometres > 0 ? u"%1 کیلومتر"_s.arg(DToMoney(source.kilometres, 0)) : QString(), .isStrong = true},
                   {.label = u"سوخت :"_s, .text = source.fuel, .isStrong = true},
                   {.label = u"بدنه :"_s, .text = source.body},
                   {.label = u"بیمه :"_s, .text = source.insurance},
                   {.label = u"امکانات :"_s, .text = source.facilities, .isWide = true}};
    sheet.highlight = {.label = u"قیمت (%1)"_s.arg(source.moneyUnit), .text = IsEquals(source.price, 0) ? QString() : DToMoney(source.price)};
    const QString words = IsEquals(source.price, 0) ? QString() : amountInWords(source.price);
    sheet.totals = {{u"به حروف :"_s, words.isEmpty() ? QString() : u"%1 %2"_s.arg(words, source.moneyUnit)}};
    sheet.scanCode = scanCode(source.code);
    return sheet;
}

std::optional<PaperSheet> CarPriceSheet::read(int carID)
{
    CTblAutomobilInformations car;
    if (!car.IsRecordExist(u"iID"_s, carID))
        return {};
    QStringList name;
    for (const QStringView column : {QStringView(u"iAutomobilType"), QStringView(u"iModel"), QStringView(u"iBrigade")}) {
        if (const QString part = KLookup::name(car, column); !part.isEmpty())
            name.append(part);
    }
    const WordLists::List fuels = WordLists::fuelTypes();
    const auto fuel = static_cast<std::size_t>(std::max(0, car.m_iFuel));
    return of({.code = car.m_iCode,
               .name = name.join(u' '),
               .picture = RecordPictures::bytes(RecordKind::AutomobilInformation, carID, 0),
               .year = car.m_iYear,
               .color = KLookup::name(car, u"iColor"),
               .fuel = car.m_iFuel > 0 && fuel < fuels.size() ? fuels[fuel].toString() : QString(),
               .kilometres = car.m_iFunction,
               .body = KLookup::name(car, u"iBodyStatus"),
               .insurance = car.m_sInsuranceStatus,
               .facilities = car.m_sFacilities,
               .price = car.m_dAmount,
               .moneyUnit = OfficeSettings::read().moneyUnitName()});
}

QString CarPriceSheet::refusal(int carID)
{
    CTblAutomobilInformations car;
    car.SetColumns({u"bSold"_s});
    if (!car.IsRecordExist(u"iID"_s, carID))
        return u"این خودرو دیگر وجود ندارد."_s;
    return car.m_bSold != 0 ? u"این خودرو فروخته شده است و برگه قیمت ندارد."_s : QString();
}
