// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/attachments/CDlgCustomFields.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/attachments/CDlgCustomFieldDefinitions.h"
#include "suite/accounting/attachments/CTblCustomFieldRecords.h"
#include "suite/accounting/attachments/CTblCustomFields.h"
#include "suite/accounting/attachments/CustomFieldInput.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/frame/KDialog.h"
#include "suite/utility/frame/ScrolledPage.h"
#include "suite/utility/frame/TabOrder.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/HostColors.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

CDlgCustomFields::CDlgCustomFields(QWidget *parent)
    : KDialogTabPage(parent)
{
    setTitle(u"فیلدهای اضافی"_s);
    auto *content = new QWidget;
    auto *cards = new CardStack(content);
    m_fields = new QGroupBox(content);
    m_form = new FormGrid(m_fields);
    m_fields->hide();
    m_empty = new QLabel(u"برای این بخش فیلدی تعریف نشده است."_s, content);
    m_empty->setForegroundRole(HostColors::quietText);
    auto *commands = new QWidget(content);
    auto *line = new QHBoxLayout(commands);
    line->setContentsMargins(0, 0, 0, 0);
    m_defineButton = addButton(line, u"تعریف فیلدها"_s);
    line->addStretch();
    cards->addCard(m_empty);
    cards->addCard(m_fields);
    cards->addCard(commands);
    fillWithScrolled(this, content);
    connect(m_defineButton, &QPushButton::clicked, this, &CDlgCustomFields::defineFields);
}

CDlgCustomFields::~CDlgCustomFields() = default;

void CDlgCustomFields::bind(int table, int recordID)
{
    m_table = table;
    m_recordID = recordID;
    clearInputs();
    if (m_opened)
        load();
}

void CDlgCustomFields::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    m_defineButton->setHidden(readOnly);
    for (const std::unique_ptr<CustomFieldInput> &input : m_inputs)
        input->setReadOnly(readOnly);
}

bool CDlgCustomFields::OnAccess()
{
    return true;
}

void CDlgCustomFields::showEvent(QShowEvent *event)
{
    if (!m_opened) {
        // An error must not leave a show event: the window would stay half shown.
        KErrorBoundary::guarded(this, [this] { load(); });
    }
    KDialogTabPage::showEvent(event);
}

void CDlgCustomFields::clearInputs()
{
    m_inputs.clear();
    m_read.clear();
    m_untouched.clear();
    delete m_form;
    qDeleteAll(m_fields->findChildren<QWidget *>(Qt::FindDirectChildrenOnly));
    m_form = new FormGrid(m_fields);
}

void CDlgCustomFields::load()
{
    CTblCustomFields fields;
    fields.m_filter = KSql::formatted("iTable=%1", m_table);
    fields.m_sort = "iID";
    fields.Open(true, true, true);
    const QHash<int, QString> values = CTblCustomFieldRecords::values(m_table, m_recordID);
    const QHash<int, QString> changed = changedValues();
    const QHash<int, QString> before = m_read;
    clearInputs();
    for (; !fields.IsEOF(); fields.MoveNext()) {
        auto input = CustomFieldInput::create(fields.m_iID, fields.m_sName, fields.m_iType, m_fields);
        const QString caption = fields.m_sName + u" :"_s;
        input->setValue(values.value(fields.m_iID));
        input->setReadOnly(m_readOnly);
        if (fields.m_iType == CTblCustomFields::YesNo) {
            nameControl(input->widget(), caption);
            m_form->addCell(input->widget());
        } else {
            addLabelled(m_form, caption, input->widget(), fields.m_iType == CTblCustomFields::Text ? 2 : 1);
        }
        m_inputs.push_back(std::move(input));
    }
    m_empty->setVisible(m_inputs.empty());
    m_fields->setHidden(m_inputs.empty());
    tabInLayoutOrder(m_fields->parentWidget());
    m_opened = true;
    m_read = values;
    m_untouched = typedValues();
    // What others changed since the user did is not as the user saw it.
    for (auto value = changed.cbegin(); value != changed.cend(); ++value) {
        m_read.insert(value.key(), before.value(value.key()));
        if (CustomFieldInput *kept = inputOf(value.key()))
            kept->setValue(*value);
    }
    // The window was shown before the fields were read.
    if (auto *editor = qobject_cast<KDialog *>(window()))
        editor->entriesLoaded(m_fields);
}

CustomFieldInput *CDlgCustomFields::inputOf(int fieldID) const
{
    const auto found = std::ranges::find_if(
        m_inputs, [fieldID](const std::unique_ptr<CustomFieldInput> &input) { return input->fieldID() == fieldID; });
    return found == m_inputs.cend() ? nullptr : found->get();
}

QString CDlgCustomFields::caption(int fieldID) const
{
    const CustomFieldInput *found = inputOf(fieldID);
    return found ? found->widget()->accessibleName().remove(u" :"_s) : QString();
}

QString CDlgCustomFields::textOf(int fieldID, const QString &value) const
{
    const CustomFieldInput *found = inputOf(fieldID);
    return found ? found->textOf(value) : QString();
}

void CDlgCustomFields::goTo(int fieldID)
{
    Q_EMIT frontRequested();
    if (const CustomFieldInput *found = inputOf(fieldID))
        found->widget()->setFocus(Qt::TabFocusReason);
}

QHash<int, QString> CDlgCustomFields::typedValues() const
{
    QHash<int, QString> values;
    for (const std::unique_ptr<CustomFieldInput> &input : m_inputs)
        values.insert(input->fieldID(), input->value());
    return values;
}

bool CDlgCustomFields::validate()
{
    for (const std::unique_ptr<CustomFieldInput> &input : m_inputs) {
        const QString error = input->error();
        if (error.isEmpty())
            continue;
        Q_EMIT frontRequested();
        g_pDlgWarning->Show(u"%1 %2"_s.arg(input->widget()->accessibleName(), error), this);
        input->widget()->setFocus();
        return false;
    }
    return true;
}

std::optional<QHash<int, QString>> CDlgCustomFields::enteredValues() const
{
    if (!m_opened || m_readOnly)
        return std::nullopt;
    return typedValues();
}

QHash<int, QString> CDlgCustomFields::changedValues() const
{
    QHash<int, QString> changed;
    if (!m_opened || m_readOnly)
        return changed;
    for (const std::unique_ptr<CustomFieldInput> &input : m_inputs) {
        if (const QString value = input->value(); value != m_untouched.value(input->fieldID()))
            changed.insert(input->fieldID(), value);
    }
    return changed;
}

void CDlgCustomFields::defineFields()
{
    KSecurity security;
    security.SetFormName(u"CustomFields"_s);
    if (!security.CheckModifySecurity())
        return;
    GetDBSetting()->RequireOpenDB();
    CDlgCustomFieldDefinitions(m_table, this).exec();
    load();
}
