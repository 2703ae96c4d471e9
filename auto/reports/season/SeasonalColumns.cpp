// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/reports/season/SeasonalColumns.h"

QVector<KListModel::Column> seasonalColumns(SeasonalGathering::Kind kind)
{
    const bool sales = kind == SeasonalGathering::Kind::Sales;
    const auto title = [sales](const QString &ofSales, const QString &ofPurchases) { return sales ? ofSales : ofPurchases; };
    constexpr Qt::Alignment centre = Qt::AlignCenter;
    constexpr Qt::Alignment right = Qt::AlignRight;
    const QVector<KListModel::Column> columns{
        {QStringLiteral("ردیف"), centre, 37},
        {title(QStringLiteral("شماره سریال"), QStringLiteral("کد خدمت")), centre, 80},
        {title(QStringLiteral("نوع قرارداد "), QStringLiteral("نام خدمت")), centre, 100},
        {QStringLiteral("برگشت"), centre, 60},
        {QStringLiteral("مبلغ"), right, 110},
        {QStringLiteral("ارزش افزوده"), right, 80},
        {QStringLiteral("نوع شخص"), centre, 90},
        {QStringLiteral("کد پستی"), centre, 80},
        {QStringLiteral("پیش شماره تلفن"), centre, 80},
        {QStringLiteral("تلفن"), centre, 80},
        {QStringLiteral("آدرس"), centre, 130},
        {title(QStringLiteral("نام خریدار"), QStringLiteral("نام فروشنده")), centre, 80},
        {QStringLiteral("نام خانوادگی"), centre, 80},
        {QStringLiteral("شماره اقتصادی"), centre, 80},
        {QStringLiteral("کد ملی/ شناسه ملی"), centre, 120},
        {title(QStringLiteral("نوع خریدار"), QStringLiteral("نوع فروشنده")), centre, 80},
        {QStringLiteral("حوزه"), centre, 60},
        {QStringLiteral("کد استان"), centre, 60},
        {QStringLiteral("کد شهر"), centre, 60},
        {QStringLiteral("معاملات کمتر از 5% مبلغ حد نصاب"), centre, 60},
        {QStringLiteral("مبلغ تخفیف"), right, 60},
        {QStringLiteral("جمع"), right, 90},
        {QStringLiteral("کد قرارداد"), centre, 80},
        {QStringLiteral("تاریخ ثبت قرارداد"), centre, 80, {}, true},
        {QStringLiteral("سایر عوارض"), right, 40},
        {QStringLiteral("نحوه دریافت وجه"), right, 100},
        {QStringLiteral("سرفصل حساب"), right, 70},
        {QStringLiteral("شماره سند"), right, 60},
        {QStringLiteral("تاریخ سند"), right, 70, {}, true},
        {QStringLiteral("نوع کالا"), centre, 60},
    };
    Q_ASSERT(columns.size() == SeasonalRow::ColumnCount);
    return columns;
}
