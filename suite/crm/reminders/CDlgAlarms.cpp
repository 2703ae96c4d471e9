// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/CDlgAlarms.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/accounting/frame/RecordKinds.h"
#include "suite/accounting/frame/SuiteMessages.h"
#include "suite/crm/reminders/AlarmFilter.h"
#include "suite/crm/reminders/AlarmTime.h"
#include "suite/crm/reminders/CDlgAddAlarm.h"
#include "suite/crm/reminders/CTblAlarm.h"
#include "suite/crm/reminders/PostponeMenu.h"
#include "suite/utility/lists/KExtListCtrl.h"

#include <QCheckBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

QString stateOf(const CTblAlarm &alarm, const QDateTime &now)
{
    if (alarm.isDone())
        return u"انجام شد"_s;
    return alarm.isDue(now) ? u"سررسیده"_s : u"در انتظار"_s;
}

// The record behind a reminder: its kind, and the code that people know it by.
KListColumn::Cell recordCell(const CTblAlarm &alarm)
{
    if (alarm.m_iTable <= 0 || alarm.m_iTable >= RecordKind::count)
        return {};
    const QString &kind = RecordKind::names().at(static_cast<std::size_t>(alarm.m_iTable));
    return {alarm.m_iRecordID2 > 0 ? u"%1 %2"_s.arg(kind, QString::number(alarm.m_iRecordID2)) : kind};
}

KListColumn::Cell timeCell(const QVariant &date)
{
    return {AlarmTime::timeOfDay(date.toDateTime())};
}

KListColumn::Cell repeatCell(const QVariant &repeats)
{
    return {KListColumn::yesOrDash(repeats).text, repeats};
}

}

CDlgAlarms::CDlgAlarms(QWidget *parent)
    : KListPage(u"یادآوری ها"_s, {}, u"Alarms"_s, parent)
{
    build();
    connect(filters().control<QCheckBox>(u"done"), &QCheckBox::toggled, this, [this] { guarded([this] { refill(); }); });
}

CDlgAlarms::~CDlgAlarms() = default;

bool CDlgAlarms::OnAccess()
{
    return true;
}

// Some may have come due since the page was filled.
void CDlgAlarms::refresh()
{
    KListPage::refresh();
    Q_EMIT alarmsChanged();
}

QList<KListColumn> CDlgAlarms::columnTable() const
{
    const auto state = [this](const CTblAlarm &alarm) { return KListColumn::Cell{stateOf(alarm, m_now), alarm.m_iStatus}; };
    return {
        KListColumn::rowNumber(30),
        {.key = u"state"_s, .title = u"وضعیت"_s, .width = 45, .sortKey = u"iStatus,date"_s, .cell = KListColumn::of<CTblAlarm>(state)},
        {.key = u"date"_s, .title = u"تاریخ"_s, .width = 50, .sortKey = u"date"_s, .column = u"date"_s},
        {.key = u"time"_s, .title = u"ساعت"_s, .width = 35, .column = u"date"_s, .show = timeCell},
        {.key = u"description"_s, .title = u"شرح"_s, .width = 190, .alignment = Qt::AlignRight, .sortKey = u"sDesc"_s, .column = u"sDesc"_s},
        {.key = u"record"_s, .title = u"مربوط به"_s, .width = 100, .alignment = Qt::AlignRight, .sortKey = u"iTable,iRecordID2"_s, .cell = KListColumn::of<CTblAlarm>(recordCell)},
        {.key = u"repeat"_s, .title = u"تکرار"_s, .width = 35, .sortKey = u"bRepeat"_s, .column = u"bRepeat"_s, .show = repeatCell},
    };
}

QList<KListFilter> CDlgAlarms::filterTable() const
{
    return alarmFilters();
}

KListTraits CDlgAlarms::traits() const
{
    return {.readsWholeRecords = true, .emptyIcon = u":/icons/reminder.svg"_s};
}

std::vector<KListCommand> CDlgAlarms::commands()
{
    constexpr int onRow = KListCommand::NeedsRow | KListCommand::HiddenInReadOnly;
    return {
        {u"new"_s, u"جديد"_s, KListCommand::HiddenInReadOnly, [this] { addAlarm(); }, QKeySequence(Qt::Key_Insert),
         u":/icons/new.svg"_s},
        {u"edit"_s, u"ويرايش"_s, onRow, [this] { editAlarm(); }, QKeySequence(Qt::Key_F2), u":/icons/edit.svg"_s},
        {u"done"_s, u"انجام شد"_s, onRow | KListCommand::StartsGroup, [this] { finishAlarm(); },
         QKeySequence(Qt::CTRL | Qt::Key_D), u":/icons/reminder.svg"_s},
        {u"postpone"_s, u"تعویق"_s, onRow, [this] { postponeAlarm(); }, QKeySequence(Qt::Key_F4),
         u":/icons/calendar.svg"_s},
        {u"delete"_s, u"حذف"_s, onRow | KListCommand::StartsGroup, [this] { deleteAlarm(); },
         QKeySequence(QKeySequence::Delete), u":/icons/delete.svg"_s},
    };
}

std::unique_ptr<KMySQL> CDlgAlarms::makeRecords() const
{
    return std::make_unique<CTblAlarm>();
}

// Open ones by their time, so that the due ones come first and the one that waits longest is on top.
QString CDlgAlarms::defaultSort() const
{
    return u"iStatus,date"_s;
}

void CDlgAlarms::beginRows(KMySQL &)
{
    m_now = GetDBSetting()->GetDBServerDate();
}

bool CDlgAlarms::isWarning(KMySQL &record) const
{
    return static_cast<const CTblAlarm &>(record).isDue(m_now);
}

void CDlgAlarms::activated(int)
{
    runCommand(u"edit");
}

void CDlgAlarms::emptyAreaActivated()
{
    runCommand(u"new");
}

void CDlgAlarms::changed(int key)
{
    refill();
    selectListed(key);
    Q_EMIT alarmsChanged();
}

void CDlgAlarms::addAlarm()
{
    if (const int added = CDlgAddAlarm::Add({}, 0, 0, 0, this))
        changed(added);
}

void CDlgAlarms::editAlarm()
{
    const int key = list()->currentKey();
    CDlgAddAlarm::Edit(key, this);
    // Also when it was not saved: it may have vanished.
    changed(key);
}

void CDlgAlarms::finishAlarm()
{
    const int key = list()->currentKey();
    CTblAlarm::setDone(key, GetDBSetting()->GetUserID());
    changed(key);
}

void CDlgAlarms::postponeAlarm()
{
    CTblAlarm alarm;
    if (!loadSelected(alarm))
        return;
    QPushButton *postpone = button(u"postpone");
    const std::optional<QDateTime> until = PostponeMenu::ask(alarm.m_date, postpone->isHidden() ? commandLine()->moreButton() : postpone);
    if (!until)
        return;
    CTblAlarm::postpone(alarm.m_iID, GetDBSetting()->GetUserID(), *until);
    changed(alarm.m_iID);
}

void CDlgAlarms::deleteAlarm()
{
    const int key = list()->currentKey();
    if (key == 0 || g_pDlgYesNo->Ask(SuiteMessages::deleteQuestion(), this) == KMessageDialog::No)
        return;
    CTblAlarm::deleteAlarm(key, GetDBSetting()->GetUserID());
    changed(key);
}
