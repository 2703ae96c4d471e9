// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/TzCRMDataExport.h"
#include "suite/db/records/KLiveCount.h"
#include "suite/db/records/KMySQL.h"

#include <QList>

// The office's own texts of messages, several of each kind (MessageKinds), which every desk uses.
class TZCRMDATA_EXPORT CTblMessageTexts : public KMySQL, private KLiveCount<CTblMessageTexts>
{
public:
    using KLiveCount<CTblMessageTexts>::liveCount;

    static constexpr int longestName = 60;
    static constexpr int longestText = 1000; // characters

    struct Entry
    {
        qint32 key = 0; // 0: the text that came along
        QString name;
        QString text;
    };

    explicit CTblMessageTexts(int database = 0);
    ~CTblMessageTexts() override;
    QString GetTableName() const override;

    // What a message of the kind may say: the office's own by their names, and behind them the one that came along. Throws CMySQLException.
    static QList<Entry> entries(const QString &kind, int database = 0);
    static QString suppliedName();

    // For who saves a text (RowEdit). Throws FieldRefused for a kind that is not chosen, a name that is empty or another text of the kind
    // has got, and for a text that is empty, too long or names a field that the kind does not have.
    void settle(qint32 key) const;

    qint32 m_iID = 0;
    QString m_sKind;
    QString m_sName;
    QString m_sText;
    qint32 m_iUserID = 0;
    QDateTime m_dateCreate;

protected:
    void DoFieldExchange() override;
    bool isLogged() const override { return true; }

private:
    void requireText() const;
};
