// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/ListReport.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

// A report of that many made-up rows, in its standard layout: number, name, amount, date, remark.
inline ListReport sampleReport(int rows)
{
    const QVector<KListModel::Column> columns{{u"ردیف"_s, Qt::AlignCenter, 40},
                                              {u"نام"_s, Qt::AlignRight, 80},
                                              {u"مبلغ"_s, Qt::AlignCenter, 80},
                                              {u"تاریخ"_s, Qt::AlignCenter, 80, {}, true},
                                              {u"توضیحات"_s, Qt::AlignRight, 150}};
    const QDateTime start(QDate(2026, 11, 20), QTime(0, 0), Qt::UTC);
    QVector<KListModel::Row> data;
    data.reserve(rows);
    for (int i = 0; i < rows; ++i) {
        const QDateTime date = start.addDays(i % 365);
        const double amount = 1'250'000.0 * (i + 1);
        data.append({i + 1,
                     {{QString::number(i + 1), i + 1},
                      {u"خریدار شماره %1"_s.arg(i + 1)},
                      {DToMoney(amount), amount},
                      {shamsiText(date.date()), date},
                      {i % 5 == 0 ? u"تحویل خودرو پس از تسویه کامل"_s : QString()}}});
    }
    ListReport report(u"گالری اتومبیل"_s, u"لیست قراردادها"_s);
    report.setText(u"LeftBottom"_s, u"تاریخ چاپ : 1405/08/29"_s);
    report.setText(u"RightTop"_s, u"نمایشگاه نمونه"_s);
    report.setText(u"Count"_s, u"تعداد : %1"_s.arg(rows));
    report.setTable(u"List"_s, columns, data);
    report.buildStandard(u"لیست قراردادها"_s);
    return report;
}
