// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/frame/KAccountingError.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QString>

// The templates that the office's contracts are printed from at every desk, by the type of the contract (0 sale, 1 rent, 2 instalment
// sale, 3 letter): the one in use, and those that were in use before. Where none is in use, the file that came along is.
//
// Whoever changes one says which he saw in use (0: the one that came along), so that what another desk chose meanwhile is not replaced
// unseen. Rights are checked with the change. Every function throws CMySQLException.
namespace ContractTemplates {

inline constexpr int types = 4;
inline constexpr int letter = 3;
// Of a template's file: 5 MiB, which any server takes in one statement.
inline constexpr qint64 maxBytes = qint64{5} * 1024 * 1024;

struct Held
{
    qint32 id = 0; // 0: there is none
    QString name;  // of the file, as it was chosen: not necessarily one that a file can be made by
    QByteArray file;
};

struct Version
{
    qint32 id = 0;
    QString name;
    QString source; // in words: from a file, taken back from the word processor
    QString user;
    QDateTime created;
    bool isInUse = false;
};

// Somebody else put another template into use since it was looked at. Nothing was changed.
class Overtaken : public KAccountingError
{
public:
    Overtaken(const QString &message, qint32 now);
    ~Overtaken() override;
    qint32 now() const { return m_now; } // the one in use; 0: the one that came along

private:
    qint32 m_now;
};

// Which of the table's rows belong to the type.
QString kindOf(int contractType);
Held inUse(int contractType, int database = 0);
// Without the file: who only asks which one it is need not load it.
qint32 keyInUse(int contractType, int database = 0);
// Empty where it is gone or of another type.
Held version(int contractType, qint32 id, int database = 0);
// The newest first.
QList<Version> versions(int contractType, int database = 0);

// Puts the file into use and keeps the one before. A file that is in use already stays as it is, so that pressing twice is pressing once.
// Returns its key. Throws KAccountingError for a file that is empty, too large, no document or one that could do harm, without the right to
// change contracts, and in a closed database; Overtaken.
qint32 use(int contractType, const QString &name, const QByteArray &file, const QString &source, qint32 seen, int database = 0);
// Puts one that was in use before back. Throws as use does, also where that one is gone.
void goBack(int contractType, qint32 id, qint32 seen, int database = 0);
// From now on the file that came along. The others are kept.
void useSupplied(int contractType, qint32 seen, int database = 0);

// The whole file, for use. Throws KAccountingError where it cannot be read or is too large.
QByteArray read(const QString &path);

}
