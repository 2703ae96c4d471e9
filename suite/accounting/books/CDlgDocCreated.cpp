// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CDlgDocCreated.h"

#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/frame/KMessageDialog.h"

using namespace Qt::StringLiterals;

QString CDlgDocCreated::text(int docNum, int fiscalYear)
{
    return u"سند حسابداری شماره %1 در سال مالی %2 ثبت شد."_s.arg(docNum).arg(fiscalYear);
}

QString CDlgDocCreated::emptyText(int docNum, int fiscalYear)
{
    return u"ذخیره شد. سند حسابداری شماره %1 در سال مالی %2 ردیفی ندارد و مبلغی در دفاتر ثبت نشد."_s.arg(docNum).arg(fiscalYear);
}

void CDlgDocCreated::Show(int docNum, int fiscalYear, QWidget *parent)
{
    if (docNum > 0)
        g_pDlgMessage->Show(CTblDocuments::hasRows(docNum, fiscalYear) ? text(docNum, fiscalYear) : emptyText(docNum, fiscalYear), parent);
}
