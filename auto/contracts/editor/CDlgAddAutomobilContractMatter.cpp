// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/CDlgAddAutomobilContractMatter.h"

#include "auto/cars/fields/VehicleDoubts.h"
#include "auto/contracts/editor/MatterFields.h"
#include "auto/contracts/editor/MatterVisibility.h"
#include "auto/contracts/figures/InstalmentSale.h"
#include "auto/contracts/figures/ModelYear.h"
#include "auto/db/CTblAutomobilContracts.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/values/Money.h"
#include "suite/utility/values/Provinces.h"
#include "suite/utility/frame/ScrolledPage.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/values/TextStandard.h"

#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QScopedValueRollback>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// An amount as the register's texts have it; none for 0.
QString enteredText(const KEdit &edit)
{
    if (edit.kind() != KEdit::Kind::Money)
        return edit.plainText();
    return IsEquals(edit.number(), 0) ? QString() : DToMoney(edit.number());
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

    auto *cards = new CardStack(content);
    cards->addCard(card(u"موضوع مشخصات مورد معامله"_s,
                        {{"sAutomobilName"}, {"sAutomobilType"}, {"sSystem"}, {"sBrigade"}, {"sModel"}, {"sColor"}, {"sNumOfPlates"}, {"sFuel"}, {"sNumOfEngines", 2}, {"sChassisNum", 2}, {"sVIN", 2}, {"sDengue"}, {"sNumOFAxles"}, {"sNumOfWheels"}, {"sDocumentsDelivered", 3}, {"sDescMatter", 4}}));
    cards->addCard(buildPayment());
    cards->addCard(buildTerms());
    cards->addCard(card(u"ثبت و دفترخانه"_s,
                        {{"dateDeal", 2}, {"dateTradeUnit", 2}, {"sRegistryNum", 2}, {"sRightTahrir", 2}, {"dateDocument", 2}, {"dateOffice", 2}, {"dEveryHandDealAmount", 2}, {"sBillNumOne"}, {"sBillNumTwo"}, {"sState"}, {"sCity"}, {"sLicense"}, {"sAddressSample"}, {"sSampleDescOne", 2}, {"sSampleDescTwo", 2}}));

    fillWithScrolled(this, content);
}

QGroupBox *CDlgAddAutomobilContractMatter::card(const QString &title, std::initializer_list<KForm::Cell> cells)
{
    auto *box = new QGroupBox(title, this);
    m_form->place(new FormGrid(box), cells);
    return box;
}

QPushButton *CDlgAddAutomobilContractMatter::smallButton(const QString &caption, QGroupBox *card, void (CDlgAddAutomobilContractMatter::*request)())
{
    auto *button = new QPushButton(caption, card);
    button->setAccessibleName(caption);
    button->setAutoDefault(false);
    LookMarks::setButton(button, LookMarks::Button::Small);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(button, &QPushButton::clicked, this, request);
    static_cast<FormGrid *>(card->layout())->addCell(button);
    return button;
}

QGroupBox *CDlgAddAutomobilContractMatter::buildPayment()
{
    QGroupBox *payment = card(u"پرداخت"_s, {{"dFixAmount", 2}, {"sCheckCount", 2}, {"dAgreeAmount", 2}, {"sCheckNum", 2}, {"sBankName"}, {"sBranchName"}, {"sBranchCode"}});
    m_cheques = smallButton(u"چک‌ها"_s, payment, &CDlgAddAutomobilContractMatter::chequesRequested);
    m_form->place(static_cast<FormGrid *>(payment->layout()),
                  {{"sDescCheck", 2}, {"dDamageAmount", 2}, {"dCompenseAmount", 2}, {"dRemainingAmount", 2}, {"sDescRemainingAmount", 6}});
    return payment;
}

QGroupBox *CDlgAddAutomobilContractMatter::buildTerms()
{
    // What only a rent has comes last, so that an instalment sale's line has its gap at the end.
    m_terms = card({}, {{"sRentTime"}, {"dateRent"}, {"dateRentExpire"}, {"dAmountRent", 2}, {"sNumOfMonths"}, {"sNumOfInstallment"}, {"sUsanceNum", 2}, {"dDelayAmount", 2}});
    m_instalments = smallButton(u"محاسبه اقساط"_s, m_terms, &CDlgAddAutomobilContractMatter::instalmentsRequested);
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

// Where the register says nothing new, what was typed stays without a question.
bool CDlgAddAutomobilContractMatter::mayTakeCheques(const QList<MatterCheques::FieldText> &before, const QList<MatterCheques::FieldText> &now)
{
    for (qsizetype index = 0; index < now.size(); ++index) {
        const QString entered = enteredText(*m_form->edit(now.at(index).column));
        if (entered.isEmpty() || entered == now.at(index).text || entered == before.at(index).text)
            continue;
        const QString question = u"فیلدهای چک این صفحه با چک‌های ثبت شده یکی نیست. با مشخصات چک‌های ثبت شده جایگزین شود؟"_s;
        return before != now && g_pDlgYesNo->Ask(question, this) != KMessageDialog::No;
    }
    return true;
}

void CDlgAddAutomobilContractMatter::followCheques(const QList<MatterCheques::FieldText> &before, const QList<MatterCheques::FieldText> &now)
{
    const auto isSaid = [](const MatterCheques::FieldText &field) { return !field.text.isEmpty(); };
    const bool hasCheques = std::ranges::any_of(before, isSaid) || std::ranges::any_of(now, isSaid);
    if (isShowMode() || !hasCheques || !mayTakeCheques(before, now))
        return;
    QStringList shortened;
    for (const MatterCheques::FieldText &field : now) {
        KEdit *edit = m_form->edit(field.column);
        edit->setText(field.text);
        edit->setCursorPosition(0);
        if (enteredText(*edit).size() < field.text.size())
            shortened.append(edit->accessibleName().remove(u" :"_s));
    }
    if (!shortened.isEmpty())
        g_pDlgWarning->Show(u"مشخصات چک‌ها در این فیلدها جا نشد و کوتاه شد، لطفا بررسی کنید: "_s + shortened.join(u"، "_s), this);
}

double CDlgAddAutomobilContractMatter::amountLeftOf(double contractAmount) const
{
    return InstalmentSale::amountLeft(contractAmount, m_form->edit(u"dFixAmount"_s)->number(), m_form->edit(u"dAgreeAmount"_s)->number());
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
    if (contract.m_iContractType == InstalmentSale::contractType)
        contract.m_dRemainingAmount = InstalmentSale::amountLeft(contract.m_dAmount, contract.m_dFixAmount, contract.m_dAgreeAmount);
}
