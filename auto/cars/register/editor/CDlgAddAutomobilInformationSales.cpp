// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CDlgAddAutomobilInformationSales.h"

#include "auto/cars/register/editor/CarFields.h"
#include "auto/cars/fields/ItemFields.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/cars/register/editor/ProfitAndLoss.h"
#include "auto/catalog/tariffs/CDlgAutomobilTariffs.h"
#include "auto/catalog/parameters/InputParameters.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "auto/db/CTblAutomobilTariffs.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/db/records/KExpectedRow.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/ScrolledPage.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/PlatePicture.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString notaryCostColumn = u"dAmountPresence"_s;
const QString profitColumn = u"dProfitAndLoss"_s;

// The columns of the rule's amounts.
const std::pair<QString, double SaleAmounts::*> inputs[] = {
    {u"dSoldAmount"_s, &SaleAmounts::sold},
    {u"dPurchasePriceOfOwner"_s, &SaleAmounts::purchase},
    {u"dAutomobilExpenses"_s, &SaleAmounts::expenses},
    {notaryCostColumn, &SaleAmounts::notaryCost},
    {u"dRemainingPresence"_s, &SaleAmounts::notaryRemaining},
};

}

CDlgAddAutomobilInformationSales::CDlgAddAutomobilInformationSales(EditorMode mode, QWidget *parent)
    : CarEditorPage(mode, u"مشخصات فروش"_s, parent)
{
    build();
    m_items->addList(u"iCustomsClearance"_s, InputParameters::ClearanceCustoms);
    for (const auto &[column, amount] : inputs)
        connect(m_form->edit(column), &KEdit::numberEdited, this, &CDlgAddAutomobilInformationSales::recompute);
    QPushButton *tariffs = m_form->button(notaryCostColumn);
    tariffs->setToolTip(u"انتخاب از هزینه های تعرفه های محضر"_s);
    connect(tariffs, &QPushButton::clicked, this, &CDlgAddAutomobilInformationSales::pickTariff);
}

CDlgAddAutomobilInformationSales::~CDlgAddAutomobilInformationSales() = default;

void CDlgAddAutomobilInformationSales::build()
{
    auto *content = new QWidget(this);
    CTblAutomobilInformations columns;
    m_form = new KForm(CarFields::sale(), columns, content);
    m_items = new ItemFields(*m_form, this);
    m_buyer = new PersonGroup(u"مشخصات خريدار"_s, PersonGroup::Clearable | PersonGroup::WithNationalCode, content,
                              u"خريدار"_s);

    auto *cards = new CardStack(content);
    cards->addCard(buildState(content));
    cards->addCard(m_buyer);
    cards->addCard(buildTransfer(content));
    cards->addPair(buildAmounts(content), buildResult(content));
    cards->addCard(buildClearance(content));
    fillWithScrolled(this, content);
}

// Whether the car is sold, and which one it is.
QWidget *CDlgAddAutomobilInformationSales::buildState(QWidget *content)
{
    auto *box = new QGroupBox(content);
    auto *grid = new FormGrid(box);
    grid->addCell(m_form->checkBox(u"bSold"_s));
    m_plate = new PlatePicture(box);
    grid->addCell(m_plate);
    return box;
}

QWidget *CDlgAddAutomobilInformationSales::buildTransfer(QWidget *content)
{
    auto *box = new QGroupBox(u"انتقال سند"_s, content);
    m_form->place(new FormGrid(box), {{"dateBuy"}, {"dateDelivery"}, {"dateJawPlate"}, {"dateObtainingCopies"}, {"sRegistryNum"}, {"sAddress", 3}, {"dateLegalDocument"}, {"sNumLegalDocument"}, {"datefinalDocument"}, {"sReplacementCenter"}});
    return box;
}

QWidget *CDlgAddAutomobilInformationSales::buildAmounts(QWidget *content)
{
    auto *box = new QGroupBox(u"قرارداد و کميسيون"_s, content);
    m_form->place(new FormGrid(box, FormGrid::Extent::Half), {{"dMbayhAutomobilContract"}, {"dAmountContract"}, {"dPaidContract"}, {"dRemainingContract"}, {"dAmountCommission"}, {"dPaidComission"}, {"dRemainingComission"}});
    return box;
}

QWidget *CDlgAddAutomobilInformationSales::buildResult(QWidget *content)
{
    auto *box = new QGroupBox(u"نتيجه فروش"_s, content);
    m_form->place(new FormGrid(box, FormGrid::Extent::Half), {{"dSoldAmount"}, {"dPurchasePriceOfOwner"}, {"dAutomobilExpenses", 2}, {"dAmountPresence", 2}, {"dRemainingPresence"}, {"dProfitAndLoss"}});
    return box;
}

QWidget *CDlgAddAutomobilInformationSales::buildClearance(QWidget *content)
{
    auto *box = new QGroupBox(u"ترخيص"_s, content);
    m_form->place(new FormGrid(box), {{"dateClearance"}, {"iCustomsClearance", 2}, {"sLicense"}});
    return box;
}

void CDlgAddAutomobilInformationSales::showPlate(const QString &plate)
{
    m_plate->setText(plate);
}

void CDlgAddAutomobilInformationSales::expectChoices()
{
    CTblMultiItems::expectValues(InputParameters::itemType(InputParameters::ClearanceCustoms));
}

void CDlgAddAutomobilInformationSales::expectFill(const CTblAutomobilInformations &car)
{
    expectRow<CTblPersons>(car.m_iPersonBuyerID);
}

void CDlgAddAutomobilInformationSales::fill(CTblAutomobilInformations &car)
{
    m_form->setShowMode(isShowMode());
    m_items->fill();
    m_form->load(car);
    takeTariff();
    recompute();
    m_buyer->setPersonID(car.m_iPersonBuyerID);
    m_buyer->setReadOnly(isShowMode());
}

bool CDlgAddAutomobilInformationSales::validate()
{
    return true;
}

void CDlgAddAutomobilInformationSales::write(CTblAutomobilInformations &car)
{
    recompute();
    m_form->store(car);
    car.m_iPersonBuyerID = m_buyer->personID();
    follow(car);
}

void CDlgAddAutomobilInformationSales::follow(CTblAutomobilInformations &car)
{
    SaleAmounts amounts;
    for (const auto &[column, amount] : inputs)
        amounts.*amount = car.value(column).toDouble();
    car.m_dProfitAndLoss = profitAndLoss(amounts);
}

QHash<QString, EditorTabPage::Entry> CDlgAddAutomobilInformationSales::furtherEntries() const
{
    return {{u"iPersonBuyerID"_s, {u"خریدار"_s, m_buyer->codeEdit()}}};
}

void CDlgAddAutomobilInformationSales::pickTariff()
{
    const int chosen = CDlgAutomobilTariffs::Select(this, m_tariffID);
    CTblAutomobilTariffs tariff;
    if (chosen == 0 || !tariff.IsRecordExist(u"iID"_s, chosen))
        return;
    m_tariffID = chosen;
    takeTariff();
    recompute();
}

void CDlgAddAutomobilInformationSales::takeTariff()
{
    CTblAutomobilTariffs tariff;
    if (m_tariffID != 0 && tariff.IsRecordExist(u"iID"_s, m_tariffID))
        m_form->edit(notaryCostColumn)->setNumber(tariff.m_dAmount);
}

void CDlgAddAutomobilInformationSales::recompute()
{
    SaleAmounts amounts;
    for (const auto &[column, amount] : inputs)
        amounts.*amount = m_form->edit(column)->number();
    m_form->edit(profitColumn)->setNumber(profitAndLoss(amounts));
}
