// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/tariffs/CDlgAddAutomobilTariff.h"

#include "auto/catalog/tariffs/TariffTexts.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/forms/KForm.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int statusActive = 0;
constexpr int statusInactive = 1;

const QString keyColumn = u"iID"_s;
const QString titleColumn = u"sTitle"_s;
const QString amountColumn = u"dAmount"_s;
const QString descriptionColumn = u"sDesc"_s;

QList<KFormField> fields()
{
    using Kind = KFormField::Kind;
    KFormField title{titleColumn, u"نام :"_s};
    title.maxLength = 50;
    KFormField amount{amountColumn, u"هزينه :"_s, Kind::Money};
    amount.inWords = true;
    KFormField description{descriptionColumn, u"توضيحات :"_s, Kind::LongText};
    description.maxLength = 250;
    return {title, amount, description};
}

}

CDlgAddAutomobilTariff::CDlgAddAutomobilTariff(int tariffID, bool editMode, bool viewMode, QWidget *parent)
    : KDialog(parent)
    , m_tariffID(tariffID)
    , m_viewMode(viewMode)
{
    setWindowTitle(u"هزينه هاي تعرفه هاي محضر"_s
                   + (editMode ? u" - ویرایش"_s : u" - جدید"_s));
    SetSettingName(u"AutomobilTariff\\Editor"_s);
    build();
    if (editMode || viewMode)
        load();
    m_form->setShowMode(viewMode);
}

CDlgAddAutomobilTariff::~CDlgAddAutomobilTariff() = default;

void CDlgAddAutomobilTariff::build()
{
    m_form = new KForm(fields(), m_record, this);
    m_form->setCompletions(titleColumn, TariffTexts::titles());
    m_form->setCompletions(descriptionColumn, TariffTexts::descriptions());
    auto *grid = new QGridLayout;
    m_form->place(grid, 0, 0, titleColumn);
    m_form->place(grid, 1, 0, amountColumn);
    m_form->place(grid, 3, 0, descriptionColumn);
    m_form->control(titleColumn)->setMinimumWidth(fontMetrics().averageCharWidth() * 50);

    // Kept, not shown: every tariff that is entered is active, and its day is the table's own matter.
    m_active = new QCheckBox(u"فعال"_s, this);
    m_active->setChecked(true);
    m_active->hide();
    m_created = new KDateEdit(this);
    m_created->setAccessibleName(u"تاريخ ايجاد :"_s);
    m_created->setReadOnly(true);
    m_created->hide();

    auto *layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addWidget(createButtons());
}

void CDlgAddAutomobilTariff::load()
{
    if (!m_record.IsRecordExist(keyColumn, m_tariffID))
        return;
    m_form->load(m_record);
    m_active->setChecked(m_record.m_iStatus == statusActive);
    m_created->setDateTime(m_record.m_dateCreate);
}

bool CDlgAddAutomobilTariff::isEntryGood()
{
    const auto problem = m_form->firstInvalid();
    if (!problem)
        return true;
    g_pDlgWarning->Show(problem->widget->accessibleName() + u' ' + problem->message, this);
    problem->widget->setFocus();
    return false;
}

bool CDlgAddAutomobilTariff::OnOK()
{
    if (m_viewMode) {
        cancel();
        return false;
    }
    if (!isEntryGood())
        return false;
    GetDBSetting()->RequireOpenDB();
    CTblAutomobilTariffs tariff;
    if (m_tariffID != 0 && !tariff.IsRecordExist(keyColumn, m_tariffID)) {
        cancel();
        return false;
    }
    save(tariff);
    return true;
}

void CDlgAddAutomobilTariff::save(CTblAutomobilTariffs &tariff)
{
    if (m_tariffID == 0) {
        tariff.Open(false, false, true);
        tariff.AddNew();
        tariff.m_dateCreate = GetDBSetting()->GetDBServerDate();
    } else {
        tariff.Edit();
    }
    m_form->store(tariff);
    tariff.m_iStatus = m_active->isChecked() ? statusActive : statusInactive;
    tariff.Update(true);
    if (m_tariffID == 0)
        m_tariffID = static_cast<int>(tariff.GetLastInsertedID());
}
