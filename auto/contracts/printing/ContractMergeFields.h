// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <array>
#include <functional>

// What a printed contract says in each merge field of its template: one table of names, columns and formats, so that every
// value can be checked without a word processor.

// A record by its columns' names: texts, doubles, whole numbers, date-times (invalid: not stated).
using RecordValues = std::function<QVariant(QStringView column)>;

struct MergeField
{
    QString name;
    QString value; // never empty: a single blank when there is nothing to say
    // Worth its words in a template that can leave them out: not blank, no amount of 0, and a field that the contract's type shows.
    bool says = true;

    friend bool operator==(const MergeField &, const MergeField &) = default;
};

using MergeBatch = QVector<MergeField>;

struct ContractForPrinting
{
    RecordValues contract;    // columns of AutomobilContracts
    RecordValues firstPerson; // columns of Persons; an empty function: there is no such person
    RecordValues secondPerson;
    int moneyDecimals = 0; // of the office's money unit, 0 to 4
    QString moneyUnit = {};
    QString companyName = {};
    RecordValues office = {}; // the keys of CompanyDetails
};

// Which part of the contract a batch is about, in the order in which they are filled.
enum class MergeSubject : std::size_t {
    FirstParty,  // seller or lessor: 25 fields
    SecondParty, // buyer or lessee: 25 fields
    Matter,      // vehicle, payment and clauses: 37 fields
    Count
};

using ContractMergeBatches = std::array<MergeBatch, static_cast<std::size_t>(MergeSubject::Count)>;

// The three batches, names and values in the order of the templates' lists. The batch of a party whose person record is
// missing (kind PartyKind::Ordinary) is empty: its fields are to be left as the template has them.
//
// Where a party's fields come from:
//
//   field (first / second party)         ordinary party: person column         any other kind: contract column (n: 1, 2)
//   Mr / MrPerson2                       iSex: "آقا", "خانم"; a company         -
//                                        (iKind above 1) has no title
//   Name / NamePerson2                   sName                                 sNamen: the whole name
//   Family / Family2                     sFamily                               -
//   Address / Address2                   sAddress                              sAddressn
//   PC / p                               sPostalCode                           -
//   Father / FatherName2                 sFatherName                           -
//   IdentityCode / IdentityCode2         sIdentityNum                          -
//   NC / N                               sNationalCode                         sNationalIdn
//   BirthCity / BirthCity2               sBirthCity                            -
//   dateBirth / dateBirth2               dateBirth                             -
//   Tel / Tel2                           sTel, else sMobile                    sTeln, else sMobilen
//   EC / E                               sEconomicCode                         -
//   IdentityCodeCity / IdentityCodeCity2 sIdentityCity                         -
//
// Amounts are grouped by three with the decimals of the money unit, 0 included; dates are Shamsi; codes are not grouped, and
// a registry number of 0 counts as not stated; a time of midnight likewise, as a day entered without a time is stored so.
// Tax = value-added tax + duty of that party; pays = commission + tax - discount of that party, the commission being the
// same for both.
ContractMergeBatches contractMergeFields(const ContractForPrinting &source);

// The fields beside the batches, for templates that want them: the letterhead, the money unit, the office's address and numbers, the
// vehicle's further facts, amounts in words, the terms of a rent or of instalments, and what a contract says in words of its own.
MergeBatch furtherMergeFields(const ContractForPrinting &source);

// The letterhead: the dealership's name, or a line to write it on while the office has not entered one.
MergeField dealershipField(const QString &companyName);
// The name of the field that is the office's logo.
QString logoField();

// The names of the batches, each once; and of all fields, those whose entry a type of contract does not show.
QStringList statedMergeFields();
QStringList hiddenMergeFields(int contractType);
