// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/season/SeasonalExport.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "tests/office/TestOffice.h"

#include <QVector>

using namespace Qt::StringLiterals;

// What the tests of the export share.
namespace ExportedSeason {

const QString builtFolder = u"" TZ_BUILT_MODULES ""_s;

inline QStringList ownRow(int number)
{
    QStringList cells(30);
    cells[0] = QString::number(number);
    cells[1] = QString::number(number);
    cells[2] = u"مبایعه نامه"_s;
    cells[3] = u"بلی"_s;
    cells[4] = u"1,250,000"_s;
    cells[5] = u"112,500"_s;
    cells[6] = u"حقوقی"_s;
    cells[7] = u"1234567890"_s;
    cells[8] = u"021"_s;
    cells[9] = u"22334455"_s;
    cells[10] = u"تهران، خیابان ولی‌عصر، پلاک ۱۲\tطبقه \\ دوم"_s;
    cells[11] = u"شرکت پژوهش گچ"_s;
    cells[12] = u"كاراي «نو»"_s;
    cells[13] = u"411111111111"_s;
    cells[14] = u"0012345679"_s;
    cells[15] = u"6"_s;
    cells[16] = u"99"_s;
    cells[17] = u"23"_s;
    cells[18] = u"8"_s;
    cells[19] = u"خیر"_s;
    cells[20] = u"10,000.5"_s;
    cells[21] = u"1,352,499.5"_s;
    cells[22] = u"1042"_s;
    cells[23] = u"1404/05/12"_s;
    cells[24] = u"75"_s;
    cells[25] = u"نقد"_s;
    cells[26] = u"خدمت"_s;
    cells[27] = u"55"_s;
    cells[28] = u"1404/05/13"_s;
    cells[29] = u"12"_s;
    return cells;
}

// A sum of small contracts; every cell that it must not write is filled.
inline QStringList summedRow()
{
    QStringList cells = ownRow(0);
    cells[1].clear();
    cells[2] = u" "_s;
    cells[3] = u"خیر"_s;
    cells[4] = u"3,000,000"_s;
    cells[12] = u" "_s;
    return cells;
}

inline SeasonalExport::Report report(SeasonalExport::Kind kind, const QVector<QStringList> &rows)
{
    return {kind, 1, u"1404"_s, static_cast<int>(rows.size()), [rows](int row) { return rows.at(row); }};
}

inline void giveCompany()
{
    CompanyDetails details;
    details.name1 = u"نمایشگاه"_s;
    details.name2 = u"پارس"_s;
    details.kind = CompanyDetails::kindLegal;
    details.nationalCode = u"10101234567"_s;
    details.economicCode = u"4111"_s;
    details.registrationNumber = u"9876"_s;
    details.manager = u"مینا کریمی"_s;
    details.telephone = u"02188"_s;
    details.mobile = u"0912"_s;
    details.province = u"تهران"_s;
    details.city = u"ری"_s;
    details.address = u"میدان نماز"_s;
    details.postalCode = u"1111122222"_s;
    details.write();
}

}
