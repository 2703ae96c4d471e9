// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receipts/VoidingTogether.h"

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/treasury/receiving/ReceiptDetails.h"
#include "suite/treasury/receiving/ReceiptPosting.h"
#include "suite/treasury/records/CTblReceipts.h"

using namespace Qt::StringLiterals;

QString VoidingTogether::numbersText(const QList<int> &receipts)
{
    QStringList texts;
    for (const int number : receipts)
        texts.append(QString::number(number));
    return texts.join(u"، "_s);
}

std::optional<QList<int>> VoidingTogether::ask(int receiptID, QWidget *parent)
{
    QList<int> keys{receiptID};
    const QList<int> others = ReceiptPosting::handedOverWith(receiptID);
    const std::optional<ReceiptDetails> receipt = others.isEmpty() ? std::nullopt : ReceiptDetails::read(receiptID);
    if (!receipt)
        return keys;
    const QString question =
        u"%1 شماره %2 بخشی از مبلغی است که یکجا ثبت شده است؛ بخش‌های دیگر آن : شماره %3.\nآیا همه با هم باطل شوند؟ («خیر»: فقط شماره %2)"_s.arg(
            CTblReceipts::kindName(receipt->kind), QString::number(receipt->number), numbersText(others));
    switch (g_pDlgYesNo->AskOrCancel(question, parent)) {
    case KMessageDialog::Cancel:
        return std::nullopt;
    case KMessageDialog::Yes:
        return keys + others;
    default:
        return keys;
    }
}
