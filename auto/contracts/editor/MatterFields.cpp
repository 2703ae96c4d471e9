// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/MatterFields.h"

#include "suite/utility/values/Provinces.h"

using namespace Qt::StringLiterals;

namespace {

using Kind = KFormField::Kind;

QString column(const char *name)
{
    return QString::fromLatin1(name);
}

KFormField money(const char *name, const QString &label)
{
    KFormField field{column(name), label, Kind::Money};
    field.inWords = true;
    return field;
}

KFormField code(const char *name, const QString &label)
{
    KFormField field{column(name), label};
    field.leftToRight = true;
    return field;
}

KFormField place(const char *name, const QString &label, const QStringList &choices)
{
    KFormField field{column(name), label, Kind::EditableChoice};
    field.choices = choices;
    return field;
}

// Two fields have the same label.
KFormField sample(const char *name, const QString &label, const QString &which)
{
    KFormField field{column(name), label};
    field.accessibleName = label + u' ' + which;
    return field;
}

}

QList<KFormField> matterFields()
{
    return {
        {column("sAutomobilName"), u"نام اتومبيل :"_s},
        {column("sColor"), u"رنگ :"_s},
        {column("sAutomobilType"), u"نوع اتومبيل :"_s},
        {column("sSystem"), u"سيستم :"_s},
        {column("sModel"), u"سال توليد :"_s},
        {column("sBrigade"), u"تيپ :"_s},
        code("sNumOfEngines", u"شماره موتور :"_s),
        {column("sFuel"), u"نوع سوخت :"_s},
        {column("sNumOFAxles"), u"تعداد محور :"_s},
        code("sVIN", u"VIN :"_s),
        code("sNumOfPlates", u"شماره پلاک :"_s),
        code("sChassisNum", u"شماره شاسي :"_s),
        {column("sNumOfWheels"), u"تعداد چرخ :"_s},
        {column("sDengue"), u"دانگ :"_s},
        {column("sDescMatter"), u"توضيحات :"_s},
        {column("sDocumentsDelivered"), u"لوازم تحويلي :"_s},
        {column("sRegistryNum"), u"شماره دفتر خانه :"_s},
        {column("sRightTahrir"), u"حق تحرير :"_s},
        {column("dateDeal"), u"تاريخ معامله :"_s, Kind::Date},
        {column("dateOffice"), u"تاريخ تنظيم سند در دفتر اسناد رسمي :"_s, Kind::Date},
        {column("dateDocument"), u"تاريخ تنظيم سند طبق قرارداد :"_s, Kind::Date},
        sample("sSampleDescOne", u"توضيحات نمونه :"_s, u"اول"_s),
        sample("sSampleDescTwo", u"توضيحات نمونه :"_s, u"دوم"_s),
        {column("sAddressSample"), u"آدرس مشاور نمونه :"_s},
        money("dFixAmount", u"پرداخت به صورت نقدي :"_s),
        {column("sCheckCount"), u"پرداخت به صورت چکي : تعداد :"_s},
        money("dAgreeAmount", u"فقره چک، که مجموع مبالغ آنها :"_s),
        {column("sCheckNum"), u"شماره چک :"_s},
        {column("sBankName"), u"نام بانک :"_s},
        {column("sBranchName"), u"نام شعبه :"_s},
        {column("sBranchCode"), u"کد شعبه :"_s},
        money("dRemainingAmount", u"الباقي :"_s),
        {column("sDescRemainingAmount"), u"شرح الباقي مبلغ :"_s},
        money("dDamageAmount", u"خسارت تخلف :"_s),
        money("dCompenseAmount", u"مبلغ جبران خسارت :"_s),
        {column("sBillNumOne"), u"قبض شماره يک :"_s},
        {column("sBillNumTwo"), u"قيض شماره دو :"_s},
        {column("dateTradeUnit"), u"تاريخ قرارداد در واحد صنفي :"_s, Kind::Date},
        money("dEveryHandDealAmount", u"منطبق با تعرفه از هر طرف معامله مبلغ :"_s),
        place("sCity", u"شهرستان :"_s, {}),
        place("sState", u"استان :"_s, Provinces::names()),
        {column("sLicense"), u"پروانه :"_s},
        money("dAmountRent", u"مبلغ مال الاجاره :"_s),
        {column("sRentTime"), u"مدت اجاره :"_s},
        {column("dateRent"), u"تاريخ اجاره :"_s, Kind::Date},
        {column("dateRentExpire"), u"تاريخ انقضاء اجاره :"_s, Kind::Date},
        {column("sNumOfMonths"), u"تعداد ماه :"_s},
        {column("sNumOfInstallment"), u"تعداد اقساط :"_s},
        {column("sUsanceNum"), u"شماره هاي سر رسيد :"_s},
        {column("sDescCheck"), u"شرح چک/ سفته :"_s},
        money("dDelayAmount", u"مبلغ تاخير :"_s),
    };
}
