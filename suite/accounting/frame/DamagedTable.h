// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QStringList>

class CMySQLException;

// Tables that the server cannot read any more.
class TZACCOUNTINGDATA_EXPORT DamagedTable
{
public:
    // Those that the error may mean: the one that it names, or where it names none, all of its statement. Empty when the error says
    // nothing of a damaged or lost table.
    static QStringList namedBy(const CMySQLException &error);
    // The same of the words of the server's tools, such as "mariadb-dump: Error 1877: Table `tzauto`.`Persons` is corrupted".
    static QStringList namedBy(unsigned int serverCode, const QString &message, const QString &statement);
};
