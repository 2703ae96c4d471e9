// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/ReceiptDetails.h"

#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/db/records/KLookup.h"
#include "suite/treasury/records/CTblCheques.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

using namespace Qt::StringLiterals;

namespace {

QString userName(int id, int database)
{
    return id > 0 ? CTblUsers::GetName(id, database) : QString();
}

void readCheque(ReceiptDetails &details, int database)
{
    CTblCheques cheque(database);
    if (details.chequeID == 0 || !cheque.IsRecordExist(u"iID"_s, details.chequeID))
        return;
    details.cheque = Cheque{.sayad = cheque.m_sSayad,
                            .number = cheque.m_sNumber,
                            .bank = cheque.m_sBank,
                            .branch = cheque.m_sBranch,
                            .branchCode = cheque.m_sBranchCode,
                            .due = cheque.m_dateDue,
                            .drawer = cheque.m_sDrawer};
    details.chequeAmount = cheque.m_dAmount;
}

QString chequeText(const ReceiptDetails &details)
{
    const Cheque &cheque = *details.cheque;
    QStringList parts{u"چک صیادی %1"_s.arg(cheque.sayad)};
    const auto add = [&parts](const QString &pattern, const QString &value) {
        if (!value.isEmpty())
            parts.append(pattern.arg(value));
    };
    add(u"شماره %1"_s, cheque.number);
    add(cheque.bank.startsWith(u"بانک "_s) ? u"%1"_s : u"بانک %1"_s, cheque.bank);
    add(u"شعبه %1"_s, cheque.branch);
    add(u"کد شعبه %1"_s, cheque.branchCode);
    add(u"سررسید %1"_s, shamsiText(cheque.due.date()));
    add(u"صادرکننده %1"_s, cheque.drawer);
    if (!IsEquals(details.chequeAmount, details.amount))
        add(u"به مبلغ %1"_s, DToMoney(details.chequeAmount));
    return parts.join(u"، "_s);
}

}

std::optional<ReceiptDetails> ReceiptDetails::read(int receiptID, int database)
{
    CTblReceipts receipt(database);
    if (!receipt.IsRecordExist(u"iID"_s, receiptID))
        return {};
    ReceiptDetails details;
    details.number = receipt.m_iID;
    details.kind = receipt.m_iKind;
    details.method = receipt.m_iMethod;
    details.status = receipt.m_iStatus;
    details.personID = receipt.m_iPersonID;
    details.person = KLookup::name(receipt, u"iPersonID");
    details.date = receipt.m_date;
    details.amount = receipt.m_dAmount;
    details.account = receipt.m_iAccount > 0 ? AccountChart::nameOf(receipt.m_iAccount, database) : QString();
    details.chequeID = receipt.m_iChequeID;
    details.purpose = receipt.m_sFor.isEmpty() ? u"علی‌الحساب"_s : receipt.m_sFor;
    details.desc = receipt.m_sDesc;
    details.docNum = receipt.m_iDocNum;
    details.fiscalYear = receipt.m_iFiscalYear;
    details.user = userName(receipt.m_iUserID, database);
    details.created = receipt.m_dateCreate;
    details.voidUser = userName(receipt.m_iVoidUserID, database);
    details.voidDate = receipt.m_dateVoid;
    details.voidReason = receipt.m_sVoidReason;
    details.voidDocNum = receipt.m_iVoidDocNum;
    details.voidFiscalYear = receipt.m_iVoidFiscalYear;
    readCheque(details, database);
    return details;
}

QString ReceiptDetails::methodText() const
{
    if (cheque)
        return chequeText(*this);
    const QString name = method == CTblReceipts::unknown ? QString() : CTblReceipts::methodName(method);
    if (name.isEmpty() || account.isEmpty())
        return name + account;
    return u"%1، %2"_s.arg(name, account);
}

QString ReceiptDetails::voidText() const
{
    if (!isVoid())
        return {};
    return u"کاربر «%1» در %2 ساعت %3: %4"_s.arg(voidUser, shamsiText(voidDate.date()), voidDate.toString(u"HH:mm"_s), voidReason);
}
