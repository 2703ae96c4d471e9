// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/treasury/TzTreasuryDataExport.h"

#include <QList>

#include <functional>

// What was said: about something that is due, one row for each call; and notes and calls about a record of any kind. The former are only
// added, so that the history of an instalment stays whole; those of a plan that is replaced stay with their contract, and go with it. The
// latter may be changed and taken away by who wrote them, and the log of changes keeps what they said.
class TZTREASURYDATA_EXPORT CTblFollowUps : public KMySQL, private KLiveCount<CTblFollowUps>
{
public:
    using KLiveCount<CTblFollowUps>::liveCount;

    // Characters of sNote.
    static constexpr int longestNote = 500;

    // Values of iKind.
    enum Kind : int {
        due = 0,
        note = 1,
        call = 2
    };
    // "پیگیری", "یادداشت", "تماس".
    static QString kindName(int kind);

    // What a call was about.
    struct Subject
    {
        int recordKind = 0; // of RecordKinds.h
        int recordID = 0;
        int paymentID = 0; // the instalment of that record; 0: the record as a whole
        QString form = {}; // whose right to add records a note needs

        // Run in the unit that adds the note, once the record is locked and before anything is written; it may run again. What it
        // throws ends the unit. Empty: nothing is required.
        std::function<void()> require = {};

        Kind kind = due;
    };

    struct Entry
    {
        int id = 0;
        int paymentID = 0;
        QDateTime date;
        QString note;
        QDateTime promised; // invalid: nothing was promised
        QString user;       // name; empty when the user is gone
    };

    explicit CTblFollowUps(int database = 0);
    ~CTblFollowUps() override;
    QString GetTableName() const override;

    // A note about a record of that table, to who may add such records (form): locked against its deletion until the note is written.
    static Subject subjectOf(const QString &table, int recordKind, const QString &form, int recordID);

    // Adds a row of the current user and of now, by the server's clock, and returns its key. A unit of its own. Throws, with
    // nothing written: FieldRefused ("sNote") without a note and without a promise, FieldRefused ("datePromised") for a promise that
    // is over; KAccountingError without the right, in a closed database and when the record is gone, as far as its ReceiptOwner says;
    // and what subject.require throws.
    static int add(const Subject &subject, const QString &note, const QDateTime &promised, int database = 0);
    // A note or call as a window showed it.
    struct Shown
    {
        int id = 0;
        Kind kind = note;
        QString said;
        QDateTime next; // when to ask again; invalid: not planned
    };
    // Throws RowChanged when it is gone, KAccountingError when it is not the current user's own or says what is due.
    static Shown shown(int id, int database = 0);
    // Changes a note of the current user's own. A unit of its own. Throws, with nothing written: RowChanged when it is gone or says something
    // else than was shown; FieldRefused as add does; KAccountingError for somebody else's, and in a closed database.
    static void change(const Shown &before, Kind kind, const QString &said, const QDateTime &next, int database = 0);
    // Takes it away; throws as change does.
    static void take(const Shown &before, int database = 0);

    // Which rows f of the table are notes and calls of that user whose next date is before the end, a literal, and after which nothing was said
    // about the record. By the index of that date.
    static KSql planned(int userID, const KSql &end);

    // All of the record, also of its other instalments, the latest first. One statement.
    static QList<Entry> history(int recordKind, int recordID, int database = 0);
    // Those of a record that is being deleted. Joins the caller's transaction.
    static void deleteOf(int recordKind, int recordID, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iTable = 0;
    qint32 m_iRecordID = 0;
    qint32 m_iPaymentID = 0;
    QDateTime m_date;
    QString m_sNote;
    QDateTime m_datePromised;
    qint32 m_iUserID = 0;
    qint32 m_iKind = due;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
