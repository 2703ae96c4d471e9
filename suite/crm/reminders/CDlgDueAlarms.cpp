// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/CDlgDueAlarms.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/reminders/AlarmTime.h"
#include "suite/crm/reminders/CDlgAddAlarm.h"
#include "suite/crm/reminders/PostponeMenu.h"
#include "suite/utility/entries/FieldLabel.h"
#include "suite/utility/frame/CardPage.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/look/CardStack.h"
#include "suite/utility/look/LookMarks.h"
#include "suite/utility/look/LookSizes.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

CDlgDueAlarms::CDlgDueAlarms(const QList<CTblAlarm::Due> &due, QWidget *parent)
    : KDialog(parent)
    , m_closed(GetDBSetting()->IsClosedDB())
    , m_list(new KExtListCtrl(this))
{
    setWindowTitle(u"یادآوری ها"_s);
    SetSettingName(u"DueAlarms"_s);
    build();
    fill(due);
    m_list->selectRow(0);
    m_list->setFocus();
}

CDlgDueAlarms::~CDlgDueAlarms() = default;

bool CDlgDueAlarms::ShowAtLogin(QWidget *parent)
{
    const QList<CTblAlarm::Due> due = CTblAlarm::dueAtLogin(GetDBSetting()->GetUserID());
    if (due.isEmpty())
        return false;
    CDlgDueAlarms dialog(due, parent);
    CTblAlarm::markTold(due);
    dialog.exec();
    return true;
}

void CDlgDueAlarms::build()
{
    QLabel *heading = labelFor(u"زمان این یادآوری ها رسیده است :"_s, m_list);
    m_list->setColumns({{u"تاریخ"_s, Qt::AlignHCenter, 50, {}, true},
                        {u"ساعت"_s, Qt::AlignHCenter, 35, {}},
                        {u"شرح"_s, Qt::AlignRight, 220, {}}});
    m_list->SetSettingName(u"DueAlarms\\List"_s);

    auto *page = new CardPage(720, this);
    page->cards()->addCard(heading);
    page->addList(m_list);
    // Closing is what Enter does.
    setContent(page, createButtons({}, u"بستن"_s), Content::Fills);
    m_done = addButton(footer(), u"انجام شد"_s, u":/icons/reminder.svg"_s);
    m_postpone = addButton(footer(), u"تعویق"_s, u":/icons/calendar.svg"_s);
    LookMarks::setButton(m_done, LookMarks::Button::Primary);
    resize(LookSizes::scaled(720), LookSizes::scaled(400));
    connect(m_done, &QPushButton::clicked, this, &CDlgDueAlarms::finish);
    connect(m_postpone, &QPushButton::clicked, this, &CDlgDueAlarms::postpone);
    connect(m_list, &KExtListCtrl::currentKeyChanged, this, &CDlgDueAlarms::updateButtons);
    connect(m_list, &KExtListCtrl::rowActivated, this, &CDlgDueAlarms::edit);
}

void CDlgDueAlarms::fill(const QList<CTblAlarm::Due> &due)
{
    m_due = due;
    QVector<KListModel::Row> rows;
    for (const CTblAlarm::Due &one : due)
        rows.append({one.id, {{shamsiText(one.date.date()), one.date}, {AlarmTime::timeOfDay(one.date)}, {one.desc}}});
    m_list->setRows(std::move(rows));
    updateButtons();
}

// Nothing is changed in a closed database; its reminders are only read.
void CDlgDueAlarms::updateButtons()
{
    const bool selected = m_list->currentKey() > 0;
    for (QPushButton *button : {m_done, m_postpone}) {
        button->setHidden(m_closed);
        button->setEnabled(selected);
    }
}

void CDlgDueAlarms::takeOff(int key)
{
    const int row = m_list->currentRow();
    m_list->removeKey(key);
    m_due.removeIf([key](const CTblAlarm::Due &due) { return due.id == key; });
    if (m_list->count() == 0) {
        reject();
        return;
    }
    m_list->selectRow(std::min(row, m_list->count() - 1));
}

void CDlgDueAlarms::finish()
{
    const int key = m_list->currentKey();
    CTblAlarm::setDone(key, GetDBSetting()->GetUserID());
    takeOff(key);
}

void CDlgDueAlarms::postpone()
{
    const int key = m_list->currentKey();
    const auto found = std::find_if(m_due.cbegin(), m_due.cend(), [key](const auto &due) { return due.id == key; });
    if (found == m_due.cend())
        return;
    const std::optional<QDateTime> until = PostponeMenu::ask(found->date, m_postpone);
    if (!until)
        return;
    CTblAlarm::postpone(key, GetDBSetting()->GetUserID(), *until);
    takeOff(key);
}

// What is no longer due, or another user's now, has been dealt with.
void CDlgDueAlarms::edit(int key)
{
    if (!CDlgAddAlarm::Edit(key, this))
        return;
    CTblAlarm alarm;
    const bool stays = alarm.IsRecordExist(u"iID"_s, key) && alarm.isDue(GetDBSetting()->GetDBServerDate())
        && alarm.m_iUserID == GetDBSetting()->GetUserID();
    if (!stays) {
        takeOff(key);
        return;
    }
    for (CTblAlarm::Due &due : m_due) {
        if (due.id == key)
            due = {key, alarm.m_date, alarm.m_sDesc};
    }
    fill(m_due);
    m_list->selectKey(key);
}
