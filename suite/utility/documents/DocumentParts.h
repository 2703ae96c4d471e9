// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/documents/TzDocumentsExport.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

// What stands in a document beside single values. A template asks for it by merge fields, whose names any word processor writes:
//
//   If_A_B ... EndIf      what lies between is left out unless the field A or the field B says something
//   IfNot_A_B ... EndIf   the same the other way round
//   a field of a table    the row that it stands in comes once for each row of the table
//   Logo, Logo_25         a picture, as high as it usually is or 25 millimetres
struct DocumentParts
{
    // One that comes row by row: the fields of its columns.
    struct Table
    {
        QStringList columns;
        QList<QStringList> rows; // each as long as columns
    };

    struct Picture
    {
        QString name;
        QByteArray bytes; // PNG or JPEG; empty: there is none, and its field leaves nothing
        int pixelsWide = 0, pixelsHigh = 0;
        int height = 18; // in millimetres, where the template does not say
        QString description;
    };

    // Whether a field of that name says anything, whatever a template asks about; a name that nobody knows should, so that a wrong
    // letter in a mark costs the contract no words. Empty: every field does.
    std::function<bool(const QString &fieldName)> says;
    QList<Table> tables;
    QList<Picture> pictures;
};

// The marks around a part that can be left out, by the names of their fields.
struct PartMark
{
    enum Kind {
        None,
        If,
        IfNot,
        End
    };
    Kind kind = None;
    QStringList names; // of the fields that it asks about

    TZDOCUMENTS_EXPORT static PartMark of(const QString &fieldName);
    TZDOCUMENTS_EXPORT bool keeps(const std::function<bool(const QString &)> &says) const;
};

// The height that a field asks for, in millimetres, within what fits on a page. 0: the usual one; -1: it is no field of this picture.
TZDOCUMENTS_EXPORT int pictureHeight(const QString &fieldName, const QString &pictureName);
