// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/editor/CDlgAddAutomobilDemandBase.h"

#include "auto/editor/ArchiveLine.h"
#include "auto/cars/demands/editor/DemandReminder.h"
#include "auto/cars/demands/editor/DemandYears.h"
#include "auto/cars/fields/ItemFields.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblCarBrands.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblMultiItems.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/crm/persons/CTblPersons.h"
#include "suite/db/connection/KTableSchema.h"
#include "suite/db/records/KExpectedRow.h"
#include "suite/utility/entries/EntryRange.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/ScrolledPage.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Kind = KFormField::Kind;

const QString typeColumn = u"iAutomobilType"_s;
const QString facilitiesColumn = u"iFacilities"_s;
const QString colorColumn = u"iColor"_s;
const QString yearFromColumn = u"iModelFrom"_s;
const QString yearUpToColumn = u"iModelUpTo"_s;
const QString amountFromColumn = u"dAmountFrom"_s;
const QString amountUpToColumn = u"dAmountUpTo"_s;
const QString referenceColumn = u"dateReference"_s;

QList<KFormField> formFields()
{
    KFormField code{u"iCode"_s, u"کد تقاضا :"_s, Kind::Integer};
    code.readOnly = true;
    KFormField amountFrom{amountFromColumn, u"مبلغ از :"_s, Kind::Money};
    KFormField amountUpTo{amountUpToColumn, u"تا مبلغ :"_s, Kind::Money};
    amountFrom.inWords = amountUpTo.inWords = true;
    KFormField color{colorColumn, u"رنگ :"_s, Kind::Lookup};
    KFormField facilities{facilitiesColumn, u"امکانات :"_s, Kind::Lookup};
    color.hasButton = facilities.hasButton = true;
    return {
        code,
        {u"sAcquaintances"_s, u"نحوه آشنايي :"_s},
        {typeColumn, u"خودرو درخواستي :"_s, Kind::Lookup},
        amountFrom,
        amountUpTo,
        {yearFromColumn, u"سال توليد از :"_s, Kind::Integer},
        {yearUpToColumn, u"تا :"_s, Kind::Integer, u"سال توليد تا :"_s},
        facilities,
        color,
        {referenceColumn, u"تاريخ مراجعه :"_s, Kind::Date},
        {u"dateMaxTimeNeed"_s, u"تاريخ حداکثر زمان نياز :"_s, Kind::Date},
        {u"sDesc"_s, u"توضيحات :"_s, Kind::LongText},
        {u"sDescSpecial"_s, u"توضيحات ويژه :"_s},
    };
}

void fillTypes(QComboBox *combo)
{
    CTblCarBrands::FillComboBox(combo);
    combo->insertItem(0, u"-"_s, 0);
}

}

CDlgAddAutomobilDemandBase::CDlgAddAutomobilDemandBase(EditorMode mode, QWidget *parent)
    : EditorPage(mode, u"اطلاعات پایه"_s, parent)
{
    build();
}

CDlgAddAutomobilDemandBase::~CDlgAddAutomobilDemandBase() = default;

void CDlgAddAutomobilDemandBase::build()
{
    auto *content = new QWidget(this);
    CTblAutomobilDemands columns;
    m_form = new KForm(formFields(), columns, content);
    m_person = new PersonGroup(u"مشخصات شخص متقاضي"_s, PersonGroup::WithFather, content);
    m_reminder = new DemandReminder(content);
    m_archiveLine = new ArchiveLine(content);

    auto *cards = new CardStack(content);
    cards->addCard(buildIdentity(content));
    cards->addCard(m_person);
    cards->addCard(buildWishes(content));
    cards->addCard(buildTexts(content));
    cards->addCard(m_reminder);
    cards->addCard(m_archiveLine);
    fillWithScrolled(this, content);
}

QWidget *CDlgAddAutomobilDemandBase::buildIdentity(QWidget *content)
{
    auto *box = new QGroupBox(content);
    auto *grid = new FormGrid(box);
    m_form->place(grid, u"iCode"_s);
    m_created = addShown(grid, u"تاريخ ايجاد :"_s, box);
    m_user = addShown(grid, u"کاربر :"_s, box);
    return box;
}

KEdit *CDlgAddAutomobilDemandBase::addShown(FormGrid *grid, const QString &label, QWidget *parent)
{
    auto *line = new KEdit(parent);
    line->setReadOnly(true);
    addLabelled(grid, label, line);
    return line;
}

