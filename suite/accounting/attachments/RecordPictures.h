// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

// All pictures of a record: its own, in its column oPicture, is the first; the further ones are rows of Pictures, in their order.
// kind: of the record (RecordKinds.h).
class TZACCOUNTINGDATA_EXPORT RecordPictures
{
public:
    struct Picture
    {
        qint32 id = 0; // of the row of Pictures; 0: the record's own
        QString name;  // empty where the file had none
    };

    // A further picture as an editor holds it.
    struct Entry
    {
        qint32 id = 0; // 0: not saved yet
        QString name;
        QByteArray bytes; // needed of one that is not saved yet
    };

    struct Change
    {
        QList<qint32> opened; // the rows, in their order, as the editor read them
        QList<Entry> wanted;  // as they stand in it now
        qint32 madeFirst = 0; // the row whose picture the editor shows as the record's own; 0: none
        bool isEmpty() const; // nothing was changed
    };

    // Most further pictures of a record.
    static constexpr int most = 30;

    // Neither reads a picture.
    static QList<Picture> further(int kind, qint32 recordID, int database = 0);
    // That they will be asked (KReadAhead).
    static void expectFurther(int kind, qint32 recordID, int database = 0);
    static QList<Picture> all(int kind, qint32 recordID, int database = 0);
    // Empty where it is gone.
    static QByteArray bytes(int kind, qint32 recordID, qint32 id, int database = 0);
    // All further ones by their keys, in one statement.
    static QHash<qint32, QByteArray> furtherBytes(int kind, qint32 recordID, int database = 0);

    // Within the transaction that saves the record, whose row is locked. Puts the change onto the rows as they are now: what others have
    // added stays, what they have removed stays away, and their order holds unless the editor's was changed. A picture that was made
    // first is kept as a further one where the record's own became another (own). Noted as a change of the record.
    // Returns who changed the rows since they were read, as a message names him; empty: nobody.
    // Throws KAccountingError where there are more than most of them then.
    static QString save(int kind, qint32 recordID, const Change &change, const QByteArray &own, int database = 0);

    // Joins the caller's transaction.
    static void deleteAll(int kind, qint32 recordID, int database = 0);
};
