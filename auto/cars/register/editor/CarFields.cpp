// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CarFields.h"

#include "auto/words/WordLists.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

using Kind = KFormField::Kind;

constexpr double greatestAmount = 999'999'999'999'999;

KFormField shown(const QString &column, const QString &label, Kind kind)
{
    KFormField field{column, label, kind};
    field.readOnly = true;
    return field;
}

KFormField code(const QString &column, const QString &label)
{
    KFormField field{column, label};
    field.leftToRight = true;
    return field;
}

KFormField withButton(const QString &column, const QString &label, Kind kind)
{
    KFormField field{column, label, kind};
    field.hasButton = true;
    return field;
}

KFormField list(const QString &column, const QString &label, const QStringList &choices, const QList<int> &keys)
{
    KFormField field{column, label, Kind::Lookup};
    field.choices = choices;
    field.keys = keys;
    return field;
}

KFormField year()
{
    KFormField field{u"iYear"_s, u"سال توليد :"_s, Kind::Integer};
    field.maximum = 9999;
    field.hasArrows = true;
    return field;
}

// The months by their numbers, after an entry for a car of which only the year is known.
KFormField month()
{
    QStringList names{u"تمام ماه ها"_s};
    QList<int> numbers{0};
    for (int month = 1; month <= 12; ++month) {
        names.append(shamsiMonthName(month));
        numbers.append(month);
    }
    return list(u"iMonth"_s, u"ماه توليد :"_s, names, numbers);
}

KFormField insuranceName()
{
    return {u"sNameInsurance"_s, u"نام بيمه گذار :"_s, Kind::EditableChoice};
}

// Two amounts have the same label, so their names say whose they are.
KFormField amountOf(const QString &column, const QString &label, const QString &ofWhat)
{
    return {column, label, Kind::Money, label + u' ' + ofWhat};
}

// A loss, or more paid than was due.
KFormField signedAmount(KFormField field)
{
    field.minimum = -greatestAmount;
    field.maximum = greatestAmount;
    return field;
}

}

QList<KFormField> CarFields::base()
{
    return {
        shown(u"iCode"_s, u"کد :"_s, Kind::Integer),
        {u"dateCreate"_s, u"تاريخ ايجاد :"_s, Kind::Date},
        {u"dateIntroduction"_s, u"تاريخ معرفي :"_s, Kind::Date},
        withButton(u"iAutomobilType"_s, u"نوع خودرو :"_s, Kind::Lookup),
        withButton(u"iSystem"_s, u"سيستم :"_s, Kind::Lookup),
        withButton(u"iBrigade"_s, u"تيپ :"_s, Kind::Lookup),
        withButton(u"iModel"_s, u"مدل :"_s, Kind::Lookup),
        year(),
        month(),
        code(u"sNumOfEngines"_s, u"شماره موتور :"_s),
        code(u"sChassisNum"_s, u"شماره شاسي :"_s),
        code(u"sNumOfBodies"_s, u"شماره اتاق :"_s),
        {u"sNumOfPlates"_s, u"شماره پلاک :"_s, Kind::Plate},
        code(u"sVIN"_s, u"VIN :"_s),
        {u"iFunction"_s, u"کارکرد(کيلومتر) :"_s, Kind::Integer},
        {u"dAmount"_s, u"مبلغ :"_s, Kind::Money},
        {u"dateInsurance"_s, u"تاريخ بيمه :"_s, Kind::Date},
        {u"sDiscountYears"_s, u"سال هاي تخفيف :"_s},
        insuranceName(),
        {u"sInsuranceStatus"_s, u"وضعيت بيمه :"_s},
        withButton(u"sDocumentsDeficit"_s, u"کسري مدارک :"_s, Kind::Text),
        withButton(u"sFractionalParts"_s, u"کسري لوازم :"_s, Kind::Text),
        {u"sDesc"_s, u"توضيحات :"_s},
        {u"sDescSpecial"_s, u"توضيحات ويژه :"_s},
        withButton(u"iNumOfWheels"_s, u"تعداد چرخ :"_s, Kind::Integer),
        withButton(u"iNumOfCylinders"_s, u"تعداد سيلندر :"_s, Kind::Integer),
        withButton(u"iVolumCylinders"_s, u"حجم سيلندر :"_s, Kind::Lookup),
        withButton(u"iCapacity"_s, u"ظرفيت :"_s, Kind::Integer),
        {u"iNumOFAxles"_s, u"تعداد محور :"_s, Kind::Integer},
        list(u"iUsageType"_s, u"کاربري :"_s, WordLists::texts(WordLists::usageTypes().subspan(1)), {1, 2}),
        withButton(u"iBodyStatus"_s, u"وضعيت بدنه :"_s, Kind::Lookup),
        withButton(u"sAccessories"_s, u"لوازم جانبي :"_s, Kind::Text),
        withButton(u"sFacilities"_s, u"امکانات :"_s, Kind::Text),
        withButton(u"sDocumentsDelivered"_s, u"مدارک تحويلي :"_s, Kind::Text),
        withButton(u"iCountry"_s, u"کشور :"_s, Kind::Lookup),
        withButton(u"iColor"_s, u"رنگ :"_s, Kind::Lookup),
        // In another order and spelling than the filter's list of fuels, whose positions are the codes.
        list(u"iFuel"_s, u"سوخت :"_s,
             {u"بنزین"_s, u"دوگانه سوز"_s, u"گاز"_s, u"گازوئیل"_s,
              u"سایر"_s},
             {1, 2, 4, 3, 5}),
        withButton(u"iSource"_s, u"ماخذ :"_s, Kind::Lookup),
        list(u"iTypeDocument"_s, u"نوع سند :"_s,
             {u"قولنامه ای"_s, u"اجاره ای "_s}, {0, 1}),
    };
}

