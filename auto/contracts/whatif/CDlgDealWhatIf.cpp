// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/whatif/CDlgDealWhatIf.h"

#include "auto/catalog/tariffs/CDlgAutomobilTariffs.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblAutomobilTariffs.h"
#include "auto/settings/ContractSettings.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/office/OfficeSettings.h"
#include "suite/accounting/reports/CDlgReportGenerator.h"
#include "suite/db/records/KLookup.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookIcons.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString deed = u"برآورد معامله"_s;

}

CDlgDealWhatIf::CDlgDealWhatIf(const Facts &facts, QWidget *parent)
    : KDialog(parent)
    , m_car(facts.car)
{
    const OfficeSettings settings = OfficeSettings::read({ContractSettings::section()});
    const ContractSettings contract = ContractSettings::of(settings);
    m_tiers = contract.tiers;
    m_taxPercent = contract.taxPercent;
    m_dutyPercent = contract.dutyPercent;
    m_moneyUnit = settings.moneyUnitName();
    m_today = settings.serverTime().date();
    SetSettingName(u"AutomobilContracts\\WhatIf"_s);
    setWindowTitle(facts.car.isEmpty() ? deed : deed + u" - "_s + facts.car);
    build();
    const std::pair<const char *, double> known[] = {{"price", facts.price}, {"purchase", facts.purchase}, {"expenses", facts.expenses}, {"notary", facts.notary}, {"interval", 1}};
    for (const auto &[name, number] : known)
        edit(QString::fromLatin1(name))->setNumber(number);
    recompute();
    edit(u"price"_s)->setFocus();
    edit(u"price"_s)->selectAll();
}

CDlgDealWhatIf::~CDlgDealWhatIf() = default;

void CDlgDealWhatIf::Show(const Facts &facts, QWidget *parent)
{
    CDlgDealWhatIf(facts, parent).exec();
}

void CDlgDealWhatIf::ShowCar(int carID, double price, QWidget *parent)
{
    CTblAutomobilInformations car;
    car.SetColumns({u"iAutomobilType"_s, u"iModel"_s, u"sNumOfPlates"_s, u"dAmount"_s, u"dPurchasePriceOfOwner"_s, u"dAutomobilExpenses"_s, u"dAmountPresence"_s});
    if (!car.IsRecordExist(u"iID"_s, carID))
        return;
    QStringList name{KLookup::name(car, u"iAutomobilType"), KLookup::name(car, u"iModel"), car.m_sNumOfPlates};
    name.removeAll(QString());
    Show({name.join(u' '), price > 0 ? price : car.m_dAmount, car.m_dPurchasePriceOfOwner, car.m_dAutomobilExpenses, car.m_dAmountPresence}, parent);
}

void CDlgDealWhatIf::build()
{
    auto *page = new CardPage(880, this);
    buildPrice(page);
    buildInstalments(page);
    buildResults(page);
    QDialogButtonBox *buttons = createButtons({}, u"بازگشت"_s);
    QPushButton *sheet = buttons->addButton(u"برگه مشتری"_s, QDialogButtonBox::ActionRole);
    sheet->setIcon(LookIcons::icon(u":/icons/print.svg"_s));
    sheet->setAccessibleName(sheet->text());
    connect(sheet, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { print(); }); });
    setContent(page, buttons);
}

KEdit *CDlgDealWhatIf::add(FormGrid *grid, const QString &name, const QString &label, int span, bool isResult, QHBoxLayout *row)
{
    auto *line = new KEdit(KEdit::Kind::Money, this);
    line->setObjectName(name);
    line->setReadOnly(isResult);
    if (isResult)
        line->setRange(-largestMoney, largestMoney);
    else
        connect(line, &KEdit::numberEdited, this, &CDlgDealWhatIf::recompute);
    if (row) {
        row->addWidget(line, 1);
        grid->addField(labelFor(label, line), new FieldNote(line, this), row, span);
    } else {
        grid->addField(labelFor(label, line), new FieldNote(line, this), line, span);
    }
    m_edits.insert(name, line);
    return line;
}

KEdit *CDlgDealWhatIf::addNumber(FormGrid *grid, const QString &name, const QString &label, bool isPercent)
{
    KEdit *line = add(grid, name, label);
    line->setKind(isPercent ? KEdit::Kind::Percent : KEdit::Kind::Integer);
    return line;
}

