// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/schema/SchemaUpgrade.h"

#include "auto/schema/SchemaTables.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTableSchema.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr char contractsGainSecondParty[] =
    "ALTER TABLE AutomobilContracts "
    "ADD COLUMN dPercentTax2 DOUBLE DEFAULT 0,"
    "ADD COLUMN dTax2 DOUBLE DEFAULT 0,"
    "ADD COLUMN dPercentImposition2 DOUBLE DEFAULT 0,"
    "ADD COLUMN dImposition2 DOUBLE DEFAULT 0,"
    "ADD COLUMN sName1 VARCHAR(100) DEFAULT NULL,"
    "ADD COLUMN sMobile1 VARCHAR(20) DEFAULT NULL,"
    "ADD COLUMN sTel1 VARCHAR(20) DEFAULT NULL,"
    "ADD COLUMN sAddress1 VARCHAR(255) DEFAULT NULL,"
    "ADD COLUMN sNationalId1 VARCHAR(20) DEFAULT NULL,"
    "ADD COLUMN sName2 VARCHAR(100) DEFAULT NULL,"
    "ADD COLUMN sMobile2 VARCHAR(20) DEFAULT NULL,"
    "ADD COLUMN sTel2 VARCHAR(20) DEFAULT NULL,"
    "ADD COLUMN sAddress2 VARCHAR(255) DEFAULT NULL,"
    "ADD COLUMN sNationalId2 VARCHAR(20) DEFAULT NULL,"
    "ADD COLUMN dPercentDiscount DOUBLE DEFAULT 0,"
    "ADD COLUMN dPercentDiscount2 DOUBLE DEFAULT 0,"
    "ADD COLUMN iPersonContract1 INT DEFAULT 0,"
    "ADD COLUMN iPersonContract2 INT DEFAULT 0,"
    "ADD COLUMN bReturn TINYINT DEFAULT 0";

constexpr char informationsGainInsurance[] =
    "ALTER TABLE AutomobilInformations "
    "ADD COLUMN iMonth INT DEFAULT 0,"
    "ADD COLUMN dateInsurance DATETIME DEFAULT NULL,"
    "ADD COLUMN sDiscountYears VARCHAR(20) DEFAULT NULL,"
    "ADD COLUMN sNameInsurance VARCHAR(50) DEFAULT NULL,"
    "ADD COLUMN iFunction INT DEFAULT 0,"
    "ADD COLUMN iTypeDocument INT DEFAULT 0,"
    "CHANGE COLUMN sBodyStatus iBodyStatus INT DEFAULT 0,"
    "ADD COLUMN oPicture LONGBLOB DEFAULT NULL";

constexpr char informationsGainYear[] =
    "ALTER TABLE AutomobilInformations "
    "ADD COLUMN iYear INT DEFAULT 0";

constexpr char demandsGainAlarm[] =
    "ALTER TABLE AutomobilDemands "
    "ADD COLUMN iAlarmID INT DEFAULT 0";

// A column that an alteration renamed, under its new name.
struct RenamedColumn
{
    const char *table;
    const char *column;
};

// A step alters, then drops and creates tables; either may be missing.
struct Step
{
    double version;
    const char *alteration;
    std::span<const SchemaTables::Table *const> tables;
    std::optional<RenamedColumn> renamed = std::nullopt;
};

constexpr const SchemaTables::Table *firstTables[] = {
    &SchemaTables::automobilInformations,
    &SchemaTables::automobilTariffs,
    &SchemaTables::automobilDemands,
    &SchemaTables::automobilContracts,
};
constexpr const SchemaTables::Table *paymentTables[] = {&SchemaTables::automobilPayments};
constexpr const SchemaTables::Table *catalogTables[] = {
    &SchemaTables::carBrands,
    &SchemaTables::carModels,
    &SchemaTables::carClasses,
    &SchemaTables::carYears,
};

constexpr Step steps[] = {
    {4.22, nullptr, firstTables},
    {4.659, contractsGainSecondParty, {}},
    {4.673, nullptr, paymentTables},
    {5.097, informationsGainInsurance, catalogTables, RenamedColumn{"AutomobilInformations", "iBodyStatus"}},
    {5.104, informationsGainYear, {}},
    {SchemaUpgrade::currentVersion, demandsGainAlarm, {}},
};

