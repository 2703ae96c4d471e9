// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"
#include "suite/crm/TzCRMDataExport.h"

// Everybody the office deals with: people and companies.
class TZCRMDATA_EXPORT CTblPersons : public KMySQL, private KLiveCount<CTblPersons>
{
public:
    using KLiveCount<CTblPersons>::liveCount;

    // Values of iKind. The first two are natural persons; every other value is a legal one.
    static constexpr int kindNatural = 0;
    static constexpr int kindForeigner = 1;
    static constexpr int kindLegal = 2;
    // Values of iSex.
    static constexpr int sexMan = 0;
    static constexpr int sexWoman = 1;
    // Values of iStatus.
    static constexpr int statusActive = 0;
    static constexpr int statusInactive = 1;

    explicit CTblPersons(int database = 0);
    ~CTblPersons() override;
    QString GetTableName() const override;

    // A new person is a natural one until something else is set.
    void AddNew() override;
    // Writes as the base does, after bringing every text to its standard form and composing sName2, so that what is found
    // and printed later does not depend on the keyboard it was typed with. A set that fetches only some columns must
    // have both sName and sFamily among them when it writes one of them.
    bool Update(bool bThrow) override;

    // One more than the highest code; 1 in an empty table.
    static int nextCode(int database = 0);
    // "name family", one of them alone when the other is empty.
    static QString displayName(const QString &name, const QString &family);
    // Key of another person with this code; 0 when there is none.
    static int findByCode(int code, int exceptID, int database = 0);
    // Key of another person with this national code (compared in standard form); 0 when there is none or the code is empty.
    static int findByNationalCode(const QString &code, int exceptID, int database = 0);

    bool isNatural() const { return m_iKind == kindNatural || m_iKind == kindForeigner; }

    qint32 m_iID = 0;
    qint32 m_iCode = 0; // the number that users know the person by
    QString m_sName;    // first name; of a legal person the whole name
    QString m_sFamily;
    QString m_sName2; // the name that lists and contracts show
    qint32 m_iSex = sexMan;
    QString m_sFatherName;
    QDateTime m_dateBirth; // of a legal person the day of its foundation
    QString m_sBirthCity;
    QString m_sIdentityNum; // birth certificate; of a legal person the registration
    QString m_sIdentityCity;
    QString m_sNationalCode;
    QString m_sEconomicCode;
    QString m_sPostalCode;
    QString m_sAreaCode; // of the telephone
    QString m_sTel;
    QString m_sMobile;
    QString m_sAddress;
    qint32 m_iKind = kindNatural;
    qint32 m_bNatural = 1; // kept in step with iKind by the editor
    qint32 m_iTaxKind = 0; // 5 to 8 for the seasonal report; 0 not stated
    qint32 m_iTaxZone = 0;
    qint32 m_iProvinceCode = 0;
    qint32 m_iCityCode = 0;
    double m_dPercentDiscount = 0; // 0 to 100, proposed in the person's contracts
    qint32 m_iStatus = statusActive;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }

private:
    void standardize();
};
