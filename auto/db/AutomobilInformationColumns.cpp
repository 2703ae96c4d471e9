// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/AutomobilInformationColumns.h"

using namespace Qt::StringLiterals;

AutomobilInformationColumns::AutomobilInformationColumns(int database)
    : KMySQL(database)
{
}

AutomobilInformationColumns::~AutomobilInformationColumns() = default;

QString AutomobilInformationColumns::GetTableName() const
{
    return u"AutomobilInformations"_s;
}

void AutomobilInformationColumns::bindOffer()
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
}

void AutomobilInformationColumns::bindVehicle()
{
    RFX_Long(u"iCapacity", m_iCapacity, u"ظرفيت");
    RFX_Long(u"iColor", m_iColor, u"رنگ");
    namesFrom(u"iColor", u"Items", u"iID", u"sName");
    RFX_Long(u"iCountry", m_iCountry, u"کشور");
    namesFrom(u"iCountry", u"Items", u"iID", u"sName");
    RFX_Long(u"iFuel", m_iFuel, u"سوخت");
    RFX_Long(u"iNumOFAxles", m_iNumOFAxles, u"تعداد محور");
    RFX_Long(u"iNumOfWheels", m_iNumOfWheels, u"تعداد چرخ");
    RFX_Long(u"iNumOfCylinders", m_iNumOfCylinders, u"تعداد سيلندر");
    RFX_Long(u"iVolumCylinders", m_iVolumCylinders, u"حجم سيلندر");
    namesFrom(u"iVolumCylinders", u"Items", u"iID", u"sName");
    RFX_Text(u"sChassisNum", m_sChassisNum, u"شماره شاسي");
    RFX_Text(u"sNumOfEngines", m_sNumOfEngines, u"شماره موتور");
    RFX_Text(u"sNumOfBodies", m_sNumOfBodies, u"شماره بدنه");
    RFX_Text(u"sNumOfPlates", m_sNumOfPlates, u"شماره پلاک ");
    RFX_Double(u"dAmount", m_dAmount, u"مبلغ");
    RFX_Text(u"sVIN", m_sVIN, {});
}

void AutomobilInformationColumns::bindSale()
{
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
    namesFrom(u"iSource", u"Items", u"iID", u"sName");
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
    namesFrom(u"iCustomsClearance", u"Items", u"iID", u"sName");
    RFX_Text(u"sLicense", m_sLicense, u"شماره پروانه");
}

void AutomobilInformationColumns::bindArchive()
{
    RFX_Long(u"iStatus", m_iStatus, {});
    RFX_Text(u"sCountry", m_sCountry, {});
    RFX_Long(u"iArchiveUserID", m_iArchiveUserID, u"بايگاني");
    namesFrom(u"iArchiveUserID", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateArchive", m_dateArchive, u"تاريخ بايگاني");
}
