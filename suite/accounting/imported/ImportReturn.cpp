// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/imported/ImportReturn.h"

#include "suite/accounting/bin/Bin.h"
#include "suite/accounting/bin/RecordUses.h"
#include "suite/accounting/changes/OfficeClosing.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/changes/RowChanged.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/imported/CTblImportedFiles.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/waiting/FreshView.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/db/connection/KConnection.h"
#include "suite/db/connection/KLease.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

using ImportReturn::Plan;

KSql keysOf(qint32 file)
{
    return KSql::formatted("SELECT iRecordID FROM ImportedRows WHERE iFileID=%1", file);
}

QList<qint32> selected(const KSql &statement, int database)
{
    CTblTemp query(database);
    query.Open(false, false, true);
    QList<qint32> keys;
    for (query.ExecuteQuery(statement); query.HasResultRow(); query.MoveNextResult())
        keys.append(query.GetLongFieldValue(0));
    return keys;
}

// Whatever was noted of one after the file itself was, also that it was deleted and came back.
QSet<qint32> changedOf(const QString &table, qint32 file, int database)
{
    const KSql imported = KSql::formatted("COALESCE((SELECT MIN(f.iID) FROM Changes f WHERE f.sTable='ImportedFiles' AND f.iRecordID=%1),0)", file);
    const QList<qint32> keys = selected(KSql::formatted("SELECT DISTINCT iRecordID FROM Changes WHERE sTable=%1 AND iRecordID IN (%2) AND iID>%3", KSql::quoted(table),
                                                        keysOf(file), imported),
                                        database);
    return {keys.cbegin(), keys.cend()};
}

// While it lives, this thread's units lock the rows that they find, and no gap between them where another desk's new row belongs: such a
// unit may take a minute. What they read is what is saved at that moment.
class WithoutGaps
{
public:
    explicit WithoutGaps(int database)
        : m_connection(KConnection::forThread(database))
    {
        m_connection.run(QByteArrayLiteral("SET SESSION TRANSACTION ISOLATION LEVEL READ COMMITTED"));
    }
    ~WithoutGaps()
    {
        try {
            m_connection.run(QByteArrayLiteral("SET SESSION TRANSACTION ISOLATION LEVEL REPEATABLE READ"));
        } catch (const CMySQLException &) {
            // Gone with its session.
        }
    }
    WithoutGaps(const WithoutGaps &) = delete;
    WithoutGaps &operator=(const WithoutGaps &) = delete;

private:
    KConnection &m_connection;
};

std::unique_ptr<KLease> leaseOf(const ImportedKind &kind, int database)
{
    const QString name = u"import back "_s + kind.id();
    std::unique_ptr<KLease> lease = KLease::tryTake(name, u"برگرداندن ورود در فهرست «%1»"_s.arg(kind.title()), database);
    if (!lease)
        throw KAccountingError(u"در این میان ورود دیگری از همین فهرست برگردانده می‌شود. وقتی پایان یافت دوباره تلاش کنید. چیزی برگردانده نشد."_s);
    return lease;
}

void requireAgreed(const Plan &now, const Plan &agreed)
{
    if (now != agreed)
        throw ImportReturn::Changed(now);
}

}

Plan ImportReturn::plan(const ImportedKind &kind, qint32 file, int database)
{
    Plan plan{file, !selected(KSql::formatted("SELECT 1 FROM ImportedRows WHERE iFileID=%1 LIMIT 1", file), database).isEmpty(), {}, {}};
    const QString table = kind.table();
    const QSet<qint32> changed = changedOf(table, file, database);
    const QHash<qint32, QString> used = RecordUses::of(table, keysOf(file), database);
    for (const qint32 key : selected(KSql::formatted("SELECT iID FROM %1 WHERE iID IN (%2) ORDER BY iID", KSql::name(table), keysOf(file)), database)) {
        QString why = kind.keptBecause(key, database);
        if (why.isEmpty() && changed.contains(key))
            why = u"%1 آن را تغییر داده است"_s.arg(RowChanged::lastChange(table, key, database));
        else if (why.isEmpty() && used.contains(key))
            why = u"به کار رفته است: %1"_s.arg(used.value(key));
        if (why.isEmpty())
            plan.going.append(key);
        else
            plan.staying.append({key, RecordSubjects::nameOf(table, key, database), why});
    }
    return plan;
}

int ImportReturn::run(const ImportedKind &kind, const Plan &agreed, const LongTask::Progress &progress, int database)
{
    // By what is stored: this is no thread of the windows, whose copy of the rights it would share.
    if (!Bin::isAdministrator(database) && !(KSecurity::storedRights(GetDBSetting()->GetUserID()).value(kind.form()) & KSecurity::Delete))
        throw KAccountingError(KSecurity::refusalText(kind.form(), KSecurity::Delete));
    const std::unique_ptr<KLease> lease = leaseOf(kind, database);
    const auto total = static_cast<int>(agreed.going.size());
    const WithoutGaps withoutGaps(database);
    KTransaction::runReplayable(
        [&] {
            CTblImportedFiles file(database);
            if (!file.lockRecord(agreed.file))
                throw RowChanged(RowChanged::Kind::Gone, file, agreed.file);
            requireAgreed(plan(kind, agreed.file, database), agreed);
            for (int done = 0; done < total; ++done) {
                if (progress && !progress(done, total))
                    throw LongTask::Stopped();
                kind.takeBack(agreed.going.at(done), database);
            }
            // What others saved meanwhile this unit has not seen; a record that is deleted here nobody else can change any more.
            requireAgreed(FreshView::read([&] { return plan(kind, agreed.file, database); }), agreed);
            OfficeClosing::requireOpen(database);
            file.noteReturn(total);
        },
        database);
    return total;
}
