// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/server/TableNames.h"

#include <QHash>

using namespace Qt::StringLiterals;

QString TableNames::shown(const QString &table)
{
    static const QHash<QString, QString> names{
        {u"AutomobilContracts"_s, u"قراردادها"_s},
        {u"AutomobilDemands"_s, u"تقاضاها"_s},
        {u"AutomobilInformations"_s, u"خودروهای گالری"_s},
        {u"AutomobilPayments"_s, u"اقساط"_s},
        {u"AutomobilTariffs"_s, u"تعرفه‌های محضر"_s},
        {u"CarBrands"_s, u"نام خودرو: برندها"_s},
        {u"CarModels"_s, u"نام خودرو: مدل‌ها"_s},
        {u"CarClasses"_s, u"نام خودرو: تیپ‌ها"_s},
        {u"CarYears"_s, u"نام خودرو: سال‌ها"_s},
        {u"Persons"_s, u"اشخاص"_s},
        {u"Items"_s, u"پارامترهای ورودی"_s},
        {u"Departments"_s, u"شعبه‌ها"_s},
        {u"Users"_s, u"کاربران"_s},
        {u"UserRights"_s, u"دسترسی‌های کاربران"_s},
        {u"Properties"_s, u"تنظیمات"_s},
        {u"HesabKol"_s, u"حساب‌های کل"_s},
        {u"HesabMoeen"_s, u"حساب‌های معین"_s},
        {u"HesabTafsily"_s, u"حساب‌های تفصیلی"_s},
        {u"Documents"_s, u"اسناد حسابداری"_s},
        {u"Docs"_s, u"ردیف‌های اسناد حسابداری"_s},
        {u"AccountTotals"_s, u"جمع‌های حساب‌ها"_s},
        {u"AccountTotalChanges"_s, u"تغییر جمع‌های حساب‌ها"_s},
        {u"Receipts"_s, u"دریافت‌ها و پرداخت‌ها"_s},
        {u"Cheques"_s, u"چک‌ها"_s},
        {u"ChequeChanges"_s, u"گردش چک‌ها"_s},
        {u"FollowUps"_s, u"پیگیری‌ها"_s},
        {u"CarContracts"_s, u"خودروهای قراردادها"_s},
        {u"Services"_s, u"خدمات"_s},
        {u"Factors"_s, u"فاکتورها"_s},
        {u"FactorStuffs"_s, u"ردیف‌های فاکتورها"_s},
        {u"FileDocs"_s, u"پرونده‌های پیوست"_s},
        {u"CustomFields"_s, u"فیلدهای اضافی"_s},
        {u"CustomFieldRecords"_s, u"مقدارهای فیلدهای اضافی"_s},
        {u"Alarms"_s, u"یادآوری‌ها"_s},
        {u"ReportLayouts"_s, u"چیدمان گزارش‌ها"_s},
        {u"SavedFilters"_s, u"فیلترهای ذخیره‌شده"_s},
        {u"SearchKeys"_s, u"فهرست جستجو"_s},
        {u"Pictures"_s, u"تصویرها"_s},
        {u"Thumbnails"_s, u"تصویرهای کوچک"_s},
        {u"Templates"_s, u"قالب‌های چاپ"_s},
        {u"FiledPapers"_s, u"نسخه‌های بایگانی‌شده چاپ"_s},
        {u"MessageTexts"_s, u"متن‌های پیام"_s},
        {u"PublicCars"_s, u"خودروهای خروجی وب"_s},
        {u"ImportMappings"_s, u"ستون‌های ورود از فایل"_s},
        {u"ImportedFiles"_s, u"فایل‌های واردشده"_s},
    };
    return names.value(table, table);
}
