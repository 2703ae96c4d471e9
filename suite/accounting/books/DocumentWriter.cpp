// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/DocumentWriter.h"

#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/db/connection/KReadAhead.h"
#include "suite/db/records/KChangeLog.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

QString DocumentWriter::imbalance(const QList<DocumentRow> &rows)
{
    const AccountBalance sum = documentSum(rows);
    if (sum.isBalanced())
        return {};
    return u"سند تراز نیست: بدهکار %1، بستانکار %2."_s.arg(DToMoney(sum.bed), DToMoney(sum.bes));
}

DocumentWriter::DocumentWriter(DocumentContent content, int database)
    : m_content(std::move(content))
    , m_database(database)
{
    if (const QString refusal = imbalance(m_content.rows); !refusal.isEmpty())
        throw KAccountingError(refusal);
}

bool DocumentWriter::add(int kind, int fiscalYear)
{
    const CTblDocuments::Header header = CTblDocuments::addHeader(kind, m_content.date, m_content.description, fiscalYear, m_database);
    m_num = header.num;
    m_header = header.key;
    m_fiscalYear = fiscalYear;
    m_notesRows = kind == Accounts::documentKindManual;
    return m_num != 0;
}

bool DocumentWriter::rewrite(int num, int fiscalYear)
{
    const auto before = CTblDocuments::Rewrite(num, fiscalYear, m_content.date, m_content.description, m_database);
    if (!before)
        return false;
    m_header = before->key;
    m_before = before->rows;
    m_notesRows = true;
    m_num = num;
    m_fiscalYear = fiscalYear;
    return true;
}

void DocumentWriter::writeRows() const
{
    const KReadAhead ahead(m_database);
    CTblDocuments::expectBalanced(m_num, m_fiscalYear, m_database);
    CTblDocs::AddRecords(m_num, m_fiscalYear, m_content.rows, m_database);
    CTblDocuments::RequireBalanced(m_num, m_fiscalYear, m_database);
    noteRows();
}

void DocumentWriter::noteRows() const
{
    if (!m_notesRows)
        return;
    if (const auto changed = CTblDocuments::changedRows(m_before, m_content.rows))
        KChangeLog::note(CTblDocuments(m_database).GetTableName(), m_header, KChange::Kind::Changed, m_database, {*changed});
}
