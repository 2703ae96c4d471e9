// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/BookWindows.h"

#include "host/books/CDlgAddDocument.h"
#include "host/books/CDlgAddFactor.h"
#include "host/books/CDlgDocuments.h"
#include "host/books/CDlgFactors.h"
#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/invoices/CTblFactors.h"
#include "suite/accounting/invoices/InvoicePaper.h"
#include "suite/accounting/invoices/InvoicePosting.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/records/RecordWindows.h"

using namespace Qt::StringLiterals;

namespace {

template <class Page>
void showBookList(const KListRequest &request)
{
    auto *page = new Page;
    page->setRequest(request);
    GetDBSetting()->AddDialogToTabPage_(page, 1, 0);
}

void openDocument(qint32 key, bool edits, QWidget *parent)
{
    CTblDocuments document;
    if (!document.IsRecordExist(u"iID"_s, key))
        return;
    const QString refusal = edits ? ManualDocument::changeRefusal(document.m_iNum, document.m_iFiscalYear) : QString();
    if (!refusal.isEmpty())
        g_pDlgWarning->Show(refusal, parent);
    else if (edits)
        CDlgAddDocument(ManualDocument::load(document.m_iNum, document.m_iFiscalYear), parent).exec();
    else
        CDlgShowDocument::Show(document.m_iNum, document.m_iFiscalYear, parent);
}

void openInvoice(qint32 key, bool edits, QWidget *parent)
{
    const Invoice invoice = InvoicePosting::load(key);
    const QString refusal = edits ? InvoicePosting::changeRefusal(key) : QString();
    if (!refusal.isEmpty())
        g_pDlgWarning->Show(refusal, parent);
    else if (invoice.num != 0)
        CDlgAddFactor(invoice, !edits, parent).exec();
}

void showInvoiceDocument(qint32 key, QWidget *parent)
{
    CTblFactors invoice;
    if (invoice.IsRecordExist(u"iID"_s, key))
        CDlgShowDocument::Show(invoice.m_iDocNum, invoice.m_iFiscalYear, parent);
}

void showInvoiceStatement(qint32 key, QWidget *parent)
{
    CTblFactors invoice;
    if (invoice.IsRecordExist(u"iID"_s, key))
        CDlgAccountDocs::ShowPerson(invoice.m_iPersonID, parent);
}

}

void BookWindows::enter()
{
    RecordWindows::enter({.table = u"Documents"_s,
                          .form = u"Documents"_s,
                          .icon = u":/icons/document.svg"_s,
                          .open = &openDocument,
                          .list = &showBookList<CDlgDocuments>});
    RecordWindows::enter({.table = u"Factors"_s,
                          .form = u"Factors"_s,
                          .icon = u":/icons/receipt.svg"_s,
                          .open = &openInvoice,
                          .list = &showBookList<CDlgFactors>,
                          .actions = {{.id = u"print"_s, .text = u"چاپ فاکتور"_s, .icon = u":/icons/print.svg"_s, .form = u"Factors"_s, .right = KSecurity::PrintList, .run = &InvoicePaper::show},
                                      {.id = u"document"_s, .text = u"نمایش سند"_s, .icon = u":/icons/document.svg"_s, .form = u"Documents"_s, .run = &showInvoiceDocument},
                                      {.id = u"statement"_s, .text = u"صورتحساب"_s, .icon = u":/icons/table.svg"_s, .form = u"Documents"_s, .run = &showInvoiceStatement}}});
}
