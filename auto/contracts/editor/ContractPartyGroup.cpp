// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/contracts/editor/ContractPartyGroup.h"

#include "auto/db/CTblAutomobilContracts.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/persons/KPersonField.h"
#include "suite/crm/persons/PersonTwins.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/accounting/twins/TwinNote.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/Money.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Kind = KFormField::Kind;

// A field's accessible name distinguishes the two sides.
QString ofSide(const QString &label, int side)
{
    return label + (side == 1 ? u" طرف اول"_s : u" طرف دوم"_s);
}

// Both share a column: the percentage takes what three of its digits need, the amount the rest.
QHBoxLayout *percentAndAmount(KEdit *percent, QWidget *amount)
{
    constexpr int gap = 2;
    constexpr int percentWidth = 40;
    auto *row = new QHBoxLayout;
    row->setSpacing(gap);
    percent->setFixedWidth(LookSizes::scaled(percentWidth));
    row->addWidget(percent);
    row->addWidget(new QLabel(u"%"_s, percent->parentWidget()));
    row->addWidget(amount, 1);
    LookMarks::setShared(percent);
    LookMarks::setShared(amount);
    return row;
}

}

const ContractPartySide &ContractPartySide::first()
{
    using Field = CommissionField;
    static const ContractPartySide side = {
        1, &CTblAutomobilContracts::m_iPersonFirstID, &CTblAutomobilContracts::m_sName1, Field::FirstKind, Field::FirstDiscountPercent, u"iPersonContract1"_s, u"sByVirtueFirst"_s, u"sFromFirst"_s, u"sNationalId1"_s, u"sAddress1"_s, u"sTel1"_s, u"sMobile1"_s, u"dPercentTax"_s, u"dTax"_s, u"dPercentImpsition"_s, u"dImposition"_s, u"dPercentDiscount"_s, u"dDiscountFirst"_s, u"dPayFirst"_s, {{{Field::FirstTaxPercent, u"dPercentTax"_s}, {Field::FirstTax, u"dTax"_s}, {Field::FirstDutyPercent, u"dPercentImpsition"_s}, {Field::FirstDuty, u"dImposition"_s}, {Field::FirstDiscountPercent, u"dPercentDiscount"_s}, {Field::FirstDiscount, u"dDiscountFirst"_s}, {Field::FirstPays, u"dPayFirst"_s}}}};
    return side;
}

const ContractPartySide &ContractPartySide::second()
{
    using Field = CommissionField;
    static const ContractPartySide side = {
        2, &CTblAutomobilContracts::m_iPersonSecondID, &CTblAutomobilContracts::m_sName2, Field::SecondKind, Field::SecondDiscountPercent, u"iPersonContract2"_s, u"sByVirtueSecond"_s, u"sFromSecond"_s, u"sNationalId2"_s, u"sAddress2"_s, u"sTel2"_s, u"sMobile2"_s, u"dPercentTax2"_s, u"dTax2"_s, u"dPercentImposition2"_s, u"dImposition2"_s, u"dPercentDiscount2"_s, u"dDiscountSecond"_s, u"dPaySecond"_s, {{{Field::SecondTaxPercent, u"dPercentTax2"_s}, {Field::SecondTax, u"dTax2"_s}, {Field::SecondDutyPercent, u"dPercentImposition2"_s}, {Field::SecondDuty, u"dImposition2"_s}, {Field::SecondDiscountPercent, u"dPercentDiscount2"_s}, {Field::SecondDiscount, u"dDiscountSecond"_s}, {Field::SecondPays, u"dPaySecond"_s}}}};
    return side;
}

QList<KFormField> ContractPartySide::formFields() const
{
    const QString percent = u"درصد "_s;
    const QString taxLabel = u"ماليات :"_s;
    const QString dutyLabel = u"عوارض :"_s;
    const QString discountLabel = u"تخفيف :"_s;
    auto named = [this](const QString &column, const QString &label, Kind kind, const QString &prefix = {}) {
        return KFormField{column, label, kind, ofSide(prefix + label, number)};
    };
    KFormField kindField = named(kind, u"شخص قرارداد :"_s, Kind::Choice);
    kindField.choices = {u"عادی"_s, u"نمایشگاه"_s, u"متفرقه"_s};
    KFormField paysField = named(pays, u"پرداختي :"_s, Kind::Money);
    paysField.inWords = true;
    return {
        kindField,
        named(byVirtue, u"بموجب :"_s, Kind::Text),
        named(from, u"از طرف :"_s, Kind::Text),
        named(nationalId, u"کد ملي :"_s, Kind::Text),
        named(address, u"آدرس :"_s, Kind::Text),
        named(tel, u"تلفن :"_s, Kind::Text),
        named(mobile, u"موبايل :"_s, Kind::Text),
        named(taxPercent, taxLabel, Kind::Percent, percent),
        named(tax, taxLabel, Kind::Money),
        named(dutyPercent, dutyLabel, Kind::Percent, percent),
        named(duty, dutyLabel, Kind::Money),
        named(discountPercent, discountLabel, Kind::Percent, percent),
        named(discount, discountLabel, Kind::Money),
        paysField,
    };
}

