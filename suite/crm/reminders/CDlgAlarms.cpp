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
#include "suite/utility/entries/KEdit.h"
#include "suite/utility/lists/KExtListCtrl.h"
#include "suite/utility/values/ShamsiDate.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

const QString newCaption = u"جديد"_s;
const QString editCaption = u"ويرايش"_s;
const QString postponeCaption = u"تعویق"_s;

QString stateOf(const CTblAlarm &alarm, const QDateTime &now)
{
    if (alarm.isDone())
        return u"انجام شد"_s;
    return alarm.isDue(now) ? u"سررسیده"_s : u"در انتظار"_s;
}

// The record behind a reminder: its kind, and the code that people know it by.
QString recordOf(const CTblAlarm &alarm)
{
    if (alarm.m_iTable <= 0 || alarm.m_iTable >= RecordKind::count)
        return {};
    const QString &kind = RecordKind::names().at(static_cast<std::size_t>(alarm.m_iTable));
    return alarm.m_iRecordID2 > 0 ? u"%1 %2"_s.arg(kind, QString::number(alarm.m_iRecordID2)) : kind;
}

}

CDlgAlarms::CDlgAlarms(QWidget *parent)
    : KListPage(u"یادآوری ها"_s, {}, u"Alarms"_s, parent)
{
    build();
    connect(m_showDone, &QCheckBox::toggled, this, [this] { guarded([this] { refill(); }); });
}

CDlgAlarms::~CDlgAlarms() = default;

bool CDlgAlarms::OnAccess()
{
    return true;
}

QVector<KListModel::Column> CDlgAlarms::listColumns() const
{
    return {
        {u"ردیف"_s, Qt::AlignHCenter, 30, {}},
        {u"وضعیت"_s, Qt::AlignHCenter, 45, u"iStatus,date"_s},
        {u"تاریخ"_s, Qt::AlignHCenter, 50, u"date"_s, true},
        {u"ساعت"_s, Qt::AlignHCenter, 35, {}},
        {u"شرح"_s, Qt::AlignRight, 190, u"sDesc"_s},
        {u"مربوط به"_s, Qt::AlignRight, 100, u"iTable,iRecordID2"_s},
        {u"تکرار"_s, Qt::AlignHCenter, 35, u"bRepeat"_s},
    };
}

std::vector<KListCommand> CDlgAlarms::commands()
{
    constexpr int onRow = KListCommand::NeedsRow | KListCommand::HiddenInReadOnly;
    return {
        {u"new"_s, newCaption, KListCommand::HiddenInReadOnly, [this] { addAlarm(); }, QKeySequence(Qt::Key_Insert),
         u":/icons/new.svg"_s},
        {u"edit"_s, editCaption, onRow, [this] { editAlarm(); }, QKeySequence(Qt::Key_F2), u":/icons/edit.svg"_s},
        {u"done"_s, u"انجام شد"_s, onRow | KListCommand::StartsGroup, [this] { finishAlarm(); },
         QKeySequence(Qt::CTRL | Qt::Key_D), u":/icons/reminder.svg"_s},
        {u"postpone"_s, postponeCaption, onRow, [this] { postponeAlarm(); }, QKeySequence(Qt::Key_F4),
         u":/icons/calendar.svg"_s},
        {u"delete"_s, u"حذف"_s, onRow | KListCommand::StartsGroup, [this] { deleteAlarm(); },
         QKeySequence(QKeySequence::Delete), u":/icons/delete.svg"_s},
    };
}

void CDlgAlarms::buildFilters(QGridLayout *grid)
{
    m_text = new KEdit(KEdit::Kind::QueryText, this);
    m_showDone = new QCheckBox(u"نمايش انجام شده ها"_s, this);
    m_showDone->setAccessibleName(m_showDone->text());
    addFilter(grid, 0, 0, u"شرح :"_s, m_text);
    grid->addWidget(m_showDone, 0, 2);
}

std::unique_ptr<KMySQL> CDlgAlarms::makeRecords() const
{
    return std::make_unique<CTblAlarm>();
}

QString CDlgAlarms::filterClauses() const
{
    return alarmFilter({GetDBSetting()->GetUserID(), m_text->queryText(), m_showDone->isChecked()});
}

// Open ones by their time, so that the due ones come first and the one that waits longest is on top.
QString CDlgAlarms::defaultSort() const
{
    return u"iStatus,date"_s;
}

void CDlgAlarms::beginRows()
{
    m_now = GetDBSetting()->GetDBServerDate();
}

KListModel::Row CDlgAlarms::makeRow(KMySQL &record, int number)
{
    const auto &alarm = static_cast<const CTblAlarm &>(record);
    return {alarm.m_iID,
            {
                {QString::number(number), number},
                {stateOf(alarm, m_now), alarm.m_iStatus},
                {shamsiText(alarm.m_date.date()), alarm.m_date},
                {AlarmTime::timeOfDay(alarm.m_date)},
                {alarm.m_sDesc},
                {recordOf(alarm)},
                {alarm.m_bRepeat ? u"بلی"_s : u"-"_s, alarm.m_bRepeat},
            },
            alarm.isDue(m_now)};
}

QWidget *CDlgAlarms::firstFilterControl() const
{
    return m_text;
}

void CDlgAlarms::activated(int)
{
    runCommand(editCaption);
}

void CDlgAlarms::emptyAreaActivated()
{
    runCommand(newCaption);
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
    const std::optional<QDateTime> until = PostponeMenu::ask(alarm.m_date, button(postponeCaption));
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
