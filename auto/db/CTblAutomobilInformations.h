// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/db/AutomobilInformationColumns.h"
#include "suite/db/records/KLiveCount.h"

// One row per car of the register. Members carry the names of their columns. Amounts are in the suite's money unit, keys 0
// when nothing is referred to; iAutomobilType is the key of a brand of the catalog, iModel of a model, iBrigade of a class.
class CTblAutomobilInformations : public AutomobilInformationColumns, private KLiveCount<CTblAutomobilInformations>
{
public:
    using KLiveCount<CTblAutomobilInformations>::liveCount;

    explicit CTblAutomobilInformations(int database = 0);
    ~CTblAutomobilInformations() override;
    // Also deletes the car's attached files, custom-field values, further pictures and tick for the web; when those cannot be deleted, the row still is.
    bool Delete() override;

    // Number under which the suite keeps what belongs to a car: attached files, custom fields.
    static constexpr int recordKind = 68;

    // The row as a message names it.
    static QString spokenName() { return QStringLiteral("این خودرو"); }
    // Columns that count as one field when two desks change the row at once (RowMerge): owner and buyer, who may not be the same
    // person, with whether it is sold; the place in the catalog; the amounts of the contract, of the commission and of the
    // profit, each of which is said of the others.
    static QList<QStringList> fieldGroups();

    // The highest code so far plus one; read without a lock.
    static qint32 nextCode(int database = 0);
    // That it will be asked behind the next statement that writes (KReadAhead).
    static void expectNextCode(int database = 0);
    // By code, not by key.
    static void archive(qint32 code, qint32 userID, int database = 0);
    static void unarchive(qint32 code, int database = 0);

    qint32 m_iModel = 0;
    QDateTime m_dateInsurance;
    qint32 m_iMonth = 0;
    qint32 m_iFunction = 0;
    QString m_sNameInsurance;
    QString m_sDiscountYears;
    KLongBinary m_oPicture;
    qint32 m_iTypeDocument = 0;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }
};
