// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/db/CTblAutomobilContracts.h"

#include "auto/db/CTblCarContracts.h"
#include "suite/treasury/followups/CTblFollowUps.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/attachments/CTblFileDocs.h"
#include "suite/accounting/attachments/CTblFiledPapers.h"

using namespace Qt::StringLiterals;

namespace {

const char highestCode[] = "SELECT MAX(iCode) FROM AutomobilContracts";

}

CTblAutomobilContracts::CTblAutomobilContracts(int database)
    : KMySQL(database)
{
}

CTblAutomobilContracts::~CTblAutomobilContracts() = default;

QString CTblAutomobilContracts::GetTableName() const
{
    return u"AutomobilContracts"_s;
}

bool CTblAutomobilContracts::Delete()
{
    requireRow("Delete");
    KTransaction transaction(database());
    const int docNum = ownsDocument(m_iID, m_iDocNum, m_iFiscalYear, database()) ? m_iDocNum : 0;
    CTblTemp statement(database());
    statement.Open(true, false, true);
    statement.FormatAndExecuteQuery("DELETE FROM AutomobilContracts WHERE iID=%d LIMIT 1", m_iID);
    CTblDocuments::EmptyDoc(docNum, m_iFiscalYear, database());
    CTblDocuments::DeleteDoc(docNum, m_iFiscalYear, 0, 0, QString(), database());
    CTblFileDocs::DeleteAllRelatedRecords(recordKind, m_iID, 0, database());
    CTblFiledPapers::deleteOf(recordKind, m_iID, database());
    CTblCustomFieldRecords::DeleteAllRelatedRecords(recordKind, m_iID, 0, database());
    statement.FormatAndExecuteQuery("DELETE FROM AutomobilPayments WHERE iAutomobilContractID=%d", m_iID);
    CTblFollowUps::deleteOf(recordKind, m_iID, database());
    CTblCarContracts::deleteOf(m_iID, database());
    const bool deleted = KMySQL::Delete();
    transaction.commit();
    return deleted;
}

// A number is given again when the document that had it last was the newest and was deleted, so that the number alone does not
// make a document this contract's.
bool CTblAutomobilContracts::ownsDocument(qint32 key, qint32 docNum, qint32 fiscalYear, int database)
{
    if (docNum < 1)
        return false;
    CTblTemp statement(database);
    statement.FormatAndExecuteQuery("SELECT iID FROM Documents WHERE iNum=%d AND iFiscalYear=%d AND iKind=%d", docNum, fiscalYear,
                                    Accounts::documentKindContract);
    if (!statement.HasResultRow())
        return false;
    statement.FormatAndExecuteQuery("SELECT iID FROM AutomobilContracts WHERE iDocNum=%d AND iFiscalYear=%d AND iID<>%d LIMIT 1",
                                    docNum, fiscalYear, key);
    return !statement.HasResultRow();
}

QList<QStringList> CTblAutomobilContracts::fieldGroups()
{
    const QString figures = u"iCode iNum iContractType dateContract dAmount dCommission dCommissionEveryPerson dPercentCommission"
                            " iPersonContract1 iPersonFirstID sName1 sNationalId1 sAddress1 sTel1 sMobile1"
                            " dPercentTax dTax dPercentImpsition dImposition dPercentDiscount dDiscountFirst dPayFirst"
                            " iPersonContract2 iPersonSecondID sName2 sNationalId2 sAddress2 sTel2 sMobile2"
                            " dPercentTax2 dTax2 dPercentImposition2 dImposition2 dPercentDiscount2 dDiscountSecond dPaySecond"_s;
    QStringList notes;
    for (int i = 1; i <= 10; ++i)
        notes.append(u"sNote%1"_s.arg(i));
    return {figures.split(u' '), notes, {u"dFixAmount"_s, u"dAgreeAmount"_s, u"dRemainingAmount"_s}, {u"sState"_s, u"sCity"_s}};
}

void CTblAutomobilContracts::expectNextCode(int database)
{
    KReadAhead::expectBehind(highestCode, database);
}

qint32 CTblAutomobilContracts::nextCode(int database)
{
    CTblTemp statement(database);
    statement.Open(false, false, true);
    statement.ExecuteQuery(highestCode, true, true);
    return statement.GetLongFieldValue(0) + 1;
}

