// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receipts/CDlgShowReceipt.h"

#include "suite/accounting/books/CDlgShowDocument.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/treasury/receiving/ReceiptPaper.h"
#include "suite/treasury/cheques/CDlgShowCheque.h"
#include "suite/utility/entries/AmountWords.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

QString momentText(const QDateTime &when)
{
    return when.isValid() ? u"%1 ساعت %2"_s.arg(shamsiText(when.date()), when.toString(u"HH:mm"_s)) : QString();
}

QString documentText(int num, int fiscalYear)
{
    return num > 0 ? u"%1 (سال مالی %2)"_s.arg(num).arg(fiscalYear) : QString();
}

}

CDlgShowReceipt::CDlgShowReceipt(const ReceiptDetails &receipt, QWidget *parent)
    : KDialog(parent)
    , m_receipt(receipt)
{
    setWindowTitle(u"%1 شماره %2"_s.arg(CTblReceipts::kindName(receipt.kind)).arg(receipt.number));
    SetSettingName(u"ShowReceipt"_s);
    auto *page = new CardPage(680, this);
    addMain(*page);
    if (receipt.cheque)
        addCheque(*page);
    if (receipt.isVoid())
        addVoiding(*page);
    setContent(page, createButtons(QString(), u"بازگشت"_s));
    addCommands();
    HistoryButton::addTo(this, footer(), CTblReceipts().GetTableName(), receipt.number);
}

void CDlgShowReceipt::Show(int receiptID, QWidget *parent)
{
    KSecurity security;
    security.SetFormName(u"Receipts"_s);
    if (!security.CheckReadSecurity())
        return;
    const std::optional<ReceiptDetails> receipt = ReceiptDetails::read(receiptID);
    if (!receipt) {
        g_pDlgWarning->Show(u"این رسید دیگر وجود ندارد."_s, parent);
        return;
    }
    CDlgShowReceipt(*receipt, parent).exec();
}

void CDlgShowReceipt::addText(FormGrid *grid, const QString &label, const QString &text, int span)
{
    auto *edit = new KEdit(this);
    edit->setReadOnly(true);
    edit->setText(text);
    edit->setCursorPosition(0);
    addLabelled(grid, label, edit, span);
}

void CDlgShowReceipt::addMain(CardPage &page)
{
    const QString unit = OfficeSettings::read().moneyUnitName();
    FormGrid *grid = page.addForm();
    addText(grid, u"شماره :"_s, QString::number(m_receipt.number));
    addText(grid, u"نوع :"_s, CTblReceipts::kindName(m_receipt.kind));
    addText(grid, u"تاریخ :"_s, shamsiText(m_receipt.date.date()));
    addText(grid, u"وضعیت :"_s, CTblReceipts::statusName(m_receipt.status));
    addText(grid, u"شخص :"_s, m_receipt.person, 2);
    addText(grid, u"مبلغ :"_s, u"%1 %2"_s.arg(DToMoney(m_receipt.amount), unit), 2);
    auto *words = new AmountWords(this);
    words->showAmount(m_receipt.amount, unit);
    grid->addLine(words);
    addText(grid, u"روش :"_s, CTblReceipts::methodName(m_receipt.method));
    addText(grid, u"حساب :"_s, m_receipt.account);
    addText(grid, u"بابت :"_s, m_receipt.purpose, 2);
    addText(grid, u"شرح :"_s, m_receipt.desc, 4);
    addText(grid, u"سند حسابداری :"_s, documentText(m_receipt.docNum, m_receipt.fiscalYear));
    addText(grid, u"کاربر :"_s, m_receipt.user);
    addText(grid, u"زمان ثبت :"_s, momentText(m_receipt.created), 2);
}

void CDlgShowReceipt::addCheque(CardPage &page)
{
    const Cheque &cheque = *m_receipt.cheque;
    FormGrid *grid = page.addForm(u"مشخصات چک"_s);
    addText(grid, u"شناسه صیادی :"_s, cheque.sayad, 2);
    addText(grid, u"شماره چک :"_s, cheque.number);
    addText(grid, u"سررسید :"_s, shamsiText(cheque.due.date()));
    addText(grid, u"بانک :"_s, cheque.bank, 2);
    addText(grid, u"شعبه :"_s, cheque.branch);
    addText(grid, u"کد شعبه :"_s, cheque.branchCode);
    addText(grid, u"صادرکننده :"_s, cheque.drawer, 2);
    addText(grid, u"مبلغ چک :"_s, DToMoney(m_receipt.chequeAmount), 2);
}

void CDlgShowReceipt::addVoiding(CardPage &page)
{
    FormGrid *grid = page.addForm(u"ابطال"_s);
    addText(grid, u"باطل‌کننده :"_s, m_receipt.voidUser);
    addText(grid, u"تاریخ ابطال :"_s, momentText(m_receipt.voidDate), 2);
    addText(grid, u"سند ابطال :"_s, documentText(m_receipt.voidDocNum, m_receipt.voidFiscalYear));
    addText(grid, u"دلیل :"_s, m_receipt.voidReason, 4);
}

void CDlgShowReceipt::addCommands()
{
    const auto add = [this](const QString &caption, const QString &icon, const std::function<void()> &run) {
        QPushButton *button = addButton(footer(), caption, icon);
        connect(button, &QPushButton::clicked, this, [this, run] { KErrorBoundary::guarded(this, run); });
        return button;
    };
    add(u"چاپ رسید"_s, u":/icons/print.svg"_s, [this] { ReceiptPaper::show({m_receipt.number}, this); })->setShortcut(QKeySequence::Print);
    add(u"نمایش سند"_s, u":/icons/document.svg"_s, [this] { CDlgShowDocument::Show(m_receipt.docNum, m_receipt.fiscalYear, this); });
    if (m_receipt.chequeID != 0)
        add(u"نمایش چک"_s, u":/icons/show.svg"_s, [this] { CDlgShowCheque::Show(m_receipt.chequeID, this); });
}
