// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/KLiveCount.h"
#include "suite/db/KMySQL.h"

// One row per car of the register. Members carry the names of their columns. Amounts are in the suite's money unit, keys 0
// when nothing is referred to; iAutomobilType is the key of a brand of the catalog, iModel of a model, iBrigade of a class.
class CTblAutomobilInformations : public KMySQL, private KLiveCount<CTblAutomobilInformations>
{
public:
    using KLiveCount<CTblAutomobilInformations>::liveCount;

    explicit CTblAutomobilInformations(int database = 0);
    ~CTblAutomobilInformations() override;
    QString GetTableName() const override;
    // Also deletes the car's attached files and custom-field values; when those cannot be deleted the row goes all the same.
    bool Delete() override;

    // Number under which the suite keeps what belongs to a car: attached files, custom fields.
    static constexpr int recordKind = 68;

    // The highest code so far plus one; read without a lock.
    static qint32 nextCode(int database = 0);
    // By code, not by key.
    static void archive(qint32 code, qint32 userID, int database = 0);
    static void unarchive(qint32 code, int database = 0);

    qint32 m_iID = 0;
    qint32 m_iCode = 0;
    qint32 m_iPersonID = 0;
    qint32 m_iPersonBuyerID = 0;
    QDateTime m_dateCreate;
    QString m_sDesc;
    qint32 m_iAutomobilType = 0;
    qint32 m_iSystem = 0;
    qint32 m_iBrigade = 0;
    QString m_sAddress;
    qint32 m_iModel = 0;
    qint32 m_iCapacity = 0;
    qint32 m_iColor = 0;
    qint32 m_iCountry = 0;
    qint32 m_iFuel = 0;
    qint32 m_iNumOFAxles = 0;
    qint32 m_iNumOfWheels = 0;
    qint32 m_iNumOfCylinders = 0;
    qint32 m_iVolumCylinders = 0;
    QString m_sChassisNum;
    QString m_sNumOfEngines;
    QString m_sNumOfBodies;
    QString m_sNumOfPlates;
    double m_dAmount = 0;
    QString m_sVIN;
    QString m_sInsuranceStatus;
    QString m_sFacilities;
    QString m_sAccessories;
    QString m_sFractionalParts;
    QString m_sDocumentsDelivered;
    QString m_sDocumentsDeficit;
    qint32 m_iUsageType = 0;
    QString m_sDescSpecial;
    QDateTime m_dateIntroduction;
    qint32 m_iSource = 0;
    qint32 m_bSold = 0;
    qint32 m_bDocumentDeficit = 0;
    qint32 m_bFractionalParts = 0;
    QDateTime m_dateBuy;
    double m_dMbayhAutomobilContract = 0;
    double m_dAmountContract = 0;
    double m_dPaidContract = 0;
    double m_dRemainingContract = 0;
    double m_dPaidComission = 0;
    double m_dRemainingComission = 0;
    double m_dAmountCommission = 0;
    QString m_sRegistryNum;
    QString m_sReplacementCenter;
    QDateTime m_dateJawPlate;
    QDateTime m_dateLegalDocument;
    QString m_sNumLegalDocument;
    QDateTime m_datefinalDocument;
    QDateTime m_dateObtainingCopies;
    QDateTime m_dateDelivery;
    double m_dPurchasePriceOfOwner = 0;
    double m_dSoldAmount = 0;
    double m_dAutomobilExpenses = 0;
    double m_dAmountPresence = 0;
    double m_dRemainingPresence = 0;
    double m_dProfitAndLoss = 0;
    QDateTime m_dateClearance;
    qint32 m_iCustomsClearance = 0;
    QString m_sLicense;
    qint32 m_iUserID = 0;
    qint32 m_iStatus = 0;
    QString m_sCountry;
    qint32 m_iArchiveUserID = 0;
    QDateTime m_dateArchive;
    QDateTime m_dateInsurance;
    qint32 m_iMonth = 0;
    qint32 m_iFunction = 0;
    QString m_sNameInsurance;
    QString m_sDiscountYears;
    qint32 m_iBodyStatus = 0;
    KLongBinary m_oPicture;
    qint32 m_iTypeDocument = 0;
    qint32 m_iYear = 0;

protected:
    void DoFieldExchange() override;
};
