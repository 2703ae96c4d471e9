// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/MatterFields.h"

#include "suite/utility/values/Provinces.h"

using namespace Qt::StringLiterals;

namespace {

using Kind = KFormField::Kind;

KFormField money(const char *name, const QString &label)
{
    KFormField field{QString::fromLatin1(name), label, Kind::Money};
    field.inWords = true;
    return field;
}

KFormField code(const char *name, const QString &label)
{
    KFormField field{QString::fromLatin1(name), label};
    field.leftToRight = true;
    return field;
}

KFormField place(const char *name, const QString &label, const QStringList &choices)
{
    KFormField field{QString::fromLatin1(name), label, Kind::EditableChoice};
    field.choices = choices;
    return field;
}

// Two fields have the same label.
KFormField sample(const char *name, const QString &label, const QString &which)
{
    KFormField field{QString::fromLatin1(name), label};
    field.accessibleName = label + u' ' + which;
    return field;
}

}

QList<KFormField> matterFields()
{
    return {
        {u"sAutomobilName"_s, u"نام اتومبيل :"_s},
        {u"sColor"_s, u"رنگ :"_s},
        {u"sAutomobilType"_s, u"نوع اتومبيل :"_s},
        {u"sSystem"_s, u"سيستم :"_s},
        {u"sModel"_s, u"سال توليد :"_s},
        {u"sBrigade"_s, u"تيپ :"_s},
        code("sNumOfEngines", u"شماره موتور :"_s),
        {u"sFuel"_s, u"نوع سوخت :"_s},
        {u"sNumOFAxles"_s, u"تعداد محور :"_s},
        code("sVIN", u"VIN :"_s),
        {u"sNumOfPlates"_s, u"شماره پلاک :"_s, Kind::Plate},
        code("sChassisNum", u"شماره شاسي :"_s),
        {u"sNumOfWheels"_s, u"تعداد چرخ :"_s},
        {u"sDengue"_s, u"دانگ :"_s},
        {u"sDescMatter"_s, u"توضيحات :"_s},
        {u"sDocumentsDelivered"_s, u"لوازم تحويلي :"_s},
        {u"sRegistryNum"_s, u"شماره دفتر خانه :"_s},
        {u"sRightTahrir"_s, u"حق تحرير :"_s},
        {u"dateDeal"_s, u"تاريخ معامله :"_s, Kind::Date},
        {u"dateOffice"_s, u"تاريخ تنظيم سند در دفتر اسناد رسمي :"_s, Kind::Date},
        {u"dateDocument"_s, u"تاريخ تنظيم سند طبق قرارداد :"_s, Kind::Date},
        sample("sSampleDescOne", u"توضيحات نمونه :"_s, u"اول"_s),
        sample("sSampleDescTwo", u"توضيحات نمونه :"_s, u"دوم"_s),
        {u"sAddressSample"_s, u"آدرس مشاور نمونه :"_s},
        money("dFixAmount", u"پرداخت به صورت نقدي :"_s),
        {u"sCheckCount"_s, u"پرداخت به صورت چکي : تعداد :"_s},
        money("dAgreeAmount", u"فقره چک، که مجموع مبالغ آنها :"_s),
        {u"sCheckNum"_s, u"شماره چک :"_s},
        {u"sBankName"_s, u"نام بانک :"_s},
        {u"sBranchName"_s, u"نام شعبه :"_s},
        {u"sBranchCode"_s, u"کد شعبه :"_s},
        money("dRemainingAmount", u"الباقي :"_s),
        {u"sDescRemainingAmount"_s, u"شرح الباقي مبلغ :"_s},
        money("dDamageAmount", u"خسارت تخلف :"_s),
        money("dCompenseAmount", u"مبلغ جبران خسارت :"_s),
        {u"sBillNumOne"_s, u"قبض شماره يک :"_s},
        {u"sBillNumTwo"_s, u"قيض شماره دو :"_s},
        {u"dateTradeUnit"_s, u"تاريخ قرارداد در واحد صنفي :"_s, Kind::Date},
        money("dEveryHandDealAmount", u"منطبق با تعرفه از هر طرف معامله مبلغ :"_s),
        place("sCity", u"شهرستان :"_s, {}),
        place("sState", u"استان :"_s, Provinces::names()),
        {u"sLicense"_s, u"پروانه :"_s},
        money("dAmountRent", u"مبلغ مال الاجاره :"_s),
        {u"sRentTime"_s, u"مدت اجاره :"_s},
        {u"dateRent"_s, u"تاريخ اجاره :"_s, Kind::Date},
        {u"dateRentExpire"_s, u"تاريخ انقضاء اجاره :"_s, Kind::Date},
        {u"sNumOfMonths"_s, u"تعداد ماه :"_s},
        {u"sNumOfInstallment"_s, u"تعداد اقساط :"_s},
        {u"sUsanceNum"_s, u"شماره هاي سر رسيد :"_s},
        {u"sDescCheck"_s, u"شرح چک/ سفته :"_s},
        money("dDelayAmount", u"مبلغ تاخير :"_s),
    };
}
