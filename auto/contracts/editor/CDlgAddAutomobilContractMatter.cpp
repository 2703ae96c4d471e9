// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/CDlgAddAutomobilContractMatter.h"

#include "auto/editor/FormLines.h"
#include "auto/cars/fields/VehicleDoubts.h"
#include "auto/contracts/editor/MatterFields.h"
#include "auto/contracts/editor/MatterVisibility.h"
#include "auto/contracts/figures/ModelYear.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/values/Provinces.h"
#include "suite/utility/frame/ScrolledPage.h"
#include "suite/utility/values/TextStandard.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int instalmentSale = 2;

double amountLeft(double amount, double inCash, double byCheque)
{
    return qMax(0.0, amount - inCash - byCheque);
}
}

CDlgAddAutomobilContractMatter::CDlgAddAutomobilContractMatter(ContractEditorMode mode, QWidget *parent)
    : ContractEditorPage(mode, u"مشخصات فروش"_s, parent)
{
    build();
    connect(m_form->comboBox(u"sState"_s), &QComboBox::currentTextChanged, this,
            &CDlgAddAutomobilContractMatter::offerCities);
}

CDlgAddAutomobilContractMatter::~CDlgAddAutomobilContractMatter() = default;

void CDlgAddAutomobilContractMatter::build()
{
    auto *content = new QWidget(this);
    CTblAutomobilContracts columns;
    m_form = new KForm(matterFields(), columns, content);

    auto *layout = new QVBoxLayout(content);
    layout->setSpacing(4);
    layout->addWidget(buildVehicle());
    layout->addWidget(buildPayment());
    layout->addWidget(buildTerms());
    layout->addWidget(buildRegistry());
    layout->addStretch(1);

    fillWithScrolled(this, content);
}

QGroupBox *CDlgAddAutomobilContractMatter::buildVehicle()
{
    auto *box = new QGroupBox(u"موضوع مشخصات مورد معامله"_s, this);
    FormLines::grid(*m_form, box,
                    {{{"sAutomobilName"}, {"sAutomobilType"}, {"sSystem"}, {"sBrigade"}},
                     {{"sModel"}, {"sColor"}, {"sNumOfPlates"}, {"sFuel"}},
                     {{"sNumOfEngines"}, {"sChassisNum"}, {"sVIN"}, {"sDengue"}},
                     {{"sNumOFAxles"}, {"sNumOfWheels"}, {"sDocumentsDelivered", 2}},
                     {{"sDescMatter", 4}}});
    return box;
}

QGroupBox *CDlgAddAutomobilContractMatter::buildPayment()
{
    auto *box = new QGroupBox(u"پرداخت"_s, this);
    auto *lines = FormLines::column(box);
    lines->addLayout(FormLines::line(*m_form, {{"dFixAmount"}}));
    lines->addLayout(FormLines::line(*m_form, {{"sCheckCount"}, {"dAgreeAmount", 2}, {"sCheckNum", 2}}));
    lines->addLayout(FormLines::line(*m_form, {{"sBankName", 2}, {"sBranchName", 2}, {"sBranchCode"}, {"sDescCheck", 3}}));
    lines->addLayout(FormLines::line(
        *m_form, {{"dDamageAmount", 2}, {"dCompenseAmount", 2}, {"dRemainingAmount", 2}, {"sDescRemainingAmount", 3}}));
    return box;
}

QGroupBox *CDlgAddAutomobilContractMatter::buildRegistry()
{
    auto *box = new QGroupBox(u"ثبت و دفترخانه"_s, this);
    auto *lines = FormLines::column(box);
    lines->addLayout(FormLines::line(*m_form, {{"dateDeal"}, {"dateTradeUnit"}, {"sRegistryNum"}, {"sRightTahrir"}}));
    lines->addLayout(FormLines::line(*m_form, {{"dateDocument"}, {"dateOffice"}}));
    lines->addLayout(FormLines::line(*m_form, {{"dEveryHandDealAmount", 2}, {"sBillNumOne"}, {"sBillNumTwo"}}));
    lines->addLayout(FormLines::line(*m_form, {{"sState", 2}, {"sCity", 2}, {"sLicense", 2}, {"sAddressSample", 3}}));
    lines->addLayout(FormLines::line(*m_form, {{"sSampleDescOne"}, {"sSampleDescTwo"}}));
    return box;
}

QGroupBox *CDlgAddAutomobilContractMatter::buildTerms()
{
    m_terms = new QGroupBox(this);
    m_instalments = new QPushButton(u"محاسبه اقساط"_s, m_terms);
    m_instalments->setAccessibleName(m_instalments->text());
    m_instalments->setAutoDefault(false);
    connect(m_instalments, &QPushButton::clicked, this, &CDlgAddAutomobilContractMatter::instalmentsRequested);
    auto *lines = FormLines::column(m_terms);
    // What only a rent has comes last, so that an instalment sale's line has its gap at the end.
    lines->addLayout(FormLines::line(
        *m_form, {{"sRentTime", 2}, {"dateRent", 2}, {"dateRentExpire", 2}, {"dAmountRent", 3}, {"sNumOfMonths"}}));
    auto *plan = FormLines::line(*m_form, {{"sNumOfInstallment"}, {"sUsanceNum"}, {"dDelayAmount", 2}});
    plan->addWidget(m_instalments, 0, plan->columnCount());
    lines->addLayout(plan);
    return m_terms;
}

