// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/faults/desk/DeskMoney.h"

#include "auto/contracts/instalments/InstalmentReceiving.h"
#include "auto/contracts/instalments/StoredInstalments.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/treasury/cheques/ChequeChanging.h"
#include "suite/treasury/receiving/ReceiptPosting.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

using Then = Desk::Then;
using Words = Desk::Words;

Then answerWith(Desk &desk, const std::function<QJsonValue()> &work)
{
    try {
        desk.setValue(work());
    } catch (const KAccountingError &error) {
        desk.setValue(error.userMessage());
    }
    return Then::AnswerDone;
}

QDateTime today()
{
    return QDateTime(GetDBSetting()->GetDBServerDate().date(), QTime(0, 0), Qt::UTC);
}

double amountOf(const Words &words, int position)
{
    return Desk::number(words, position);
}

CTblAutomobilContracts &load(CTblAutomobilContracts &contract, int key)
{
    if (!contract.IsRecordExist(u"iID"_s, key))
        throw KAccountingError(u"no such contract"_s);
    return contract;
}

QJsonArray keysOf(const QList<ReceiptPosting::Posted> &posted)
{
    QJsonArray keys;
    for (const ReceiptPosting::Posted &one : posted)
        keys.append(one.receiptID);
    if (!posted.isEmpty() && posted.constFirst().chequeID != 0)
        keys.append(posted.constFirst().chequeID);
    return keys;
}

}

Then DeskMoney::plan(Desk &desk, const Words &words)
{
    return answerWith(desk, [&]() -> QJsonValue {
        CTblAutomobilContracts contract;
        load(contract, Desk::number(words, 1));
        InstalmentTerms terms;
        terms.count = Desk::number(words, 3);
        terms.principal = amountOf(words, 4);
        terms.interval = 1;
        terms.start = today().date();
        StoredInstalments::save({contract.m_iID, contract.m_iCode, Desk::number(words, 2)}, {}, terms, instalmentPlan(terms));
        QJsonArray keys;
        for (const StoredInstalments::Row &row : StoredInstalments::load(contract.m_iID))
            keys.append(row.id);
        return keys;
    });
}

Then DeskMoney::pay(Desk &desk, const Words &words)
{
    constexpr int firstPayment = 5;
    return answerWith(desk, [&]() -> QJsonValue {
        ReceiptPosting::Handover handover{.personID = Desk::number(words, 2), .date = today(), .account = Accounts::cash};
        if (const QString sayad = words.value(4); !sayad.isEmpty()) {
            handover.method = CTblReceipts::cheque;
            handover.cheque = Cheque{.sayad = sayad, .bank = u"bank"_s, .due = today()};
        }
        const int contract = Desk::number(words, 1);
        for (int position = firstPayment; position < words.size(); ++position) {
            const int payment = Desk::number(words, position);
            handover.parts.append({amountOf(words, 3), u"instalment"_s,
                                   InstalmentReceiving::purpose(contract, payment, position - firstPayment + 1)});
        }
        return keysOf(ReceiptPosting::save(handover));
    });
}

Then DeskMoney::settle(Desk &desk, const Words &words)
{
    return answerWith(desk, [&]() -> QJsonValue {
        CTblAutomobilContracts contract;
        load(contract, Desk::number(words, 1));
        const int side = Desk::number(words, 2);
        return keysOf(ReceiptPosting::save({.personID = side == 1 ? contract.m_iPersonFirstID : contract.m_iPersonSecondID,
                                            .date = today(),
                                            .account = Accounts::cash,
                                            .parts = {{amountOf(words, 3), u"commission"_s, ContractReceipts::commission(contract, side)}}}));
    });
}

Then DeskMoney::makeVoid(Desk &desk, const Words &words)
{
    return answerWith(desk, [&]() -> QJsonValue {
        ReceiptPosting::makeVoid(Desk::number(words, 1), words.value(2));
        return Desk::number(words, 1);
    });
}

Then DeskMoney::sendOn(Desk &desk, const Words &words)
{
    return answerWith(desk, [&]() -> QJsonValue {
        const int cheque = Desk::number(words, 1);
        return ChequeChanging::change({.seen = ChequeChanging::seen(cheque),
                                       .to = static_cast<ChequeState>(Desk::number(words, 2)),
                                       .date = today(),
                                       .account = Accounts::bank})
            .changeID;
    });
}

Then DeskMoney::takeBack(Desk &desk, const Words &words)
{
    return answerWith(desk, [&]() -> QJsonValue {
        const int cheque = Desk::number(words, 1);
        ChequeChanging::undoLast(ChequeChanging::seen(cheque), words.value(2));
        return cheque;
    });
}
