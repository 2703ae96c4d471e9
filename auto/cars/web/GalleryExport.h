// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/web/GalleryPage.h"
#include "suite/accounting/reports/ReportProgress.h"

#include <QString>

#include <exception>

// Writes the office's page of cars into a folder that it puts on its web space. May run on a thread of its own.
namespace GalleryExport {

struct Written
{
    int cars = 0;
    int pictures = 0;   // each in two sizes
    int unreadable = 0; // pictures that could not be shown, and are left out
    qint64 bytes = 0;
    QString page; // path
};

// It was stopped; the folder is as it was.
struct Stopped : std::exception
{
};

// Pictures of a car; longer side of the large one in pixels.
constexpr int mostPictures = 10;
constexpr int largeSide = 1280;

// Pictures are read one by one. A car that is sold, archived or no longer ticked by the time they are all written is left out with them.
// progress counts pictures. Throws GalleryFolder::Failure, Stopped, CMySQLException; the folder is as it was then.
Written write(const QString &folder, const GalleryHead &head, const ReportProgress &progress = {}, int database = 0);

}
