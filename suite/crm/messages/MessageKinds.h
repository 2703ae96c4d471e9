// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/messages/MessageField.h"
#include "suite/crm/TzCRMDataExport.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

// What a message is about: a record, and the one that belongs to it, such as the car that was found for a demand.
struct MessageAbout
{
    qint32 key = 0;
    qint32 other = 0;

    friend bool operator==(const MessageAbout &, const MessageAbout &) = default;
};

// A message to one person, before it has its text.
struct PersonMessage
{
    MessageAbout of;
    QString person;                      // whom it is for
    QString about;                       // which record, in words
    QStringList numbers = {};            // mobile numbers, the likeliest first; empty: none is known, or the user may not read persons
    QHash<QString, QString> values = {}; // by the names of the kind's fields
    // Adds a follow-up with these words to the record. A unit of its own; throws as CTblFollowUps::add does. Empty: the user may not.
    std::function<void(const QString &said)> note = {};
};

// A reason to write to somebody.
struct TZCRMDATA_EXPORT MessageKind
{
    QString id; // plain English, kept with the office's texts
    QString title;
    QStringList forms; // of KSecurity: whoever may read all of them may write such a message
    QList<MessageField> fields;
    QString suppliedText;
    // One for each person that the record is about, in the order asked for; none for a record that is gone. Throws CMySQLException.
    std::function<QList<PersonMessage>(const QList<MessageAbout> &about, int database)> read;
    // A record to look at a text with; key 0: there is none yet.
    std::function<MessageAbout(int database)> sample;

    QStringList fieldNames() const;
};

// The kinds that the parts of the program have entered.
namespace MessageKinds {

// Replaces one of the same id; keeps the order.
TZCRMDATA_EXPORT void enter(MessageKind kind);
TZCRMDATA_EXPORT void remove(const QString &id);
// Null when there is none.
TZCRMDATA_EXPORT const MessageKind *of(const QString &id);
TZCRMDATA_EXPORT QList<const MessageKind *> all();
// The title; the id itself where nobody has entered the kind.
TZCRMDATA_EXPORT QString titleOf(const QString &id);

// Quietly, for the current user.
TZCRMDATA_EXPORT bool mayWrite(const MessageKind &kind);
// As the kind reads them, with what all kinds have: the fields of the office, and no numbers and notes for whom they are not. Throws
// KAccountingError for a user who may not, CMySQLException.
TZCRMDATA_EXPORT QList<PersonMessage> read(const MessageKind &kind, const QList<MessageAbout> &about, int database = 0);

}
