// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/SchemaUpgrade.h"

#include "auto/SchemaTables.h"
#include "auto/db/CTblTemp.h"
#include "auto/db/KConnection.h"
#include "auto/db/KTableSchema.h"

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

// A step alters, then drops and creates tables; either may be missing.
struct Step
{
    double version;
    const char *alteration;
    std::span<const SchemaTables::Table *const> tables;
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
    {5.097, informationsGainInsurance, catalogTables},
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
            m_session.ExecuteQuery(QStringLiteral("SET SESSION sql_mode='%1'").arg(m_before));
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

void runStep(const Step &step, CTblTemp &session, bool alterFlag)
{
    if (step.alteration)
        session.ExecuteQuery(step.alteration, alterFlag, true);
    for (const SchemaTables::Table *table : step.tables) {
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
