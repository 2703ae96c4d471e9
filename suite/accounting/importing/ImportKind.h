// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"
#include "suite/accounting/imported/ImportedKind.h"
#include "suite/accounting/importing/ImportField.h"

#include <memory>

// One look at the database, for the dry run, or for the unit that writes: what rows are compared with is read once, not for each row.
class TZACCOUNTINGDATA_EXPORT ImportRun
{
public:
    virtual ~ImportRun();

    // Adds what is wrong with the row and its twin, and completes its values: names become keys. In the order of the file.
    virtual void check(ImportRow &row) = 0;
    // Once all are checked: what is wrong with the file as a whole; empty: nothing.
    virtual QString fileProblem(const QList<ImportRow> &rows);
    // What the user is asked before such a file is taken; empty: nothing.
    virtual QString question();
    // Writes a checked row, within the caller's transaction. Throws CMySQLException. Returns the key of its record; 0: finish() makes it.
    virtual qint32 write(const ImportRow &row) = 0;
    // Behind the last row: one record of all of them. Returns its key; 0: there is none.
    virtual qint32 finish() { return 0; }

    // Before the first write: where the codes of the rows begin that bring none of their own.
    void drawCodesFrom(qint32 first) { m_nextCode = first; }
    // Whether the row's record gets the code that the file says. One that another has gives way.
    static bool keepsCode(const ImportRow &row);

protected:
    qint32 drawCode() { return m_nextCode++; }

private:
    qint32 m_nextCode = 0;
};

// A kind of record that files are imported of. The twins of its rows are records of its table.
class TZACCOUNTINGDATA_EXPORT ImportKind : public ImportedKind
{
public:
    ~ImportKind() override;

    virtual QList<ImportField> fields() const = 0;
    // The code that the next record gets; 0: they have none. Codes are those of table(), and drawn under its NamedLock.
    virtual qint32 nextCode(int database) const;
    // Throws CMySQLException.
    virtual std::unique_ptr<ImportRun> begin(int database) const = 0;
};

// The kinds that the parts of the program have entered.
namespace ImportKinds {

// Replaces one of the same id.
TZACCOUNTINGDATA_EXPORT void enter(std::unique_ptr<ImportKind> kind);
TZACCOUNTINGDATA_EXPORT void remove(const QString &id);
// Null when there is none.
TZACCOUNTINGDATA_EXPORT const ImportKind *of(const QString &id);

}
