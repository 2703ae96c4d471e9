// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalColumns.h"

using namespace Qt::StringLiterals;

QVector<KListModel::Column> seasonalColumns(SeasonalGathering::Kind kind)
{
    const bool sales = kind == SeasonalGathering::Kind::Sales;
    const auto title = [sales](const QString &ofSales, const QString &ofPurchases) { return sales ? ofSales : ofPurchases; };
    constexpr Qt::Alignment centre = Qt::AlignCenter;
    constexpr Qt::Alignment right = Qt::AlignRight;
    const QVector<KListModel::Column> columns{
        {u"ردیف"_s, centre, 37},
        {title(u"شماره سریال"_s, u"کد خدمت"_s), centre, 80},
        {title(u"نوع قرارداد "_s, u"نام خدمت"_s), centre, 100},
        {u"برگشت"_s, centre, 60},
        {u"مبلغ"_s, right, 110},
        {u"ارزش افزوده"_s, right, 80},
        {u"نوع شخص"_s, centre, 90},
        {u"کد پستی"_s, centre, 80},
        {u"پیش شماره تلفن"_s, centre, 80},
        {u"تلفن"_s, centre, 80},
        {u"آدرس"_s, centre, 130},
        {title(u"نام خریدار"_s, u"نام فروشنده"_s), centre, 80},
        {u"نام خانوادگی"_s, centre, 80},
        {u"شماره اقتصادی"_s, centre, 80},
        {u"کد ملی/ شناسه ملی"_s, centre, 120},
        {title(u"نوع خریدار"_s, u"نوع فروشنده"_s), centre, 80},
        {u"حوزه"_s, centre, 60},
        {u"کد استان"_s, centre, 60},
        {u"کد شهر"_s, centre, 60},
        {u"معاملات کمتر از 5% مبلغ حد نصاب"_s, centre, 60},
        {u"مبلغ تخفیف"_s, right, 60},
        {u"جمع"_s, right, 90},
        {u"کد قرارداد"_s, centre, 80},
        {u"تاریخ ثبت قرارداد"_s, centre, 80, {}, true},
        {u"سایر عوارض"_s, right, 40},
        {u"نحوه دریافت وجه"_s, right, 100},
        {u"سرفصل حساب"_s, right, 70},
        {u"شماره سند"_s, right, 60},
        {u"تاریخ سند"_s, right, 70, {}, true},
        {u"نوع کالا"_s, centre, 60},
    };
    Q_ASSERT(columns.size() == SeasonalRow::ColumnCount);
    return columns;
}
