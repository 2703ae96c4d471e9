// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/tariffs/CDlgAddAutomobilTariff.h"

#include "auto/catalog/tariffs/TariffTexts.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/lists/FilterClauses.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/forms/KForm.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookSizes.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int usualWidth = 560;
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
    , m_viewMode(viewMode)
    , m_edit(m_record, tariffID)
    , m_added(m_record.GetTableName())
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
    auto *content = new QWidget(this);
    m_form = new KForm(fields(), m_record, content);
    m_form->setCompletions(titleColumn, TariffTexts::titles());
    m_form->setCompletions(descriptionColumn, TariffTexts::descriptions());
    auto *card = new QGroupBox(content);
    m_form->place(new FormGrid(card), {{"sTitle", 4}, {"dAmount", 4}, {"sDesc", 4}});
    (new CardStack(content))->addCard(card, true);

    // Kept, not shown: every tariff that is entered is active, and its day is the table's own matter.
    m_active = new QCheckBox(u"فعال"_s, this);
    m_active->setChecked(true);
    m_active->hide();
    m_created = new KDateEdit(this);
    m_created->setAccessibleName(u"تاريخ ايجاد :"_s);
    m_created->setReadOnly(true);
    m_created->hide();
    setContent(content, createButtons());
    HistoryButton::addTo(this, footer(), m_record.GetTableName(), m_edit.key());
    resize(LookSizes::scaled(usualWidth), sizeHint().height());
}

void CDlgAddAutomobilTariff::load()
{
    if (!m_record.IsRecordExist(keyColumn, m_edit.key()))
        return;
    m_form->load(m_record);
    m_active->setChecked(m_record.m_iStatus == statusActive);
    m_created->setDateTime(m_record.m_dateCreate);
    m_edit.remember([this] { write(); });
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
    switch (RowQuestions::save(
        this, m_edit, RowQuestions::textsOf(*m_form), [this] { write(); }, [this] { settle(); })) {
    case RowQuestions::Outcome::Saved:
        return true;
    case RowQuestions::Outcome::Gone:
        cancel();
        break;
    case RowQuestions::Outcome::Back:
        break;
    }
    return false;
}

void CDlgAddAutomobilTariff::write()
{
    m_form->store(m_record);
    m_record.m_iStatus = m_active->isChecked() ? statusActive : statusInactive;
}

void CDlgAddAutomobilTariff::settle()
{
    if (!m_edit.isNew())
        return;
    if (!m_record.m_dateCreate.isValid())
        m_record.m_dateCreate = GetDBSetting()->GetDBServerDate();
    const QString who = m_added.by(FilterClauses::isSame("sTitle", m_record.m_sTitle));
    if (!who.isEmpty())
        m_edit.doubt(u"%1 تعرفه «%2» را در این میان ثبت کرده است. آیا با این حال ذخیره شود؟"_s.arg(who, m_record.m_sTitle), titleColumn);
}
