// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilInformations.h"

#include "auto/db/CTblPublicCars.h"
#include "suite/accounting/office/CodeReservation.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/attachments/RecordPictures.h"
#include "suite/treasury/followups/CTblFollowUps.h"

using namespace Qt::StringLiterals;

CTblAutomobilInformations::CTblAutomobilInformations(int database)
    : AutomobilInformationColumns(database)
{
}

CTblAutomobilInformations::~CTblAutomobilInformations() = default;

bool CTblAutomobilInformations::Delete()
{
    requireRow("Delete");
    KTransaction transaction(database());
    CTblFileDocs::DeleteAllRelatedRecords(recordKind, m_iID, 0, database());
    CTblCustomFieldRecords::DeleteAllRelatedRecords(recordKind, m_iID, 0, database());
    CTblFollowUps::deleteOf(recordKind, m_iID, database());
    RecordPictures::deleteAll(recordKind, m_iID, database());
    CTblPublicCars::deleteOf(m_iID, database());
    const bool deleted = KMySQL::Delete();
    transaction.commit();
    return deleted;
}

QList<QStringList> CTblAutomobilInformations::fieldGroups()
{
    return {
        {u"iPersonID"_s, u"iPersonBuyerID"_s, u"bSold"_s},
        {u"iAutomobilType"_s, u"iModel"_s, u"iBrigade"_s},
        {u"dAmountContract"_s, u"dPaidContract"_s, u"dRemainingContract"_s},
        {u"dAmountCommission"_s, u"dPaidComission"_s, u"dRemainingComission"_s},
        {u"dSoldAmount"_s, u"dPurchasePriceOfOwner"_s, u"dAutomobilExpenses"_s, u"dAmountPresence"_s, u"dRemainingPresence"_s,
         u"dProfitAndLoss"_s},
    };
}

void CTblAutomobilInformations::expectNextCode(int database)
{
    CodeReservation::expectNext(u"AutomobilInformations"_s, database);
}

qint32 CTblAutomobilInformations::nextCode(int database)
{
    return CodeReservation::next(u"AutomobilInformations"_s, database);
}

void CTblAutomobilInformations::archive(qint32 code, qint32 userID, int database)
{
    CTblTemp statement(database);
    statement.Open(false, false, true);
    statement.FormatAndExecuteQuery(
        "UPDATE AutomobilInformations SET iArchiveUserID=%d, dateArchive=NOW() WHERE iCode=%d", userID, code);
}

void CTblAutomobilInformations::unarchive(qint32 code, int database)
{
    CTblTemp statement(database);
    statement.Open(false, false, true);
    statement.FormatAndExecuteQuery("UPDATE AutomobilInformations SET iArchiveUserID=0 WHERE iCode=%d LIMIT 1", code);
}

void CTblAutomobilInformations::DoFieldExchange()
{
    bindOffer();
    RFX_Long(u"iModel", m_iModel, u"مدل");
    namesFrom(u"iModel", u"CarModels", u"iID", u"sName");
    bindVehicle();
    bindSale();
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    bindArchive();
    RFX_Date(u"dateInsurance", m_dateInsurance, u"تاريخ بيمه");
    RFX_Long(u"iMonth", m_iMonth, u"ماه توليد");
    RFX_Long(u"iFunction", m_iFunction, u"کارکرد");
    RFX_Text(u"sNameInsurance", m_sNameInsurance, u"نام بيمه گذار");
    RFX_Text(u"sDiscountYears", m_sDiscountYears, u"تخفيف بيمه");
    RFX_Long(u"iBodyStatus", m_iBodyStatus, u"وضعيت بدنه");
    namesFrom(u"iBodyStatus", u"Items", u"iID", u"sName");
    RFX_LongBlob(u"oPicture", m_oPicture, u"عکس");
    RFX_Long(u"iTypeDocument", m_iTypeDocument, u"نوع سند");
    RFX_Long(u"iYear", m_iYear, u"سال توليد");
}
