// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/reports/season/SeasonalExport.h"

class QWidget;

// The export as the user sees it: missing parts are reported, a folder is chosen, progress is shown with a way to stop,
// and in the end the folder is opened. True when a file was written. What no dialog of these steps reports (no Java, a
// full disk) is thrown: KAccountingError, CMySQLException.
bool exportSeasonWithDialogs(QWidget *parent, const SeasonalExport::Report &report, const QString &moduleFolder = {});
