// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KMySQL.h"

// What the record of demands and the source of their list have in common: the members and their bindings. Members carry the
// names of their columns.
class AutomobilDemandColumns : public KMySQL
{
public:
    ~AutomobilDemandColumns() override;
    QString GetTableName() const override;

    qint32 m_iID = 0;
    qint32 m_iCode = 0;
    qint32 m_iPersonID = 0;
    QDateTime m_dateCreate;
    QString m_sAcquaintances;
    qint32 m_iAutomobilType = 0;
    qint32 m_iModelFrom = 0;
    qint32 m_iModelUpTo = 0;
    qint32 m_iColor = 0;
    double m_dAmountFrom = 0;
    double m_dAmountUpTo = 0;
    QString m_sDesc;
    QString m_sDescSpecial;
    QDateTime m_dateReference;
    qint32 m_iFacilities = 0;
    QDateTime m_dateMaxTimeNeed;
    qint32 m_iStatus = 0;
    qint32 m_iUserID = 0;
    qint32 m_iArchiveUserID = 0;
    QDateTime m_dateArchive;

protected:
    // The letter used in the captions: Persian in the record's, Arabic in the list's.
    enum class Yeh {
        Persian,
        Arabic
    };

    explicit AutomobilDemandColumns(int database, Yeh yeh = Yeh::Persian);

    // From iID to iStatus, and iArchiveUserID with dateArchive, of the alias that is set.
    void bindDemand();
    void bindArchive();

private:
    QString spelled(QStringView persian) const;

    Yeh m_yeh;
};