ContractPartyGroup::ContractPartyGroup(const ContractPartySide &side, KForm &form, QWidget *parent)
    : QGroupBox(parent)
    , m_side(side)
    , m_form(form)
    , m_person(new KPersonField(ofSide(u"نام و نام خانوادگي :"_s, side.number), this))
    , m_father(new KEdit(this))
    , m_identityCity(new KEdit(this))
    , m_identityNumber(new KEdit(this))
    , m_birth(new KDateEdit(this))
{
    auto *grid = new FormGrid(this, FormGrid::Extent::Half);
    buildPersonRows(grid);
    buildFigureRow(grid);

    connect(m_form.comboBox(m_side.kind), &QComboBox::currentIndexChanged, this, [this] {
        if (!m_filling)
            kindChosen();
    });
    connect(m_person, &KPersonField::changed, this, [this](int personID) {
        if (personID > 0) {
            takePerson(personID);
        } else {
            clearPerson();
            Q_EMIT personDiscountFound(0);
        }
    });
    setPersonDataEditable(false);
    offerKnownPerson();
}

// Who is typed by hand and is in the list of persons already can be taken from there, by whoever may choose from it.
void ContractPartyGroup::offerKnownPerson()
{
    const auto find = [this](const QString &code) {
        const bool isOffered = kind() == PartyKind::Other && KSecurity::IsGranted(u"Persons"_s, KSecurity::Access);
        return isOffered ? PersonTwins::ofNationalCode(code, 0) : std::nullopt;
    };
    const auto take = [this](const Twin &person) {
        setKind(PartyKind::Ordinary);
        takePerson(person.key);
    };
    new TwinNote(m_form.edit(m_side.nationalId), find, {}, take);
}

void ContractPartyGroup::buildPersonRows(FormGrid *grid)
{
    const auto place = [&](const QString &label, QWidget *control, int span = 1) {
        grid->addField(labelFor(label, control, ofSide(label, m_side.number)), new FieldNote(control, this), control, span);
    };
    m_person->nameEdit()->setMaxLength(100);
    m_form.place(grid, m_side.kind);
    m_form.place(grid, m_side.nationalId);
    place(u"نام و نام خانوادگي :"_s, m_person, 2);
    place(u"نام پدر :"_s, m_father);
    place(u"تاريخ تولد :"_s, m_birth);
    place(u"محل صدور :"_s, m_identityCity);
    place(u"شماره شناسنامه :"_s, m_identityNumber);
    m_form.place(grid, m_side.tel);
    m_form.place(grid, m_side.mobile);
    m_form.place(grid, m_side.address, 2);
    m_form.place(grid, m_side.byVirtue, 2);
    m_form.place(grid, m_side.from, 2);

    // The contract has no columns for these four: they come from the person's record.
    for (QWidget *control : {static_cast<QWidget *>(m_father), static_cast<QWidget *>(m_identityCity),
                             static_cast<QWidget *>(m_identityNumber), static_cast<QWidget *>(m_birth)})
        control->setToolTip(u"از پرونده شخص نمایش داده می‌شود و در قرارداد ذخیره نمی‌شود."_s);
}

// Tax, duty and discount, each a percentage and its amount; what the party pays, and below it the same in words.
void ContractPartyGroup::buildFigureRow(FormGrid *grid)
{
    const auto place = [&](const QString &percent, const QString &amount) {
        m_form.label(amount)->hide();
        KEdit *figure = m_form.edit(amount);
        grid->addField(m_form.label(percent), new FieldNote(figure, this), percentAndAmount(m_form.edit(percent), figure), 1);
    };
    place(m_side.taxPercent, m_side.tax);
    place(m_side.dutyPercent, m_side.duty);
    place(m_side.discountPercent, m_side.discount);
    m_form.place(grid, m_side.pays, 1, 4);
}

PartyKind ContractPartyGroup::kind() const
{
    return static_cast<PartyKind>(m_form.comboBox(m_side.kind)->currentIndex());
}

QString ContractPartyGroup::name() const
{
    return m_person->name();
}

