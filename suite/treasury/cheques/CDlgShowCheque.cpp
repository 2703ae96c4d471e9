// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cheques/CDlgShowCheque.h"

#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/db/records/KLookup.h"
#include "suite/treasury/cheques/CDlgChequeHistory.h"
#include "suite/treasury/records/CTblCheques.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/treasury/cheques/ChequeChanging.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

CDlgShowCheque::CDlgShowCheque(const CTblCheques &cheque, QWidget *parent)
    : KDialog(parent)
{
    setWindowTitle(u"نمایش چک"_s);
    SetSettingName(u"ShowCheque"_s);
    auto *page = new CardPage(720, this);
    fillFields(page->addForm(), cheque);
    setContent(page, createButtons(QString(), u"بازگشت"_s));
    QPushButton *history = addButton(footer(), u"گردش چک"_s, u":/icons/document.svg"_s);
    connect(history, &QPushButton::clicked, this, [this, key = cheque.m_iID] { CDlgChequeHistory::Show(key, this); });
    HistoryButton::addTo(this, footer(), cheque.GetTableName(), cheque.m_iID);
}

void CDlgShowCheque::Show(int chequeID, QWidget *parent)
{
    KSecurity security;
    security.SetFormName(ChequeChanging::rightsForm());
    if (!security.CheckReadSecurity())
        return;
    CTblCheques cheque;
    if (cheque.IsRecordExist(u"iID"_s, chequeID))
        CDlgShowCheque(cheque, parent).exec();
    else
        g_pDlgWarning->Show(u"این چک دیگر وجود ندارد."_s, parent);
}

void CDlgShowCheque::fillFields(FormGrid *grid, const CTblCheques &cheque)
{
    struct Field
    {
        QString label;
        QString text;
        int span = 1;
        bool isCode = false;
    };
    const bool given = cheque.m_iKind == CTblReceipts::paid;
    const auto personOf = [&](const char *column, int key) { return KLookup::name<CTblCheques>(QString::fromLatin1(column), key); };
    const Field fields[] = {
        {u"نوع :"_s, given ? u"پرداختی"_s : u"دریافتی"_s},
        {u"وضعیت :"_s, ChequeStates::name(static_cast<ChequeState>(cheque.m_iState), given)},
        {u"شناسه صیادی :"_s, cheque.m_sSayad, 2, true},
        {u"شماره چک :"_s, cheque.m_sNumber, 1, true},
        {u"سررسید :"_s, shamsiText(cheque.m_dateDue.date()), 1, true},
        {u"مبلغ :"_s, u"%1 %2"_s.arg(DToMoney(cheque.m_dAmount), OfficeSettings::read().moneyUnitName()), 2},
        {u"بانک :"_s, cheque.m_sBank},
        {u"شعبه :"_s, cheque.m_sBranch},
        {u"کد شعبه :"_s, cheque.m_sBranchCode, 1, true},
        {u"صادرکننده :"_s, cheque.m_sDrawer},
        {given ? u"به :"_s : u"از :"_s, personOf("iPersonID", cheque.m_iPersonID), 2},
        {u"خرج شده به :"_s, personOf("iEndorsedID", cheque.m_iEndorsedID)},
        {u"حساب :"_s, personOf("iAccount", cheque.m_iAccount)},
        {u"بابت :"_s, cheque.m_sFor.isEmpty() ? u"علی‌الحساب"_s : cheque.m_sFor, 4},
        {u"شرح :"_s, cheque.m_sDesc, 4},
    };
    for (const Field &field : fields) {
        auto *line = new KEdit(field.isCode ? KEdit::Kind::Code : KEdit::Kind::Text);
        line->setReadOnly(true);
        line->setText(field.text);
        line->setCursorPosition(0);
        addLabelled(grid, field.label, line, field.span);
    }
}
