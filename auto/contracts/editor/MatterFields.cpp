// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/MatterFields.h"

#include "suite/utility/values/Provinces.h"

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

// Two fields bear the same label.
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
        {column("sAutomobilName"), QStringLiteral("نام اتومبيل :")},
        {column("sColor"), QStringLiteral("رنگ :")},
        {column("sAutomobilType"), QStringLiteral("نوع اتومبيل :")},
        {column("sSystem"), QStringLiteral("سيستم :")},
        {column("sModel"), QStringLiteral("سال توليد :")},
        {column("sBrigade"), QStringLiteral("تيپ :")},
        code("sNumOfEngines", QStringLiteral("شماره موتور :")),
        {column("sFuel"), QStringLiteral("نوع سوخت :")},
        {column("sNumOFAxles"), QStringLiteral("تعداد محور :")},
        code("sVIN", QStringLiteral("VIN :")),
        code("sNumOfPlates", QStringLiteral("شماره پلاک :")),
        code("sChassisNum", QStringLiteral("شماره شاسي :")),
        {column("sNumOfWheels"), QStringLiteral("تعداد چرخ :")},
        {column("sDengue"), QStringLiteral("دانگ :")},
        {column("sDescMatter"), QStringLiteral("توضيحات :")},
        {column("sDocumentsDelivered"), QStringLiteral("لوازم تحويلي :")},
        {column("sRegistryNum"), QStringLiteral("شماره دفتر خانه :")},
        {column("sRightTahrir"), QStringLiteral("حق تحرير :")},
        {column("dateDeal"), QStringLiteral("تاريخ معامله :"), Kind::Date},
        {column("dateOffice"), QStringLiteral("تاريخ تنظيم سند در دفتر اسناد رسمي :"), Kind::Date},
        {column("dateDocument"), QStringLiteral("تاريخ تنظيم سند طبق قرارداد :"), Kind::Date},
        sample("sSampleDescOne", QStringLiteral("توضيحات نمونه :"), QStringLiteral("اول")),
        sample("sSampleDescTwo", QStringLiteral("توضيحات نمونه :"), QStringLiteral("دوم")),
        {column("sAddressSample"), QStringLiteral("آدرس مشاور نمونه :")},
        money("dFixAmount", QStringLiteral("پرداخت به صورت نقدي :")),
        {column("sCheckCount"), QStringLiteral("پرداخت به صورت چکي : تعداد :")},
        money("dAgreeAmount", QStringLiteral("فقره چک، که مجموع مبالغ آنها :")),
        {column("sCheckNum"), QStringLiteral("شماره چک :")},
        {column("sBankName"), QStringLiteral("نام بانک :")},
        {column("sBranchName"), QStringLiteral("نام شعبه :")},
        {column("sBranchCode"), QStringLiteral("کد شعبه :")},
        money("dRemainingAmount", QStringLiteral("الباقي :")),
        {column("sDescRemainingAmount"), QStringLiteral("شرح الباقي مبلغ :")},
        money("dDamageAmount", QStringLiteral("خسارت تخلف :")),
        money("dCompenseAmount", QStringLiteral("مبلغ جبران خسارت :")),
        {column("sBillNumOne"), QStringLiteral("قبض شماره يک :")},
        {column("sBillNumTwo"), QStringLiteral("قيض شماره دو :")},
        {column("dateTradeUnit"), QStringLiteral("تاريخ قرارداد در واحد صنفي :"), Kind::Date},
        money("dEveryHandDealAmount", QStringLiteral("منطبق با تعرفه از هر طرف معامله مبلغ :")),
        place("sCity", QStringLiteral("شهرستان :"), {}),
        place("sState", QStringLiteral("استان :"), Provinces::names()),
        {column("sLicense"), QStringLiteral("پروانه :")},
        money("dAmountRent", QStringLiteral("مبلغ مال الاجاره :")),
        {column("sRentTime"), QStringLiteral("مدت اجاره :")},
        {column("dateRent"), QStringLiteral("تاريخ اجاره :"), Kind::Date},
        {column("dateRentExpire"), QStringLiteral("تاريخ انقضاء اجاره :"), Kind::Date},
        {column("sNumOfMonths"), QStringLiteral("تعداد ماه :")},
        {column("sNumOfInstallment"), QStringLiteral("تعداد اقساط :")},
        {column("sUsanceNum"), QStringLiteral("شماره هاي سر رسيد :")},
        {column("sDescCheck"), QStringLiteral("شرح چک/ سفته :")},
        money("dDelayAmount", QStringLiteral("مبلغ تاخير :")),
    };
}
