// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/books/AccountLedger.h"
#include "suite/accounting/books/DocumentRows.h"
#include "suite/accounting/papers/PaperSheet.h"

#include <optional>

// A document, and a person's statement, as paper.
namespace DocumentSheet {

struct Source
{
    int num = 0;
    int fiscalYear = 0;
    QDateTime date;
    QString kind;
    QString desc;
    QString user;
    bool isVoid = false;
    QList<DocumentRows::Named> rows;
    QString moneyUnit;
};

TZACCOUNTINGDATA_EXPORT PaperSheet of(const Source &source);
// Nothing for a document that is gone.
TZACCOUNTINGDATA_EXPORT std::optional<PaperSheet> read(int num, int fiscalYear, int database = 0);

// from, to: the range of the sheet; an invalid end is open. day: when it is handed out.
TZACCOUNTINGDATA_EXPORT PaperSheet statement(const AccountLedger::Person &person, const AccountLedger::Sheet &ledger, const QDate &from,
                                             const QDate &to, const QDate &day, const QString &moneyUnit);

}
