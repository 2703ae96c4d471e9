// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/document/ContractDocumentRows.h"

#include "suite/accounting/books/chart/Accounts.h"
#include "suite/utility/values/Money.h"

using namespace Qt::StringLiterals;

namespace {

double inMoneyDecimals(double amount)
{
    return roundToDecimals(amount, defaultMoneyDecimals());
}

class RowBuilder
{
public:
    void commission(const ContractDocumentParty &party, double amount)
    {
        if (party.personID == 0)
            return;
        const QString description = u" کمیسیون پرداختی "_s + party.name;
        pair({Accounts::persons, party.personID, description}, {Accounts::commissionIncome, 0, description}, amount);
    }

    void discount(const ContractDocumentParty &party, const QString &partyPrefix)
    {
        if (party.personID == 0)
            return;
        pair({Accounts::commissionIncome, 0, u" تخفیف به "_s + party.name},
             {Accounts::persons, party.personID, partyPrefix + party.name}, party.discount);
    }

    void tax(const ContractDocumentParty &party)
    {
        levy(party, u"مالیات ارزش افزوده"_s, party.taxPercent, party.tax,
             {Accounts::taxPayable, Accounts::taxExpense});
    }

    void duty(const ContractDocumentParty &party)
    {
        levy(party, u"عوارض"_s, party.dutyPercent, party.duty,
             {Accounts::dutyPayable, Accounts::dutyExpense});
    }

    void sale(const ContractSale &sale, const ContractDocumentParty &seller, const ContractDocumentParty &buyer)
    {
        if (buyer.personID == 0)
            return;
        const QString bought = u"بهای خودرو، خریدار "_s + buyer.name;
        pair({Accounts::persons, buyer.personID, bought}, {Accounts::carSaleClearing, 0, bought}, sale.price);
        const QString sold = u"بهای خودرو، فروشنده "_s + seller.name;
        if (seller.kind == PartyKind::Showroom)
            pair({Accounts::carSaleClearing, 0, bought}, {Accounts::carSales, 0, bought}, sale.price);
        else if (seller.personID != 0)
            pair({Accounts::carSaleClearing, 0, sold}, {Accounts::persons, seller.personID, sold}, sale.price);
        const QString interest = u"بهره اقساط "_s + buyer.name;
        pair({Accounts::persons, buyer.personID, interest}, {Accounts::instalmentInterest, 0, interest}, sale.interest);
    }

    QList<DocumentRow> take() { return std::move(m_rows); }

private:
    struct Side
    {
        int account;
        int personID;
        QString description;
    };
    struct LevyAccounts
    {
        int payable;
        int expense;
    };

    void levy(const ContractDocumentParty &party, const QString &name, double percent, double amount,
              const LevyAccounts &accounts)
    {
        const QString start = DToStr(percent) + u"% "_s + name + QLatin1Char(' ');
        const QString fromParty = start + DToMoney(amount) + u"از "_s + party.name;
        const QString ofParty = start + party.name;
        pair({Accounts::persons, party.personID, ofParty}, {accounts.payable, 0, fromParty}, amount);
        if (party.kind == PartyKind::Showroom)
            pair({accounts.expense, 0, fromParty}, {Accounts::persons, party.personID, ofParty}, amount);
    }

    void pair(const Side &debit, const Side &credit, double computed)
    {
        const double amount = inMoneyDecimals(computed);
        if (amount <= 0 || IsEquals(amount, 0))
            return;
        m_rows.append({debit.account, debit.personID, amount, 0, debit.description});
        m_rows.append({credit.account, credit.personID, 0, amount, credit.description});
    }

    QList<DocumentRow> m_rows;
};

// The names of the types in documents: the last one is shorter than in the list of types.
QString typeName(int contractType)
{
    switch (contractType) {
    case 0: return u"مبایعه نامه"_s;
    case 1: return u"قرارداد اجاره"_s;
    case 2: return u"فروش اقساطی"_s;
    case 3: return u"نامه"_s;
    default: return {};
    }
}

}

QString contractDocumentDescription(int contractType, int number)
{
    return typeName(contractType) + u" ش :"_s + IToStr(number);
}

QList<DocumentRow> contractDocumentRows(const ContractForDocument &contract)
{
    RowBuilder rows;
    rows.commission(contract.first, contract.commission);
    rows.commission(contract.second, contract.commission);
    rows.discount(contract.first, u" تخفیف  "_s);
    rows.discount(contract.second, u" تخفیف "_s);
    rows.tax(contract.first);
    rows.tax(contract.second);
    rows.duty(contract.first);
    rows.duty(contract.second);
    rows.sale(contract.sale, contract.first, contract.second);
    return rows.take();
}

std::optional<double> amountCharged(double commission, const ContractDocumentParty &party)
{
    if (party.kind == PartyKind::Showroom)
        return inMoneyDecimals(party.tax) + inMoneyDecimals(party.duty);
    if (party.personID == 0)
        return std::nullopt;
    double charged = 0;
    for (const DocumentRow &row : contractDocumentRows({commission, party, {}})) {
        if (row.personID == party.personID)
            charged += row.debit - row.credit;
    }
    return charged;
}
