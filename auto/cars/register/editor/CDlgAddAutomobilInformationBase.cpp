// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CDlgAddAutomobilInformationBase.h"

#include "auto/editor/ArchiveLine.h"
#include "auto/editor/FormLines.h"
#include "auto/words/StoredTexts.h"
#include "auto/cars/register/editor/CarFields.h"
#include "auto/cars/fields/CatalogFields.h"
#include "auto/cars/fields/ItemFields.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/cars/fields/VehicleDoubts.h"
#include "auto/cars/register/editor/VehicleIdentification.h"
#include "auto/catalog/parameters/InputParameters.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/crm/persons/IdentityHints.h"
#include "suite/image/KStaticImage.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KStepArrows.h"
#include "suite/utility/frame/ScrolledPage.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString vinColumn = u"sVIN"_s;

QString hintFor(VehicleIdentification::State state)
{
    switch (state) {
    case VehicleIdentification::State::WrongLength:
        // Begun in Persian: a line takes its direction, and with it its side, from its first letter.
        return u"شماره VIN هفده نویسه دارد."_s;
    case VehicleIdentification::State::WrongCharacter:
        return u"تنها رقم و حرف لاتین، بدون I و O و Q، پذیرفته است."_s;
    case VehicleIdentification::State::WrongCheckDigit:
        return u"رقم کنترل درست نیست."_s;
    case VehicleIdentification::State::Empty:
    case VehicleIdentification::State::Good:
        break;
    }
    return {};
}

}

CDlgAddAutomobilInformationBase::CDlgAddAutomobilInformationBase(EditorMode mode, QWidget *parent)
    : CarEditorPage(mode, u"اطلاعات پایه"_s, parent)
{
    build();
    wireItems();
    m_form->arrows(u"iYear"_s)->setStart(GetShamsiYearOfToday());
    connect(m_form->edit(vinColumn), &KEdit::textChanged, this, &CDlgAddAutomobilInformationBase::showVinHint);
}

CDlgAddAutomobilInformationBase::~CDlgAddAutomobilInformationBase() = default;

void CDlgAddAutomobilInformationBase::build()
{
    auto *content = new QWidget(this);
    CTblAutomobilInformations columns;
    m_form = new KForm(CarFields::base(), columns, content);
    m_catalog = new CatalogFields(*m_form, this);
    m_items = new ItemFields(*m_form, this);
    m_archiveLine = new ArchiveLine(content);

    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addLayout(buildTop(content));
    layout->addWidget(buildVehicle(content));
    layout->addWidget(buildNumbers(content));
    layout->addWidget(buildEquipment(content));
    layout->addWidget(m_archiveLine);
    layout->addStretch(1);
    fillWithScrolled(this, content);
}

QHBoxLayout *CDlgAddAutomobilInformationBase::buildTop(QWidget *content)
{
    m_owner = new PersonGroup(u"مشخصات مالک"_s, PersonGroup::Clearable | PersonGroup::WithNationalCode, content,
                              u"مالک"_s);
    m_picture = new KStaticImage(content);
    m_picture->setAccessibleName(u"عکس"_s);
    auto *entries = new QVBoxLayout;
    entries->addLayout(FormLines::line(*m_form, {{"iCode"}, {"dateCreate"}, {"dateIntroduction"}, {"iSource", 2}}));
    entries->addWidget(m_owner);
    entries->addStretch(1);
    auto *top = new QHBoxLayout;
    top->addLayout(entries, 1);
    top->addWidget(m_picture);
    return top;
}

QWidget *CDlgAddAutomobilInformationBase::buildVehicle(QWidget *content)
{
    auto *box = new QGroupBox(u"مشخصات خودرو"_s, content);
    FormLines::grid(*m_form, box,
                    {
                        {{"iAutomobilType"}, {"iModel"}, {"iBrigade"}, {"iSystem"}},
                        {{"iYear"}, {"iMonth"}, {"iColor"}, {"iFuel"}},
                        {{"iUsageType"}, {"iCountry"}, {"iBodyStatus"}, {"iVolumCylinders"}},
                        {{"iNumOfWheels"}, {"iNumOfCylinders"}, {"iCapacity"}, {"iNumOFAxles"}},
                    });
    return box;
}

QWidget *CDlgAddAutomobilInformationBase::buildNumbers(QWidget *content)
{
    auto *box = new QGroupBox(u"شماره ها، مبلغ و بيمه"_s, content);
    QGridLayout *grid =
        FormLines::grid(*m_form, box,
                        {
                            {{"sNumOfPlates"}, {"sChassisNum"}, {"sNumOfEngines"}, {"sNumOfBodies"}},
                            {{"sVIN"}, {"iFunction"}, {"dAmount"}, {"iTypeDocument"}},
                            {{"dateInsurance"}, {"sDiscountYears"}, {"sNameInsurance"}, {"sInsuranceStatus"}},
                        });
    m_vinHint = IdentityHints::createLabel(box);
    // Over the neighbours as well: the sentence is longer than the field.
    grid->addWidget(m_vinHint, 3, 1, 1, 5);
    return box;
}

