// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/books/CDlgShowDocument.h"

#include "suite/accounting/books/CTblDocuments.h"
#include "suite/accounting/books/DocumentKinds.h"
#include "suite/accounting/books/DocumentRowsPane.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

namespace {

bool findDocument(CTblDocuments &document, int num, int fiscalYear)
{
    return num > 0
        && document.IsRecordExist(QStringLiteral("iNum"), num, 0, QStringLiteral(" AND iFiscalYear=%1").arg(fiscalYear));
}

}

CDlgShowDocument::CDlgShowDocument(int num, int fiscalYear, QWidget *parent)
    : KDialog(parent)
    , m_rows(new DocumentRowsPane(QStringLiteral("ShowDocument\\Rows"), this))
{
    setWindowTitle(QStringLiteral("سند حسابداری شماره %1 سال مالی %2").arg(num).arg(fiscalYear));
    SetSettingName(QStringLiteral("ShowDocument"));
    auto *head = new QLabel(this);
    head->setTextFormat(Qt::PlainText);
    head->setWordWrap(true);
    head->setObjectName(QStringLiteral("documentHead"));
    CTblDocuments document;
    if (findDocument(document, num, fiscalYear))
        head->setText(QStringLiteral("تاریخ : %1     نوع : %2     شرح : %3")
                          .arg(shamsiText(document.m_date.date()), DocumentKinds::name(document.m_iKind), document.m_sDesc));
    m_rows->showDocument(num, fiscalYear);
    auto *column = new QVBoxLayout(this);
    column->addWidget(head);
    column->addWidget(m_rows, 1);
    column->addWidget(createButtons(QString(), QStringLiteral("بازگشت")));
    resize(QSize(860, 380));
    m_rows->list()->selectRow(0);
    m_rows->list()->setFocus();
}

void CDlgShowDocument::Show(int num, int fiscalYear, QWidget *parent)
{
    KSecurity security;
    security.SetFormName(QStringLiteral("Documents"));
    if (!security.CheckReadSecurity())
        return;
    CTblDocuments document;
    if (!findDocument(document, num, fiscalYear)) {
        g_pDlgWarning->Show(QStringLiteral("سند حسابداری وجود ندارد."), parent);
        return;
    }
    CDlgShowDocument(num, fiscalYear, parent).exec();
}
