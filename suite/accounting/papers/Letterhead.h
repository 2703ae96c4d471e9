// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QByteArray>
#include <QString>

// Who hands a paper out. The floor above knows the office's details and enters how they are read.
struct TZACCOUNTINGDATA_EXPORT Letterhead
{
    QString name;
    QString address;
    QString telephone;
    QByteArray logo; // an encoded picture; empty: none

    using Source = Letterhead (*)();
    static void setSource(Source source);
    // Empty where no source was entered.
    static Letterhead read();
};
