// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QString>

// One stop of the tour: what it says, where in the main window it is said, and who may go there.
struct TourStep
{
    QString title;
    QString text;
    QString page;    // entry of a menu that opens it; empty: the first page
    QString control; // what is pointed at, by its accessible name or its caption; a menu by its title
    QString manual;  // page of the manual that tells more
    QString form;    // whose access right the step needs; empty: none
};

namespace TourSteps {

// All of them, in their order.
const QList<TourStep> &all();
// Those that whoever is logged in may go to.
QList<TourStep> ofUser();

}
