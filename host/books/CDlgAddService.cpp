// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgAddService.h"

#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"

#include <QDialogButtonBox>

using namespace Qt::StringLiterals;

CDlgAddService::CDlgAddService(int serviceID, QWidget *parent)
    : KDialog(parent)
    , m_edit(m_service, serviceID)
    , m_code(new KEdit(KEdit::Kind::Integer, this))
    , m_name(new KEdit(this))
{
    setWindowTitle(serviceID == 0 ? u"خدمت جدید"_s : u"ویرایش خدمت"_s);
    const bool known = serviceID != 0 && m_service.IsRecordExist(u"iID"_s, serviceID);
    m_name->setMaxLength(m_service.textLength(u"sName"));
    m_code->setNumber(known ? m_service.m_iCode : CTblServices::nextCode());
    m_name->setText(m_service.m_sName);
    if (known)
        m_edit.remember([this] { store(); });

    auto *page = new CardPage(480, this);
    FormGrid *grid = page->addForm();
    addLabelled(grid, u"کد :"_s, m_code);
    addLabelled(grid, u"نام :"_s, m_name, 4);
    setContent(page, createButtons());
    HistoryButton::addTo(this, footer(), m_service.GetTableName(), serviceID);
    m_name->setFocus();
}

bool CDlgAddService::OnOK()
{
    if (!m_code->isEntryValid()) {
        g_pDlgWarning->Show(m_code->entryError(), this);
        m_code->setFocus();
        return false;
    }
    const RowQuestions::Texts texts{.goTo = [this](const QString &column) { (column == u"sName" ? m_name : m_code)->setFocus(); }};
    return RowQuestions::save(
               this, m_edit, texts, [this] { store(); }, [this] { m_service.settle(m_edit.key()); })
        == RowQuestions::Outcome::Saved;
}

void CDlgAddService::store()
{
    m_service.m_iCode = m_code->integer();
    m_service.m_sName = m_name->text();
}
