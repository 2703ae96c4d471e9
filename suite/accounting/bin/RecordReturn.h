// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/bin/RecordParts.h"

#include <QDateTime>
#include <QHash>
#include <QStringList>

#include <functional>
#include <optional>
#include <utility>

class RecordPackage;

// Brings one record back with all that belongs to it, within a transaction: under the old keys and the old code where those are free,
// else under new ones. Its document gets a number of its own. What could not come back as it was is said.
class TZACCOUNTINGDATA_EXPORT RecordReturn
{
public:
    // Brings a missing row, which another one refers to, back from where the record comes from too, and returns its key now; nothing
    // where it is not there either.
    using Fetch = std::function<std::optional<qint32>(const QString &table, qint32 key)>;

    enum class Document {
        Own,    // comes back too
        LeftOut // of a record that is there twice then: money counts once
    };

    // Whether the row that is there under that key is the one that is referred to. A key may have been given again since a backup was taken.
    using IsMeant = std::function<bool(const QString &table, qint32 key)>;

    // deleted: when the record went; invalid: that is not known. isMeant: none where a key means one row for ever; with one, keys of what
    // is in the bin are taken.
    RecordReturn(const RecordPackage &package, const QDateTime &deleted, int database, Fetch fetch, Document document = Document::Own, IsMeant isMeant = {});

    // Returns the key of the record now. Throws KAccountingError, with a sentence on what stands in the way, and CMySQLException; the
    // transaction is not to be committed then.
    qint32 run();

    // One sentence each; empty: everything is as it was.
    QStringList notes() const { return m_notes; }

private:
    void settleCode(KWholeRow &own);
    // False: the row does not come back.
    bool follow(KWholeRow &row, const QList<RecordReference> &references);
    bool isThere(const QString &table, qint32 key) const;
    bool resolve(KWholeRow &row, const RecordReference &reference, qint32 key);
    void findTakenKeys();
    void drawDocument(KWholeRow &own);
    qint32 yearOf(const KWholeRow &document) const;
    void insert(const KWholeRow &row);
    void insertParts();
    void pointToParts(const KWholeRow &own);
    void note(const KWholeRow &own);
    const QList<RecordReference> &referencesOf(const QString &table) const;

    const RecordPackage &m_package;
    QDateTime m_deleted;
    int m_database;
    Fetch m_fetch;
    Document m_whichDocument;
    IsMeant m_isMeant;
    const RecordParts *m_parts;
    QHash<QString, QList<qint32>> m_taken;
    QHash<std::pair<QString, qint32>, qint32> m_keys; // of the rows that are back
    qint32 m_oldCode = 0;                             // where it became another
    qint32 m_newCode = 0;
    std::optional<KWholeRow> m_document;
    QStringList m_notes;
};
