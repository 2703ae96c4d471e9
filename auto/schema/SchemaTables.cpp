// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/schema/SchemaTables.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace SchemaTables {

namespace {

constexpr Column automobilInformationsColumns[] = {
    {"iID", ColumnType::Key},
    {"iCode", ColumnType::Integer},
    {"iPersonID", ColumnType::Integer},
    {"iPersonBuyerID", ColumnType::Integer},
    {"dateCreate", ColumnType::DateTime},
    {"sDesc", ColumnType::Text, 255},
    {"iAutomobilType", ColumnType::Integer},
    {"iSystem", ColumnType::Integer},
    {"iBrigade", ColumnType::Integer},
    {"sAddress", ColumnType::Text, 255},
    {"iModel", ColumnType::Integer},
    {"iCapacity", ColumnType::Integer},
    {"iColor", ColumnType::Integer},
    {"iCountry", ColumnType::Integer},
    {"iFuel", ColumnType::Integer},
    {"iNumOFAxles", ColumnType::Integer},
    {"iNumOfWheels", ColumnType::Integer},
    {"iNumOfCylinders", ColumnType::Integer},
    {"iVolumCylinders", ColumnType::Integer},
    {"sChassisNum", ColumnType::Text, 20},
    {"sNumOfEngines", ColumnType::Text, 20},
    {"sNumOfBodies", ColumnType::Text, 20},
    {"sNumOfPlates", ColumnType::Text, 20},
    {"dAmount", ColumnType::Decimal},
    {"sVIN", ColumnType::Text, 20},
    {"sBodyStatus", ColumnType::Text, 255},
    {"sInsuranceStatus", ColumnType::Text, 255},
    {"sFacilities", ColumnType::Text, 255},
    {"sAccessories", ColumnType::Text, 255},
    {"sFractionalParts", ColumnType::Text, 255},
    {"sDocumentsDelivered", ColumnType::Text, 255},
    {"sDocumentsDeficit", ColumnType::Text, 255},
    {"iUsageType", ColumnType::Integer},
    {"sDescSpecial", ColumnType::Text, 255},
    {"dateIntroduction", ColumnType::DateTime},
    {"iSource", ColumnType::Integer},
    {"sCountry", ColumnType::Text, 20},
    {"iTariffsID", ColumnType::Integer},
    {"bSold", ColumnType::Flag},
    {"bFractionalParts", ColumnType::Flag},
    {"bDocumentDeficit", ColumnType::Flag},
    {"dateBuy", ColumnType::DateTime},
    {"dMbayhAutomobilContract", ColumnType::Decimal},
    {"dAmountContract", ColumnType::Decimal},
    {"dPaidContract", ColumnType::Decimal},
    {"dRemainingContract", ColumnType::Decimal},
    {"dPaidComission", ColumnType::Decimal},
    {"dRemainingComission", ColumnType::Decimal},
    {"dAmountCommission", ColumnType::Decimal},
    {"sRegistryNum", ColumnType::Text, 20},
    {"sReplacementCenter", ColumnType::Text, 255},
    {"dateJawPlate", ColumnType::DateTime},
    {"dateLegalDocument", ColumnType::DateTime},
    {"sNumLegalDocument", ColumnType::Text, 20},
    {"datefinalDocument", ColumnType::DateTime},
    {"dateObtainingCopies", ColumnType::DateTime},
    {"dateDelivery", ColumnType::DateTime},
    {"dPurchasePriceOfOwner", ColumnType::Decimal},
    {"dSoldAmount", ColumnType::Decimal},
    {"dAutomobilExpenses", ColumnType::Decimal},
    {"dAmountPresence", ColumnType::Decimal},
    {"dRemainingPresence", ColumnType::Decimal},
    {"dProfitAndLoss", ColumnType::Decimal},
    {"dateClearance", ColumnType::DateTime},
    {"iCustomsClearance", ColumnType::Integer},
    {"sLicense", ColumnType::Text, 20},
    {"iUserID", ColumnType::Integer},
    {"iArchiveUserID", ColumnType::Integer},
    {"dateArchive", ColumnType::DateTime},
    {"iStatus", ColumnType::Integer},
};

constexpr Column automobilTariffsColumns[] = {
    {"iID", ColumnType::Key},
    {"sDesc", ColumnType::Text, 255},
    {"sTitle", ColumnType::Text, 50},
    {"iStatus", ColumnType::Integer},
    {"dAmount", ColumnType::Decimal},
    {"dateCreate", ColumnType::DateTime},
};

constexpr Column automobilDemandsColumns[] = {
    {"iID", ColumnType::Key},
    {"iCode", ColumnType::Integer},
    {"iPersonID", ColumnType::Integer},
    {"dateCreate", ColumnType::DateTime},
    {"sAcquaintances", ColumnType::Text, 50},
    {"iAutomobilType", ColumnType::Integer},
    {"iModelFrom", ColumnType::Integer},
    {"iModelUpTo", ColumnType::Integer},
    {"iColor", ColumnType::Integer},
    {"dAmountFrom", ColumnType::Decimal},
    {"dAmountUpTo", ColumnType::Decimal},
    {"sDesc", ColumnType::Text, 255},
    {"sDescSpecial", ColumnType::Text, 255},
    {"dateReference", ColumnType::DateTime},
    {"iFacilities", ColumnType::Integer},
    {"datemaxtimeNeed", ColumnType::DateTime},
    {"iUserID", ColumnType::Integer},
    {"iArchiveUserID", ColumnType::Integer},
    {"dateArchive", ColumnType::DateTime},
    {"iStatus", ColumnType::Integer},
};

constexpr Column automobilContractsColumns[] = {
    {"iID", ColumnType::Key},
    {"iCode", ColumnType::Integer},
    {"iPersonFirstID", ColumnType::Integer},
    {"iPersonSecondID", ColumnType::Integer},
    {"sSerial", ColumnType::Text, 20},
    {"dateContract", ColumnType::DateTime},
    {"sTrackingCode", ColumnType::Text, 20},
    {"dateExtension", ColumnType::DateTime},
    {"dateExpiration", ColumnType::DateTime},
    {"iContractType", ColumnType::Integer},
    {"dAmount", ColumnType::Decimal},
    {"dCommission", ColumnType::Decimal},
    {"dDiscountFirst", ColumnType::Decimal},
    {"dDiscountSecond", ColumnType::Decimal},
    {"dPayFirst", ColumnType::Decimal},
    {"dPaySecond", ColumnType::Decimal},
    {"dCommissionEveryPerson", ColumnType::Decimal},
    {"dPercentCommission", ColumnType::Decimal},
    {"dTax", ColumnType::Decimal},
    {"dImposition", ColumnType::Decimal},
    {"dPercentTax", ColumnType::Decimal},
    {"dPercentImpsition", ColumnType::Decimal},
    {"iDocNum", ColumnType::Integer},
    {"sCommitmentFirstHand", ColumnType::Text, 255},
    {"sCommitmentsSecondHand", ColumnType::Text, 255},
    {"sDeal", ColumnType::Text, 255},
    {"sExplain", ColumnType::Text, 255},
    {"sFromFirst", ColumnType::Text, 50},
    {"sFromSecond", ColumnType::Text, 50},
    {"sByVirtueFirst", ColumnType::Text, 50},
    {"sByVirtueSecond", ColumnType::Text, 50},
    {"sNote1", ColumnType::Text, 20},
    {"sNote2", ColumnType::Text, 20},
    {"sNote3", ColumnType::Text, 20},
    {"sNote4", ColumnType::Text, 20},
    {"sNote5", ColumnType::Text, 20},
    {"sNote6", ColumnType::Text, 20},
    {"sNote7", ColumnType::Text, 20},
    {"sNote8", ColumnType::Text, 20},
    {"sNote9", ColumnType::Text, 20},
    {"sNote10", ColumnType::Text, 20},
    {"sPage", ColumnType::Text, 20},
    {"iNum", ColumnType::Integer},
    {"sCover", ColumnType::Text, 20},
    {"dateSummary", ColumnType::DateTime},
    {"sDesc", ColumnType::Text, 255},
    {"iUserID", ColumnType::Integer},
    {"iArchiveUserID", ColumnType::Integer},
    {"dateArchive", ColumnType::DateTime},
    {"sNoAdvice", ColumnType::Text, 50},
    {"sDomainRegister", ColumnType::Text, 50},
    {"sLicense", ColumnType::Text, 50},
    {"sAutomobilType", ColumnType::Text, 50},
    {"sSystem", ColumnType::Text, 50},
    {"sBrigade", ColumnType::Text, 50},
    {"sCapacity", ColumnType::Text, 50},
    {"sColor", ColumnType::Text, 50},
    {"sFuel", ColumnType::Text, 50},
    {"sNumOFAxles", ColumnType::Text, 50},
    {"sNumOfWheels", ColumnType::Text, 50},
    {"sChassisNum", ColumnType::Text, 50},
    {"sNumOfEngines", ColumnType::Text, 50},
    {"sNumOfPlates", ColumnType::Text, 50},
    {"sVIN", ColumnType::Text, 50},
    {"sDocumentsDelivered", ColumnType::Text, 255},
    {"sModel", ColumnType::Text, 50},
    {"sDengue", ColumnType::Text, 50},
    {"sDescMatter", ColumnType::Text, 255},
    {"sAutomobilName", ColumnType::Text, 50},
    {"dFixAmount", ColumnType::Decimal},
    {"dAgreeAmount", ColumnType::Decimal},
    {"sCheckCount", ColumnType::Text, 50},
    {"sCheckNum", ColumnType::Text, 50},
    {"sBranchName", ColumnType::Text, 50},
    {"sBankName", ColumnType::Text, 50},
    {"sBranchCode", ColumnType::Text, 50},
    {"dRemainingAmount", ColumnType::Decimal},
    {"sDescRemainingAmount", ColumnType::Text, 255},
    {"sRightTahrir", ColumnType::Text, 50},
    {"dCostsForBuyer", ColumnType::Decimal},
    {"dateDeal", ColumnType::DateTime},
    {"dateDocument", ColumnType::DateTime},
    {"sCity", ColumnType::Text, 50},
    {"sState", ColumnType::Text, 50},
    {"sRegistryNum", ColumnType::Text, 50},
    {"dCompenseAmount", ColumnType::Decimal},
    {"dateOffice", ColumnType::DateTime},
    {"dDamageAmount", ColumnType::Decimal},
    {"sBillNumOne", ColumnType::Text, 50},
    {"sBillNumTwo", ColumnType::Text, 50},
    {"dateTradeUnit", ColumnType::DateTime},
    {"dEveryHandDealAmount", ColumnType::Decimal},
    {"sAddressSample", ColumnType::Text, 255},
    {"sSampleDescOne", ColumnType::Text, 255},
    {"sSampleDescTwo", ColumnType::Text, 255},
    {"sNumOfMonths", ColumnType::Text, 20},
    {"sNumOfInstallment", ColumnType::Text, 20},
    {"sDescCheck", ColumnType::Text, 255},
    {"sRentTime", ColumnType::Text, 20},
    {"sUsanceNum", ColumnType::Text, 20},
    {"dateRent", ColumnType::DateTime},
    {"dateRentExpire", ColumnType::DateTime},
    {"dDelayAmount", ColumnType::Decimal},
    {"dAmountRent", ColumnType::Decimal},
    {"iStatus", ColumnType::Integer},
    {"dateCreate", ColumnType::DateTime},
};

constexpr Column automobilPaymentsColumns[] = {
    {"iID", ColumnType::Key},
    {"iDepartmentID", ColumnType::Integer},
    {"iAutomobilContractID", ColumnType::Integer},
    {"iPersonID", ColumnType::Integer},
    {"iNum", ColumnType::Integer},
    {"date", ColumnType::DateTime},
    {"sDesc", ColumnType::Text, 255},
    {"dAmount", ColumnType::Decimal},
    {"iDocNum", ColumnType::Integer},
    {"dExtra", ColumnType::Decimal},
    {"iStatus", ColumnType::Integer},
    {"iUserID", ColumnType::Integer},
    {"iLevel", ColumnType::Integer},
    {"iDays", ColumnType::Integer},
    {"iMonths", ColumnType::Integer},
    {"bPercentMonthly", ColumnType::Flag},
};

constexpr Column carBrandsColumns[] = {
    {"iID", ColumnType::Key},
    {"sName", ColumnType::Text, 50},
    {"sNameEnglish", ColumnType::Text, 50},
    {"iCompanyID", ColumnType::Integer},
    {"sWebName", ColumnType::Text, 50},
    {"sCountry", ColumnType::Text, 50},
    {"sFounders", ColumnType::Text, 50},
    {"sCeo", ColumnType::Text, 50},
    {"sCentralOffice", ColumnType::Text, 255},
    {"iYearFrom", ColumnType::Integer},
    {"iYearTo", ColumnType::Integer},
    {"sWebSite", ColumnType::Text, 50},
    {"sLogoFile", ColumnType::Text, 50},
    {"iGrade", ColumnType::Integer},
    {"bShowInHomePage", ColumnType::Flag},
    {"iWebOrder", ColumnType::Integer},
    {"iStatus", ColumnType::Integer},
    {"iUserID", ColumnType::Integer},
    {"dateCreate", ColumnType::DateTime},
};
constexpr Index carBrandsIndexes[] = {
    {"UNIQUE INDEX", "sName", "sName"},
    {"INDEX", "iID", "iID"},
    {"INDEX", "sCountry", "sCountry"},
};

constexpr Column carModelsColumns[] = {
    {"iID", ColumnType::Key},
    {"sName", ColumnType::Text, 50},
    {"iClassID", ColumnType::Integer},
    {"iYearFrom", ColumnType::Integer},
    {"iYearTo", ColumnType::Integer},
    {"iStatus", ColumnType::Integer},
    {"iUserID", ColumnType::Integer},
    {"dateCreate", ColumnType::DateTime},
};
constexpr Index carModelsIndexes[] = {
    {"INDEX", "iID", "iID"},
    {"INDEX", "sName", "sName"},
    {"INDEX", "iClassID", "iClassID"},
};

constexpr Column carClassesColumns[] = {
    {"iID", ColumnType::Key},
    {"sName", ColumnType::Text, 50},
    {"sDesc", ColumnType::Text, 255},
    {"iBrandID", ColumnType::Integer},
    {"sClassCode", ColumnType::Text, 50},
    {"iClassType", ColumnType::Integer},
    {"iYearFrom", ColumnType::Integer},
    {"iYiearTo", ColumnType::Integer},
    {"sCurrentGeneration", ColumnType::Text, 50},
    {"iStatus", ColumnType::Integer},
    {"iUserID", ColumnType::Integer},
    {"dateCreate", ColumnType::DateTime},
};
constexpr Index carClassesIndexes[] = {
    {"INDEX", "iID", "iID"},
    {"INDEX", "sName", "sName"},
    {"INDEX", "iBrandID", "iBrandID"},
};

constexpr Column carYearsColumns[] = {
    {"iID", ColumnType::Key},
    {"iYear", ColumnType::Integer},
    {"iModelID", ColumnType::Integer},
    {"iEngineSize", ColumnType::Integer},
    {"sEngineType", ColumnType::Text, 50},
    {"iCylinderCount", ColumnType::Integer},
    {"iCylinderArrange", ColumnType::Integer},
    {"iVolvesCount", ColumnType::Integer},
    {"iEngineLocation", ColumnType::Integer},
    {"iFuelSystem", ColumnType::Integer},
    {"iTankCapacity", ColumnType::Integer},
    {"sMaxPowerOutput", ColumnType::Text, 50},
    {"sMaxTorqueOutput", ColumnType::Text, 50},
    {"sVolumeOutput", ColumnType::Text, 50},
    {"iGreaBoxType", ColumnType::Integer},
    {"iForwardGearsCount", ColumnType::Integer},
    {"sGearShiftLeverLocation", ColumnType::Text, 50},
    {"iVehicleSystem", ColumnType::Integer},
    {"iBrakingSystemType", ColumnType::Integer},
    {"sFrontBrakDiscType", ColumnType::Text, 50},
    {"sRearBrakDiscType", ColumnType::Text, 50},
    {"iSuspensionType", ColumnType::Integer},
    {"sFrontSuspension", ColumnType::Text, 50},
    {"sRearSuspension", ColumnType::Text, 50},
    {"sFrontShockAbsorbers", ColumnType::Text, 50},
    {"sRearShockAbsorbers", ColumnType::Text, 50},
    {"iSteeringSystemType", ColumnType::Integer},
    {"sCarPerformance", ColumnType::Text, 50},
    {"iMaximumSpeed", ColumnType::Integer},
    {"iAccelerationInSeconds", ColumnType::Integer},
    {"iUrbanFuelConsumption", ColumnType::Integer},
    {"iRoadFuelConsumption", ColumnType::Integer},
    {"iCombinedCycleFuelConsumption", ColumnType::Integer},
    {"sEmissionStandard", ColumnType::Text, 50},
    {"iStandardEuropeSafetyStar", ColumnType::Integer},
    {"iGroupsWarranty", ColumnType::Integer},
    {"iMarketPrice", ColumnType::Integer},
    {"iResellerPrices", ColumnType::Integer},
    {"sSecurityProtection", ColumnType::Text, 50},
    {"sGuidanceSystem", ColumnType::Text, 50},
    {"iTypeWheel", ColumnType::Integer},
    {"sAirConditioningSystems", ColumnType::Text, 50},
    {"sAudioAndVideoSystems", ColumnType::Text, 50},
    {"sMultimediaSystems", ColumnType::Text, 50},
    {"sFrontSeatsSystem", ColumnType::Text, 50},
    {"sRearSeatsSystem", ColumnType::Text, 50},
    {"sGlassSystems", ColumnType::Text, 50},
    {"sRoofSystems", ColumnType::Text, 50},
    {"sFrontLightingSystems", ColumnType::Text, 50},
    {"sRearLightingSystems", ColumnType::Text, 50},
    {"sActiveSensors", ColumnType::Text, 50},
    {"sDrivingAssistanceSystems", ColumnType::Text, 50},
    {"sTypeOfAirBags", ColumnType::Text, 50},
    {"iAirbagsCount", ColumnType::Integer},
    {"sAssistanceSystems", ColumnType::Text, 50},
    {"iStatus", ColumnType::Integer},
    {"iUserID", ColumnType::Integer},
    {"dateCreate", ColumnType::DateTime},
};
constexpr Index carYearsIndexes[] = {
    {"INDEX", "iID", "iID"},
    {"INDEX", "iModelID", "iModelID"},
};

QString definition(const Column &column)
{
    const QString name = QLatin1String(column.name);
    switch (column.type) {
    case ColumnType::Key: return name + QLatin1String(" INT NOT NULL AUTO_INCREMENT");
    case ColumnType::Integer: return name + QLatin1String(" INT DEFAULT 0");
    case ColumnType::Decimal: return name + QLatin1String(" DOUBLE DEFAULT 0");
    case ColumnType::Text: return name + u" VARCHAR(%1) DEFAULT NULL"_s.arg(column.length);
    case ColumnType::DateTime: return name + QLatin1String(" DATETIME DEFAULT NULL");
    case ColumnType::Flag: return name + QLatin1String(" TINYINT DEFAULT 0");
    }
    Q_UNREACHABLE();
}

QString definition(const Index &index)
{
    return u"%1 %2 (%3)"_s
        .arg(QLatin1String(index.kind), QLatin1String(index.name), QLatin1String(index.column));
}

}

