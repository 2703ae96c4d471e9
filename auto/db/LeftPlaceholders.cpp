// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/LeftPlaceholders.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/Placeholders.h"
#include "suite/db/connection/KTransaction.h"

#include <QLoggingCategory>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcPlaceholders, "tz.auto.placeholders")

std::unique_ptr<KMySQL> recordOf(const QString &table, int database)
{
    if (table == u"AutomobilContracts")
        return std::make_unique<CTblAutomobilContracts>(database);
    if (table == u"AutomobilInformations")
        return std::make_unique<CTblAutomobilInformations>(database);
    if (table == u"AutomobilDemands")
        return std::make_unique<CTblAutomobilDemands>(database);
    return nullptr;
}

bool removeOne(const Placeholders::Row &row, int database)
{
    const std::unique_ptr<KMySQL> record = recordOf(row.table, database);
    if (!record)
        return false;
    bool removed = false;
    KTransaction::runReplayable(
        [&] {
            removed = Placeholders::lockLeft(row, database);
            if (!removed)
                return;
            record->setNoting(KMySQL::Noting::Nothing);
            if (record->lockRecord(row.key))
                record->Delete();
            Placeholders::confirm(row.table, row.key, database);
        },
        database);
    return removed;
}

}

int LeftPlaceholders::remove(int database)
{
    int removed = 0;
    try {
        const QList<Placeholders::Row> left = Placeholders::left(database);
        if (left.isEmpty() || CDBSetting::IsClosed(database))
            return 0;
        for (const Placeholders::Row &row : left)
            removed += removeOne(row, database) ? 1 : 0;
        qCInfo(lcPlaceholders) << removed << "of" << left.size() << "records of programs that died were removed";
    } catch (const CMySQLException &error) {
        // What became of an earlier save must be told, whoever comes upon it.
        if (error.category() == CMySQLException::Category::SavedAfterAll || error.category() == CMySQLException::Category::OutcomeUnknown)
            throw;
        qCWarning(lcPlaceholders).noquote() << KErrorText::logText(std::current_exception());
    }
    return removed;
}
