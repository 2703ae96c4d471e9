// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/reports/ReportProgress.h"
#include "suite/accounting/TzAccountingExport.h"

#include <QElapsedTimer>
#include <QProgressDialog>

// Shows the progress of a report, with a way to stop it, once it takes longer than a second.
class TZACCOUNTING_EXPORT ReportProgressWindow
{
public:
    ReportProgressWindow(const QString &text, QWidget *parent, int minimumMilliseconds = 1000);

    // To be passed to the work; valid as long as this object.
    ReportProgress callback();

private:
    bool report(int done, int total);

    QProgressDialog m_dialog;
    QElapsedTimer m_last;
};
