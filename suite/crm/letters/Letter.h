// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QString>

// To whom a letter goes.
struct LetterRecipient
{
    enum class Address {
        Man,
        Woman,
        Company
    };
    qint32 id = 0;
    QString name;
    Address address = Address::Man;
    bool isActive = true;

    friend bool operator==(const LetterRecipient &, const LetterRecipient &) = default;
};

// What a business letter says, to whomever it goes.
struct TZCRMDATA_EXPORT Letter
{
    static constexpr int longestNumber = 50;
    static constexpr int longestSubject = 200;
    static constexpr int longestBody = 60'000;

    QDate date;
    QString number; // as the office numbers its letters; empty: not at all
    QString subject;
    QString body;

    // "جناب آقای ...".
    static QString salutation(const LetterRecipient &recipient);
    // All of them in one line: the first few, and how many more.
    static QString addressees(const QList<LetterRecipient> &recipients);
    // What follows the number of the letter before: its last figures counted on, and the year in front of them brought up to that of today.
    // Without one before it is the first of the year.
    static QString numberAfter(const QString &before, int year);
    // A text as paper takes it: without what turns the direction of the rest about, without what is not to be seen, each tab as blanks.
    static QString forPaper(const QString &text);

    // As it is kept beside the filed paper. salutation: of the one it went to. mark: of this letter among others that say the same.
    QByteArray toJson(const QString &salutation, const QString &mark) const;
    // Of anything else all is empty.
    static Letter fromJson(const QByteArray &json);

    friend bool operator==(const Letter &, const Letter &) = default;
};
