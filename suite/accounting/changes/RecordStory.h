// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QString>

class QWidget;

// The way from a list to the story of one record, for the floors below the window that shows it.
namespace RecordStory {

struct Window
{
    void (*show)(const QString &table, qint32 key, QWidget *parent) = nullptr;
    // Whether records of the table have a story that the current user may read.
    bool (*isOffered)(const QString &table) = nullptr;
};

// At the start of a program that has the window; without one nobody is offered it.
TZACCOUNTINGDATA_EXPORT void setWindow(const Window &window);
TZACCOUNTINGDATA_EXPORT bool isOffered(const QString &table);
// Nothing for key 0, or where it is not offered.
TZACCOUNTINGDATA_EXPORT void show(const QString &table, qint32 key, QWidget *parent);

// The caption of the command.
TZACCOUNTINGDATA_EXPORT QString caption();

}
