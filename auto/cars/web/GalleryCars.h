// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/web/GalleryPage.h"

#include <QList>
#include <QSet>

// The cars that strangers see (PublicCars::isShown), with what they may see of them.
namespace GalleryCars {

struct Entry
{
    qint32 key = 0;
    GalleryCar car; // without its pictures
    // Of RecordPictures, in the order of the editor.
    QList<qint32> pictures;
};

// Those that came last first, as they were at one moment, in two statements however many they are. Of each car so many pictures at most; no
// picture is read.
QList<Entry> read(int picturesOfCar, int database = 0);
// Which of them are still shown.
QSet<qint32> stillShown(int database = 0);

}
