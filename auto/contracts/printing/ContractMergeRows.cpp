// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/printing/ContractMergeRows.h"

const std::vector<ContractMergeRow> &ContractMergeRow::ofFirstParty()
{
    static const std::vector<ContractMergeRow> rows = {
        {u"Mr", Title, {}, {u"iSex", u"iKind"}},
        {u"Name", Text, {u"sName1"}, {u"sName"}},
        {u"Family", Text, {}, {u"sFamily"}},
        {u"Address", Text, {u"sAddress1"}, {u"sAddress"}},
        {u"PC", Text, {}, {u"sPostalCode"}},
        {u"Father", Text, {}, {u"sFatherName"}},
        {u"IdentityCode", Text, {}, {u"sIdentityNum"}},
        {u"NC", Text, {u"sNationalId1"}, {u"sNationalCode"}},
        {u"BirthCity", Text, {}, {u"sBirthCity"}},
        {u"dateBirth", Date, {}, {u"dateBirth"}},
        {u"Tel", Text, {u"sTel1", u"sMobile1"}, {u"sTel", u"sMobile"}},
        {u"EC", Text, {}, {u"sEconomicCode"}},
        {u"IdentityCodeCity", Text, {}, {u"sIdentityCity"}},
        {u"dateContract", Date, {u"dateContract"}},
        {u"NumOfPlates", Text, {u"sNumOfPlates"}},
        {u"Color", Text, {u"sColor"}},
        {u"AutomobilName", Text, {u"sAutomobilName"}},
        {u"Amount", Money, {u"dAmount"}},
        {u"Commission1", Money, {u"dCommission"}},
        {u"sumTax1", Money, {u"dTax", u"dImposition"}},
        {u"Pay1", Money, {u"dCommission", u"dTax", u"dImposition"}, {}, u"dDiscountFirst"},
        {u"DiscountFirst", Money, {u"dDiscountFirst"}},
        {u"iCode", Code, {u"iCode"}},
        {u"sDesc", Text, {u"sDesc"}},
        {u"Model", Text, {u"sModel"}},
    };
    return rows;
}

// The names do not follow those of the first party; the templates in the offices use them as they are.
const std::vector<ContractMergeRow> &ContractMergeRow::ofSecondParty()
{
    static const std::vector<ContractMergeRow> rows = {
        {u"MrPerson2", Title, {}, {u"iSex", u"iKind"}},
        {u"NamePerson2", Text, {u"sName2"}, {u"sName"}},
        {u"Family2", Text, {}, {u"sFamily"}},
        {u"Address2", Text, {u"sAddress2"}, {u"sAddress"}},
        {u"FatherName2", Text, {}, {u"sFatherName"}},
        {u"IdentityCode2", Text, {}, {u"sIdentityNum"}},
        {u"N", Text, {u"sNationalId2"}, {u"sNationalCode"}},
        {u"BirthCity2", Text, {}, {u"sBirthCity"}},
        {u"dateBirth2", Date, {}, {u"dateBirth"}},
        {u"Tel2", Text, {u"sTel2", u"sMobile2"}, {u"sTel", u"sMobile"}},
        {u"IdentityCodeCity2", Text, {}, {u"sIdentityCity"}},
        {u"E", Text, {}, {u"sEconomicCode"}},
        {u"p", Text, {}, {u"sPostalCode"}},
        {u"dateContract", Date, {u"dateContract"}},
        {u"NumOfPlates", Text, {u"sNumOfPlates"}},
        {u"Color", Text, {u"sColor"}},
        {u"AutomobilName", Text, {u"sAutomobilName"}},
        {u"Amount", Money, {u"dAmount"}},
        {u"Commission1", Money, {u"dCommission"}},
        {u"sumTax2", Money, {u"dTax2", u"dImposition2"}},
        {u"Pay2", Money, {u"dCommission", u"dTax2", u"dImposition2"}, {}, u"dDiscountSecond"},
        {u"DiscountSecond", Money, {u"dDiscountSecond"}},
        {u"iCode", Code, {u"iCode"}},
        {u"sDesc", Text, {u"sDesc"}},
        {u"Model", Text, {u"sModel"}},
    };
    return rows;
}

const std::vector<ContractMergeRow> &ContractMergeRow::ofMatter()
{
    static const std::vector<ContractMergeRow> rows = {
        {u"ByVirtueFirst", Text, {u"sByVirtueFirst"}},
        {u"NumOfWheels", Text, {u"sNumOfWheels"}},
        {u"NumOfEngines", Text, {u"sNumOfEngines"}},
        {u"ChassisNum", Text, {u"sChassisNum"}},
        {u"DescMatter", Text, {u"sDescMatter"}},
        {u"FixAmount", Money, {u"dFixAmount"}},
        {u"AgreeAmount", Money, {u"dAgreeAmount"}},
        {u"CheckCount", Text, {u"sCheckCount"}},
        {u"CheckNum", Text, {u"sCheckNum"}},
        {u"BankName", Text, {u"sBankName"}},
        {u"BranchName", Text, {u"sBranchName"}},
        {u"BranchCode", Text, {u"sBranchCode"}},
        {u"RemainingAmount", Money, {u"dRemainingAmount"}},
        {u"dateTradeUnit", Date, {u"dateTradeUnit"}},
        {u"RegistryNum", Text, {u"sRegistryNum"}},
        {u"RightTahrir", Text, {u"sRightTahrir"}},
        {u"DamageAmount", Money, {u"dDamageAmount"}},
        {u"dateDeal", Date, {u"dateDeal"}},
        {u"timeDeal", Time, {u"dateDeal"}},
        {u"DelayAmount", Money, {u"dDelayAmount"}},
        {u"timeTradeUnit", Time, {u"dateTradeUnit"}},
        {u"AddressSample", Text, {u"sAddressSample"}},
        {u"Page", Text, {u"sPage"}},
        {u"Cover", Text, {u"sCover"}},
        {u"Num", Code, {u"iNum"}},
        {u"Tracking", Text, {u"sTrackingCode"}},
        {u"NoAdvice", Text, {u"sNoAdvice"}},
        {u"DomainRegister", Text, {u"sDomainRegister"}},
        {u"FromFirst", Text, {u"sFromFirst"}},
        {u"FromSecond", Text, {u"sFromSecond"}},
        {u"ByVirtueSecond", Text, {u"sByVirtueSecond"}},
        {u"Dengue", Text, {u"sDengue"}},
        {u"System", Text, {u"sSystem"}},
        {u"Brigade", Text, {u"sBrigade"}},
        {u"Capacity", Text, {u"sCapacity"}},
        {u"Fuel", Text, {u"sFuel"}},
        {u"NumOFAxles", Text, {u"sNumOFAxles"}},
    };
    return rows;
}