QWidget *CDlgAddAutomobilDemandBase::buildWishes(QWidget *content)
{
    auto *box = new QGroupBox(u"مشخصات خودرو درخواستي"_s, content);
    m_form->place(new FormGrid(box), {{"iAutomobilType"}, {"iModelFrom"}, {"iModelUpTo"}, {"iColor"}, {"dAmountFrom", 2}, {"dAmountUpTo", 2}, {"iFacilities", 2}, {"dateReference"}, {"dateMaxTimeNeed"}});
    fillTypes(m_form->comboBox(typeColumn));
    auto *items = new ItemFields(*m_form, this);
    items->addPickedList(colorColumn, CTblItems::typeColor, u"رنگ"_s);
    items->addPickedList(facilitiesColumn, CTblItems::typeFeature, u"امکانات"_s);
    items->fill();
    return box;
}

QWidget *CDlgAddAutomobilDemandBase::buildTexts(QWidget *content)
{
    auto *box = new QGroupBox(content);
    m_form->place(new FormGrid(box), {{"sAcquaintances", 4}, {"sDescSpecial", 4}, {"sDesc", 8}});
    return box;
}

void CDlgAddAutomobilDemandBase::expectBuild()
{
    CTblCarBrands::expectChoice();
    KTableSchema::expect(u"AutomobilDemands"_s);
    for (const int itemType : {CTblItems::typeColor, CTblItems::typeFeature})
        CTblMultiItems::expectValues(itemType);
}

void CDlgAddAutomobilDemandBase::expectFill(const CTblAutomobilDemands &demand)
{
    expectRow<CTblUsers>(demand.m_iUserID);
    expectRow<CTblPersons>(demand.m_iPersonID);
}

void CDlgAddAutomobilDemandBase::fill(CTblAutomobilDemands &demand)
{
    m_form->setShowMode(isShowMode());
    m_form->load(demand);
    for (const QString &column : {colorColumn, facilitiesColumn})
        m_form->button(column)->setEnabled(!isShowMode());
    if (mode() == EditorMode::New)
        m_form->dateEdit(referenceColumn)->setDate(demand.m_dateCreate.date()); // by the server's clock, a moment ago
    m_created->setText(shamsiText(demand.m_dateCreate.date()));
    // Saving makes a new demand the current user's.
    const bool isNew = mode() == EditorMode::New && demand.m_iUserID == 0;
    m_user->setText(CTblUsers::GetName(isNew ? GetDBSetting()->GetUserID() : demand.m_iUserID));
    m_person->setPersonID(demand.m_iPersonID);
    m_person->setReadOnly(isShowMode());
    m_reminder->bind(demand.m_iID, demand.m_iCode, demand.m_iAlarmID, [this] { return proposedReminder(); });
    m_reminder->showFor(!isShowMode());
    m_archiveLine->showArchived(demand);
    m_archiveLine->setVisible(demand.m_iArchiveUserID != 0);
    // Otherwise the window would open on its confirm button.
    if (!isShowMode())
        m_person->codeEdit()->setFocus(Qt::TabFocusReason);
}

QString CDlgAddAutomobilDemandBase::proposedReminder() const
{
    QStringList parts{m_person->name()};
    if (m_form->key(typeColumn) != 0)
        parts.append(m_form->comboBox(typeColumn)->currentText());
    parts.removeAll(QString());
    const QString demand = u"تقاضای %1"_s.arg(m_form->edit(u"iCode"_s)->integer());
    return parts.isEmpty() ? demand : demand + u" - "_s + parts.join(u"، "_s);
}

bool CDlgAddAutomobilDemandBase::validate()
{
    if (m_person->name().trimmed().isEmpty()) {
        refuse(u"لطفا نام متقاضی را وارد نمایید."_s, m_person->codeEdit());
        m_person->pick();
        return false;
    }
    if (!areDemandYears(m_form->edit(yearFromColumn)->integer(), m_form->edit(yearUpToColumn)->integer()))
        return refuse(u"لطفا مدل سال بزرگتر از 1000 تا 3000 وارد کنید."_s, m_form->edit(yearFromColumn));
    if (const auto problem = m_form->firstInvalid())
        return refuseEntry(*problem);
    for (const auto &[from, upTo] : {std::pair(yearFromColumn, yearUpToColumn), std::pair(amountFromColumn, amountUpToColumn)}) {
        if (const QString error = rangeError(m_form->edit(from), m_form->edit(upTo)); !error.isEmpty())
            return refuse(error, m_form->edit(from));
    }
    return true;
}

QHash<QString, EditorTabPage::Entry> CDlgAddAutomobilDemandBase::furtherEntries() const
{
    return {{u"iPersonID"_s, {u"متقاضی"_s, m_person->codeEdit()}}};
}

void CDlgAddAutomobilDemandBase::write(CTblAutomobilDemands &demand)
{
    m_form->store(demand);
    demand.m_iPersonID = m_person->personID();
}
