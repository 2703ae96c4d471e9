// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/start/CDlgFirstStart.h"

#include "suite/db/connection/KTransaction.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/persons/CompanyDetails.h"
#include "suite/crm/persons/NationalCode.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/KWaitCursor.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/FormGrid.h"
#include "suite/utility/values/ShamsiDate.h"
#include "suite/utility/values/TextStandard.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>

using namespace Qt::StringLiterals;

CDlgFirstStart::CDlgFirstStart(QWidget *parent)
    : KDialog(parent)
{
    setWindowTitle(u"راه‌اندازی اولیه"_s);
    auto *content = new QWidget(this);
    auto *welcome = new QLabel(u"به برنامه خوش آمدید. با چند مشخصه زیر دفتر شما آماده کار می‌شود؛ "
                               "همه آن‌ها بعدا در «تنظیمات» قابل تغییر است."_s,
                               content);
    welcome->setWordWrap(true);
    auto *cards = new CardStack(content);
    cards->addCard(welcome);
    for (QGroupBox *card : {buildAdministrator(content), buildFiscalYear(content), buildCompany(content)})
        cards->addCard(card);
    setContent(content, createButtons(u"شروع به کار"_s, u"خروج"_s));
    constexpr int letters = 130;
    resize(fontMetrics().averageCharWidth() * letters, sizeHint().height());
    m_adminName->setFocus();
}

KEdit *CDlgFirstStart::addEdit(FormGrid *grid, const QString &caption, int maxLength, int span)
{
    auto *edit = new KEdit(grid->parentWidget());
    edit->setMaxLength(maxLength);
    addLabelled(grid, caption, edit, span);
    return edit;
}

QGroupBox *CDlgFirstStart::buildAdministrator(QWidget *page)
{
    auto *box = new QGroupBox(u"مدیر برنامه"_s, page);
    auto *grid = new FormGrid(box);
    m_adminName = addEdit(grid, u"نام مدیر :"_s, 100);
    m_user = addEdit(grid, u"نام کاربری :"_s, 50);
    m_password = addEdit(grid, u"کلمه عبور :"_s, 200);
    m_repeated = addEdit(grid, u"تکرار کلمه عبور :"_s, 200);
    m_password->setEchoMode(QLineEdit::Password);
    m_repeated->setEchoMode(QLineEdit::Password);
    return box;
}

QGroupBox *CDlgFirstStart::buildCompany(QWidget *page)
{
    auto *box = new QGroupBox(u"مشخصات نمایشگاه"_s, page);
    auto *grid = new FormGrid(box);
    m_company1 = addEdit(grid, u"نام نمایشگاه :"_s, 100, 2);
    m_company2 = addEdit(grid, u"ادامه نام نمایشگاه :"_s, 100, 2);
    m_nationalCode = addEdit(grid, u"کد ملی :"_s, 20);
    m_telephone = addEdit(grid, u"تلفن :"_s, 50);
    m_mobile = addEdit(grid, u"موبایل :"_s, 50);
    m_city = addEdit(grid, u"شهر :"_s, 50);
    m_address = addEdit(grid, u"نشانی :"_s, 250, 4);
    return box;
}

QGroupBox *CDlgFirstStart::buildFiscalYear(QWidget *page)
{
    auto *box = new QGroupBox(u"سال مالی"_s, page);
    auto *grid = new FormGrid(box);
    const int year = GetShamsi(GetDBSetting()->GetDBServerDate().date()).year;
    m_fiscalYear = addEdit(grid, u"سال مالی :"_s, 4);
    m_fiscalYear->setKind(KEdit::Kind::Integer);
    m_fiscalYear->setRange(firstShamsiYear, lastShamsiYear);
    m_fiscalYear->setNumber(year);
    m_opening = new KDateEdit(box);
    m_opening->setDate(ConvertToMiladi(year, 1, 1));
    addLabelled(grid, u"تاریخ افتتاح :"_s, m_opening);
    // A year's books open on its first day unless the office says otherwise.
    connect(m_fiscalYear, &KEdit::numberEdited, this, [this](double typed) {
        const QDate first = ConvertToMiladi(static_cast<int>(typed), 1, 1);
        if (first.isValid())
            m_opening->setDate(first);
    });
    return box;
}

QString CDlgFirstStart::passwordProblem(const QString &password, const QString &repeated)
{
    if (password.isEmpty())
        return u"لطفا کلمه عبور را وارد نمایید."_s;
    if (password.size() < shortestPassword)
        return u"کلمه عبور باید دست‌کم %1 نویسه باشد."_s.arg(shortestPassword);
    if (password != repeated)
        return u"کلمه عبور و تکرار آن یکسان نیستند."_s;
    return {};
}

bool CDlgFirstStart::refuse(const QString &message, QWidget *field)
{
    g_pDlgWarning->Show(message, this);
    field->setFocus();
    return false;
}

bool CDlgFirstStart::validate()
{
    if (ConvertToStandard(m_user->text()).isEmpty())
        return refuse(u"لطفا نام کاربری را وارد نمایید."_s, m_user);
    const QString problem = passwordProblem(m_password->text(), m_repeated->text());
    if (!problem.isEmpty())
        return refuse(problem, m_password->text().size() < shortestPassword ? m_password : m_repeated);
    if (ConvertToStandard(m_company1->text()).isEmpty())
        return refuse(u"لطفا نام نمایشگاه را وارد نمایید."_s, m_company1);
    if (NationalCode::checkPerson(m_nationalCode->text()) == NationalCode::State::NotANumber)
        return refuse(u"کد ملی تنها از رقم ساخته می‌شود."_s, m_nationalCode);
    if (!m_fiscalYear->isEntryValid() || m_fiscalYear->text().isEmpty())
        return refuse(u"لطفا سال مالی را درست وارد نمایید."_s, m_fiscalYear);
    if (!m_opening->isEntryValid() || !m_opening->dateTime().isValid())
        return refuse(u"لطفا تاریخ افتتاح سال مالی را درست وارد نمایید."_s, m_opening);
    return true;
}

void CDlgFirstStart::save()
{
    CompanyDetails company = CompanyDetails::read();
    company.name1 = ConvertToStandard(m_company1->text());
    company.name2 = ConvertToStandard(m_company2->text());
    company.nationalCode = ConvertToStandard(m_nationalCode->text());
    company.telephone = ConvertToStandard(m_telephone->text());
    company.mobile = ConvertToStandard(m_mobile->text());
    company.city = ConvertToStandard(m_city->text());
    company.address = ConvertToStandard(m_address->text());

    // An office with an administrator and nothing else, or the other way round, would be stuck.
    KTransaction transaction;
    company.write();
    GetDBSetting()->SetFiscalYear(m_fiscalYear->integer());
    GetDBSetting()->SetFiscalYearOpeningDate(m_opening->dateTime());
    CTblUsers::create(m_user->text(), m_password->text(), m_adminName->text(), true);
    transaction.commit();
}

bool CDlgFirstStart::OnOK()
{
    if (!validate())
        return false;
    {
        const KWaitCursor wait;
        save();
    }
    m_created = ConvertToStandard(m_user->text());
    m_password->clear();
    m_repeated->clear();
    return true;
}

bool CDlgFirstStart::event(QEvent *event)
{
    const bool handled = KDialog::event(event);
    if (event->type() == QEvent::Paint && !m_painted) {
        m_painted = true;
        Q_EMIT painted();
    }
    return handled;
}
