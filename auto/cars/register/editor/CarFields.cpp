// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CarFields.h"

#include "auto/words/WordLists.h"
#include "suite/utility/values/ShamsiDate.h"

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
    KFormField field{QStringLiteral("iYear"), QStringLiteral("سال توليد :"), Kind::Integer};
    field.maximum = 9999;
    field.hasArrows = true;
    return field;
}

// The months by their numbers, behind the one entry for a car of which only the year is known.
KFormField month()
{
    QStringList names{QStringLiteral("تمام ماه ها")};
    QList<int> numbers{0};
    for (int month = 1; month <= 12; ++month) {
        names.append(shamsiMonthName(month));
        numbers.append(month);
    }
    return list(QStringLiteral("iMonth"), QStringLiteral("ماه توليد :"), names, numbers);
}

KFormField insuranceName()
{
    return {QStringLiteral("sNameInsurance"), QStringLiteral("نام بيمه گذار :"), Kind::EditableChoice};
}

// Two amounts bear the same label, so their names tell whose they are.
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
        shown(QStringLiteral("iCode"), QStringLiteral("کد :"), Kind::Integer),
        {QStringLiteral("dateCreate"), QStringLiteral("تاريخ ايجاد :"), Kind::Date},
        {QStringLiteral("dateIntroduction"), QStringLiteral("تاريخ معرفي :"), Kind::Date},
        withButton(QStringLiteral("iAutomobilType"), QStringLiteral("نوع خودرو :"), Kind::Lookup),
        withButton(QStringLiteral("iSystem"), QStringLiteral("سيستم :"), Kind::Lookup),
        withButton(QStringLiteral("iBrigade"), QStringLiteral("تيپ :"), Kind::Lookup),
        withButton(QStringLiteral("iModel"), QStringLiteral("مدل :"), Kind::Lookup),
        year(),
        month(),
        code(QStringLiteral("sNumOfEngines"), QStringLiteral("شماره موتور :")),
        code(QStringLiteral("sChassisNum"), QStringLiteral("شماره شاسي :")),
        code(QStringLiteral("sNumOfBodies"), QStringLiteral("شماره اتاق :")),
        code(QStringLiteral("sNumOfPlates"), QStringLiteral("شماره پلاک :")),
        code(QStringLiteral("sVIN"), QStringLiteral("VIN :")),
        {QStringLiteral("iFunction"), QStringLiteral("کارکرد(کيلومتر) :"), Kind::Integer},
        {QStringLiteral("dAmount"), QStringLiteral("مبلغ :"), Kind::Money},
        {QStringLiteral("dateInsurance"), QStringLiteral("تاريخ بيمه :"), Kind::Date},
        {QStringLiteral("sDiscountYears"), QStringLiteral("سال هاي تخفيف :")},
        insuranceName(),
        {QStringLiteral("sInsuranceStatus"), QStringLiteral("وضعيت بيمه :")},
        withButton(QStringLiteral("sDocumentsDeficit"), QStringLiteral("کسري مدارک :"), Kind::Text),
        withButton(QStringLiteral("sFractionalParts"), QStringLiteral("کسري لوازم :"), Kind::Text),
        {QStringLiteral("sDesc"), QStringLiteral("توضيحات :")},
        {QStringLiteral("sDescSpecial"), QStringLiteral("توضيحات ويژه :")},
        withButton(QStringLiteral("iNumOfWheels"), QStringLiteral("تعداد چرخ :"), Kind::Integer),
        withButton(QStringLiteral("iNumOfCylinders"), QStringLiteral("تعداد سيلندر :"), Kind::Integer),
        withButton(QStringLiteral("iVolumCylinders"), QStringLiteral("حجم سيلندر :"), Kind::Lookup),
        withButton(QStringLiteral("iCapacity"), QStringLiteral("ظرفيت :"), Kind::Integer),
        {QStringLiteral("iNumOFAxles"), QStringLiteral("تعداد محور :"), Kind::Integer},
        list(QStringLiteral("iUsageType"), QStringLiteral("کاربري :"), WordLists::texts(WordLists::usageTypes().subspan(1)), {1, 2}),
        withButton(QStringLiteral("iBodyStatus"), QStringLiteral("وضعيت بدنه :"), Kind::Lookup),
        withButton(QStringLiteral("sAccessories"), QStringLiteral("لوازم جانبي :"), Kind::Text),
        withButton(QStringLiteral("sFacilities"), QStringLiteral("امکانات :"), Kind::Text),
        withButton(QStringLiteral("sDocumentsDelivered"), QStringLiteral("مدارک تحويلي :"), Kind::Text),
        withButton(QStringLiteral("iCountry"), QStringLiteral("کشور :"), Kind::Lookup),
        withButton(QStringLiteral("iColor"), QStringLiteral("رنگ :"), Kind::Lookup),
        // In another order and spelling than the filter's list of fuels, whose positions are the codes.
        list(QStringLiteral("iFuel"), QStringLiteral("سوخت :"),
             {QStringLiteral("بنزین"), QStringLiteral("دوگانه سوز"), QStringLiteral("گاز"), QStringLiteral("گازوئیل"),
              QStringLiteral("سایر")},
             {1, 2, 4, 3, 5}),
        withButton(QStringLiteral("iSource"), QStringLiteral("ماخذ :"), Kind::Lookup),
        list(QStringLiteral("iTypeDocument"), QStringLiteral("نوع سند :"),
             {QStringLiteral("قولنامه ای"), QStringLiteral("اجاره ای ")}, {0, 1}),
    };
}