const std::vector<ContractMergeRow> &ContractMergeRow::further()
{
    static const std::vector<ContractMergeRow> rows = {
        // The vehicle.
        {u"VIN", Text, {u"sVIN"}},
        {u"AutomobilType", Text, {u"sAutomobilType"}},
        {u"DocumentsDelivered", Text, {u"sDocumentsDelivered"}},
        {u"Plate", Plate, {u"sNumOfPlates"}},
        {u"PlateTwo", PlateTwo, {u"sNumOfPlates"}},
        {u"PlateLetter", PlateLetter, {u"sNumOfPlates"}},
        {u"PlateThree", PlateThree, {u"sNumOfPlates"}},
        {u"PlateRegion", PlateRegion, {u"sNumOfPlates"}},
        // Amounts in words.
        {u"AmountWords", Words, {u"dAmount"}},
        {u"CommissionWords", Words, {u"dCommission"}},
        {u"Pay1Words", Words, {u"dCommission", u"dTax", u"dImposition"}, {}, u"dDiscountFirst"},
        {u"Pay2Words", Words, {u"dCommission", u"dTax2", u"dImposition2"}, {}, u"dDiscountSecond"},
        {u"FixAmountWords", Words, {u"dFixAmount"}},
        {u"AgreeAmountWords", Words, {u"dAgreeAmount"}},
        {u"RemainingAmountWords", Words, {u"dRemainingAmount"}},
        {u"DamageAmountWords", Words, {u"dDamageAmount"}},
        {u"DelayAmountWords", Words, {u"dDelayAmount"}},
        {u"AmountRentWords", Words, {u"dAmountRent"}},
        // Terms.
        {u"AmountRent", Money, {u"dAmountRent"}},
        {u"RentTime", Text, {u"sRentTime"}},
        {u"dateRent", Date, {u"dateRent"}},
        {u"dateRentExpire", Date, {u"dateRentExpire"}},
        {u"NumOfMonths", Text, {u"sNumOfMonths"}},
        {u"NumOfInstallment", Text, {u"sNumOfInstallment"}},
        {u"UsanceNum", Text, {u"sUsanceNum"}},
        {u"DescCheck", Text, {u"sDescCheck"}},
        {u"DescRemainingAmount", Text, {u"sDescRemainingAmount"}},
        {u"CompenseAmount", Money, {u"dCompenseAmount"}},
        {u"EveryHandDealAmount", Money, {u"dEveryHandDealAmount"}},
        {u"dateDocument", Date, {u"dateDocument"}},
        {u"dateOffice", Date, {u"dateOffice"}},
        {u"BillNumOne", Text, {u"sBillNumOne"}},
        {u"BillNumTwo", Text, {u"sBillNumTwo"}},
        {u"SampleDescOne", Text, {u"sSampleDescOne"}},
        {u"SampleDescTwo", Text, {u"sSampleDescTwo"}},
        {u"State", Text, {u"sState"}},
        {u"City", Text, {u"sCity"}},
        {u"License", Text, {u"sLicense"}},
        // What a contract says in words of its own.
        {u"dateExpiration", Date, {u"dateExpiration"}},
        {u"dateSummary", Date, {u"dateSummary"}},
        {u"Deal", Text, {u"sDeal"}},
        {u"Explain", Text, {u"sExplain"}},
        {u"CommitmentFirst", Text, {u"sCommitmentFirstHand"}},
        {u"CommitmentSecond", Text, {u"sCommitmentsSecondHand"}},
        {u"Note1", Text, {u"sNote1"}},
        {u"Note2", Text, {u"sNote2"}},
        {u"Note3", Text, {u"sNote3"}},
        {u"Note4", Text, {u"sNote4"}},
        {u"Note5", Text, {u"sNote5"}},
        {u"Note6", Text, {u"sNote6"}},
        {u"Note7", Text, {u"sNote7"}},
        {u"Note8", Text, {u"sNote8"}},
        {u"Note9", Text, {u"sNote9"}},
        {u"Note10", Text, {u"sNote10"}},
    };
    return rows;
}

const std::vector<ContractMergeRow> &ContractMergeRow::ofOffice()
{
    static const std::vector<ContractMergeRow> rows = {
        {u"DealershipAddress", Text, {u"address"}},
        {u"DealershipTel", Text, {u"telephone"}},
        {u"DealershipMobile", Text, {u"mobile"}},
        {u"DealershipCity", Text, {u"city"}},
        {u"DealershipPostalCode", Text, {u"postalCode"}},
        {u"DealershipNationalCode", Text, {u"nationalCode"}},
        {u"DealershipEconomicCode", Text, {u"economicCode"}},
        {u"DealershipManager", Text, {u"manager"}},
    };
    return rows;
}
