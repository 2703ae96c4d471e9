// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>

class CTblAutomobilContracts;

// A contract's paper as it was handed over: a PDF among the contract's files, numbered from 1, with what the contract said then. Whether
// the contract has changed since is known by that, whatever it is printed from.
namespace FiledContract {

// What the contract, its parties and its plan say, by place and column.
using Values = QMap<QString, QString>;

struct Paper
{
    int version = 0; // 0: none was filed
    QString hash;    // of the values
    Values values;
    QString user;
    QDateTime when;
};

// What is printed on the next one.
struct Stamp
{
    int version = 1;
    Values values;
    QString hash;
    QString text; // version, time and user, in Persian
};

Values valuesOf(CTblAutomobilContracts &contract);
// SHA-256, hexadecimal.
QString hashOf(const Values &values);
Paper last(qint32 contractID, int database = 0);
// Captions of what differs; empty: nothing does.
QStringList changes(const Values &before, const Values &after);
// What to tell who prints the contract: that it is no longer what was filed, and in what. Empty: nothing.
QString notice(CTblAutomobilContracts &contract);

// Of the contract as it is now. Throws KAccountingError without the right to change contracts and in a closed database.
Stamp stamp(CTblAutomobilContracts &contract);
// Files the PDF with that stamp: the file and its version, or neither. Returns the key of the file. Throws RowChanged where the contract is
// gone, KAccountingError as stamp does and where the contract says something else by now or somebody else filed that version, and what
// CTblFileDocs::addFile throws.
int file(qint32 contractID, const Stamp &stamp, const QString &pdfPath, int database = 0);

}