void ContractPartyGroup::fill(const CTblAutomobilContracts &contract)
{
    m_filling = true;
    // The form has set the kind; here the rest follows it without emptying what the contract keeps.
    applyKind();
    const int personID = contract.*(m_side.personID);
    m_person->setPerson(std::max(personID, 0), contract.*(m_side.name));
    showPersonalData(CTblPersons());
    m_filling = false;
}

void ContractPartyGroup::showPerson(const CTblPersons &person)
{
    m_person->setPerson(person.m_iID, person.m_sName2.isEmpty() ? m_person->name() : person.m_sName2);
    showPersonalData(person);
}

void ContractPartyGroup::write(CTblAutomobilContracts &contract) const
{
    contract.*(m_side.personID) = m_person->personID();
    contract.*(m_side.name) = m_person->name();
}

void ContractPartyGroup::setShowMode(bool show)
{
    m_person->setButtonsVisible(!show);
    applyKind();
}

std::optional<KForm::Problem> ContractPartyGroup::discountProblem() const
{
    const double pays = m_form.edit(m_side.pays)->number();
    if (pays >= 0 || IsEquals(pays, 0))
        return std::nullopt;
    return KForm::Problem{m_form.edit(m_side.discount),
                          ofSide(u"تخفیف"_s, m_side.number) + u" بیشتر از مبلغی است که باید بپردازد."_s};
}

void ContractPartyGroup::askForPerson()
{
    if (kind() == PartyKind::Ordinary)
        m_person->pick();
    else
        m_person->nameEdit()->setFocus(Qt::OtherFocusReason);
}

void ContractPartyGroup::setKind(PartyKind kind)
{
    m_form.comboBox(m_side.kind)->setCurrentIndex(static_cast<int>(kind));
}

void ContractPartyGroup::kindChosen()
{
    const bool hadPerson = !name().isEmpty();
    clearPerson();
    if (hadPerson)
        Q_EMIT personDiscountFound(0);
    if (kind() == PartyKind::Showroom)
        takeCompany();
    applyKind();
    Q_EMIT kindChanged();
}

void ContractPartyGroup::clearPerson()
{
    m_person->clear();
    showPersonalData(CTblPersons());
    for (const QString &column : {m_side.nationalId, m_side.address, m_side.tel, m_side.mobile})
        m_form.edit(column)->clear();
}

void ContractPartyGroup::takePerson(int personID)
{
    CTblPersons person;
    if (!person.IsRecordExist(u"iID"_s, personID))
        return;
    m_person->setPerson(personID, person.m_sName2);
    showPersonalData(person);
    m_form.edit(m_side.nationalId)->setText(person.m_sNationalCode);
    m_form.edit(m_side.address)->setText(person.m_sAddress);
    m_form.edit(m_side.tel)->setText(person.m_sTel);
    m_form.edit(m_side.mobile)->setText(person.m_sMobile);
    Q_EMIT personDiscountFound(person.m_dPercentDiscount);
}

void ContractPartyGroup::showPersonalData(const CTblPersons &person)
{
    m_father->setText(person.m_sFatherName);
    m_identityCity->setText(person.m_sIdentityCity);
    m_identityNumber->setText(person.m_sIdentityNum);
    m_birth->setDateTime(person.m_dateBirth);
}

void ContractPartyGroup::takeCompany()
{
    const CompanyDetails company = CompanyDetails::read();
    m_person->setName(company.name());
    m_form.edit(m_side.tel)->setText(company.telephone);
    m_form.edit(m_side.address)->setText(company.address);
    m_form.edit(m_side.nationalId)->setText(company.nationalCode);
    m_form.edit(m_side.mobile)->setText(company.mobile);
}

void ContractPartyGroup::applyKind()
{
    const bool editable = !m_form.isShowMode();
    m_person->setPickEnabled(editable && kind() == PartyKind::Ordinary);
    setPersonDataEditable(kind() == PartyKind::Other);
    for (const QString &column : {m_side.discountPercent, m_side.discount})
        m_form.setReadOnly(column, kind() == PartyKind::Showroom);
}

void ContractPartyGroup::setPersonDataEditable(bool editable)
{
    const bool readOnly = !editable || m_form.isShowMode();
    m_person->setNameEditable(!readOnly);
    for (QLineEdit *edit : {static_cast<QLineEdit *>(m_father), static_cast<QLineEdit *>(m_identityCity),
                            static_cast<QLineEdit *>(m_identityNumber), static_cast<QLineEdit *>(m_birth)})
        edit->setReadOnly(readOnly);
    for (const QString &column : {m_side.nationalId, m_side.address, m_side.tel, m_side.mobile})
        m_form.setReadOnly(column, !editable);
}
