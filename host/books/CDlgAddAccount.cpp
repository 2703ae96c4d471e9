// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/books/CDlgAddAccount.h"

#include "suite/accounting/books/chart/AccountChart.h"
#include "suite/accounting/books/chart/AccountCode.h"
#include "suite/accounting/books/chart/CTblHesabMoeen.h"
#include "suite/accounting/changes/HistoryButton.h"
#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"

#include <QDialogButtonBox>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestCode = 9;

QString levelName(AccountLevel level)
{
    switch (level) {
    case AccountLevel::Kol:
        return u"حساب کل"_s;
    case AccountLevel::Moeen:
        return u"حساب معین"_s;
    case AccountLevel::Tafsily:
        return u"حساب تفصیلی"_s;
    }
    Q_UNREACHABLE();
}

int proposedCode(AccountLevel level, int parent)
{
    QList<int> taken;
    for (const AccountChart::Account &account : AccountChart::read(level))
        taken.append(account.code);
    return AccountCode::proposed(level, parent, taken);
}

QString accountText(int code)
{
    return code == 0 ? QString() : u"%1 - %2"_s.arg(code).arg(AccountChart::nameOf(code));
}

}

CDlgAddAccount::CDlgAddAccount(AccountLevel level, int parentCode, QWidget *parent)
    : KDialog(parent)
    , m_level(level)
    , m_parent(parentCode)
    , m_code(0)
    , m_codeEdit(new KEdit(this))
    , m_name(new KEdit(this))
{
    build(levelName(level) + u" جدید"_s, accountText(parentCode));
    if (const int proposed = proposedCode(level, parentCode); proposed > 0) {
        m_codeEdit->setText(QString::number(proposed));
        m_name->setFocus();
    } else {
        m_codeEdit->setFocus();
    }
}

CDlgAddAccount::CDlgAddAccount(int code, QWidget *parent)
    : KDialog(parent)
    , m_level(AccountCode::levelOf(code))
    , m_parent(AccountCode::parentOf(code))
    , m_code(code)
    , m_record(AccountChart::records(m_level))
    , m_codeEdit(new KEdit(this))
    , m_name(new KEdit(this))
{
    if (m_record->IsRecordExist(u"iCode"_s, code)) {
        m_edit = std::make_unique<RowEdit>(*m_record, m_record->value(u"iID").toInt());
        m_edit->lockAs(AccountChart::lockName());
    }
    build(u"تغییر نام "_s + levelName(m_level), accountText(m_parent));
    m_codeEdit->setText(QString::number(code));
    m_codeEdit->setReadOnly(true);
    m_name->setText(m_record->value(u"sName").toString());
    if (m_edit)
        m_edit->remember([this] { write(); });
    m_name->setFocus();
}

void CDlgAddAccount::build(const QString &title, const QString &above)
{
    setWindowTitle(title);
    // A code is a name made of digits: it is not grouped like an amount.
    m_codeEdit->setMaxLength(longestCode);
    m_codeEdit->setInputMethodHints(Qt::ImhDigitsOnly);
    m_name->setMaxLength(CTblHesabMoeen().textLength(u"sName"));
    auto *page = new CardPage(480, this);
    FormGrid *grid = page->addForm();
    if (!above.isEmpty()) {
        auto *account = new KEdit(this);
        account->setReadOnly(true);
        account->setText(above);
        account->setCursorPosition(0);
        addLabelled(grid, u"زیر حساب :"_s, account, 4);
    }
    addLabelled(grid, u"کد :"_s, m_codeEdit);
    addLabelled(grid, u"نام :"_s, m_name, 4);
    setContent(page, createButtons());
    if (m_edit)
        HistoryButton::addTo(this, footer(), m_record->GetTableName(), m_edit->key());
}

bool CDlgAddAccount::OnOK()
{
    return m_edit ? rename() : add();
}

void CDlgAddAccount::write() const
{
    m_record->setValue(u"sName", m_name->text());
}

bool CDlgAddAccount::rename()
{
    const RowQuestions::Texts texts{.goTo = [this](const QString &) { m_name->setFocus(); }};
    return RowQuestions::save(
               this, *m_edit, texts, [this] { write(); }, [this] { AccountChart::settleName(*m_record); })
        == RowQuestions::Outcome::Saved;
}

bool CDlgAddAccount::add()
{
    try {
        bool isNumber = false;
        const int code = m_codeEdit->text().trimmed().toInt(&isNumber);
        AccountChart::add(m_level, isNumber ? code : 0, m_name->text(), m_parent);
        m_code = code;
        return true;
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), this);
        (m_name->text().trimmed().isEmpty() ? m_name : m_codeEdit)->setFocus();
        return false;
    }
}
