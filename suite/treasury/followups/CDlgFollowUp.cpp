// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/followups/CDlgFollowUp.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/KEmptyState.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/lists/KListCard.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

// Whether the note may be added now, asked of the user's rights and of the database; says why not.
bool mayFollowUp(const QString &form, QWidget *parent)
{
    KSecurity security;
    security.SetFormName(form);
    if (!security.CheckWriteSecurity())
        return false;
    try {
        GetDBSetting()->RequireOpenDB();
        return true;
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), parent);
        return false;
    }
}

QString followUpTime(const QDateTime &time)
{
    return shamsiText(time.date()) + u' ' + time.time().toString(u"HH:mm"_s);
}

}

CDlgFollowUp::CDlgFollowUp(const CTblFollowUps::Subject &subject, const QString &about, QWidget *parent)
    : KDialog(parent)
    , m_subject(subject)
    , m_note(new KEdit)
    , m_promised(new KDateEdit)
    , m_history(new KExtListCtrl)
{
    setWindowTitle(u"پیگیری"_s);
    SetSettingName(u"FollowUp"_s);
    build(about);
    resize(LookSizes::scaled(720), LookSizes::scaled(460));
    fillHistory();
    m_note->setFocus();
}

CDlgFollowUp::~CDlgFollowUp() = default;

bool CDlgFollowUp::run(const CTblFollowUps::Subject &subject, const QString &about, QWidget *parent)
{
    return mayFollowUp(subject.form, parent) && CDlgFollowUp(subject, about, parent).exec() == Accepted;
}

void CDlgFollowUp::build(const QString &about)
{
    m_note->setMaxLength(CTblFollowUps::longestNote);
    m_history->setAccessibleName(u"پیگیری‌های پیشین"_s);
    m_history->setColumns({
        {u"زمان"_s, Qt::AlignHCenter, 70, {}, true},
        {u"کاربر"_s, Qt::AlignRight, 60, {}},
        {u"یادداشت"_s, Qt::AlignRight, 160, {}},
        {u"وعده پرداخت"_s, Qt::AlignHCenter, 60, {}, true},
        {u"مربوط به"_s, Qt::AlignHCenter, 50, {}},
    });
    m_history->SetSettingName(u"FollowUp\\List"_s);

    auto *page = new CardPage(720, this);
    auto *head = new QLabel(about);
    head->setTextFormat(Qt::PlainText);
    head->setWordWrap(true);
    head->setObjectName(u"about"_s);
    page->cards()->addCard(head);
    FormGrid *grid = page->addForm({}, FormGrid::Extent::Full);
    addLabelled(grid, u"یادداشت تماس :"_s, m_note, 6);
    addLabelled(grid, u"وعده پرداخت :"_s, m_promised, 2);
    page->addList(m_history);
    setContent(page, createButtons(), Content::Fills);
}

void CDlgFollowUp::fillHistory()
{
    QVector<KListModel::Row> rows;
    const QList<CTblFollowUps::Entry> entries = CTblFollowUps::history(m_subject.recordKind, m_subject.recordID);
    for (const CTblFollowUps::Entry &entry : entries) {
        const QString whose = entry.paymentID == m_subject.paymentID ? u"همین ردیف"_s : u"ردیف دیگر"_s;
        rows.append({entry.id,
                     {{followUpTime(entry.date), entry.date},
                      {entry.user},
                      {entry.note},
                      {shamsiText(entry.promised.date()), entry.promised},
                      {whose}}});
    }
    m_history->setRows(std::move(rows));
    if (entries.isEmpty())
        (new KEmptyState(m_history))->say(u":/icons/reminder.svg"_s, u"هنوز تماسی یادداشت نشده است."_s);
}

bool CDlgFollowUp::refuse(const QString &why, QWidget *field)
{
    g_pDlgWarning->Show(why, this);
    field->setFocus();
    return false;
}

bool CDlgFollowUp::OnOK()
{
    if (!m_promised->isEntryValid())
        return refuse(m_promised->entryError(), m_promised);
    try {
        CTblFollowUps::add(m_subject, m_note->text(), m_promised->dateTime());
    } catch (const FieldRefused &refused) {
        return refuse(refused.userMessage(), refused.column() == u"datePromised" ? static_cast<QWidget *>(m_promised) : m_note);
    } catch (const KAccountingError &error) {
        return refuse(error.userMessage(), m_note);
    }
    return true;
}
