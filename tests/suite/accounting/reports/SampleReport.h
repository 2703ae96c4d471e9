// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/ListReport.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

// A report of that many made-up rows, in its standard layout: number, name, amount, date, remark.
inline ListReport sampleReport(int rows)
{
    const QVector<KListModel::Column> columns{{QStringLiteral("ردیف"), Qt::AlignCenter, 40},
                                              {QStringLiteral("نام"), Qt::AlignRight, 80},
                                              {QStringLiteral("مبلغ"), Qt::AlignCenter, 80},
                                              {QStringLiteral("تاریخ"), Qt::AlignCenter, 80, {}, true},
                                              {QStringLiteral("توضیحات"), Qt::AlignRight, 150}};
    const QDateTime start(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC);
    QVector<KListModel::Row> data;
    data.reserve(rows);
    for (int i = 0; i < rows; ++i) {
        const QDateTime date = start.addDays(i % 365);
        const double amount = 1'250'000.0 * (i + 1);
        data.append({i + 1,
                     {{QString::number(i + 1), i + 1},
                      {QStringLiteral("خریدار شماره %1").arg(i + 1)},
                      {DToMoney(amount), amount},
                      {shamsiText(date.date()), date},
                      {i % 5 == 0 ? QStringLiteral("تحویل خودرو پس از تسویه کامل") : QString()}}});
    }
    ListReport report(QStringLiteral("گالری اتومبیل"), QStringLiteral("لیست قراردادها"));
    report.setText(QStringLiteral("LeftBottom"), QStringLiteral("تاریخ چاپ : 1405/08/29"));
    report.setText(QStringLiteral("RightTop"), QStringLiteral("نمایشگاه نمونه"));
    report.setText(QStringLiteral("Count"), QStringLiteral("تعداد : %1").arg(rows));
    report.setTable(QStringLiteral("List"), columns, data);
    report.buildStandard(QStringLiteral("لیست قراردادها"));
    return report;
}
