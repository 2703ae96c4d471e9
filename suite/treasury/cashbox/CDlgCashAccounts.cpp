// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/cashbox/CDlgCashAccounts.h"

#include "suite/accounting/books/CDlgAccountDocs.h"
#include "suite/accounting/books/CTblDocs.h"
#include "suite/accounting/books/chart/Accounts.h"
#include "suite/accounting/books/chart/CTblHesabMoeen.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/treasury/cashbox/CDlgCashDay.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/values/Money.h"

#include <QLabel>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

KListColumn::Cell kindOfAccount(const QVariant &kol)
{
    return {kol.toInt() == Accounts::cashKol ? u"صندوق"_s : u"بانک"_s};
}

}

CDlgCashAccounts::CDlgCashAccounts(QWidget *parent)
    : KListPage(u"صندوق و بانک"_s, u"Receipts"_s, u"CashAccounts"_s, parent)
    , m_total(new QLabel)
{
    build();
    m_total->setObjectName(u"total"_s);
    if (auto *card = qobject_cast<KListCard *>(list()->parentWidget()))
        card->addToFoot(m_total);
}

CDlgCashAccounts::~CDlgCashAccounts() = default;

QList<KListColumn> CDlgCashAccounts::columnTable() const
{
    const auto balanceOf = [this](KMySQL &record) { return m_balances.value(static_cast<const CTblHesabMoeen &>(record).m_iCode); };
    return {
        KListColumn::rowNumber(30),
        {.key = u"code"_s, .title = u"کد حساب"_s, .width = 55, .sortKey = u"iCode"_s, .column = u"iCode"_s},
        {.key = u"name"_s, .title = u"نام حساب"_s, .width = 140, .alignment = Qt::AlignRight, .sortKey = u"sName"_s, .column = u"sName"_s},
        {.key = u"kind"_s, .title = u"نوع"_s, .width = 45, .sortKey = u"iHesabKolCode"_s, .column = u"iHesabKolCode"_s, .show = kindOfAccount},
        {.key = u"balance"_s, .title = u"موجودی امروز"_s, .width = 90, .alignment = Qt::AlignRight, .cell = [balanceOf](KMySQL &record, int) { return KListColumn::Cell{DToMoney(std::abs(balanceOf(record).net())), balanceOf(record).net()}; }, .reads = {u"iCode"_s}, .sums = true},
        {.key = u"nature"_s, .title = u"تشخیص"_s, .width = 40, .cell = [balanceOf](KMySQL &record, int) { return KListColumn::Cell{balanceOf(record).nature()}; }, .reads = {u"iCode"_s}, .warns = [balanceOf](KMySQL &record) { return balanceOf(record).net() < 0 && !balanceOf(record).isBalanced(); }},
    };
}

QList<KListFilter> CDlgCashAccounts::filterTable() const
{
    using K = KListFilter::Kind;
    const auto kinds = [] { return QList<KListFilter::Choice>{{u"همه"_s, 0}, {u"صندوق"_s, Accounts::cashKol}, {u"بانک"_s, Accounts::bankKol}}; };
    return {
        {.key = u"money"_s, .clause = FilterClauses::always(KSql::formatted(" AND iHesabKolCode IN (%1,%2)", int(Accounts::cashKol), int(Accounts::bankKol)))},
        {.key = u"kind"_s, .label = u"نوع :"_s, .kind = K::Choice, .place = {0, 0}, .clause = FilterClauses::number(" AND iHesabKolCode="), .choices = kinds},
        {.key = u"inactive"_s, .label = u"نمایش غیر فعال‌ها"_s, .kind = K::Flag, .place = {0, 2}, .clause = FilterClauses::flag("", " AND iStatus=0"), .initial = false},
    };
}

KListTraits CDlgCashAccounts::traits() const
{
    return {.hasRowLimit = false, .searchColumn = 4, .hasOwnTotals = true, .emptyIcon = u":/icons/money.svg"_s, .emptyText = u"هنوز صندوق یا حساب بانکی در سرفصل حساب‌ها نیست."_s};
}

std::vector<KListCommand> CDlgCashAccounts::commands()
{
    using C = KListCommand;
    return {
        {u"sheet"_s, u"گردش حساب"_s, C::NeedsRow, [this] { showSheet(); }, QKeySequence(Qt::Key_F3), u":/icons/document.svg"_s, Read, u"Documents"_s},
        {u"day"_s, u"برگه روزانه"_s, C::NeedsRow, [this] { showDay(); }, QKeySequence(Qt::Key_F4), u":/icons/money.svg"_s, Read},
        printCommand(C::StartsGroup),
    };
}

std::unique_ptr<KMySQL> CDlgCashAccounts::makeRecords() const
{
    return std::make_unique<CTblHesabMoeen>();
}

void CDlgCashAccounts::beginRows(KMySQL &)
{
    m_balances = CTblDocs::balances(AccountLevel::Moeen, {}, GetDBSetting()->GetDBServerDate());
}

void CDlgCashAccounts::showTotals(const QVector<KListModel::Row> &rows)
{
    const int column = list()->columnOf(u"balance");
    double sum = 0;
    for (const KListModel::Row &row : rows)
        sum += row.cells.at(column).value.toDouble();
    m_total->setText(u"جمع موجودی : %1 %2"_s.arg(DToMoney(sum), GetDBSetting()->MoneyUnitName()));
}

void CDlgCashAccounts::activated(int)
{
    runCommand(u"sheet");
}

KListReport CDlgCashAccounts::reportSpec() const
{
    return {u"صندوق و بانک"_s, u"CashAccounts"_s, u"List"_s, {{u"Total"_s, totalText()}}};
}

int CDlgCashAccounts::selectedCode() const
{
    CTblHesabMoeen account;
    return loadSelected(account) ? account.m_iCode : 0;
}

void CDlgCashAccounts::showSheet()
{
    if (const int code = selectedCode(); code > 0)
        CDlgAccountDocs::Show(AccountLevel::Moeen, code, {}, {}, this);
}

void CDlgCashAccounts::showDay()
{
    if (const int code = selectedCode(); code > 0 && CheckReadSecurity())
        CDlgCashDay(code, GetDBSetting()->GetDBServerDate().date(), this).exec();
}

QString CDlgCashAccounts::totalText() const
{
    return m_total->text();
}
