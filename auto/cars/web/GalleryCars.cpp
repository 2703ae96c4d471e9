// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/web/GalleryCars.h"

#include "auto/cars/web/PublicCars.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/words/WordLists.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

// Names are typed in all sorts of ways; a page shows them in one line.
QString name(const CTblTemp &row, int column)
{
    const QString text = row.GetTextFieldValue(column).simplified();
    return text == "-"_L1 ? QString() : text;
}

QString fuel(int position)
{
    const QString word = WordLists::textAt(WordLists::fuelTypes(), position);
    return word == "-"_L1 ? QString() : word;
}

QHash<qint32, QList<qint32>> furtherPictures(int database)
{
    QHash<qint32, QList<qint32>> pictures;
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery(KSql::formatted("SELECT p.iRecordID,p.iID FROM Pictures p JOIN AutomobilInformations ai ON ai.iID=p.iRecordID"
                                       " WHERE p.iTable=%1 AND %2 ORDER BY p.iRecordID,p.iOrder,p.iID",
                                       int(CTblAutomobilInformations::recordKind), PublicCars::isShown()));
    for (; query.HasResultRow(); query.MoveNextResult())
        pictures[query.GetLongFieldValue(0)].append(query.GetLongFieldValue(1));
    return pictures;
}

}

QList<GalleryCars::Entry> GalleryCars::read(int picturesOfCar, int database)
{
    QList<Entry> entries;
    KTransaction moment(database);
    CTblTemp query(database);
    query.Open(true, false, true);
    query.ExecuteQuery("SELECT ai.iID,b.sName,m.sName,c.sName,i.sName,ai.iFuel,ai.iYear,ai.iFunction,ai.dAmount,OCTET_LENGTH(ai.oPicture)>0"
                       " FROM AutomobilInformations ai LEFT JOIN CarBrands b ON b.iID=ai.iAutomobilType LEFT JOIN CarModels m ON m.iID=ai.iModel"
                       " LEFT JOIN CarClasses c ON c.iID=ai.iBrigade LEFT JOIN Items i ON i.iID=ai.iColor WHERE "
                       + PublicCars::isShown() + " ORDER BY COALESCE(ai.dateIntroduction,ai.dateCreate) DESC,ai.iID DESC");
    for (; query.HasResultRow(); query.MoveNextResult()) {
        Entry entry{.key = query.GetLongFieldValue(0),
                    .car = {.brand = name(query, 1),
                            .model = name(query, 2),
                            .trim = name(query, 3),
                            .color = name(query, 4),
                            .fuel = fuel(query.GetLongFieldValue(5)),
                            .year = query.GetLongFieldValue(6),
                            .mileage = query.GetLongFieldValue(7),
                            .price = query.GetDoubleFieldValue(8)}};
        if (query.GetLongFieldValue(9) != 0)
            entry.pictures.append(0);
        entries.append(entry);
    }
    const QHash<qint32, QList<qint32>> further = furtherPictures(database);
    moment.commit();
    for (Entry &entry : entries)
        entry.pictures = (entry.pictures + further.value(entry.key)).mid(0, picturesOfCar);
    return entries;
}

QSet<qint32> GalleryCars::stillShown(int database)
{
    QSet<qint32> keys;
    CTblTemp query(database);
    query.Open(true, false, true);
    for (query.ExecuteQuery("SELECT ai.iID FROM AutomobilInformations ai WHERE " + PublicCars::isShown()); query.HasResultRow(); query.MoveNextResult())
        keys.insert(query.GetLongFieldValue(0));
    return keys;
}
