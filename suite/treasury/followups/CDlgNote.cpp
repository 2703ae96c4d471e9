// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/treasury/followups/CDlgNote.h"

#include "suite/accounting/changes/FieldRefused.h"
#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/records/RecordWindows.h"
#include "suite/db/records/CTblTemp.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString noteCaption = u"یادداشت و تماس"_s;
constexpr CTblFollowUps::Kind offeredKinds[] = {CTblFollowUps::call, CTblFollowUps::note};

void addNote(const QString &table, int recordKind, const QString &form, qint32 key, QWidget *parent)
{
    GetDBSetting()->RequireOpenDB();
    CDlgNote(CTblFollowUps::subjectOf(table, recordKind, form, key), RecordSubjects::nameOf(table, key), parent).exec();
}

}

CDlgNote::CDlgNote(const CTblFollowUps::Subject &subject, const QString &about, QWidget *parent)
    : KDialog(parent)
    , m_subject(subject)
    , m_kind(new KDropDown)
    , m_note(new KEdit)
    , m_next(new KDateEdit)
{
    build(about);
}

CDlgNote::CDlgNote(const CTblFollowUps::Shown &shown, QWidget *parent)
    : KDialog(parent)
    , m_shown(shown)
    , m_kind(new KDropDown)
    , m_note(new KEdit)
    , m_next(new KDateEdit)
{
    build({});
    m_kind->setCurrentIndex(m_kind->findData(int(shown.kind)));
    m_note->setText(shown.said);
    m_next->setDateTime(shown.next);
    QPushButton *remove = addButton(footer(), u"حذف"_s, u":/icons/delete.svg"_s);
    LookMarks::setButton(remove, LookMarks::Button::Danger);
    connect(remove, &QPushButton::clicked, this, &CDlgNote::takeAway);
}

CDlgNote::~CDlgNote() = default;

void CDlgNote::offer(const QString &table, int recordKind, const QString &form)
{
    RecordWindows::addAction(table, {.id = u"note"_s, .text = noteCaption, .icon = u":/icons/edit.svg"_s, .form = form, .right = KSecurity::Write, .run = [=](qint32 key, QWidget *parent) { addNote(table, recordKind, form, key, parent); }});
}

void CDlgNote::withdraw(const QString &table)
{
    RecordWindows::removeAction(table, u"note"_s);
}

void CDlgNote::edit(qint32 key, QWidget *parent)
{
    GetDBSetting()->RequireOpenDB();
    CDlgNote(CTblFollowUps::shown(key), parent).exec();
}

void CDlgNote::build(const QString &about)
{
    setWindowTitle(noteCaption);
    SetSettingName(u"Note"_s);
    for (const CTblFollowUps::Kind kind : offeredKinds)
        m_kind->addItem(CTblFollowUps::kindName(kind), int(kind));
    m_note->setMaxLength(CTblFollowUps::longestNote);
    auto *page = new CardPage(860, this);
    if (!about.isEmpty()) {
        auto *head = new QLabel(about);
        head->setTextFormat(Qt::PlainText);
        head->setWordWrap(true);
        page->cards()->addCard(head);
    }
    FormGrid *grid = page->addForm({}, FormGrid::Extent::Full);
    addLabelled(grid, u"نوع :"_s, m_kind, 2);
    addLabelled(grid, u"پیگیری بعدی :"_s, m_next, 2);
    addLabelled(grid, u"متن :"_s, m_note, 8);
    setContent(page, createButtons());
    resize(LookSizes::scaled(900), LookSizes::scaled(about.isEmpty() ? 240 : 300));
    m_note->setFocus();
}

bool CDlgNote::refuse(const QString &why, QWidget *field)
{
    g_pDlgWarning->Show(why, this);
    field->setFocus();
    return false;
}

void CDlgNote::save()
{
    const auto kind = static_cast<CTblFollowUps::Kind>(m_kind->currentData().toInt());
    if (m_shown.id != 0) {
        CTblFollowUps::change(m_shown, kind, m_note->text(), m_next->dateTime());
        return;
    }
    CTblFollowUps::Subject subject = m_subject;
    subject.kind = kind;
    CTblFollowUps::add(subject, m_note->text(), m_next->dateTime());
}

bool CDlgNote::OnOK()
{
    if (!m_next->isEntryValid())
        return refuse(m_next->entryError(), m_next);
    try {
        save();
    } catch (const FieldRefused &refused) {
        return refuse(refused.userMessage(), refused.column() == u"datePromised" ? static_cast<QWidget *>(m_next) : m_note);
    } catch (const KAccountingError &error) {
        return refuse(error.userMessage(), m_note);
    }
    return true;
}

void CDlgNote::takeAway()
{
    if (g_pDlgYesNo->Ask(SuiteMessages::deleteQuestion(), this) == KMessageDialog::No)
        return;
    try {
        CTblFollowUps::take(m_shown);
        cancel();
    } catch (const KAccountingError &error) {
        refuse(error.userMessage(), m_note);
    }
}
