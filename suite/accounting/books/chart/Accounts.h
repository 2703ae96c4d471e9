// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

// The numbers of the chart of accounts that the code posts to, and the kinds of accounting documents. The chart itself,
// with the names, is seeded by SuiteSchema. A general account (kol) has four digits; a subsidiary account (moeen) has six
// and begins with its general account.
namespace Accounts {

inline constexpr int cashKol = 1101;
inline constexpr int bankKol = 1102;
inline constexpr int personsKol = 1103;
inline constexpr int chequesKol = 1104;
inline constexpr int chequesPayableKol = 2102;
inline constexpr int payableKol = 2105;
inline constexpr int clearingKol = 2106;
inline constexpr int serviceIncomeKol = 4101;
inline constexpr int incomeKol = 4102;
inline constexpr int carSalesKol = 4103;
inline constexpr int serviceExpenseKol = 6101;
inline constexpr int taxExpenseKol = 6105;

inline constexpr int cash = 110101;
inline constexpr int bank = 110201;
inline constexpr int persons = 110301;
// From 81 on: an office may have opened the accounts after the last seeded one itself, as the chart proposes them.
inline constexpr int chequesInHand = 110481;    // received, in the office's keeping
inline constexpr int chequesDeposited = 110482; // handed to a bank, not yet cleared
inline constexpr int chequesPayable = 210281;   // given, not yet cleared
inline constexpr int taxPayable = 210501;
inline constexpr int dutyPayable = 210502;
inline constexpr int carSaleClearing = 210681; // between the buyer and the seller of an instalment sale; always comes to nothing
inline constexpr int serviceIncome = 410101;
inline constexpr int saleDiscount = 410102; // granted on sales of services: lessens the income
inline constexpr int commissionIncome = 410202;
inline constexpr int instalmentInterest = 410281;
inline constexpr int carSales = 410381; // of the showroom's own cars
inline constexpr int serviceExpense = 610101;
inline constexpr int purchaseDiscount = 610102; // received on purchases of services: lessens the expense
inline constexpr int taxExpense = 610502;
inline constexpr int dutyExpense = 610503;

// The general account above a subsidiary one.
constexpr int kolOf(int moeen)
{
    return moeen / 100;
}

// Documents.iKind
inline constexpr int documentKindManual = 1;
inline constexpr int documentKindReceipt = 3;
inline constexpr int documentKindPayment = 4;
inline constexpr int documentKindCheque = 5;   // a cheque changed its state
inline constexpr int documentKindReversal = 6; // takes back a receipt or payment of an earlier fiscal year
inline constexpr int documentKindSale = 7;
inline constexpr int documentKindPurchase = 8;
inline constexpr int documentKindContract = 28;

}
