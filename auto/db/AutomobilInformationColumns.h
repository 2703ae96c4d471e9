// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KMySQL.h"

// What the record of cars and the source of their list have in common: the members and their bindings. Members carry the
// names of their columns.
class AutomobilInformationColumns : public KMySQL
{
public:
    ~AutomobilInformationColumns() override;
    QString GetTableName() const override;

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
    qint32 m_iYear = 0;
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
    qint32 m_iBodyStatus = 0;
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

protected:
    explicit AutomobilInformationColumns(int database);

    // Runs of columns, of the alias that is set: iID to sAddress, iCapacity to sVIN, sInsuranceStatus to sLicense, iStatus to
    // dateArchive. The columns between them are each class's own.
    void bindOffer();
    void bindVehicle();
    void bindSale();
    void bindArchive();
};
