// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/office/CodeReservation.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/office/CTblProperties.h"
#include "suite/accounting/office/NamedLock.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/db/records/CTblTemp.h"

#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcReservation, "tz.codes")

const QString reservedSection = u"CodesReserved"_s;

QString leaseName(const QString &table)
{
    return u"codes "_s + table;
}

KSql nextStatement(const QString &table)
{
    return KSql::formatted("SELECT MAX(iCode) FROM %1 UNION ALL SELECT sValue FROM Properties WHERE sSection=%2 AND sKey=%3", KSql::name(table),
                           KSql::quoted(reservedSection), KSql::quoted(table));
}

}

CodeReservation::CodeReservation(const QString &table, const QString &what, int database)
    : m_table(table)
    , m_database(database)
    , m_lease(KLease::tryTake(leaseName(table), what, database))
{
    if (m_lease)
        return;
    const std::optional<KLease::Holder> holder = KLease::holder(leaseName(table), database);
    throw KAccountingError(u"در این میان کار دیگری در جریان است: %1. وقتی پایان یافت دوباره تلاش کنید. چیزی ثبت نشد."_s.arg(holder ? holder->text : what));
}

CodeReservation::~CodeReservation()
{
    // What is left behind here counts no more once the lease is given back.
    try {
        if (CTblProperties::DBReadSettingInt(reservedSection, m_table, 0, m_database) != 0)
            KTransaction::runReplayable([this] { forget(); }, m_database);
    } catch (const std::exception &error) {
        qCInfo(lcReservation, "reserved codes were left behind: %s", error.what());
    }
}

void CodeReservation::keep(qint32 upTo) const
{
    CTblProperties::DBWriteSettingInt(reservedSection, m_table, upTo, m_database);
}

void CodeReservation::forget() const
{
    CTblTemp statement(m_database);
    statement.ExecuteQuery(KSql::formatted("DELETE FROM Properties WHERE sSection=%1 AND sKey=%2", KSql::quoted(reservedSection), KSql::quoted(m_table)));
}

// One statement, as whoever opens a window for a new row waits for it.
void CodeReservation::expectNext(const QString &table, int database)
{
    KReadAhead::expectBehind(nextStatement(table), database);
}

qint32 CodeReservation::next(const QString &table, int database)
{
    CTblTemp statement(database);
    statement.Open(true, false, true);
    statement.ExecuteQuery(nextStatement(table));
    const qint32 highest = statement.GetLongFieldValue(0);
    const qint32 reserved = statement.MoveNextResult() ? statement.GetLongFieldValue(0) : 0;
    return (reserved > highest && KLease::isAlive(leaseName(table), database) ? reserved : highest) + 1;
}
