// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// A car as strangers may see it. What is private has no member here, so that no page can show it by mistake.
struct GalleryCar
{
    struct Picture
    {
        QString small; // names of files beside the page
        QString large;
    };

    QString brand;
    QString model;
    QString trim;
    QString color;
    QString fuel;
    int year = 0;     // Shamsi; 0: not known
    int mileage = 0;  // kilometres; 0: not known
    double price = 0; // in the office's unit; 0: to be agreed
    QList<Picture> pictures;

    // Brand, model and class, as far as they are known.
    QString name() const;
};

struct GalleryHead
{
    QString title;
    QString telephone; // empty: none is shown
    QString address;
    QString moneyUnit;
    bool withPrices = true; // false: every car is to be agreed, and no price is anywhere in the page
};

// The page of the cars on offer that an office puts on its web space: one file that needs no server and loads nothing but its pictures.
namespace GalleryPage {

// UTF-8. Every text is shown as it is typed, whatever it holds.
QByteArray made(const GalleryHead &head, const QList<GalleryCar> &cars);

}
