// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/CDlgAddAlarm.h"

#include "suite/accounting/changes/RowQuestions.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/CTblUsers.h"
#include "suite/accounting/frame/KAccountingError.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/crm/reminders/AlarmTime.h"
#include "suite/crm/reminders/CTblAlarm.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/entries/KDateEdit.h"
#include "suite/utility/entries/KDropDown.h"
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/entries/KTimeEdit.h"
#include "suite/utility/frame/CardPage.h"

#include <QCheckBox>
#include <QDialogButtonBox>

using namespace Qt::StringLiterals;

namespace {

QCheckBox *addCheck(FormGrid *grid, const QString &caption)
{
    auto *check = new QCheckBox(caption, grid->parentWidget());
    check->setAccessibleName(caption);
    grid->addCell(check, 2);
    return check;
}

// The users who may log in, and the user the reminder belongs to.
void fillUsers(QComboBox *box, int selected)
{
    CTblUsers users;
    users.m_filter = KSql::formatted("iStatus=0 OR iID=%1", selected);
    users.m_sort = "sName,sUser";
    for (users.Open(true, true, true); !users.IsEOF(); users.MoveNext())
        box->addItem(users.m_sName.isEmpty() ? users.m_sUser : users.m_sName, users.m_iID);
    box->setCurrentIndex(box->findData(selected));
}

bool mayWrite(QWidget *parent)
{
    try {
        GetDBSetting()->RequireOpenDB();
        return true;
    } catch (const KAccountingError &error) {
        g_pDlgWarning->Show(error.userMessage(), parent);
        return false;
    }
}

}

CDlgAddAlarm::CDlgAddAlarm(CTblAlarm &alarm, int id, QWidget *parent)
    : KDialog(parent)
    , m_alarm(alarm)
    , m_edit(alarm, id)
    , m_begun(alarm.rowValues())
    , m_date(new KDateEdit)
    , m_time(new KTimeEdit)
    , m_desc(new KEdit)
    , m_user(new KDropDown)
{
    SetSettingName(u"AddAlarm"_s);
    build();
    load();
    if (!m_edit.isNew())
        m_edit.remember([this] { write(); });
    m_date->setFocus();
}

CDlgAddAlarm::~CDlgAddAlarm() = default;

int CDlgAddAlarm::Add(const QString &desc, int recordKind, int key1, int key2, QWidget *parent)
{
    if (!mayWrite(parent))
        return 0;
    CTblAlarm alarm;
    alarm.m_iTable = recordKind;
    alarm.m_iRecordID = key1;
    alarm.m_iRecordID2 = key2;
    alarm.m_iUserID = GetDBSetting()->GetUserID();
    alarm.m_date = AlarmTime::proposed(GetDBSetting()->GetDBServerDate());
    alarm.m_sDesc = desc.left(CTblAlarm::longestDesc);
    CDlgAddAlarm dialog(alarm, 0, parent);
    dialog.setWindowTitle(u"یادآوری - جدید"_s);
    return dialog.exec() == Accepted ? dialog.m_edit.key() : 0;
}

bool CDlgAddAlarm::Edit(int id, QWidget *parent)
{
    if (!mayWrite(parent))
        return false;
    CTblAlarm alarm;
    if (!alarm.IsRecordExist(u"iID"_s, id)) {
        g_pDlgWarning->Show(u"این یادآوری دیگر وجود ندارد."_s, parent);
        return false;
    }
    CDlgAddAlarm dialog(alarm, id, parent);
    dialog.setWindowTitle(u"یادآوری - ویرایش"_s);
    return dialog.exec() == Accepted;
}

