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

namespace {

const QString vinColumn = QStringLiteral("sVIN");

QString hintFor(VehicleIdentification::State state)
{
    switch (state) {
    case VehicleIdentification::State::WrongLength:
        return QStringLiteral("VIN هفده نویسه دارد.");
    case VehicleIdentification::State::WrongCharacter:
        return QStringLiteral("تنها رقم و حرف لاتین، بدون I و O و Q، پذیرفته است.");
    case VehicleIdentification::State::WrongCheckDigit:
        return QStringLiteral("رقم کنترل درست نیست.");
    case VehicleIdentification::State::Empty:
    case VehicleIdentification::State::Good:
        break;
    }
    return {};
}

}

CDlgAddAutomobilInformationBase::CDlgAddAutomobilInformationBase(EditorMode mode, QWidget *parent)
    : CarEditorPage(mode, QStringLiteral("اطلاعات پایه"), parent)
{
    build();
    wireItems();
    m_form->arrows(QStringLiteral("iYear"))->setStart(GetShamsiYearOfToday());
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
    m_owner = new PersonGroup(QStringLiteral("مشخصات مالک"), PersonGroup::Clearable | PersonGroup::WithNationalCode, content,
                              QStringLiteral("مالک"));
    m_picture = new KStaticImage(content);
    m_picture->setAccessibleName(QStringLiteral("عکس"));
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
    auto *box = new QGroupBox(QStringLiteral("مشخصات خودرو"), content);
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
    auto *box = new QGroupBox(QStringLiteral("شماره ها، مبلغ و بيمه"), content);
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

// What the car has stands beside what it lacks of it.
QWidget *CDlgAddAutomobilInformationBase::buildEquipment(QWidget *content)
{
    auto *box = new QGroupBox(QStringLiteral("لوازم، مدارک و توضيحات"), content);
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
    m_items->addList(QStringLiteral("iSystem"), System);
    m_items->addList(QStringLiteral("iVolumCylinders"), EngineVolume);
    m_items->addList(QStringLiteral("iBodyStatus"), BodyStatus);
    m_items->addList(QStringLiteral("iColor"), Color);
    m_items->addList(QStringLiteral("iSource"), Source);
    m_items->addPickedList(QStringLiteral("iCountry"), CTblItems::typeCountry, QStringLiteral("کشور"));
    m_items->addNumber(QStringLiteral("iNumOfWheels"), WheelCount);
    m_items->addNumber(QStringLiteral("iNumOfCylinders"), CylinderCount);
    m_items->addNumber(QStringLiteral("iCapacity"), Capacity);
    m_items->addTexts(QStringLiteral("sAccessories"), Accessory);
    m_items->addTexts(QStringLiteral("sFacilities"), Feature);
    m_items->addTexts(QStringLiteral("sDocumentsDelivered"), DeliveredDocument);
    m_items->addMissing(QStringLiteral("sFractionalParts"), QStringLiteral("sAccessories"), Accessory,
                        QStringLiteral("نوشتن لوازمی که خودرو ندارد"));
    m_items->addMissing(QStringLiteral("sDocumentsDeficit"), QStringLiteral("sDocumentsDelivered"), DeliveredDocument,
                        QStringLiteral("نوشتن مدارکی که تحویل نشده است"));
}

void CDlgAddAutomobilInformationBase::fill(CTblAutomobilInformations &car)
{
    m_form->setShowMode(isShowMode());
    m_items->fill();
    m_catalog->show(car.m_iAutomobilType, car.m_iModel, car.m_iBrigade);
    m_form->setChoices(QStringLiteral("sNameInsurance"), storedTexts("AutomobilInformations", "sNameInsurance"));
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
        (mode() == EditorMode::New ? m_owner->codeEdit() : m_form->control(QStringLiteral("iAutomobilType")))
            ->setFocus(Qt::TabFocusReason);
}

bool CDlgAddAutomobilInformationBase::validate()
{
    if (isShowMode() || !m_owner->name().trimmed().isEmpty())
        return true;
    refuse(QStringLiteral("لطفا نام مالک را وارد نمائید."), m_owner->codeEdit());
    m_owner->pick();
    return false;
}

void CDlgAddAutomobilInformationBase::write(CTblAutomobilInformations &car)
{
    m_form->store(car);
    car.m_iPersonID = m_owner->personID();
    SaveKStaticImageToLongBinary(*m_picture, car.m_oPicture);
}

OfferedCar CDlgAddAutomobilInformationBase::offered() const
{
    return {m_form->key(QStringLiteral("iAutomobilType")), m_form->key(QStringLiteral("iColor")),
            m_form->edit(QStringLiteral("iYear"))->integer(), m_form->edit(QStringLiteral("dAmount"))->number()};
}

int CDlgAddAutomobilInformationBase::code() const
{
    return m_form->edit(QStringLiteral("iCode"))->integer();
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
