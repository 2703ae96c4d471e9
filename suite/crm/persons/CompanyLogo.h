// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

#include <QByteArray>
#include <QtGlobal>

// The dealership's logo, as its papers carry it: a PNG among the pictures that belong to no record (kind 0, key 0).
struct TZCRMDATA_EXPORT CompanyLogo
{
    // Longer side of what is kept, in pixels: 25 millimetres at 600 dots an inch. And its most bytes.
    static constexpr int maxSide = 600;
    static constexpr qsizetype maxBytes = qsizetype{1} << 20;

    qint32 id = 0; // of its row, which another logo never takes over; 0: there is none
    QByteArray bytes;

    // Of a PNG, by its own head; 0 for anything else.
    static int widthOf(const QByteArray &png);
    static int heightOf(const QByteArray &png);

    // Empty also where the stored bytes are no PNG of that size.
    static CompanyLogo read(int database = 0);
    // Puts these bytes in the place of the logo that was seen under that key, or takes it away (empty), and notes it in the history of
    // the office's details. Throws KAccountingError when another desk has put one there meanwhile, when the database is closed, and for
    // bytes that are no such PNG.
    static void save(const QByteArray &bytes, qint32 seen, int database = 0);
};
