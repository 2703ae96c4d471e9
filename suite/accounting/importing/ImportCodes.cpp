// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/importing/ImportCodes.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

bool isThere(const KSql &statement, int database)
{
    CTblTemp query(database);
    query.ExecuteQuery(statement);
    return query.HasResultRow();
}

}

ImportCodes::ImportCodes(const ImportKind &kind, const QList<ImportRow> &rows, int database)
    : m_table(kind.table())
    , m_database(database)
{
    if (kind.nextCode(database) == 0)
        return;
    m_reservation.emplace(m_table, u"ورود فایل در فهرست «%1»"_s.arg(kind.title()), database);
    qint64 wanted = 0;
    qint64 highest = 0; // of those that the file brings; the others stand above them
    for (const ImportRow &row : rows) {
        highest = qMax(highest, row.values.value(u"iCode"_s).toLongLong());
        wanted += row.isWritten() && !ImportRun::keepsCode(row) ? 1 : 0;
    }
    KTransaction::runReplayable(
        [&] {
            // Whoever changes such a record holds it too, so that all that is noted later comes behind the last change.
            NamedLock::take(m_table, m_database);
            m_reservation->forget();
            const qint64 first = qMax<qint64>(kind.nextCode(m_database), highest + 1);
            if (first + wanted - 1 > std::numeric_limits<qint32>::max())
                throw KAccountingError(u"برای ردیف‌های این فایل کد آزاد نمانده است: بزرگ‌ترین کد %1 است. چیزی وارد نشد."_s.arg(first - 1));
            m_first = static_cast<qint32>(first);
            m_last = static_cast<qint32>(first + wanted - 1);
            m_reservation->keep(m_last);
            CTblTemp changes(m_database);
            changes.ExecuteQuery("SELECT MAX(iID) FROM Changes");
            m_lastChange = changes.GetLongFieldValue(0);
        },
        database);
}

bool ImportCodes::areRecordsChanged() const
{
    return !m_reservation || isThere(KSql::formatted("SELECT 1 FROM Changes WHERE iID>%1 AND sTable=%2 LIMIT 1", m_lastChange, KSql::quoted(m_table)), m_database);
}

bool ImportCodes::areTaken() const
{
    return m_reservation && isThere(KSql::formatted("SELECT 1 FROM %1 WHERE iCode BETWEEN %2 AND %3 LIMIT 1", KSql::name(m_table), m_first, m_last), m_database);
}

void ImportCodes::forget() const
{
    if (m_reservation)
        m_reservation->forget();
}
