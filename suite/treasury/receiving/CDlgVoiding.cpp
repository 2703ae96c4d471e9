// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/receiving/CDlgVoiding.h"

#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/treasury/records/CTblReceipts.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/values/TextStandard.h"

#include <QDialogButtonBox>
#include <QLabel>

using namespace Qt::StringLiterals;

CDlgVoiding::CDlgVoiding(const QString &title, const QString &text, const Work &work, QWidget *parent)
    : KDialog(parent)
    , m_work(work)
    , m_reason(new KEdit)
{
    setWindowTitle(title);
    m_reason->setMaxLength(CTblReceipts::longestReason);
    auto *page = new CardPage(520, this);
    FormGrid *grid = page->addForm();
    auto *told = new QLabel(text);
    told->setWordWrap(true);
    grid->addLine(told);
    addLabelled(grid, u"دلیل :"_s, m_reason, 4);
    setContent(page, createButtons());
    m_reason->setFocus();
}

CDlgVoiding::~CDlgVoiding() = default;

bool CDlgVoiding::run(const QString &title, const QString &text, const Work &work, QWidget *parent)
{
    return CDlgVoiding(title, text, work, parent).exec() == Accepted;
}

std::optional<QString> CDlgVoiding::ask(const QString &title, const QString &text, QWidget *parent)
{
    std::optional<QString> given;
    run(
        title, text, [&given](const QString &reason) { given = reason; }, parent);
    return given;
}

bool CDlgVoiding::refuse(const QString &why)
{
    g_pDlgWarning->Show(why, this);
    m_reason->setFocus();
    return false;
}

bool CDlgVoiding::OnOK()
{
    const QString reason = ConvertToStandard(m_reason->text());
    if (reason.isEmpty())
        return refuse(u"لطفا دلیل را وارد نمایید."_s);
    try {
        m_work(reason);
    } catch (const KAccountingError &error) {
        return refuse(error.userMessage());
    }
    return true;
}
