// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QApplication>

// The program's application object: right to left, one look on every desktop, and an error that leaves a slot or an event
// handler ends at the error boundary instead of ending the program. Where it is unknown whether something was saved, the user is
// asked whether to look again.
class TZACCOUNTING_EXPORT KApplication : public QApplication
{
    Q_OBJECT

public:
    KApplication(int &argc, char **argv);
    ~KApplication() override;
    bool notify(QObject *receiver, QEvent *event) override;
};