void CDlgDealWhatIf::buildPrice(CardPage *page)
{
    FormGrid *grid = page->addForm(u"معامله"_s, FormGrid::Extent::Full);
    add(grid, u"price"_s, u"قیمت :"_s, 2);
    add(grid, u"purchase"_s, u"مبلغ خريد از مالک :"_s, 2);
    add(grid, u"expenses"_s, u"مخارج اتومبيل :"_s, 2);
    auto *tariff = new QPushButton(u"..."_s, this);
    tariff->setAccessibleName(u"هزينه محضر : ..."_s);
    tariff->setToolTip(u"انتخاب از هزینه های تعرفه های محضر"_s);
    tariff->setAutoDefault(false);
    LookMarks::setButton(tariff, LookMarks::Button::Small);
    connect(tariff, &QPushButton::clicked, this, [this] { KErrorBoundary::guarded(this, [this] { pickTariff(); }); });
    tariff->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    auto *row = new QHBoxLayout;
    row->setSpacing(LookSizes::unit / 2);
    add(grid, u"notary"_s, u"هزينه محضر :"_s, 2, false, row);
    row->addWidget(tariff);
    add(grid, u"commission"_s, u"کمیسیون هر طرف :"_s, 2);
    addNumber(grid, u"sellerDiscount"_s, u"تخفیف فروشنده (%) :"_s, true);
    addNumber(grid, u"buyerDiscount"_s, u"تخفیف خریدار (%) :"_s, true);
}

void CDlgDealWhatIf::buildInstalments(CardPage *page)
{
    FormGrid *grid = page->addForm(u"اقساط"_s, FormGrid::Extent::Full);
    add(grid, u"atOnce"_s, u"پرداخت نقدی :"_s, 2);
    addNumber(grid, u"count"_s, u"تعداد اقساط :"_s, false);
    addNumber(grid, u"interval"_s, u"فاصله (ماه) :"_s, false);
    addNumber(grid, u"rate"_s, u"سود ماهانه (%) :"_s, true);
    add(grid, u"instalment"_s, u"مبلغ هر قسط :"_s, 1, true);
    add(grid, u"instalments"_s, u"جمع اقساط :"_s, 2, true);
}

void CDlgDealWhatIf::buildResults(CardPage *page)
{
    FormGrid *grid = page->addForm(u"نتیجه"_s, FormGrid::Extent::Full);
    add(grid, u"tax"_s, u"مالیات هر طرف :"_s, 1, true);
    add(grid, u"duty"_s, u"عوارض هر طرف :"_s, 1, true);
    add(grid, u"sellerPays"_s, u"پرداختی فروشنده :"_s, 1, true);
    add(grid, u"buyerPaysCommission"_s, u"پرداختی خریدار :"_s, 1, true);
    add(grid, u"sellerGets"_s, u"دریافتی فروشنده :"_s, 2, true);
    add(grid, u"buyerPays"_s, u"جمع پرداخت خریدار :"_s, 2, true);
    add(grid, u"saleMargin"_s, u"سود و زيان فروش :"_s, 2, true);
    add(grid, u"commissionMargin"_s, u"کمیسیون دو طرف :"_s, 2, true);
    add(grid, u"interest"_s, u"سود اقساط :"_s, 2, true);
    add(grid, u"margin"_s, u"سود معامله :"_s, 2, true);
}

double CDlgDealWhatIf::number(const char *name) const
{
    return edit(QString::fromLatin1(name))->number();
}

DealTerms CDlgDealWhatIf::terms() const
{
    DealTerms terms;
    terms.price = number("price");
    terms.purchase = number("purchase");
    terms.expenses = number("expenses");
    terms.notary = number("notary");
    terms.tiers = m_tiers;
    terms.commissionByHand = number("commission");
    terms.taxPercent = m_taxPercent;
    terms.dutyPercent = m_dutyPercent;
    terms.sellerDiscountPercent = number("sellerDiscount");
    terms.buyerDiscountPercent = number("buyerDiscount");
    terms.paidAtOnce = number("atOnce");
    terms.instalments.count = edit(u"count"_s)->integer();
    terms.instalments.interval = edit(u"interval"_s)->integer();
    terms.instalments.rate = number("rate");
    terms.instalments.start = m_today;
    return terms;
}

