// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/register/editor/CDlgAddAutomobilInformationBase.h"

#include "auto/editor/ArchiveLine.h"
#include "auto/words/StoredTexts.h"
#include "auto/cars/register/editor/CarFields.h"
#include "auto/cars/register/editor/CarTwins.h"
#include "auto/cars/fields/CatalogFields.h"
#include "auto/cars/fields/ItemFields.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/cars/fields/VehicleDoubts.h"
#include "auto/cars/register/editor/VehicleIdentification.h"
#include "auto/catalog/parameters/InputParameters.h"
#include "auto/db/CTblAutomobilInformations.h"
#include "suite/accounting/attachments/RecordPictures.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/accounting/twins/TwinNote.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/db/records/KExpectedRow.h"
#include "suite/image/KStaticImage.h"
#include "suite/image/PictureStrip.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KStepArrows.h"
#include "suite/utility/entries/PlateEdit.h"
#include "suite/utility/entries/PlateKindBox.h"
#include "suite/utility/frame/ScrolledPage.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/look/PlatePicture.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString vinColumn = u"sVIN"_s;
const QString plateColumn = u"sNumOfPlates"_s;

// The columns that take a value of the suite's items, with its kind.
constexpr std::pair<QStringView, int> itemLists[] = {
    {u"iSystem", InputParameters::System},
    {u"iVolumCylinders", InputParameters::EngineVolume},
    {u"iBodyStatus", InputParameters::BodyStatus},
    {u"iColor", InputParameters::Color},
    {u"iSource", InputParameters::Source},
};

