// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QString>

class QWidget;

// The file that something printed is written to.
namespace ReportFile {

// The name that it is offered: that of the report and today's date, without what a file's name cannot hold.
TZACCOUNTING_EXPORT QString name(const QString &report, const QString &suffix);
// Asks where to write it, in the folder of the last one; empty when the user gave up. kind: as "فایل PDF".
TZACCOUNTING_EXPORT QString ask(const QString &report, const QString &kind, const QString &suffix, QWidget *parent);
// Says that it is there, and opens its folder if the user wants that.
TZACCOUNTING_EXPORT void tellWritten(const QString &path, QWidget *parent);

}