void CTblAutomobilContracts::archive(qint32 code, qint32 userID, int database)
{
    CTblTemp statement(database);
    statement.Open(false, false, true);
    statement.FormatAndExecuteQuery(
        "UPDATE AutomobilContracts SET iArchiveUserID=%d, dateArchive=NOW() WHERE iCode=%d", userID, code);
}

void CTblAutomobilContracts::unarchive(qint32 code, int database)
{
    CTblTemp statement(database);
    statement.Open(false, false, true);
    statement.FormatAndExecuteQuery(
        "UPDATE AutomobilContracts SET iArchiveUserID=0, dateArchive=NOW() WHERE iCode=%d", code);
}

void CTblAutomobilContracts::DoFieldExchange()
{
    RFX_Long(u"iID", m_iID, {});
    RFX_Long(u"iCode", m_iCode, u"کد");
    RFX_Long(u"iPersonFirstID", m_iPersonFirstID, {});
    namesFrom(u"iPersonFirstID", u"Persons", u"iID", u"sName2");
    RFX_Long(u"iPersonSecondID", m_iPersonSecondID, {});
    namesFrom(u"iPersonSecondID", u"Persons", u"iID", u"sName2");
    RFX_Text(u"sSerial", m_sSerial, u"سريال");
    RFX_Date(u"dateContract", m_dateContract, u"تاريخ قرارداد");
    RFX_Text(u"sTrackingCode", m_sTrackingCode, u"کد رهگيري");
    RFX_Date(u"dateExtension", m_dateExtension, u"تاريخ تمديد");
    RFX_Date(u"dateExpiration", m_dateExpiration, u"تاريخ انقضا");
    RFX_Long(u"iContractType", m_iContractType, u"نوع قرارداد");
    RFX_Double(u"dAmount", m_dAmount, u"مبلغ");
    RFX_Double(u"dCommission", m_dCommission, u"کميسيون");
    RFX_Double(u"dDiscountFirst", m_dDiscountFirst, u"تخفيف طرف اول");
    RFX_Double(u"dDiscountSecond", m_dDiscountSecond, u"تخفيف طرف دوم");
    RFX_Double(u"dPayFirst", m_dPayFirst, u"پرداختي طرف اول");
    RFX_Double(u"dPaySecond", m_dPaySecond, u"پرداختي طرف دوم");
    RFX_Double(u"dCommissionEveryPerson", m_dCommissionEveryPerson, u"کميسيون از هر شخص");
    RFX_Double(u"dPercentCommission", m_dPercentCommission, u"کميسيون");
    RFX_Text(u"sCommitmentFirstHand", m_sCommitmentFirstHand, u"تعهدات مربوط به طرف اول");
    RFX_Text(u"sCommitmentsSecondHand", m_sCommitmentsSecondHand, u"تعهدات مربوط به طرف دوم");
    RFX_Text(u"sDeal", m_sDeal, u"مورد معامله");
    RFX_Text(u"sExplain", m_sExplain, u"شرح قرارداد");
    RFX_Text(u"sFromFirst", m_sFromFirst, u"طرف اول");
    RFX_Text(u"sFromSecond", m_sFromSecond, u"طرف دوم");
    RFX_Text(u"sByVirtueFirst", m_sByVirtueFirst, u"بموجب");
    RFX_Text(u"sByVirtueSecond", m_sByVirtueSecond, u"بموجب");
    RFX_Text(u"sNote1", m_sNote1, u"ماده 1");
    RFX_Text(u"sNote2", m_sNote2, u"ماده 2");
    RFX_Text(u"sNote3", m_sNote3, u"ماده 3");
    RFX_Text(u"sNote4", m_sNote4, u"ماده 4");
    RFX_Text(u"sNote5", m_sNote5, u"ماده 5");
    RFX_Text(u"sNote6", m_sNote6, u"ماده 6");
    RFX_Text(u"sNote7", m_sNote7, u"ماده 7");
    RFX_Text(u"sNote8", m_sNote8, u"ماده 8 ");
    RFX_Text(u"sNote9", m_sNote9, u"ماده 9");
    RFX_Text(u"sNote10", m_sNote10, u"ماده10");
    RFX_Text(u"sPage", m_sPage, u"صفحه");
    RFX_Long(u"iNum", m_iNum, u"شماره");
    RFX_Text(u"sCover", m_sCover, u"جلد");
    RFX_Date(u"dateSummary", m_dateSummary, u"تاريخ خلاصه");
    RFX_Text(u"sDesc", m_sDesc, u"توضيحات");
    RFX_Long(u"iStatus", m_iStatus, u"وضعيت");
    RFX_Date(u"dateCreate", m_dateCreate, u"تاريخ ايجاد");
    RFX_Double(u"dTax", m_dTax, u"ماليات");
    RFX_Double(u"dImposition", m_dImposition, u"عوارض");
    RFX_Double(u"dPercentImpsition", m_dPercentImpsition, u"درصد عوارض");
    RFX_Double(u"dPercentTax", m_dPercentTax, u"درصد ماليات");
    RFX_Long(u"iDocNum", m_iDocNum, u"شماره سند");
    RFX_Long(u"iFiscalYear", m_iFiscalYear, u"سال مالي");
    RFX_Double(u"dPercentDiscount", m_dPercentDiscount, u"درصد تخفيف");
    RFX_Double(u"dPercentDiscount2", m_dPercentDiscount2, u"درصد تخفيف دوم");
    RFX_Double(u"dImposition2", m_dImposition2, u"عوارض");
    RFX_Double(u"dPercentImposition2", m_dPercentImposition2, u"درصد عوارض");
    RFX_Double(u"dPercentTax2", m_dPercentTax2, u"درصد ارزش افزوده");
    RFX_Double(u"dTax2", m_dTax2, u"ارزش افزوده");
    RFX_Text(u"sName1", m_sName1, u"نام و نام خانوادگي");
    RFX_Text(u"sMobile1", m_sMobile1, u"موبايل");
    RFX_Text(u"sTel1", m_sTel1, u"تلفن");
    RFX_Text(u"sAddress1", m_sAddress1, u"آدرس");
    RFX_Text(u"sNationalId1", m_sNationalId1, u"کد ملي");
    RFX_Text(u"sName2", m_sName2, u"نام و نام خانوادگي");
    RFX_Text(u"sMobile2", m_sMobile2, u"موبايل");
    RFX_Text(u"sTel2", m_sTel2, u"تلفن");
    RFX_Text(u"sAddress2", m_sAddress2, u"آدرس");
    RFX_Text(u"sNationalId2", m_sNationalId2, u"کد ملي");
    RFX_Long(u"iPersonContract1", m_iPersonContract1, u"شخص قرارداد1");
    RFX_Long(u"iPersonContract2", m_iPersonContract2, u"شخص قرارداد2");
    RFX_Bool(u"bReturn", m_bReturn, u"برگشتي");
    RFX_Text(u"sNoAdvice", m_sNoAdvice, u"شماره مشاوره");
    RFX_Text(u"sDomainRegister", m_sDomainRegister, u"حوزه ثبتي");
    RFX_Text(u"sLicense", m_sLicense, u"پروانه");
    RFX_Text(u"sAutomobilType", m_sAutomobilType, u"نوع خودرو");
    RFX_Text(u"sAutomobilName", m_sAutomobilName, u" نام اتومبيل");
    RFX_Text(u"sSystem", m_sSystem, u"سيستم");
    RFX_Text(u"sBrigade", m_sBrigade, u"تيپ");
    RFX_Text(u"sCapacity", m_sCapacity, u"ظرفيت");
    RFX_Text(u"sColor", m_sColor, u"رنگ");
    RFX_Text(u"sFuel", m_sFuel, u"سوخت");
    RFX_Text(u"sNumOFAxles", m_sNumOFAxles, u"تعداد محور");
    RFX_Text(u"sNumOfWheels", m_sNumOfWheels, u"تعداد چرخ");
    RFX_Text(u"sChassisNum", m_sChassisNum, u"شماره شاسي");
    RFX_Text(u"sNumOfEngines", m_sNumOfEngines, u"شماره موتور");
    RFX_Text(u"sNumOfPlates", m_sNumOfPlates, u"شماره پلاک ");
    RFX_Text(u"sVIN", m_sVIN, u"VIN");
    RFX_Text(u"sDocumentsDelivered", m_sDocumentsDelivered, u"مدارک تحويلي");
    RFX_Text(u"sModel", m_sModel, u"مدل");
    RFX_Text(u"sDengue", m_sDengue, u"دانگ");
    RFX_Text(u"sDescMatter", m_sDescMatter, u"توضيحات ماده 2");
    RFX_Double(u"dFixAmount", m_dFixAmount, u"مبلغ مقطوع");
    RFX_Double(u"dAgreeAmount", m_dAgreeAmount, u"مبلغ توافق شده");
    RFX_Text(u"sCheckCount", m_sCheckCount, u"تعداد چک");
    RFX_Text(u"sCheckNum", m_sCheckNum, u"شماره چک");
    RFX_Text(u"sBranchName", m_sBranchName, u"نام شعبه ");
    RFX_Text(u"sBankName", m_sBankName, u"نام بانک");
    RFX_Text(u"sBranchCode", m_sBranchCode, u"کد شعبه");
    RFX_Double(u"dRemainingAmount", m_dRemainingAmount, u"باقي مانده");
    RFX_Text(u"sDescRemainingAmount", m_sDescRemainingAmount, u"شرح الباقي مبلغ");
    RFX_Text(u"sRightTahrir", m_sRightTahrir, u"حق تحرير");
    RFX_Double(u"dCostsForBuyer", m_dCostsForBuyer, u"هزينه هاي خريدار");
    RFX_Date(u"dateDeal", m_dateDeal, u"تاريخ معامله");
    RFX_Date(u"dateDocument", m_dateDocument, u"تاريخ سند");
    RFX_Text(u"sCity", m_sCity, u"شهر");
    RFX_Text(u"sState", m_sState, u"استان");
    RFX_Text(u"sRegistryNum", m_sRegistryNum, u"شماره دفترخانه");
    RFX_Double(u"dCompenseAmount", m_dCompenseAmount, u"مبلغ تنظيم سند");
    RFX_Date(u"dateOffice", m_dateOffice, u"تاريخ دفتر اسناد رسمي");
    RFX_Double(u"dDamageAmount", m_dDamageAmount, u"مبلغ خسارت");
    RFX_Text(u"sBillNumOne", m_sBillNumOne, u"قبض شماره يک");
    RFX_Text(u"sBillNumTwo", m_sBillNumTwo, u"قبض شماره دو");
    RFX_Date(u"dateTradeUnit", m_dateTradeUnit, u"مبلغ تنظيم سند");
    RFX_Double(u"dEveryHandDealAmount", m_dEveryHandDealAmount, u"مبلغ از هر طرفين");
    RFX_Text(u"sAddressSample", m_sAddressSample, u"آدرس مشاور نمونه");
    RFX_Text(u"sSampleDescOne", m_sSampleDescOne, u" توضيحات نمونه 1");
    RFX_Text(u"sSampleDescTwo", m_sSampleDescTwo, u"توضيحات نمونه 2");
    RFX_Long(u"iUserID", m_iUserID, u"کاربر", u"Users", u"iID", u"sUser");
    RFX_Long(u"iArchiveUserID", m_iArchiveUserID, u"بايگاني");
    namesFrom(u"iArchiveUserID", u"Users", u"iID", u"sUser");
    RFX_Date(u"dateArchive", m_dateArchive, u"تاريخ بايگاني");
    RFX_Text(u"sNumOfMonths", m_sNumOfMonths, u"تعداد ماه");
    RFX_Text(u"sNumOfInstallment", m_sNumOfInstallment, u"تعداد اقساط");
    RFX_Text(u"sDescCheck", m_sDescCheck, u"شرح چک/سفته");
    RFX_Text(u"sRentTime", m_sRentTime, u"مدت اجاره");
    RFX_Text(u"sUsanceNum", m_sUsanceNum, u"شماره سر رسيد چک");
    RFX_Double(u"dAmountRent", m_dAmountRent, u"مبلغ اجاره");
    RFX_Double(u"dDelayAmount", m_dDelayAmount, u"مبلغ تاخير");
    RFX_Date(u"dateRentExpire", m_dateRentExpire, u"تاريخ انقضا اجاره");
    RFX_Date(u"dateRent", m_dateRent, u"تاريخ اجاره");
}
