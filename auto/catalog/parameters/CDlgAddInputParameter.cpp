// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/catalog/parameters/CDlgAddInputParameter.h"

#include "auto/catalog/parameters/InputParameterValues.h"
#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KErrorBoundary.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/FieldNote.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

constexpr int usualWidth = 480;
constexpr int longestName = 50;

}

CDlgAddInputParameter::CDlgAddInputParameter(int itemID, int itemType, const QString &name, const QString &caption,
                                             QWidget *parent)
    : KDialog(parent)
    , m_edit(m_item, itemID)
    , m_itemType(itemType)
    , m_name(new KEdit(this))
{
    setWindowTitle(caption + (itemID == 0 ? u" - جدید"_s : u" - ویرایش"_s));
    // A longer one, as the pickers of several values take it, is not cut.
    m_name->setMaxLength(qMax(longestName, static_cast<int>(name.size())));
    m_name->setText(name);
    m_name->selectAll();
    if (itemID != 0 && m_item.IsRecordExist(u"iID"_s, itemID))
        m_edit.remember([this] { write(); });

    auto *content = new QWidget(this);
    auto *card = new QGroupBox(content);
    auto *line = new QHBoxLayout;
    line->setSpacing(LookSizes::unit / 2);
    line->addWidget(m_name, 1);
    line->addWidget(new QLabel(u"*"_s, card));
    QLabel *label = labelFor(u"نام :"_s, m_name);
    (new FormGrid(card))->addField(label, new FieldNote(m_name), line, 4);
    (new CardStack(content))->addCard(card);
    setContent(content, createButtons());
    HistoryButton::addTo(this, footer(), m_item.GetTableName(), itemID);
    resize(LookSizes::scaled(usualWidth), sizeHint().height());
}

QString CDlgAddInputParameter::name() const
{
    return m_name->text().trimmed();
}

bool CDlgAddInputParameter::refuse(const QString &message)
{
    g_pDlgWarning->Show(message, this);
    m_name->setFocus();
    return false;
}

bool CDlgAddInputParameter::OnOK()
{
    if (name().isEmpty())
        return refuse(u"لطفا نام را وارد نماید."_s);
    bool saved = false;
    // Whatever fails, what was typed stays, and the field has the focus.
    if (!KErrorBoundary::guarded(this, [&] { saved = save(); }))
        m_name->setFocus();
    return saved;
}

bool CDlgAddInputParameter::save()
{
    GetDBSetting()->RequireOpenDB();
    InputParameterValues::requireStorable(name());
    const RowQuestions::Texts texts{.goTo = [this](const QString &) { m_name->setFocus(); }};
    return RowQuestions::save(
               this, m_edit, texts, [this] { write(); }, [this] { settle(); })
        == RowQuestions::Outcome::Saved;
}

void CDlgAddInputParameter::write()
{
    m_item.m_sName = name();
    m_item.m_iType = m_itemType;
}

void CDlgAddInputParameter::settle()
{
    if (InputParameterValues::isNameTaken(m_item.m_sName, m_edit.key()))
        throw FieldRefused(u"این نام قبلا ثبت شده است."_s, u"sName"_s);
}
