// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

class QWidget;

// The way from a list or an editor to the history of one record, for the floors below the window that shows it.
namespace RecordHistory {

using Show = void (*)(const QString &table, qint32 key, QWidget *parent);

// At the start of a program that has the window; null: there is none, and nobody is offered it.
TZACCOUNTINGDATA_EXPORT void setWindow(Show show);
// Whether records of the table have a history that the current user may read.
TZACCOUNTINGDATA_EXPORT bool isOffered(const QString &table);
// Whether the name is that of a section of the settings, which has one history under the key 0.
TZACCOUNTINGDATA_EXPORT bool isOfSettings(const QString &table);
// Shows it in a modal window. Nothing for key 0 of a record, or where it is not offered.
TZACCOUNTINGDATA_EXPORT void show(const QString &table, qint32 key, QWidget *parent);

// The caption of the command.
TZACCOUNTINGDATA_EXPORT QString caption();

}