void CDlgAddAlarm::build()
{
    m_desc->setMaxLength(CTblAlarm::longestDesc);
    auto *page = new CardPage(480, this);
    FormGrid *grid = page->addForm();
    addLabelled(grid, u"تاریخ :"_s, m_date);
    addLabelled(grid, u"ساعت :"_s, m_time);
    addLabelled(grid, u"شرح :"_s, m_desc, 4);
    addLabelled(grid, u"برای کاربر :"_s, m_user, 2);
    m_repeat = addCheck(grid, u"یادآوری تا انجام شدن تکرار شود"_s);
    m_done = addCheck(grid, u"انجام شد"_s);
    m_done->setHidden(m_edit.isNew());
    setContent(page, createButtons());
}

void CDlgAddAlarm::load()
{
    m_date->setDate(m_alarm.m_date.date());
    m_time->setTime(m_alarm.m_date.time());
    m_desc->setText(m_alarm.m_sDesc);
    fillUsers(m_user, m_alarm.m_iUserID);
    m_repeat->setChecked(m_alarm.m_bRepeat != 0);
    m_done->setChecked(m_alarm.isDone());
}

QDateTime CDlgAddAlarm::entered() const
{
    return QDateTime(m_date->date(), m_time->time(), Qt::UTC);
}

bool CDlgAddAlarm::refuse(const QString &why, QWidget *field)
{
    g_pDlgWarning->Show(why, this);
    field->setFocus();
    return false;
}

bool CDlgAddAlarm::OnOK()
{
    if (!m_date->isEntryValid())
        return refuse(m_date->entryError(), m_date);
    if (!m_date->date().isValid())
        return refuse(u"لطفا تاریخ یادآوری را وارد نمایید."_s, m_date);
    // An old reminder may keep its time; a time that is entered now is to come.
    const bool moved = m_edit.isNew() || entered() != m_begun.value(u"date"_s).toDateTime();
    if (moved && !m_done->isChecked() && entered() <= GetDBSetting()->GetDBServerDate())
        return refuse(u"زمان یادآوری گذشته است. لطفا تاریخ و ساعت را اصلاح نمایید."_s, m_date);
    if (m_desc->text().trimmed().isEmpty())
        return refuse(u"لطفا شرح یادآوری را وارد نمایید."_s, m_desc);
    if (m_user->currentIndex() < 0)
        return refuse(u"لطفا کاربر یادآوری را انتخاب نمایید."_s, m_user);
    const RowQuestions::Texts texts{
        .caption = [](const QString &column) { return column == u"iStatus" ? u"انجام شد"_s : QString(); },
        .format = [](const QString &column, const QVariant &value) -> std::optional<QString> {
            if (column == u"date")
                return AlarmTime::text(value.toDateTime());
            if (column == u"iStatus")
                return value.toInt() == CTblAlarm::statusDone ? u"بله"_s : u"خیر"_s;
            return std::nullopt;
        }};
    return RowQuestions::save(
               this, m_edit, texts, [this] { write(); }, [this] { settle(); })
        == RowQuestions::Outcome::Saved;
}

// A new one also keeps what it begins with: the record that it belongs to.
void CDlgAddAlarm::write()
{
    if (m_edit.isNew())
        m_alarm.setRowValues(m_begun);
    m_alarm.m_date = entered();
    m_alarm.m_sDesc = m_desc->text().trimmed();
    m_alarm.m_iUserID = m_user->currentData().toInt();
    m_alarm.m_bRepeat = m_repeat->isChecked() ? 1 : 0;
    m_alarm.m_iStatus = m_done->isChecked() ? CTblAlarm::statusDone : CTblAlarm::statusOpen;
}

// A reminder that is moved, gets a new owner or is reopened is shown again.
void CDlgAddAlarm::settle()
{
    const bool opened = m_begun.value(u"iStatus"_s).toInt() == CTblAlarm::statusDone && !m_alarm.isDone();
    if (opened || m_alarm.m_date != m_begun.value(u"date"_s).toDateTime() || m_alarm.m_iUserID != m_begun.value(u"iUserID"_s).toInt())
        m_alarm.m_dateTold = {};
}
