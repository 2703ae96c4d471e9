// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CDlgShowDocument.h"

#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentKinds.h"
#include "suite/accounting/books/DocumentPaper.h"
#include "suite/accounting/books/DocumentRowsPane.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

bool findDocument(CTblDocuments &document, int num, int fiscalYear)
{
    return num > 0
        && document.IsRecordExist(u"iNum"_s, num, 0, KSql::formatted(" AND iFiscalYear=%1", fiscalYear));
}

}

CDlgShowDocument::CDlgShowDocument(int num, int fiscalYear, QWidget *parent)
    : KDialog(parent)
    , m_rows(new DocumentRowsPane(u"ShowDocument\\Rows"_s, this))
{
    setWindowTitle(u"سند حسابداری شماره %1 سال مالی %2"_s.arg(num).arg(fiscalYear));
    SetSettingName(u"ShowDocument"_s);
    auto *head = new QLabel(this);
    head->setTextFormat(Qt::PlainText);
    head->setWordWrap(true);
    head->setObjectName(u"documentHead"_s);
    CTblDocuments document;
    if (findDocument(document, num, fiscalYear))
        head->setText(u"تاریخ : %1     نوع : %2     شرح : %3"_s
                          .arg(shamsiText(document.m_date.date()), DocumentKinds::name(document.m_iKind), document.m_sDesc));
    m_rows->showDocument(num, fiscalYear);
    auto *page = new CardPage(860, this);
    page->cards()->addCard(head);
    page->cards()->addCard(m_rows, true);
    setContent(page, createButtons(QString(), u"بازگشت"_s), Content::Fills);
    QPushButton *print = addButton(footer(), u"چاپ سند"_s, u":/icons/print.svg"_s);
    print->setShortcut(QKeySequence::Print);
    connect(print, &QPushButton::clicked, this, [this, num, fiscalYear] { KErrorBoundary::guarded(this, [&] { DocumentPaper::show(num, fiscalYear, this); }); });
    HistoryButton::addTo(this, footer(), document.GetTableName(), document.m_iID);
    resize(LookSizes::scaled(860), LookSizes::scaled(420));
    m_rows->list()->selectRow(0);
    m_rows->list()->setFocus();
}

void CDlgShowDocument::Show(int num, int fiscalYear, QWidget *parent)
{
    KSecurity security;
    security.SetFormName(u"Documents"_s);
    if (!security.CheckReadSecurity())
        return;
    CTblDocuments document;
    if (!findDocument(document, num, fiscalYear)) {
        g_pDlgWarning->Show(u"سند حسابداری وجود ندارد."_s, parent);
        return;
    }
    CDlgShowDocument(num, fiscalYear, parent).exec();
}