void CDlgAddAutomobilContractMatter::showContractType(int contractType)
{
    for (const KFormField &field : m_form->fields())
        m_form->setUsed(field.column, MatterVisibility::isUsed(contractType, field.column));
    const bool instalments = MatterVisibility::hasInstalments(contractType);
    const std::pair<const char *, QString> period[] = {
        {"sRentTime", u"مدت معامله :"_s},
        {"dateRent", u"از تاریخ :"_s},
        {"dateRentExpire", u"لغایت :"_s},
    };
    for (const auto &[name, label] : period)
        m_form->setLabel(QString::fromLatin1(name), instalments ? label : QString());
    m_terms->setTitle(instalments ? u"اقساط"_s : u"اجاره"_s);
    m_terms->setVisible(MatterVisibility::hasTerms(contractType));
    m_instalments->setVisible(instalments);
}

void CDlgAddAutomobilContractMatter::fill(CTblAutomobilContracts &contract)
{
    const QScopedValueRollback filling(m_filling, true);
    m_form->setShowMode(isShowMode());
    m_form->load(contract);
    offerCities();
    showContractType(contract.m_iContractType);
}

void CDlgAddAutomobilContractMatter::offerCities()
{
    const QStringList cities = Provinces::cities(m_form->comboBox(u"sState"_s)->currentText());
    m_form->setChoices(u"sCity"_s, cities);
    if (m_filling || cities.isEmpty())
        return;
    // Another province was taken: a city known to be elsewhere is cleared, one typed by hand stays.
    QComboBox *city = m_form->comboBox(u"sCity"_s);
    if (city->findText(city->currentText()) < 0 && Provinces::isCity(city->currentText()))
        city->clearEditText();
}

QStringList CDlgAddAutomobilContractMatter::takeVehicle(const QList<ContractFieldText> &fields)
{
    QStringList shortened;
    for (const auto &[name, text] : fields) {
        KEdit *edit = m_form->edit(name);
        edit->setText(text);
        edit->setCursorPosition(0);
        if (edit->plainText().size() < text.size())
            shortened.append(edit->accessibleName().remove(u" :"_s));
    }
    return shortened;
}

double CDlgAddAutomobilContractMatter::amountLeftOf(double contractAmount) const
{
    return amountLeft(contractAmount, m_form->edit(u"dFixAmount"_s)->number(), m_form->edit(u"dAgreeAmount"_s)->number());
}

bool CDlgAddAutomobilContractMatter::validate()
{
    if (isShowMode())
        return true;
    const auto isEmpty = [this](const char *name) { return m_form->edit(QString::fromLatin1(name))->text().trimmed().isEmpty(); };
    if (isEmpty("sAutomobilName"))
        return refuse(u"لطفا نام اتومبیل را مشخص کنید."_s, m_form->edit(u"sAutomobilName"_s));
    KEdit *year = m_form->edit(u"sModel"_s);
    if (!isModelYear(year->text())) {
        refuse(u"لطفا سال را بزرگتر از سال 1000 وارد کنید."_s, year);
        year->selectAll();
        return false;
    }
    if (isEmpty("sColor"))
        return refuse(u"لطفا رنگ خودرو را مشخص کنید."_s, m_form->edit(u"sColor"_s));
    if (isEmpty("sNumOfPlates"))
        return refuse(u"لطفا شماره پلاک را وارد کنید."_s, m_form->edit(u"sNumOfPlates"_s));
    if (const auto problem = m_form->firstInvalid())
        return refuse(problem->message, problem->widget);
    return true;
}

QList<KForm::Problem> CDlgAddAutomobilContractMatter::doubts() const
{
    return vehicleDoubts(m_form->edit(column("sModel")), m_form->edit(column("sNumOfWheels")));
}

void CDlgAddAutomobilContractMatter::write(CTblAutomobilContracts &contract)
{
    m_form->store(contract);
    contract.m_sModel = toAsciiDigits(contract.m_sModel.trimmed());
    follow(contract);
}

// The page of an instalment sale has no line for what is left to pay, yet the printed contract states it: it is the amount split
// into instalments.
void CDlgAddAutomobilContractMatter::follow(CTblAutomobilContracts &contract)
{
    if (contract.m_iContractType == instalmentSale)
        contract.m_dRemainingAmount = amountLeft(contract.m_dAmount, contract.m_dFixAmount, contract.m_dAgreeAmount);
}