void CDlgDealWhatIf::recompute()
{
    m_deal = DealEstimate::of(terms());
    KEdit *commission = edit(u"commission"_s);
    // Whoever types it sees what he types.
    commission->setReadOnly(!m_deal.isCommissionByHand);
    if (!m_deal.isCommissionByHand)
        commission->setNumber(m_deal.figures.commission);
    commission->setHint(m_deal.isCommissionByHand ? u"کمیسیون این مبلغ را وارد کنید"_s : QString());
    showResults();
}

void CDlgDealWhatIf::showResults()
{
    const InstalmentPlan none;
    const InstalmentPlan &plan = m_deal.plan ? *m_deal.plan : none;
    const std::pair<const char *, double> results[] = {
        {"tax", m_deal.figures.first.tax},
        {"duty", m_deal.figures.first.duty},
        {"sellerPays", m_deal.figures.first.pays},
        {"buyerPaysCommission", m_deal.figures.second.pays},
        {"sellerGets", m_deal.sellerGets},
        {"buyerPays", m_deal.buyerPays},
        {"saleMargin", m_deal.isOwnCar ? m_deal.saleMargin : 0},
        {"commissionMargin", m_deal.commissionMargin},
        {"interest", plan.interest},
        {"margin", m_deal.margin()},
        {"instalment", plan.instalments.empty() ? 0 : plan.instalments.front().amount},
        {"instalments", plan.total},
    };
    for (const auto &[name, value] : results)
        edit(QString::fromLatin1(name))->setNumber(value);
    FieldNote::of(edit(u"saleMargin"_s))->showHint(m_deal.isOwnCar ? QString() : u"خودروی مشتری است"_s);
}

void CDlgDealWhatIf::pickTariff()
{
    CTblAutomobilTariffs tariff;
    const int chosen = CDlgAutomobilTariffs::Select(this);
    if (chosen == 0 || !tariff.IsRecordExist(u"iID"_s, chosen))
        return;
    edit(u"notary"_s)->setNumber(tariff.m_dAmount);
    recompute();
}

ListReport CDlgDealWhatIf::sheet() const
{
    QVector<KListModel::Row> rows;
    const auto line = [&rows](const QString &what, const QString &text) { rows.append({int(rows.size()) + 1, {{what}, {text}}}); };
    const auto amount = [&](const QString &what, double value) { line(what, u"%1 %2"_s.arg(DToMoney(value), m_moneyUnit)); };
    if (!m_car.isEmpty())
        line(u"خودرو"_s, m_car);
    amount(u"قیمت"_s, number("price"));
    amount(u"کمیسیون خریدار"_s, m_deal.figures.second.pays - m_deal.figures.second.tax - m_deal.figures.second.duty);
    amount(u"مالیات و عوارض"_s, m_deal.figures.second.tax + m_deal.figures.second.duty);
    if (m_deal.plan) {
        amount(u"پرداخت نقدی"_s, number("atOnce"));
        line(u"تعداد اقساط"_s, QString::number(m_deal.plan->instalments.size()));
        amount(u"مبلغ هر قسط"_s, m_deal.plan->instalments.front().amount);
        line(u"نخستین قسط"_s, shamsiText(m_deal.plan->instalments.front().due));
        amount(u"جمع اقساط"_s, m_deal.plan->total);
        amount(u"جمع پرداخت"_s, number("atOnce") + m_deal.plan->total + m_deal.figures.second.pays);
    } else {
        amount(u"جمع پرداخت"_s, m_deal.buyerPays);
    }
    ListReport report(u"گالری اتومبیل"_s, deed);
    report.setText(u"LeftBottom"_s, u"تاریخ : "_s + shamsiText(m_today));
    report.setTable(u"List"_s, {{u"شرح"_s, Qt::AlignRight, 160}, {u"مبلغ"_s, Qt::AlignRight, 160}}, rows);
    if (!report.loadLayout())
        report.buildStandard(deed);
    report.setText(u"Title"_s, deed);
    return report;
}

void CDlgDealWhatIf::print()
{
    CDlgReportGenerator(sheet(), this).ShowReport();
}