// The equipment that the car has, beside what it lacks.
QWidget *CDlgAddAutomobilInformationBase::buildEquipment(QWidget *content)
{
    auto *box = new QGroupBox(u"لوازم، مدارک و توضيحات"_s, content);
    FormLines::grid(*m_form, box,
                    {
                        {{"sAccessories", 2}, {"sFractionalParts", 2}},
                        {{"sDocumentsDelivered", 2}, {"sDocumentsDeficit", 2}},
                        {{"sFacilities", 2}, {"sDesc"}, {"sDescSpecial"}},
                    });
    return box;
}

void CDlgAddAutomobilInformationBase::wireItems()
{
    using namespace InputParameters;
    m_items->addList(u"iSystem"_s, System);
    m_items->addList(u"iVolumCylinders"_s, EngineVolume);
    m_items->addList(u"iBodyStatus"_s, BodyStatus);
    m_items->addList(u"iColor"_s, Color);
    m_items->addList(u"iSource"_s, Source);
    m_items->addPickedList(u"iCountry"_s, CTblItems::typeCountry, u"کشور"_s);
    m_items->addNumber(u"iNumOfWheels"_s, WheelCount);
    m_items->addNumber(u"iNumOfCylinders"_s, CylinderCount);
    m_items->addNumber(u"iCapacity"_s, Capacity);
    m_items->addTexts(u"sAccessories"_s, Accessory);
    m_items->addTexts(u"sFacilities"_s, Feature);
    m_items->addTexts(u"sDocumentsDelivered"_s, DeliveredDocument);
    m_items->addMissing(u"sFractionalParts"_s, u"sAccessories"_s, Accessory,
                        u"نوشتن لوازمی که خودرو ندارد"_s);
    m_items->addMissing(u"sDocumentsDeficit"_s, u"sDocumentsDelivered"_s, DeliveredDocument,
                        u"نوشتن مدارکی که تحویل نشده است"_s);
}

void CDlgAddAutomobilInformationBase::fill(CTblAutomobilInformations &car)
{
    m_form->setShowMode(isShowMode());
    m_items->fill();
    m_catalog->show(car.m_iAutomobilType, car.m_iModel, car.m_iBrigade);
    m_form->setChoices(u"sNameInsurance"_s, storedTexts("AutomobilInformations", "sNameInsurance"));
    m_form->load(car);
    m_owner->setPersonID(car.m_iPersonID);
    m_owner->setReadOnly(isShowMode());
    LoadKStaticImageFromLongBinary(*m_picture, car.m_oPicture);
    m_picture->setReadOnly(isShowMode());
    m_archiveLine->showArchived(car);
    m_archiveLine->setVisible(car.m_iArchiveUserID != 0);
    showVinHint();
    // Otherwise the window would open on its confirm button.
    if (!isShowMode())
        (mode() == EditorMode::New ? m_owner->codeEdit() : m_form->control(u"iAutomobilType"_s))
            ->setFocus(Qt::TabFocusReason);
}

bool CDlgAddAutomobilInformationBase::validate()
{
    if (isShowMode() || !m_owner->name().trimmed().isEmpty())
        return true;
    refuse(u"لطفا نام مالک را وارد نمائید."_s, m_owner->codeEdit());
    m_owner->pick();
    return false;
}

QList<KForm::Problem> CDlgAddAutomobilInformationBase::doubts() const
{
    return vehicleDoubts(m_form->edit(u"iYear"_s), m_form->edit(u"iNumOfWheels"_s));
}

void CDlgAddAutomobilInformationBase::write(CTblAutomobilInformations &car)
{
    m_form->store(car);
    car.m_iPersonID = m_owner->personID();
    SaveKStaticImageToLongBinary(*m_picture, car.m_oPicture);
}

QHash<QString, EditorTabPage::Entry> CDlgAddAutomobilInformationBase::furtherEntries() const
{
    return {{u"iPersonID"_s, {u"مالک"_s, m_owner->codeEdit()}}, {u"oPicture"_s, {u"عکس"_s, m_picture}}};
}

OfferedCar CDlgAddAutomobilInformationBase::offered() const
{
    return {m_form->key(u"iAutomobilType"_s), m_form->key(u"iColor"_s),
            m_form->edit(u"iYear"_s)->integer(), m_form->edit(u"dAmount"_s)->number()};
}

int CDlgAddAutomobilInformationBase::code() const
{
    return m_form->edit(u"iCode"_s)->integer();
}

QString CDlgAddAutomobilInformationBase::vinHint() const
{
    return m_vinHint->text();
}

void CDlgAddAutomobilInformationBase::showVinHint()
{
    KEdit *vin = m_form->edit(vinColumn);
    const QString hint = hintFor(VehicleIdentification::check(vin->plainText()));
    IdentityHints::show(hint, m_vinHint, vin);
    m_vinHint->setVisible(!hint.isEmpty());
}
