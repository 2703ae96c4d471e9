// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/utility/frame/KDialog.h"

class DocumentRowsPane;

// One accounting document with its rows, for viewing only.
class TZACCOUNTING_EXPORT CDlgShowDocument : public KDialog
{
    Q_OBJECT

public:
    CDlgShowDocument(int num, int fiscalYear, QWidget *parent = nullptr);

    DocumentRowsPane *rows() const { return m_rows; }

    // Shows the document to a user who may read documents; says so when the user may not or there is none.
    static void Show(int num, int fiscalYear, QWidget *parent);

private:
    DocumentRowsPane *m_rows;
};