QString hintFor(VehicleIdentification::State state)
{
    switch (state) {
    case VehicleIdentification::State::WrongLength:
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
    wireTwins();
    connect(m_form->edit(plateColumn), &KEdit::textChanged, this, &CDlgAddAutomobilInformationBase::showPlate);
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

    auto *cards = new CardStack(content);
    cards->addPair(buildIdentity(content), buildPicture(content));
    cards->addCard(buildVehicle(content));
    cards->addCard(buildNumbers(content));
    cards->addCard(buildEquipment(content));
    cards->addCard(m_archiveLine);
    fillWithScrolled(this, content);
}

// The car's own entry above its owner.
QWidget *CDlgAddAutomobilInformationBase::buildIdentity(QWidget *content)
{
    auto *both = new QWidget(content);
    auto *entry = new QGroupBox(both);
    m_form->place(new FormGrid(entry, FormGrid::Extent::Half), {{"iCode"}, {"dateCreate"}, {"dateIntroduction"}, {"iSource"}});
    m_owner = new PersonGroup(u"مشخصات مالک"_s,
                              PersonGroup::Clearable | PersonGroup::WithNationalCode | PersonGroup::BesideAnother, both, u"مالک"_s);
    auto *column = new QVBoxLayout(both);
    column->setContentsMargins({});
    column->setSpacing(LookSizes::cardGap);
    column->addWidget(entry);
    column->addWidget(m_owner, 1);
    return both;
}

QWidget *CDlgAddAutomobilInformationBase::buildPicture(QWidget *content)
{
    auto *box = new QGroupBox(content);
    m_picture = new KStaticImage(box);
    m_picture->setAccessibleName(u"عکس"_s);
    m_furtherPictures = new PictureStrip(m_picture, box);
    auto *line = new QHBoxLayout(box);
    line->setContentsMargins(LookSizes::cardPadding, LookSizes::unit, LookSizes::cardPadding, LookSizes::unit);
    line->setSpacing(LookSizes::gutter);
    line->addWidget(m_picture, 0, Qt::AlignCenter);
    line->addWidget(m_furtherPictures, 1);
    return box;
}

QWidget *CDlgAddAutomobilInformationBase::buildVehicle(QWidget *content)
{
    auto *box = new QGroupBox(u"مشخصات خودرو"_s, content);
    m_form->place(new FormGrid(box), {{"iAutomobilType", 2}, {"iModel", 2}, {"iBrigade", 2}, {"iSystem", 2}, {"iYear"}, {"iMonth"}, {"iColor", 2}, {"iFuel"}, {"iUsageType"}, {"iCountry", 2}, {"iBodyStatus", 2}, {"iVolumCylinders", 2}, {"iNumOfWheels"}, {"iNumOfCylinders"}, {"iCapacity"}, {"iNumOFAxles"}});
    return box;
}

QWidget *CDlgAddAutomobilInformationBase::buildNumbers(QWidget *content)
{
    auto *box = new QGroupBox(u"شماره ها، مبلغ و بيمه"_s, content);
    auto *grid = new FormGrid(box);
    m_form->place(grid, plateColumn, 2);
    m_plate = new PlatePicture(box);
    grid->addCell(m_plate);
    m_plateKind = new PlateKindBox(static_cast<PlateEdit *>(m_form->control(plateColumn)), box);
    m_plateKind->setObjectName(u"plateKind"_s);
    grid->addField(labelFor(u"نوع پلاک :"_s, m_plateKind), nullptr, m_plateKind, 1);
    m_form->place(grid, {{"sChassisNum", 2}, {"sNumOfEngines"}, {"sNumOfBodies"}, {"sVIN", 2}, {"iFunction"}, {"dAmount"}, {"iTypeDocument"}, {"dateInsurance"}, {"sDiscountYears"}, {"sNameInsurance"}, {"sInsuranceStatus", 2}});
    return box;
}

// The equipment that the car has, beside what it lacks.
QWidget *CDlgAddAutomobilInformationBase::buildEquipment(QWidget *content)
{
    auto *box = new QGroupBox(u"لوازم، مدارک و توضيحات"_s, content);
    m_form->place(new FormGrid(box), {{"sAccessories", 4}, {"sFractionalParts", 4}, {"sDocumentsDelivered", 4}, {"sDocumentsDeficit", 4}, {"sFacilities", 4}, {"sDesc", 2}, {"sDescSpecial", 2}});
    return box;
}

void CDlgAddAutomobilInformationBase::wireItems()
{
    using namespace InputParameters;
    for (const auto &[column, option] : itemLists)
        m_items->addList(column.toString(), option);
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

void CDlgAddAutomobilInformationBase::wireTwins()
{
    for (const CarTwins::Field &field : CarTwins::fields()) {
        const auto otherHint = field.column == vinColumn ? std::function([this] { return vinHint(); }) : std::function<QString()>();
        const auto find = [this, field](const QString &text) { return CarTwins::find(field, text, m_carID); };
        m_twins.append(new TwinNote(m_form->edit(field.column), find, otherHint));
    }
}

void CDlgAddAutomobilInformationBase::expectChoices()
{
    for (const auto &[column, option] : itemLists)
        CTblMultiItems::expectValues(InputParameters::itemType(option));
    CTblMultiItems::expectValues(CTblItems::typeCountry);
    CatalogFields::expectBrands();
    KTableSchema::expect(u"AutomobilInformations"_s);
    expectStoredTexts("AutomobilInformations", "sNameInsurance");
}

void CDlgAddAutomobilInformationBase::expectFill(const CTblAutomobilInformations &car)
{
    CatalogFields::expectBelow(car.m_iAutomobilType, car.m_iModel);
    expectRow<CTblPersons>(car.m_iPersonID);
    RecordPictures::expectFurther(CTblAutomobilInformations::recordKind, car.m_iID);
}

void CDlgAddAutomobilInformationBase::fill(CTblAutomobilInformations &car)
{
    m_carID = car.m_iID;
    m_form->setShowMode(isShowMode());
    m_items->fill();
    m_catalog->show(car.m_iAutomobilType, car.m_iModel, car.m_iBrigade);
    m_form->setChoices(u"sNameInsurance"_s, storedTexts("AutomobilInformations", "sNameInsurance"));
    m_form->load(car);
    m_owner->setPersonID(car.m_iPersonID);
    m_owner->setReadOnly(isShowMode());
    m_plateKind->setEnabled(!isShowMode());
    LoadKStaticImageFromLongBinary(*m_picture, car.m_oPicture);
    m_picture->setReadOnly(isShowMode());
    m_furtherPictures->load(CTblAutomobilInformations::recordKind, car.m_iID);
    m_furtherPictures->setReadOnly(isShowMode());
    m_archiveLine->showArchived(car);
    m_archiveLine->setVisible(car.m_iArchiveUserID != 0);
    for (TwinNote *twin : std::as_const(m_twins))
        twin->loaded();
    showPlate();
    // Otherwise the window would open on its confirm button.
    if (!isShowMode())
        (mode() == EditorMode::New ? m_owner->codeEdit() : m_form->control(u"iAutomobilType"_s))
            ->setFocus(Qt::TabFocusReason);
}

bool CDlgAddAutomobilInformationBase::validate()
{
    if (isShowMode())
        return true;
    if (m_owner->name().trimmed().isEmpty()) {
        refuse(u"لطفا نام مالک را وارد نمائید."_s, m_owner->codeEdit());
        m_owner->pick();
        return false;
    }
    return validateTwins();
}

// Before anything is asked. The unit looks again.
bool CDlgAddAutomobilInformationBase::validateTwins()
{
    for (qsizetype i = 0; i < m_twins.size(); ++i) {
        const CarTwins::Field &field = CarTwins::fields().at(i);
        const std::optional<Twin> twin = m_twins.at(i)->found();
        if (twin && TwinSettings::binds(field.refused))
            return refuse(TwinSettings::refusal(field.ofCar(), *twin), m_form->edit(field.column));
    }
    return true;
}

QList<KForm::Problem> CDlgAddAutomobilInformationBase::doubts() const
{
    QList<KForm::Problem> doubts = vehicleDoubts(m_form->edit(u"iYear"_s), m_form->edit(u"iNumOfWheels"_s));
    for (qsizetype i = 0; i < m_twins.size(); ++i) {
        const CarTwins::Field &field = CarTwins::fields().at(i);
        if (const std::optional<Twin> twin = m_twins.at(i)->found())
            doubts.append({m_form->edit(field.column), u"%1 در «%2» هم هست."_s.arg(field.ofCar(), twin->text)});
    }
    return doubts;
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
    return hintFor(VehicleIdentification::check(m_form->edit(vinColumn)->plainText()));
}

void CDlgAddAutomobilInformationBase::showPlate()
{
    const QString plate = m_form->edit(plateColumn)->plainText();
    m_plate->setText(plate);
    Q_EMIT plateChanged(plate);
}
