// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/letters/LetterFiling.h"

#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/attachments/CTblFiledPapers.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/crm/letters/LetterSheet.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QUuid>

using namespace Qt::StringLiterals;

namespace {

const QString personsForm = u"Persons"_s;

// Two desks that file letters to one person do so one after the other.
void lockPerson(const LetterRecipient &recipient, int database)
{
    CTblTemp row(database);
    row.Open(false, false, true);
    row.FormatAndExecuteQuery("SELECT iID FROM Persons WHERE iID=%d FOR UPDATE", recipient.id);
    if (!row.HasResultRow())
        throw KAccountingError(u"«%1» را %2 حذف کرده است و نامه او بایگانی نشد."_s.arg(recipient.name, RowChanged::lastChange(personsForm, recipient.id, database)));
}

// 0: it is not.
qint32 filedAlready(qint32 personID, const QString &hash, int database)
{
    CTblTemp row(database);
    row.Open(false, false, true);
    row.ExecuteQuery(KSql::formatted("SELECT iFileDocID FROM FiledPapers WHERE iTable=%1 AND iRecordID=%2 AND sValuesHash=%3", int(RecordKind::Person), personID, KSql::quoted(hash)));
    return row.HasResultRow() ? row.GetLongFieldValue(0) : 0;
}

}

QString LetterFiling::newMark()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

qint32 LetterFiling::file(const LetterRecipient &recipient, const Letter &letter, const QString &mark, const QByteArray &pdf, int database)
{
    if (!KSecurity::IsGranted(personsForm, KSecurity::Modify))
        throw KAccountingError(KSecurity::refusalText(personsForm, KSecurity::Modify));
    GetDBSetting()->RequireOpenDB();
    const QByteArray values = letter.toJson(Letter::salutation(recipient), mark);
    const QString hash = CTblFiledPapers::sha256(values);
    const QString name = CTblFileDocs::safeFileName(LetterSheet::of(letter, recipient, {}).fileName.left(80) + u".pdf"_s);
    qint32 fileID = 0;
    KTransaction::runReplayable(
        [&] {
            lockPerson(recipient, database);
            fileID = filedAlready(recipient.id, hash, database);
            if (fileID > 0)
                return;
            CTblFiledPapers before(database);
            const int version = before.openNewest(RecordKind::Person, recipient.id) ? before.m_iVersion + 1 : 1;
            fileID = CTblFiledPapers::add({.kind = RecordKind::Person, .recordID = recipient.id, .version = version, .valuesHash = hash, .values = values, .name = name, .file = pdf}, database);
        },
        database);
    return fileID;
}

QList<LetterFiling::Filed> LetterFiling::newest(int most, int database)
{
    CTblTemp rows(database);
    rows.Open(false, false, true);
    QList<Filed> letters;
    for (rows.ExecuteQuery(KSql::formatted("SELECT f.iID,COALESCE(p.sName2,''),f.sValues FROM FiledPapers f LEFT JOIN Persons p ON p.iID=f.iRecordID"
                                           " WHERE f.iTable=%1 ORDER BY f.iID DESC LIMIT %2",
                                           int(RecordKind::Person), most));
         rows.HasResultRow(); rows.MoveNextResult()) {
        const Letter letter = Letter::fromJson(rows.GetTextFieldValue(2).toUtf8());
        if (letter.date.isValid())
            letters.append({rows.GetLongFieldValue(0), rows.GetTextFieldValue(1), letter});
    }
    return letters;
}

QString LetterFiling::proposedNumber(const QDate &today, int database)
{
    const QList<Filed> last = newest(1, database);
    return Letter::numberAfter(last.isEmpty() ? QString() : last.constFirst().letter.number, GetShamsi(today).year);
}