QList<KFormField> CarFields::sale()
{
    const QString paid = QStringLiteral("پرداخت شده :");
    const QString remaining = QStringLiteral("مانده :");
    const QString contract = QStringLiteral("قرارداد");
    const QString commission = QStringLiteral("کميسيون");
    return {
        {QStringLiteral("bSold"), QStringLiteral("فروخته شده"), Kind::Flag},
        {QStringLiteral("dateBuy"), QStringLiteral("تاريخ خريد :"), Kind::Date},
        {QStringLiteral("sRegistryNum"), QStringLiteral("شماره دفترخانه :")},
        {QStringLiteral("dateDelivery"), QStringLiteral("تاريخ تحويل :"), Kind::Date},
        {QStringLiteral("sAddress"), QStringLiteral("آدرس :")},
        {QStringLiteral("dateJawPlate"), QStringLiteral("تاريخ فک پلاک :"), Kind::Date},
        {QStringLiteral("dateLegalDocument"), QStringLiteral("تاريخ سند وکالت :"), Kind::Date},
        {QStringLiteral("sNumLegalDocument"), QStringLiteral("شماره سند وکالت :")},
        {QStringLiteral("datefinalDocument"), QStringLiteral("تاريخ سند قطعي :"), Kind::Date},
        {QStringLiteral("dateObtainingCopies"), QStringLiteral("تاريخ اخذ کپي :"), Kind::Date},
        {QStringLiteral("dMbayhAutomobilContract"), QStringLiteral("مبايعه نامه :"), Kind::Money},
        {QStringLiteral("dAmountContract"), QStringLiteral("مبلغ قرارداد :"), Kind::Money},
        amountOf(QStringLiteral("dPaidContract"), paid, contract),
        signedAmount(amountOf(QStringLiteral("dRemainingContract"), remaining, contract)),
        {QStringLiteral("dAmountCommission"), QStringLiteral("مبلغ کميسيون :"), Kind::Money},
        amountOf(QStringLiteral("dPaidComission"), paid, commission),
        signedAmount(amountOf(QStringLiteral("dRemainingComission"), remaining, commission)),
        {QStringLiteral("sReplacementCenter"), QStringLiteral("مرکز تعويض :")},
        {QStringLiteral("dPurchasePriceOfOwner"), QStringLiteral("مبلغ خريد از مالک :"), Kind::Money},
        {QStringLiteral("dSoldAmount"), QStringLiteral("مبلغ فروخته شده :"), Kind::Money},
        {QStringLiteral("dAutomobilExpenses"), QStringLiteral("مخارج اتومبيل :"), Kind::Money},
        withButton(QStringLiteral("dAmountPresence"), QStringLiteral("هزينه محضر :"), Kind::Money),
        signedAmount({QStringLiteral("dRemainingPresence"), QStringLiteral("مانده محضر :"), Kind::Money}),
        signedAmount(shown(QStringLiteral("dProfitAndLoss"), QStringLiteral("سود و زيان :"), Kind::Money)),
        {QStringLiteral("dateClearance"), QStringLiteral("تاريخ ترخيص :"), Kind::Date},
        withButton(QStringLiteral("iCustomsClearance"), QStringLiteral("گمرک ترخيصي :"), Kind::Lookup),
        {QStringLiteral("sLicense"), QStringLiteral("شماره پروانه :")},
    };
}