// The upgrade alone runs without strict mode: one step turns a text column into numbers, and the office's own texts
// ("3", "abc", an empty one) must be converted as the database converts them, not refused.
class LenientSession
{
public:
    explicit LenientSession(CTblTemp &session)
        : m_session(session)
    {
        m_session.ExecuteQuery("SELECT @@SESSION.sql_mode", true, true);
        m_before = m_session.GetTextFieldValue(0);
        m_session.ExecuteQuery("SET SESSION sql_mode='NO_ENGINE_SUBSTITUTION'", true, true);
    }

    ~LenientSession()
    {
        try {
            m_session.ExecuteQuery("SET SESSION sql_mode=" + KSql::quoted(m_before));
        } catch (const CMySQLException &) {
            // Only a lost connection refuses this; the next one sets its session up by itself.
        }
    }

    LenientSession(const LenientSession &) = delete;
    LenientSession &operator=(const LenientSession &) = delete;

private:
    CTblTemp &m_session;
    QString m_before;
};

// What record sets remembered of the columns is wrong after any statement of the upgrade, also of one that failed later.
struct SchemaMemory
{
    ~SchemaMemory() { KTableSchema::forgetAll(); }
};

bool isRenamed(const RenamedColumn &renamed, CTblTemp &session)
{
    session.ExecuteQuery(KSql::formatted("SELECT COUNT(*) FROM information_schema.COLUMNS WHERE TABLE_SCHEMA=DATABASE()"
                                         " AND TABLE_NAME=%1 AND COLUMN_NAME=%2",
                                         KSql::quoted(QByteArray(renamed.table)), KSql::quoted(QByteArray(renamed.column))));
    return session.GetLongFieldValue(0) > 0;
}

// An alteration that ran before, in a step that then failed, reports a duplicate column, which ExecuteQuery ignores
// when the flag is false. One that renames a column misses the old name before the server looks for duplicates: that is
// ignored in the same way when the new name is there, for the server alters a table whole or not at all.
void alter(const Step &step, CTblTemp &session, bool alterFlag)
{
    constexpr unsigned int unknownColumn = 1054;
    try {
        session.ExecuteQuery(step.alteration, alterFlag, true);
    } catch (const CMySQLException &error) {
        if (alterFlag || !step.renamed || error.serverCode() != unknownColumn || !isRenamed(*step.renamed, session))
            throw;
    }
}

bool holdsRows(const SchemaTables::Table &table, CTblTemp &session)
{
    session.ExecuteQuery(KSql::formatted("SELECT COUNT(*) FROM information_schema.TABLES WHERE TABLE_SCHEMA=DATABASE()"
                                         " AND TABLE_NAME=%1 AND TABLE_TYPE='BASE TABLE'",
                                         KSql::quoted(QByteArray(table.name))));
    if (session.GetLongFieldValue(0) == 0)
        return false;
    session.ExecuteQuery(KSql::formatted("SELECT EXISTS(SELECT 1 FROM %1)", KSql::name(table.name)));
    return session.GetLongFieldValue(0) != 0;
}

// A step that is run again makes its tables again. One that holds rows by then is not given up for that: the server makes a table
// whole or not at all, so it is what the step would make.
void runStep(const Step &step, CTblTemp &session, bool alterFlag)
{
    if (step.alteration)
        alter(step, session, alterFlag);
    for (const SchemaTables::Table *table : step.tables) {
        if (!alterFlag && holdsRows(*table, session))
            continue;
        session.ExecuteQuery(SchemaTables::dropStatement(*table).toUtf8().constData(), true, true);
        session.ExecuteQuery(SchemaTables::createStatement(*table).toUtf8().constData(), true, true);
    }
}

}

void SchemaUpgrade::run(int database, double storedVersion, double &reachedVersion, bool alterFlag)
{
    reachedVersion = storedVersion;
    CTblTemp session(database);
    session.Open(false, false, true);
    const SchemaMemory memory;
    const LenientSession lenient(session);
    for (const Step &step : steps) {
        if (step.version <= storedVersion)
            continue;
        runStep(step, session, alterFlag);
        reachedVersion = step.version;
    }
}
