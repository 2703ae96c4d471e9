// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

// One row per contract between a first party (seller, lessor) and a second party (buyer, lessee). Members carry the names
// of their columns. Amounts are in the suite's money unit, percentages 0 to 100, keys 0 when nothing is referred to.
class CTblAutomobilContracts : public KMySQL, private KLiveCount<CTblAutomobilContracts>
{
public:
    using KLiveCount<CTblAutomobilContracts>::liveCount;

    qint32 m_iID = 0;
    qint32 m_iCode = 0;
    qint32 m_iPersonFirstID = 0;
    qint32 m_iPersonSecondID = 0;
    QString m_sSerial;
    QDateTime m_dateContract;
    QString m_sTrackingCode;
    QDateTime m_dateExtension;
    QDateTime m_dateExpiration;
    qint32 m_iContractType = 0;
    double m_dAmount = 0;
    double m_dCommission = 0;
    double m_dDiscountFirst = 0;
    double m_dDiscountSecond = 0;
    double m_dPayFirst = 0;
    double m_dPaySecond = 0;
    double m_dCommissionEveryPerson = 0;
    double m_dPercentCommission = 0;
    QString m_sCommitmentFirstHand;
    QString m_sCommitmentsSecondHand;
    QString m_sDeal;
    QString m_sExplain;
    QString m_sFromFirst;
    QString m_sFromSecond;
    QString m_sByVirtueFirst;
    QString m_sByVirtueSecond;
    QString m_sNote1;
    QString m_sNote2;
    QString m_sNote3;
    QString m_sNote4;
    QString m_sNote5;
    QString m_sNote6;
    QString m_sNote7;
    QString m_sNote8;
    QString m_sNote9;
    QString m_sNote10;
    QString m_sPage;
    qint32 m_iNum = 0;
    QString m_sCover;
    QDateTime m_dateSummary;
    QString m_sDesc;
    qint32 m_iStatus = 0;
    QDateTime m_dateCreate;
    double m_dTax = 0;
    double m_dImposition = 0;
    double m_dPercentImpsition = 0;
    double m_dPercentTax = 0;
    qint32 m_iDocNum = 0;
    qint32 m_iFiscalYear = 0;
    double m_dPercentDiscount = 0;
    double m_dPercentDiscount2 = 0;
    double m_dImposition2 = 0;
    double m_dPercentImposition2 = 0;
    double m_dPercentTax2 = 0;
    double m_dTax2 = 0;
    QString m_sName1;
    QString m_sMobile1;
    QString m_sTel1;
    QString m_sAddress1;
    QString m_sNationalId1;
    QString m_sName2;
    QString m_sMobile2;
    QString m_sTel2;
    QString m_sAddress2;
    QString m_sNationalId2;
    qint32 m_iPersonContract1 = 0;
    qint32 m_iPersonContract2 = 0;
    qint32 m_bReturn = 0;
    QString m_sNoAdvice;
    QString m_sDomainRegister;
    QString m_sLicense;
    QString m_sAutomobilType;
    QString m_sAutomobilName;
    QString m_sSystem;
    QString m_sBrigade;
    QString m_sCapacity;
    QString m_sColor;
    QString m_sFuel;
    QString m_sNumOFAxles;
    QString m_sNumOfWheels;
    QString m_sChassisNum;
    QString m_sNumOfEngines;
    QString m_sNumOfPlates;
    QString m_sVIN;
    QString m_sDocumentsDelivered;
    QString m_sModel;
    QString m_sDengue;
    QString m_sDescMatter;
    double m_dFixAmount = 0;
    double m_dAgreeAmount = 0;
    QString m_sCheckCount;
    QString m_sCheckNum;
    QString m_sBranchName;
    QString m_sBankName;
    QString m_sBranchCode;
    double m_dRemainingAmount = 0;
    QString m_sDescRemainingAmount;
    QString m_sRightTahrir;
    double m_dCostsForBuyer = 0;
    QDateTime m_dateDeal;
    QDateTime m_dateDocument;
    QString m_sCity;
    QString m_sState;
    QString m_sRegistryNum;
    double m_dCompenseAmount = 0;
    QDateTime m_dateOffice;
    double m_dDamageAmount = 0;
    QString m_sBillNumOne;
    QString m_sBillNumTwo;
    QDateTime m_dateTradeUnit;
    double m_dEveryHandDealAmount = 0;
    QString m_sAddressSample;
    QString m_sSampleDescOne;
    QString m_sSampleDescTwo;
    qint32 m_iUserID = 0;
    qint32 m_iArchiveUserID = 0;
    QDateTime m_dateArchive;
    QString m_sNumOfMonths;
    QString m_sNumOfInstallment;
    QString m_sDescCheck;
    QString m_sRentTime;
    QString m_sUsanceNum;
    double m_dAmountRent = 0;
    double m_dDelayAmount = 0;
    QDateTime m_dateRentExpire;
    QDateTime m_dateRent;

    // Record kind of a contract with the suite's services for attached files and custom fields.
    static constexpr int recordKind = 69;

    explicit CTblAutomobilContracts(int database = 0);
    ~CTblAutomobilContracts() override;

    // Deletes the loaded row together with its accounting document, attached files, custom field values and instalments: all of
    // it, or nothing (CMySQLException). A document that is not a contract's, or also another contract's, stays. Throws
    // NoCurrentRow without a loaded row.
    bool Delete() override;
    QString GetTableName() const override;

    // The row as a message names it.
    static QString spokenName() { return QStringLiteral("این قرارداد"); }
    // Columns that count as one field when two desks change the row at once (RowMerge): what the accounting document is made
    // of, with the parties as they are described; the notes; what of the amount is paid how; a province and its city.
    static QList<QStringList> fieldGroups();

    // Whether the document of that number is the contract's alone, so that it goes with it.
    static bool ownsDocument(qint32 key, qint32 docNum, qint32 fiscalYear, int database = 0);

    // What the contract is called by: its number in the registry, or its code while it has none.
    qint32 number() const { return m_iNum != 0 ? m_iNum : m_iCode; }

    // One more than the highest iCode of the table; 1 for an empty one. Read without a lock.
    static qint32 nextCode(int database = 0);
    // That it will be asked behind the next statement that writes (KReadAhead).
    static void expectNextCode(int database = 0);
    // Puts the contract of that code into the archive of that user, or takes it out; both set dateArchive to now.
    // A code that matches nothing changes nothing. Throws CMySQLException.
    static void archive(qint32 code, qint32 userID, int database = 0);
    static void unarchive(qint32 code, int database = 0);

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
