// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/db/records/KMySQL.h"
#include "suite/accounting/TzAccountingDataExport.h"

#include <deque>
#include <optional>

// Texts under names that are edited, merged and shown as the columns of a row are, and are kept elsewhere: settings, the parts of
// an invoice, the cells of a grid. Nothing is read or written through it.
class TZACCOUNTINGDATA_EXPORT CTblValues : public KMySQL
{
public:
    struct Field
    {
        QString name;
        QString caption; // as the user knows it
    };

    // kind and key: what the log of changes knows it by.
    CTblValues(QString kind, const QList<Field> &fields, int database = 0);
    ~CTblValues() override;
    QString GetTableName() const override { return m_kind; }
    void setKey(qint32 key) { m_iID = key; }

    QString text(const QString &name);
    void setText(const QString &name, const QString &text);
    QStringList names();

protected:
    void DoFieldExchange() override;

private:
    struct Entry
    {
        Field field;
        QString text;
    };

    QString m_kind;
    qint32 m_iID = 0;
    std::deque<Entry> m_entries;
};
