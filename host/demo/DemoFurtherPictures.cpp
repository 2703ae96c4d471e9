// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoFurtherPictures.h"

#include "auto/db/CTblAutomobilInformations.h"
#include "host/demo/RecordBulkInsert.h"
#include "suite/accounting/attachments/CTblPictures.h"
#include "suite/image/PictureIntake.h"

using namespace Qt::StringLiterals;

namespace {

struct View
{
    QString name;
    QRect part;
    bool mirrored = false;
};

const QList<View> &views()
{
    static const QList<View> list{{u"سمت دیگر.jpg"_s, {0, 0, 640, 420}, true},
                                  {u"چراغ جلو.jpg"_s, {400, 150, 240, 180}},
                                  {u"چرخ عقب.jpg"_s, {80, 210, 220, 165}}};
    return list;
}

QByteArray seen(const QImage &car, const View &view)
{
    const QImage part = car.copy(view.part);
    return PictureIntake::fromImage(view.mirrored ? part.mirrored(true, false) : part.scaled(640, 480, Qt::KeepAspectRatio, Qt::SmoothTransformation)).bytes;
}

}

void DemoFurtherPictures::write(int userID, int database)
{
    CTblAutomobilInformations cars(database);
    cars.SetColumns({u"iCode"_s, u"dateCreate"_s, u"oPicture"_s});
    cars.m_filter = "oPicture IS NOT NULL AND MOD(iCode,6)=1";
    cars.m_sort = "iCode DESC";
    cars.SetLimit(mostCars);
    CTblPictures picture(database);
    RecordBulkInsert rows(picture);
    for (cars.Open(true, true, true); !cars.IsEOF(); cars.MoveNext()) {
        const QImage car = PictureIntake::decode(cars.m_oPicture.data);
        const qsizetype count = cars.m_iCode % 12 == 1 ? views().size() : views().size() - 1;
        for (qsizetype i = 0; i < count; ++i) {
            const View &view = views().at(i);
            picture.m_iTable = CTblAutomobilInformations::recordKind;
            picture.m_iRecordID = cars.m_iID;
            picture.m_iOrder = int(i + 1);
            picture.m_sName = view.name;
            picture.m_oPicture.data = seen(car, view);
            picture.m_iUserID = userID;
            picture.m_dateCreate = cars.m_dateCreate;
            rows.add();
        }
    }
    rows.flush();
}
