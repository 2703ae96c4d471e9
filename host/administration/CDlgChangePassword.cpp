// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/administration/CDlgChangePassword.h"

#include "host/start/CDlgFirstStart.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/frame/KWaitCursor.h"

#include <QDialogButtonBox>

using namespace Qt::StringLiterals;

CDlgChangePassword::CDlgChangePassword(QWidget *parent)
    : KDialog(parent)
{
    setWindowTitle(u"تغییر کلمه عبور"_s);
    auto *page = new CardPage(480, this);
    FormGrid *grid = page->addForm();
    m_old = addPassword(grid, u"کلمه عبور کنونی :"_s);
    grid->startRow();
    m_new = addPassword(grid, u"کلمه عبور جدید :"_s);
    m_repeated = addPassword(grid, u"تکرار کلمه عبور جدید :"_s);
    setContent(page, createButtons());
    m_old->setFocus();
}

KEdit *CDlgChangePassword::addPassword(FormGrid *grid, const QString &caption)
{
    auto *edit = new KEdit(this);
    edit->setEchoMode(QLineEdit::Password);
    edit->setMaxLength(200);
    addLabelled(grid, caption, edit);
    return edit;
}

bool CDlgChangePassword::OnOK()
{
    const QString problem = CDlgFirstStart::passwordProblem(m_new->text(), m_repeated->text());
    if (!problem.isEmpty()) {
        g_pDlgWarning->Show(problem, this);
        m_new->setFocus();
        return false;
    }
    bool changed = false;
    {
        const KWaitCursor wait;
        changed = CTblUsers::changePassword(GetDBSetting()->GetUserID(), m_old->text(), m_new->text());
    }
    if (!changed) {
        g_pDlgWarning->Show(u"کلمه عبور کنونی درست نیست."_s, this);
        m_old->selectAll();
        m_old->setFocus();
        return false;
    }
    return true;
}
