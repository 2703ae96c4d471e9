// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/season/SeasonalExport.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "tests/office/TestOffice.h"

#include <QVector>

// What the tests of the export share.
namespace ExportedSeason {

const QString builtFolder = QStringLiteral(TZ_BUILT_MODULES);

inline QStringList ownRow(int number)
{
    QStringList cells(30);
    cells[0] = QString::number(number);
    cells[1] = QString::number(number);
    cells[2] = QStringLiteral("مبایعه نامه");
    cells[3] = QStringLiteral("بلی");
    cells[4] = QStringLiteral("1,250,000");
    cells[5] = QStringLiteral("112,500");
    cells[6] = QStringLiteral("حقوقی");
    cells[7] = QStringLiteral("1234567890");
    cells[8] = QStringLiteral("021");
    cells[9] = QStringLiteral("22334455");
    cells[10] = QStringLiteral("تهران، خیابان ولی‌عصر، پلاک ۱۲\tطبقه \\ دوم");
    cells[11] = QStringLiteral("شرکت پژوهش گچ");
    cells[12] = QStringLiteral("كاراي «نو»");
    cells[13] = QStringLiteral("411111111111");
    cells[14] = QStringLiteral("0012345679");
    cells[15] = QStringLiteral("6");
    cells[16] = QStringLiteral("99");
    cells[17] = QStringLiteral("23");
    cells[18] = QStringLiteral("8");
    cells[19] = QStringLiteral("خیر");
    cells[20] = QStringLiteral("10,000.5");
    cells[21] = QStringLiteral("1,352,499.5");
    cells[22] = QStringLiteral("1042");
    cells[23] = QStringLiteral("1404/05/12");
    cells[24] = QStringLiteral("75");
    cells[25] = QStringLiteral("نقد");
    cells[26] = QStringLiteral("خدمت");
    cells[27] = QStringLiteral("55");
    cells[28] = QStringLiteral("1404/05/13");
    cells[29] = QStringLiteral("12");
    return cells;
}

// A sum of small contracts; every cell that it must not write is filled.
inline QStringList summedRow()
{
    QStringList cells = ownRow(0);
    cells[1].clear();
    cells[2] = QStringLiteral(" ");
    cells[3] = QStringLiteral("خیر");
    cells[4] = QStringLiteral("3,000,000");
    cells[12] = QStringLiteral(" ");
    return cells;
}

inline SeasonalExport::Report report(SeasonalExport::Kind kind, const QVector<QStringList> &rows)
{
    return {kind, 1, QStringLiteral("1404"), static_cast<int>(rows.size()), [rows](int row) { return rows.at(row); }};
}

inline void giveCompany()
{
    CompanyDetails details;
    details.name1 = QStringLiteral("نمایشگاه");
    details.name2 = QStringLiteral("پارس");
    details.kind = CompanyDetails::kindLegal;
    details.nationalCode = QStringLiteral("10101234567");
    details.economicCode = QStringLiteral("4111");
    details.registrationNumber = QStringLiteral("9876");
    details.manager = QStringLiteral("مینا کریمی");
    details.telephone = QStringLiteral("02188");
    details.mobile = QStringLiteral("0912");
    details.province = QStringLiteral("تهران");
    details.city = QStringLiteral("ری");
    details.address = QStringLiteral("میدان نماز");
    details.postalCode = QStringLiteral("1111122222");
    details.write();
}

}
