// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/demo/DemoMoney.h"

#include "auto/contracts/instalments/InstalmentReceiving.h"
#include "auto/contracts/receipts/ContractDues.h"
#include "auto/contracts/receipts/ContractReceipts.h"
#include "host/demo/DemoTimes.h"
#include "host/demo/DemoYear.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/treasury/cheques/ChequeChanging.h"
#include "suite/utility/values/ShamsiDate.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int instalmentSale = 2;
constexpr int instalmentsOfASale = 12;
constexpr double percentAMonth = 2;
constexpr int buyerSide = 2;

// Which part of an amount is received: mostly all of it, now and then half, sometimes nothing yet.
double received(double amount, DemoRandom &random, int wholePercent, int halfPercent)
{
    const int draw = random.below(100);
    if (draw < wholePercent)
        return amount;
    return draw < wholePercent + halfPercent ? qRound64(amount / 2 / 1e4) * 1e4 : 0;
}

}

DemoMoney::DemoMoney(const QDate &firstDay, const QDate &today, DemoRandom &random)
    : m_firstDay(firstDay)
    , m_today(today)
    , m_random(random)
{
}

void DemoMoney::write(int contracts)
{
    CTblAutomobilContracts set;
    set.m_filter = KSql::formatted("iStatus=0 AND bReturn=0 AND dateContract>=%1 AND dateContract<=%2", DateToSQL(midnight(m_firstDay)),
                                   DateToSQL(midnight(m_today)));
    set.m_sort = "dateContract DESC,iID DESC";
    set.SetLimit(contracts);
    QList<int> keys;
    for (set.Open(true, true, true); !set.IsEOF(); set.MoveNext())
        keys.prepend(set.m_iID);
    for (const int key : std::as_const(keys)) {
        CTblAutomobilContracts contract;
        if (!contract.IsRecordExist(u"iID"_s, key))
            continue;
        writeCommission(contract, 1);
        writeCommission(contract, buyerSide);
        if (contract.m_iContractType == instalmentSale && contract.m_iPersonSecondID > 0)
            writeSale(contract);
    }
}

QDate DemoMoney::soonAfter(const QDate &day, int days)
{
    return std::clamp(day.addDays(m_random.below(days + 1)), m_firstDay, m_today);
}

ReceiptPosting::Handover DemoMoney::handover(int personID, const QDate &day)
{
    DemoYear::enter(day);
    ReceiptPosting::Handover handover{.personID = personID, .date = midnight(day)};
    const int draw = m_random.below(100);
    handover.method = draw < 45 ? CTblReceipts::cash : draw < 75 ? CTblReceipts::card
                                                                 : CTblReceipts::bank;
    handover.account = handover.method == CTblReceipts::cash ? Accounts::cash : Accounts::bank;
    return handover;
}

void DemoMoney::writeCommission(const CTblAutomobilContracts &contract, int side)
{
    const int person = side == 1 ? contract.m_iPersonFirstID : contract.m_iPersonSecondID;
    const double owed = person > 0 ? ContractDues::commission(contract, side, false).rest() : 0;
    const double amount = received(owed, m_random, 80, 10);
    if (amount <= 0)
        return;
    ReceiptPosting::Handover handover = this->handover(person, soonAfter(contract.m_dateContract.date(), 3));
    handover.parts = {{amount, ContractReceipts::commissionText(contract.number()), ContractReceipts::commission(contract, side)}};
    ReceiptPosting::save(handover);
}

void DemoMoney::writeSale(const CTblAutomobilContracts &contract)
{
    writePlan(contract);
    writeCheques(contract);
    writeInstalments(contract);
    if (!m_corrected)
        writeCorrection(contract);
}

void DemoMoney::writePlan(const CTblAutomobilContracts &contract)
{
    InstalmentTerms terms;
    terms.principal = contract.m_dAmount - contract.m_dFixAmount - contract.m_dAgreeAmount;
    terms.rate = percentAMonth;
    terms.count = instalmentsOfASale;
    terms.interval = 1;
    terms.start = contract.m_dateContract.date();
    DemoYear::enter(terms.start);
    if (problemOf(terms) == InstalmentProblem::None)
        StoredInstalments::save({contract.m_iID, contract.m_iCode, contract.m_iPersonSecondID}, {}, terms, instalmentPlan(terms));
}