const Table automobilInformations{"AutomobilInformations", automobilInformationsColumns, {}};
const Table automobilTariffs{"AutomobilTariffs", automobilTariffsColumns, {}};
const Table automobilDemands{"AutomobilDemands", automobilDemandsColumns, {}};
const Table automobilContracts{"AutomobilContracts", automobilContractsColumns, {}};
const Table automobilPayments{"AutomobilPayments", automobilPaymentsColumns, {}};
const Table carBrands{"CarBrands", carBrandsColumns, carBrandsIndexes};
const Table carModels{"CarModels", carModelsColumns, carModelsIndexes};
const Table carClasses{"CarClasses", carClassesColumns, carClassesIndexes};
const Table carYears{"CarYears", carYearsColumns, carYearsIndexes};

QString dropStatement(const Table &table)
{
    return QLatin1String("DROP TABLE IF EXISTS ") + QLatin1String(table.name);
}

QString createStatement(const Table &table)
{
    QStringList definitions;
    for (const Column &column : table.columns)
        definitions.append(definition(column));
    definitions.append(u"PRIMARY KEY (iID)"_s);
    for (const Index &index : table.indexes)
        definitions.append(definition(index));
    return u"CREATE TABLE %1(%2)ENGINE = InnoDB CHARSET=utf8"_s
        .arg(QLatin1String(table.name), definitions.join(QLatin1Char(',')));
}

}