QList<KFormField> CarFields::sale()
{
    const QString paid = u"پرداخت شده :"_s;
    const QString remaining = u"مانده :"_s;
    const QString contract = u"قرارداد"_s;
    const QString commission = u"کميسيون"_s;
    return {
        {u"bSold"_s, u"فروخته شده"_s, Kind::Flag},
        {u"dateBuy"_s, u"تاريخ خريد :"_s, Kind::Date},
        {u"sRegistryNum"_s, u"شماره دفترخانه :"_s},
        {u"dateDelivery"_s, u"تاريخ تحويل :"_s, Kind::Date},
        {u"sAddress"_s, u"آدرس :"_s},
        {u"dateJawPlate"_s, u"تاريخ فک پلاک :"_s, Kind::Date},
        {u"dateLegalDocument"_s, u"تاريخ سند وکالت :"_s, Kind::Date},
        {u"sNumLegalDocument"_s, u"شماره سند وکالت :"_s},
        {u"datefinalDocument"_s, u"تاريخ سند قطعي :"_s, Kind::Date},
        {u"dateObtainingCopies"_s, u"تاريخ اخذ کپي :"_s, Kind::Date},
        {u"dMbayhAutomobilContract"_s, u"مبايعه نامه :"_s, Kind::Money},
        {u"dAmountContract"_s, u"مبلغ قرارداد :"_s, Kind::Money},
        amountOf(u"dPaidContract"_s, paid, contract),
        signedAmount(amountOf(u"dRemainingContract"_s, remaining, contract)),
        {u"dAmountCommission"_s, u"مبلغ کميسيون :"_s, Kind::Money},
        amountOf(u"dPaidComission"_s, paid, commission),
        signedAmount(amountOf(u"dRemainingComission"_s, remaining, commission)),
        {u"sReplacementCenter"_s, u"مرکز تعويض :"_s},
        {u"dPurchasePriceOfOwner"_s, u"مبلغ خريد از مالک :"_s, Kind::Money},
        {u"dSoldAmount"_s, u"مبلغ فروخته شده :"_s, Kind::Money},
        {u"dAutomobilExpenses"_s, u"مخارج اتومبيل :"_s, Kind::Money},
        withButton(u"dAmountPresence"_s, u"هزينه محضر :"_s, Kind::Money),
        signedAmount({u"dRemainingPresence"_s, u"مانده محضر :"_s, Kind::Money}),
        signedAmount(shown(u"dProfitAndLoss"_s, u"سود و زيان :"_s, Kind::Money)),
        {u"dateClearance"_s, u"تاريخ ترخيص :"_s, Kind::Date},
        withButton(u"iCustomsClearance"_s, u"گمرک ترخيصي :"_s, Kind::Lookup),
        {u"sLicense"_s, u"شماره پروانه :"_s},
    };
}
