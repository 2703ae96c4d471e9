// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgAddService.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/invoices/CTblServices.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

CDlgAddService::CDlgAddService(int serviceID, QWidget *parent)
    : KDialog(parent)
    , m_serviceID(serviceID)
    , m_code(new KEdit(KEdit::Kind::Integer, this))
    , m_name(new KEdit(this))
{
    setWindowTitle(serviceID == 0 ? u"خدمت جدید"_s : u"ویرایش خدمت"_s);
    CTblServices service;
    const bool known = serviceID != 0 && service.IsRecordExist(u"iID"_s, serviceID);
    m_name->setMaxLength(service.textLength(u"sName"));
    m_name->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
    m_code->setNumber(known ? service.m_iCode : CTblServices::nextCode());
    m_name->setText(service.m_sName);

    auto *form = new QFormLayout;
    addLabelled(form, u"کد :"_s, m_code);
    addLabelled(form, u"نام :"_s, m_name);
    auto *column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(createButtons());
    m_name->setFocus();
}

bool CDlgAddService::OnOK()
{
    if (!m_code->isEntryValid()) {
        g_pDlgWarning->Show(m_code->entryError(), this);
        m_code->setFocus();
        return false;
    }
    try {
        GetDBSetting()->RequireOpenDB();
        if (m_serviceID == 0)
            m_serviceID = CTblServices::add(m_code->integer(), m_name->text());
        else
            CTblServices::change(m_serviceID, m_code->integer(), m_name->text());
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), this);
        (m_name->text().trimmed().isEmpty() ? m_name : m_code)->setFocus();
        return false;
    }
    return true;
}
