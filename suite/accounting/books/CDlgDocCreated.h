// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"

#include <QString>

class QWidget;

// The notice that an accounting document was made.
class TZACCOUNTING_EXPORT CDlgDocCreated
{
public:
    // Shows the document's number and year; nothing for number 0. A document without rows is not called posted.
    static void Show(int docNum, int fiscalYear, QWidget *parent = nullptr);
    static QString text(int docNum, int fiscalYear);
    static QString emptyText(int docNum, int fiscalYear);
};
