// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/words/WordLists.h"

namespace WordLists {

namespace {

constexpr QStringView contractTypesWithAllTexts[] = {
    u"همه",
    u"مبایعه نامه",
    u"قرارداد اجاره",
    u"فروش اقساطی",
    u"قرارداد نامه",
};

constexpr QStringView archiveStatesTexts[] = {
    u"همه",
    u"بایگانی نشده",
    u"بایگانی شده",
    u"بایگانی شده دیگران",
};

constexpr QStringView returnStatesTexts[] = {
    u"همه",
    u"برگشت نشده",
    u"برگشت شده",
};

constexpr QStringView fuelTypesTexts[] = {
    u"-",
    u"بنزین",
    u"دوگانه سوز",
    u"گازئیل",
    u"گاز",
    u"سایر",
};

constexpr QStringView usageTypesTexts[] = {
    u"-",
    u"سواری",
    u"سنگین",
};

constexpr QStringView sendingStatesTexts[] = {
    u"نباید ارسال شود",
    u"ارسال نشده",
    u"ارسال در انتظار استعلام",
    u"خطای ارسال",
    u"ارسال شده",
    u"اصلاح شده ارسال نشده",
    u"اصلاح شده در انتظار استعلام",
    u"خطای اصلاح شده",
    u"اصلاح شده ارسال شده",
    u"باطل شده ارسال نشده",
    u"باطل شده در انتظار استعلام",
    u"خطای باطل شده",
    u"باطل شده ارسال شده",
};

constexpr QStringView paymentStatesTexts[] = {
    u"پرداخت نشده",
    u"پرداخت شده",
};

constexpr QStringView inputParameterTypesTexts[] = {
    u"تعداد سیلندر",
    u"ماخذ",
    u"وضعیت بدنه",
    u"لوازم جانبی",
    u"مدرک تحویلی",
    u"امکانات",
    u"حجم سیلندر",
    u"رنگ",
    u"تعداد چرخ",
    u"تبصره",
    u"گمرک ترخیصی",
    u"ظرفیت",
    u"سیستم",
};

constexpr QStringView companyTypesTexts[] = {
    u"-",
    u"کارخانه",
    u"کارگاه",
    u"تولیدی",
    u"شرکت",
    u"فروشگاه",
    u"مغازه",
    u"آموزشگاه",
    u"نمایندگی",
    u"موسسه",
    u"بازرگانی",
};

constexpr QStringView personalTitlesTexts[] = {
    u"-",
    u"کاردان",
    u"کارشناس",
    u"کارشناس ارشد",
    u"مهندس",
    u"دکتر",
    u"پروفسور",
    u"جناب سروان",
    u"جناب سرهنگ",
    u"حاج آقا",
    u"خانم",
    u"آقای",
    u"سرکار خانم",
    u"آقای مهندس",
    u"خانم مهندس",
    u"آقای دکتر",
    u"خانم دکتر",
};

constexpr QStringView starRatingsTexts[] = {
    u"*",
    u"**",
    u"***",
    u"****",
    u"*****",
    u"******",
    u"*******",
    u"********",
    u"*********",
    u"**********",
};

constexpr QStringView balanceSidesTexts[] = {
    u"بدهکار",
    u"خنثی",
    u"بستانکار",
};

}

List contractTypesWithAll()
{
    return contractTypesWithAllTexts;
}

List contractTypes()
{
    return contractTypesWithAll().subspan(1);
}

List archiveStates()
{
    return archiveStatesTexts;
}

List returnStates()
{
    return returnStatesTexts;
}

List fuelTypes()
{
    return fuelTypesTexts;
}

List usageTypes()
{
    return usageTypesTexts;
}

List sendingStates()
{
    return sendingStatesTexts;
}

List paymentStates()
{
    return paymentStatesTexts;
}

List inputParameterTypes()
{
    return inputParameterTypesTexts;
}

List companyTypes()
{
    return companyTypesTexts;
}

List personalTitles()
{
    return personalTitlesTexts;
}

List starRatings()
{
    return starRatingsTexts;
}

List balanceSides()
{
    return balanceSidesTexts;
}

QStringList texts(List list)
{
    QStringList result;
    result.reserve(static_cast<qsizetype>(list.size()));
    for (QStringView text : list)
        result.append(text.toString());
    return result;
}

QString textAt(List list, int position)
{
    return position >= 0 && static_cast<size_t>(position) < list.size() ? list[position].toString() : QString();
}

}