// As many as the contract says, a month apart, of equal amounts; the last one has the rest.
void DemoMoney::writeCheques(const CTblAutomobilContracts &contract)
{
    const int count = contract.m_sCheckCount.toInt();
    const double each = count > 0 ? qRound64(contract.m_dAgreeAmount / count / 1e6) * 1e6 : 0;
    const int firstNumber = contract.m_sCheckNum.toInt();
    for (int number = 0; number < count; ++number) {
        const double amount = number + 1 < count ? each : contract.m_dAgreeAmount - each * (count - 1);
        const QDate day = contract.m_dateContract.date();
        const QDate due = addShamsiMonths(day, number + 1);
        DemoYear::enter(day);
        ReceiptPosting::Handover handover{.personID = contract.m_iPersonSecondID, .date = midnight(day), .method = CTblReceipts::cheque};
        handover.cheque = Cheque{.sayad = QString::number(6'011'000'000'000'000 + 7919 * ++m_cheques),
                                 .number = QString::number(firstNumber + number),
                                 .bank = contract.m_sBankName,
                                 .branch = contract.m_sBranchName,
                                 .branchCode = contract.m_sBranchCode,
                                 .due = midnight(due)};
        handover.parts = {{amount,
                           u"چک شماره %1 قرارداد %2"_s.arg(firstNumber + number).arg(contract.number()),
                           {.recordKind = CTblAutomobilContracts::recordKind,
                            .recordID = contract.m_iID,
                            .what = ReceiptPurpose::Price,
                            .side = buyerSide,
                            .text = u"بهای خودرو قرارداد %1، خریدار"_s.arg(contract.number())}}};
        sendOn(ReceiptPosting::save(handover).constFirst().chequeID, due);
    }
}

// What is due was brought to the bank; nearly all of it was paid.
void DemoMoney::sendOn(int chequeID, const QDate &due)
{
    if (due > m_today)
        return;
    const auto change = [chequeID](ChequeState to, const QDate &day) {
        DemoYear::enter(day);
        ChequeChanging::change({.seen = ChequeChanging::seen(chequeID), .to = to, .date = midnight(day), .account = Accounts::bank});
    };
    change(ChequeState::Deposited, due);
    if (due.addDays(1) > m_today)
        return;
    const bool isPaid = ++m_presented % 6 != 2;
    change(isPaid ? ChequeState::Cleared : ChequeState::Bounced, due.addDays(1));
}

void DemoMoney::writeInstalments(const CTblAutomobilContracts &contract)
{
    for (const StoredInstalments::Row &row : StoredInstalments::load(contract.m_iID)) {
        const QDate due = row.date.date();
        if (due > m_today)
            return;
        const double amount = received(row.due, m_random, 78, 10);
        if (amount <= 0)
            continue;
        ReceiptPosting::Handover handover = this->handover(contract.m_iPersonSecondID, soonAfter(due, 4));
        handover.parts = {{amount, StoredInstalments::receiptText(row.number, contract.m_iCode),
                           InstalmentReceiving::purpose(contract.m_iID, row.id, row.number)}};
        ReceiptPosting::save(handover);
    }
}

// A mistyped receipt, made void; what it paid is open again.
void DemoMoney::writeCorrection(const CTblAutomobilContracts &contract)
{
    for (const StoredInstalments::Row &row : StoredInstalments::load(contract.m_iID)) {
        if (row.date.date() <= m_today || row.received > 0)
            continue;
        ReceiptPosting::Handover handover = this->handover(contract.m_iPersonSecondID, m_today);
        handover.parts = {{row.due, StoredInstalments::receiptText(row.number, contract.m_iCode),
                           InstalmentReceiving::purpose(contract.m_iID, row.id, row.number)}};
        ReceiptPosting::makeVoid(ReceiptPosting::save(handover).constFirst().receiptID, u"مبلغ قرارداد دیگری بود"_s);
        m_corrected = true;
        return;
    }
}
