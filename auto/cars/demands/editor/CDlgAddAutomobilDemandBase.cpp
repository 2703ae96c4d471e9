// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/cars/demands/editor/CDlgAddAutomobilDemandBase.h"

#include "auto/editor/ArchiveLine.h"
#include "auto/editor/FormLines.h"
#include "auto/cars/demands/editor/DemandReminder.h"
#include "auto/cars/demands/editor/DemandYears.h"
#include "auto/cars/fields/ItemFields.h"
#include "auto/cars/fields/PersonGroup.h"
#include "auto/db/CTblAutomobilDemands.h"
#include "auto/db/CTblCarBrands.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblItems.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/ScrolledPage.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

using Kind = KFormField::Kind;

const QString typeColumn = QStringLiteral("iAutomobilType");
const QString facilitiesColumn = QStringLiteral("iFacilities");
const QString colorColumn = QStringLiteral("iColor");
const QString yearFromColumn = QStringLiteral("iModelFrom");
const QString yearUpToColumn = QStringLiteral("iModelUpTo");
const QString referenceColumn = QStringLiteral("dateReference");

QList<KFormField> formFields()
{
    KFormField code{QStringLiteral("iCode"), QStringLiteral("کد تقاضا :"), Kind::Integer};
    code.readOnly = true;
    KFormField amountFrom{QStringLiteral("dAmountFrom"), QStringLiteral("مبلغ از :"), Kind::Money};
    KFormField amountUpTo{QStringLiteral("dAmountUpTo"), QStringLiteral("تا مبلغ :"), Kind::Money};
    amountFrom.inWords = amountUpTo.inWords = true;
    KFormField color{colorColumn, QStringLiteral("رنگ :"), Kind::Lookup};
    KFormField facilities{facilitiesColumn, QStringLiteral("امکانات :"), Kind::Lookup};
    color.hasButton = facilities.hasButton = true;
    return {
        code,
        {QStringLiteral("sAcquaintances"), QStringLiteral("نحوه آشنايي :")},
        {typeColumn, QStringLiteral("خودرو درخواستي :"), Kind::Lookup},
        amountFrom,
        amountUpTo,
        {yearFromColumn, QStringLiteral("سال توليد از :"), Kind::Integer},
        {yearUpToColumn, QStringLiteral("تا :"), Kind::Integer, QStringLiteral("سال توليد تا :")},
        facilities,
        color,
        {referenceColumn, QStringLiteral("تاريخ مراجعه :"), Kind::Date},
        {QStringLiteral("dateMaxTimeNeed"), QStringLiteral("تاريخ حداکثر زمان نياز :"), Kind::Date},
        {QStringLiteral("sDesc"), QStringLiteral("توضيحات :"), Kind::LongText},
        {QStringLiteral("sDescSpecial"), QStringLiteral("توضيحات ويژه :")},
    };
}

void fillTypes(QComboBox *combo)
{
    CTblCarBrands::FillComboBox(combo);
    combo->insertItem(0, QStringLiteral("-"), 0);
}

}

CDlgAddAutomobilDemandBase::CDlgAddAutomobilDemandBase(EditorMode mode, QWidget *parent)
    : EditorPage(mode, QStringLiteral("اطلاعات پایه"), parent)
{
    build();
}

CDlgAddAutomobilDemandBase::~CDlgAddAutomobilDemandBase() = default;

void CDlgAddAutomobilDemandBase::build()
{
    auto *content = new QWidget(this);
    CTblAutomobilDemands columns;
    m_form = new KForm(formFields(), columns, content);
    m_person = new PersonGroup(QStringLiteral("مشخصات شخص متقاضي"), PersonGroup::WithFather, content);
    m_reminder = new DemandReminder(content);
    m_archiveLine = new ArchiveLine(content);

    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(buildIdentity(content));
    layout->addWidget(m_person);
    layout->addWidget(buildWishes(content));
    layout->addWidget(buildTexts(content));
    layout->addWidget(m_reminder);
    layout->addWidget(m_archiveLine);
    layout->addStretch(1);
    fillWithScrolled(this, content);
}

QLayout *CDlgAddAutomobilDemandBase::buildIdentity(QWidget *content)
{
    auto *row = new QHBoxLayout;
    row->addWidget(m_form->label(QStringLiteral("iCode")));
    row->addWidget(m_form->control(QStringLiteral("iCode")), 1);
    m_created = addShown(row, QStringLiteral("تاريخ ايجاد :"), content);
    m_user = addShown(row, QStringLiteral("کاربر :"), content);
    return row;
}

KEdit *CDlgAddAutomobilDemandBase::addShown(QHBoxLayout *row, const QString &label, QWidget *parent)
{
    auto *line = new KEdit(parent);
    line->setReadOnly(true);
    row->addSpacing(12);
    addLabelled(row, label, line, 1);
    return line;
}

QWidget *CDlgAddAutomobilDemandBase::buildWishes(QWidget *content)
{
    auto *box = new QGroupBox(QStringLiteral("مشخصات خودرو درخواستي"), content);
    FormLines::grid(*m_form, box,
                    {
                        {{"iAutomobilType"}, {"iModelFrom"}, {"iModelUpTo"}},
                        {{"iColor"}, {"dAmountFrom"}, {"dAmountUpTo"}},
                        {{"iFacilities"}, {"dateReference"}, {"dateMaxTimeNeed"}},
                    });
    fillTypes(m_form->comboBox(typeColumn));
    auto *items = new ItemFields(*m_form, this);
    items->addPickedList(colorColumn, CTblItems::typeColor, QStringLiteral("رنگ"));
    items->addPickedList(facilitiesColumn, CTblItems::typeFeature, QStringLiteral("امکانات"));
    items->fill();
    return box;
}

QWidget *CDlgAddAutomobilDemandBase::buildTexts(QWidget *content)
{
    auto *box = new QWidget(content);
    FormLines::grid(*m_form, box, {{{"sAcquaintances"}, {"sDescSpecial", 2}}, {{"sDesc", 3}}});
    return box;
}

void CDlgAddAutomobilDemandBase::fill(CTblAutomobilDemands &demand)
{
    m_form->setShowMode(isShowMode());
    m_form->load(demand);
    for (const QString &column : {colorColumn, facilitiesColumn})
        m_form->button(column)->setEnabled(!isShowMode());
    if (mode() == EditorMode::New)
        m_form->dateEdit(referenceColumn)->setDate(GetDBSetting()->GetDBServerDate().date());
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
    const QString demand = QStringLiteral("تقاضای %1").arg(m_form->edit(QStringLiteral("iCode"))->integer());
    return parts.isEmpty() ? demand : demand + QStringLiteral(" - ") + parts.join(QStringLiteral("، "));
}

bool CDlgAddAutomobilDemandBase::validate()
{
    if (m_person->name().trimmed().isEmpty()) {
        refuse(QStringLiteral("لطفا نام متقاضی را وارد نمایید."), m_person->codeEdit());
        m_person->pick();
        return false;
    }
    if (!areDemandYears(m_form->edit(yearFromColumn)->integer(), m_form->edit(yearUpToColumn)->integer()))
        return refuse(QStringLiteral("لطفا مدل سال بزرگتر از 1000 تا 3000 وارد کنید."), m_form->edit(yearFromColumn));
    if (const auto problem = m_form->firstInvalid())
        return refuseEntry(*problem);
    return true;
}

void CDlgAddAutomobilDemandBase::write(CTblAutomobilDemands &demand)
{
    m_form->store(demand);
    demand.m_iPersonID = m_person->personID();
}
