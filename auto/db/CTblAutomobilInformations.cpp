// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilInformations.h"

#include "suite/db/CTblTemp.h"
#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/frame/KErrorText.h"

#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(lcCars, "tz.auto.cars")

// What belongs to a car goes first; where it cannot go, the car goes without it.
template <class Work>
void deleteRelated(const Work &work)
{
    try {
        work();
    } catch (const CMySQLException &) {
        qCWarning(lcCars).noquote() << KErrorText::logText(std::current_exception());
    }
}

}

CTblAutomobilInformations::CTblAutomobilInformations(int database)
    : KMySQL(database)
{
}

CTblAutomobilInformations::~CTblAutomobilInformations() = default;

QString CTblAutomobilInformations::GetTableName() const
{
    return QStringLiteral("AutomobilInformations");
}

bool CTblAutomobilInformations::Delete()
{
    requireRow("Delete");
    deleteRelated([this] { CTblFileDocs::DeleteAllRelatedRecords(recordKind, m_iID, 0, database()); });
    deleteRelated([this] { CTblCustomFieldRecords::DeleteAllRelatedRecords(recordKind, m_iID, 0, database()); });
    return KMySQL::Delete();
}

qint32 CTblAutomobilInformations::nextCode(int database)
{
    CTblTemp statement(database);
    statement.Open(false, false, true);
    statement.ExecuteQuery("SELECT MAX(iCode) FROM AutomobilInformations", true, true);
    return statement.GetLongFieldValue(0) + 1;
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
    RFX_Long(u"iID", m_iID, {});
    RFX_Long(u"iCode", m_iCode, {});
    RFX_Long(u"iPersonID", m_iPersonID, {});
    namesFrom(u"iPersonID", u"Persons", u"iID", u"sName2");
    RFX_Long(u"iPersonBuyerID", m_iPersonBuyerID, {});
    namesFrom(u"iPersonBuyerID", u"Persons", u"iID", u"sName2");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاريخ ايجاد");
    RFX_Text(u"sDesc", m_sDesc, u"توضيحات");
    RFX_Long(u"iAutomobilType", m_iAutomobilType, u"نوع خودرو");
    namesFrom(u"iAutomobilType", u"CarBrands", u"iID", u"sName");
    RFX_Long(u"iSystem", m_iSystem, u"سيستم");
    namesFrom(u"iSystem", u"Items", u"iID", u"sName");
    RFX_Long(u"iBrigade", m_iBrigade, u"تيپ");
    namesFrom(u"iBrigade", u"CarClasses", u"iID", u"sName");
    RFX_Text(u"sAddress", m_sAddress, u"آدرس");
    RFX_Long(u"iModel", m_iModel, u"مدل");
    namesFrom(u"iModel", u"CarModels", u"iID", u"sName");
    RFX_Long(u"iCapacity", m_iCapacity, u"ظرفيت");
    RFX_Long(u"iColor", m_iColor, u"رنگ");
    namesFrom(u"iColor", u"Items", u"iID", u"sName");
    RFX_Long(u"iCountry", m_iCountry, u"کشور");
    RFX_Long(u"iFuel", m_iFuel, u"سوخت");
    RFX_Long(u"iNumOFAxles", m_iNumOFAxles, u"تعداد محور");
    RFX_Long(u"iNumOfWheels", m_iNumOfWheels, u"تعداد چرخ");
    RFX_Long(u"iNumOfCylinders", m_iNumOfCylinders, u"تعداد سيلندر");
    RFX_Long(u"iVolumCylinders", m_iVolumCylinders, u"حجم سيلندر");
    RFX_Text(u"sChassisNum", m_sChassisNum, u"شماره شاسي");
    RFX_Text(u"sNumOfEngines", m_sNumOfEngines, u"شماره موتور");
    RFX_Text(u"sNumOfBodies", m_sNumOfBodies, u"شماره بدنه");
    RFX_Text(u"sNumOfPlates", m_sNumOfPlates, u"شماره پلاک ");
    RFX_Double(u"dAmount", m_dAmount, u"مبلغ");
    RFX_Text(u"sVIN", m_sVIN, {});
    RFX_Text(u"sInsuranceStatus", m_sInsuranceStatus, u"وضعيت بيمه");
    RFX_Text(u"sFacilities", m_sFacilities, u"امکانات");
    RFX_Text(u"sAccessories", m_sAccessories, u"لوازم جانبي");
    RFX_Text(u"sFractionalParts", m_sFractionalParts, u"کسري لوازم");
    RFX_Text(u"sDocumentsDelivered", m_sDocumentsDelivered, u"مدارک تحويلي");
    RFX_Text(u"sDocumentsDeficit", m_sDocumentsDeficit, u"کسري مدارک");
    RFX_Long(u"iUsageType", m_iUsageType, u"کاربري");
    RFX_Text(u"sDescSpecial", m_sDescSpecial, u"توضيحات ويز");
    RFX_Date(u"dateIntroduction", m_dateIntroduction, u"تاريخ معرفي");
    RFX_Long(u"iSource", m_iSource, u"ماخذ");
    RFX_Bool(u"bSold", m_bSold, u"فروخته شده");
    RFX_Bool(u"bDocumentDeficit", m_bDocumentDeficit, {});
    RFX_Bool(u"bFractionalParts", m_bFractionalParts, {});
    RFX_Date(u"dateBuy", m_dateBuy, u"تاريخ خريد");
    RFX_Double(u"dMbayhAutomobilContract", m_dMbayhAutomobilContract, u"مبايعه نامه");
    RFX_Double(u"dAmountContract", m_dAmountContract, u"مبلغ قرارداد");
    RFX_Double(u"dPaidContract", m_dPaidContract, u"پرداخت شده");
    RFX_Double(u"dRemainingContract", m_dRemainingContract, u"مانده");
    RFX_Double(u"dPaidComission", m_dPaidComission, {});
    RFX_Double(u"dRemainingComission", m_dRemainingComission, {});
    RFX_Double(u"dAmountCommission", m_dAmountCommission, u"مبلغ کميسيون");
    RFX_Text(u"sRegistryNum", m_sRegistryNum, u"شماره دفترخانه");
    RFX_Text(u"sReplacementCenter", m_sReplacementCenter, u"مرکز تعويض");
    RFX_Date(u"dateJawPlate", m_dateJawPlate, u"تاريخ فک پلاک ");
    RFX_Date(u"dateLegalDocument", m_dateLegalDocument, u"تاريخ سند وکالت");
    RFX_Text(u"sNumLegalDocument", m_sNumLegalDocument, u"شماره سند وکالت");
    RFX_Date(u"datefinalDocument", m_datefinalDocument, u"تاريخ سند قطعي");
    RFX_Date(u"dateObtainingCopies", m_dateObtainingCopies, u"تاريخ اخذ کپي");
    RFX_Date(u"dateDelivery", m_dateDelivery, u"تاريخ تحويل");
    RFX_Double(u"dPurchasePriceOfOwner", m_dPurchasePriceOfOwner, u"مبلغ خريد از مالک");
    RFX_Double(u"dSoldAmount", m_dSoldAmount, u"مبلغ فروخته شده");
    RFX_Double(u"dAutomobilExpenses", m_dAutomobilExpenses, u"مخارج اتومبيل");
    RFX_Double(u"dAmountPresence", m_dAmountPresence, u"هزينه محضر");
    RFX_Double(u"dRemainingPresence", m_dRemainingPresence, u"مانده محضر");
    RFX_Double(u"dProfitAndLoss", m_dProfitAndLoss, u"سود و زيان");
    RFX_Date(u"dateClearance", m_dateClearance, u"تاريخ ترخيص");
    RFX_Long(u"iCustomsClearance", m_iCustomsClearance, u"گمرک ترخيص");
    RFX_Text(u"sLicense", m_sLicense, u"شماره پروانه");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Long(u"iStatus", m_iStatus, {});
    RFX_Text(u"sCountry", m_sCountry, {});
    RFX_Long(u"iArchiveUserID", m_iArchiveUserID, u"بايگاني");
    namesFrom(u"iArchiveUserID", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateArchive", m_dateArchive, u"تاريخ بايگاني");
    RFX_Date(u"dateInsurance", m_dateInsurance, u"تاريخ بيمه");
    RFX_Long(u"iMonth", m_iMonth, u"ماه توليد");
    RFX_Long(u"iFunction", m_iFunction, u"کارکرد");
    RFX_Text(u"sNameInsurance", m_sNameInsurance, u"نام بيمه گذار");
    RFX_Text(u"sDiscountYears", m_sDiscountYears, u"تخفيف بيمه");
    RFX_Long(u"iBodyStatus", m_iBodyStatus, u"وضعيت بدنه");
    RFX_LongBlob(u"oPicture", m_oPicture, u"عکس");
    RFX_Long(u"iTypeDocument", m_iTypeDocument, u"نوع سند");
    RFX_Long(u"iYear", m_iYear, u"سال توليد");
}
