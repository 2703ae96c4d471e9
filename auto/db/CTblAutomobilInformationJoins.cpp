// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilInformationJoins.h"

CTblAutomobilInformationJoins::CTblAutomobilInformationJoins(int database)
    : KMySQL(database)
{
}

CTblAutomobilInformationJoins::~CTblAutomobilInformationJoins() = default;

QString CTblAutomobilInformationJoins::GetTableName() const
{
    return QStringLiteral("AutomobilInformations");
}

QString CTblAutomobilInformationJoins::fromClause() const
{
    return QStringLiteral("AutomobilInformations ai LEFT OUTER JOIN Items it ON (ai.iAutomobilType=it.iID OR ai.iColor=it.iID) LEFT OUTER"
                          " JOIN CarModels cm ON ai.iModel=cm.iID LEFT OUTER JOIN CarClasses cc ON ai.iBrigade=cc.iID");
}

void CTblAutomobilInformationJoins::DoFieldExchange()
{
    RFX_Long(u"ai.iID", m_iID, {});
    RFX_Long(u"ai.iCode", m_iCode, {});
    RFX_Long(u"ai.iPersonID", m_iPersonID, {});
    namesFrom(u"ai.iPersonID", u"Persons", u"iID", u"sName2");
    RFX_Long(u"ai.iPersonBuyerID", m_iPersonBuyerID, {});
    namesFrom(u"ai.iPersonBuyerID", u"Persons", u"iID", u"sName2");
    RFX_Date(u"ai.dateCreate", m_dateCreate, u"تاريخ ايجاد");
    RFX_Text(u"ai.sDesc", m_sDesc, u"توضيحات");
    RFX_Long(u"ai.iAutomobilType", m_iAutomobilType, u"نوع خودرو");
    namesFrom(u"ai.iAutomobilType", u"CarBrands", u"iID", u"sName");
    RFX_Long(u"ai.iSystem", m_iSystem, u"سيستم");
    namesFrom(u"ai.iSystem", u"Items", u"iID", u"sName");
    RFX_Long(u"ai.iBrigade", m_iBrigade, u"تيپ");
    namesFrom(u"ai.iBrigade", u"CarClasses", u"iID", u"sName");
    RFX_Text(u"ai.sAddress", m_sAddress, u"آدرس");
    RFX_Long(u"ai.iYear", m_iYear, u"سال");
    RFX_Long(u"ai.iCapacity", m_iCapacity, u"ظرفيت");
    RFX_Long(u"ai.iColor", m_iColor, u"رنگ");
    namesFrom(u"ai.iColor", u"Items", u"iID", u"sName");
    RFX_Long(u"ai.iCountry", m_iCountry, u"کشور");
    RFX_Long(u"ai.iFuel", m_iFuel, u"سوخت");
    RFX_Long(u"ai.iNumOFAxles", m_iNumOFAxles, u"تعداد محور");
    RFX_Long(u"ai.iNumOfWheels", m_iNumOfWheels, u"تعداد چرخ");
    RFX_Long(u"ai.iNumOfCylinders", m_iNumOfCylinders, u"تعداد سيلندر");
    RFX_Long(u"ai.iVolumCylinders", m_iVolumCylinders, u"حجم سيلندر");
    RFX_Text(u"ai.sChassisNum", m_sChassisNum, u"شماره شاسي");
    RFX_Text(u"ai.sNumOfEngines", m_sNumOfEngines, u"شماره موتور");
    RFX_Text(u"ai.sNumOfBodies", m_sNumOfBodies, u"شماره بدنه");
    RFX_Text(u"ai.sNumOfPlates", m_sNumOfPlates, u"شماره پلاک ");
    RFX_Double(u"ai.dAmount", m_dAmount, u"مبلغ");
    RFX_Text(u"ai.sVIN", m_sVIN, {});
    RFX_Long(u"ai.iBodyStatus", m_iBodyStatus, u"وضعيت بدنه");
    RFX_Text(u"ai.sInsuranceStatus", m_sInsuranceStatus, u"وضعيت بيمه");
    RFX_Text(u"ai.sFacilities", m_sFacilities, u"امکانات");
    RFX_Text(u"ai.sAccessories", m_sAccessories, u"لوازم جانبي");
    RFX_Text(u"ai.sFractionalParts", m_sFractionalParts, u"کسري لوازم");
    RFX_Text(u"ai.sDocumentsDelivered", m_sDocumentsDelivered, u"مدارک تحويلي");
    RFX_Text(u"ai.sDocumentsDeficit", m_sDocumentsDeficit, u"کسري مدارک");
    RFX_Long(u"ai.iUsageType", m_iUsageType, u"کاربري");
    RFX_Text(u"ai.sDescSpecial", m_sDescSpecial, u"توضيحات ويز");
    RFX_Date(u"ai.dateIntroduction", m_dateIntroduction, u"تاريخ معرفي");
    RFX_Long(u"ai.iSource", m_iSource, u"ماخذ");
    RFX_Bool(u"ai.bSold", m_bSold, u"فروخته شده");
    RFX_Bool(u"ai.bDocumentDeficit", m_bDocumentDeficit, {});
    RFX_Bool(u"ai.bFractionalParts", m_bFractionalParts, {});
    RFX_Date(u"ai.dateBuy", m_dateBuy, u"تاريخ خريد");
    RFX_Double(u"ai.dMbayhAutomobilContract", m_dMbayhAutomobilContract, u"مبايعه نامه");
    RFX_Double(u"ai.dAmountContract", m_dAmountContract, u"مبلغ قرارداد");
    RFX_Double(u"ai.dPaidContract", m_dPaidContract, u"پرداخت شده");
    RFX_Double(u"ai.dRemainingContract", m_dRemainingContract, u"مانده");
    RFX_Double(u"ai.dPaidComission", m_dPaidComission, {});
    RFX_Double(u"ai.dRemainingComission", m_dRemainingComission, {});
    RFX_Double(u"ai.dAmountCommission", m_dAmountCommission, u"مبلغ کميسيون");
    RFX_Text(u"ai.sRegistryNum", m_sRegistryNum, u"شماره دفترخانه");
    RFX_Text(u"ai.sReplacementCenter", m_sReplacementCenter, u"مرکز تعويض");
    RFX_Date(u"ai.dateJawPlate", m_dateJawPlate, u"تاريخ فک پلاک ");
    RFX_Date(u"ai.dateLegalDocument", m_dateLegalDocument, u"تاريخ سند وکالت");
    RFX_Text(u"ai.sNumLegalDocument", m_sNumLegalDocument, u"شماره سند وکالت");
    RFX_Date(u"ai.datefinalDocument", m_datefinalDocument, u"تاريخ سند قطعي");
    RFX_Date(u"ai.dateObtainingCopies", m_dateObtainingCopies, u"تاريخ اخذ کپي");
    RFX_Date(u"ai.dateDelivery", m_dateDelivery, u"تاريخ تحويل");
    RFX_Double(u"ai.dPurchasePriceOfOwner", m_dPurchasePriceOfOwner, u"مبلغ خريد از مالک");
    RFX_Double(u"ai.dSoldAmount", m_dSoldAmount, u"مبلغ فروخته شده");
    RFX_Double(u"ai.dAutomobilExpenses", m_dAutomobilExpenses, u"مخارج اتومبيل");
    RFX_Double(u"ai.dAmountPresence", m_dAmountPresence, u"هزينه محضر");
    RFX_Double(u"ai.dRemainingPresence", m_dRemainingPresence, u"مانده محضر");
    RFX_Double(u"ai.dProfitAndLoss", m_dProfitAndLoss, u"سود و زيان");
    RFX_Date(u"ai.dateClearance", m_dateClearance, u"تاريخ ترخيص");
    RFX_Long(u"ai.iCustomsClearance", m_iCustomsClearance, u"گمرک ترخيص");
    RFX_Text(u"ai.sLicense", m_sLicense, u"شماره پروانه");
    RFX_Long(u"ai.iUserID", m_iUserID, u"کاربر");
    RFX_Long(u"ai.iStatus", m_iStatus, {});
    RFX_Text(u"ai.sCountry", m_sCountry, {});
    RFX_Long(u"ai.iArchiveUserID", m_iArchiveUserID, u"بايگاني");
    namesFrom(u"ai.iArchiveUserID", u"Users", u"iID", u"sUser");
    RFX_Date(u"ai.dateArchive", m_dateArchive, u"تاريخ بايگاني");
    RFX_Text(u"cm.sName", m_sModelName, u"مدل");
    RFX_Text(u"cc.sName", m_sClassName, u"تیپ");
}
