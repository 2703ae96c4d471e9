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

namespace {

const QString newCaption = QStringLiteral("جديد");
const QString editCaption = QStringLiteral("ويرايش");
const QString postponeCaption = QStringLiteral("تعویق");

QString stateOf(const CTblAlarm &alarm, const QDateTime &now)
{
    if (alarm.isDone())
        return QStringLiteral("انجام شد");
    return alarm.isDue(now) ? QStringLiteral("سررسیده") : QStringLiteral("در انتظار");
}

// The record behind a reminder: its kind, and the code that people know it by.
QString recordOf(const CTblAlarm &alarm)
{
    if (alarm.m_iTable <= 0 || alarm.m_iTable >= RecordKind::count)
        return {};
    const QString &kind = RecordKind::names().at(static_cast<std::size_t>(alarm.m_iTable));
    return alarm.m_iRecordID2 > 0 ? QStringLiteral("%1 %2").arg(kind, QString::number(alarm.m_iRecordID2)) : kind;
}

}

CDlgAlarms::CDlgAlarms(QWidget *parent)
    : KListPage(QStringLiteral("یادآوری ها"), {}, QStringLiteral("Alarms"), parent)
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
        {QStringLiteral("ردیف"), Qt::AlignHCenter, 30, {}},
        {QStringLiteral("وضعیت"), Qt::AlignHCenter, 45, QStringLiteral("iStatus,date")},
        {QStringLiteral("تاریخ"), Qt::AlignHCenter, 50, QStringLiteral("date"), true},
        {QStringLiteral("ساعت"), Qt::AlignHCenter, 35, {}},
        {QStringLiteral("شرح"), Qt::AlignRight, 190, QStringLiteral("sDesc")},
        {QStringLiteral("مربوط به"), Qt::AlignRight, 100, QStringLiteral("iTable,iRecordID2")},
        {QStringLiteral("تکرار"), Qt::AlignHCenter, 35, QStringLiteral("bRepeat")},
    };
}

std::vector<KListCommand> CDlgAlarms::commands()
{
    constexpr int onRow = KListCommand::NeedsRow | KListCommand::HiddenInReadOnly;
    return {
        {QStringLiteral("new"), newCaption, KListCommand::HiddenInReadOnly, [this] { addAlarm(); }, QKeySequence(Qt::Key_Insert),
         QStringLiteral(":/icons/new.svg")},
        {QStringLiteral("edit"), editCaption, onRow, [this] { editAlarm(); }, QKeySequence(Qt::Key_F2), QStringLiteral(":/icons/edit.svg")},
        {QStringLiteral("done"), QStringLiteral("انجام شد"), onRow | KListCommand::StartsGroup, [this] { finishAlarm(); },
         QKeySequence(Qt::CTRL | Qt::Key_D), QStringLiteral(":/icons/reminder.svg")},
        {QStringLiteral("postpone"), postponeCaption, onRow, [this] { postponeAlarm(); }, QKeySequence(Qt::Key_F4),
         QStringLiteral(":/icons/calendar.svg")},
        {QStringLiteral("delete"), QStringLiteral("حذف"), onRow | KListCommand::StartsGroup, [this] { deleteAlarm(); },
         QKeySequence(QKeySequence::Delete), QStringLiteral(":/icons/delete.svg")},
    };
}

void CDlgAlarms::buildFilters(QGridLayout *grid)
{
    m_text = new KEdit(KEdit::Kind::QueryText, this);
    m_showDone = new QCheckBox(QStringLiteral("نمايش انجام شده ها"), this);
    m_showDone->setAccessibleName(m_showDone->text());
    addFilter(grid, 0, 0, QStringLiteral("شرح :"), m_text);
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
    return QStringLiteral("iStatus,date");
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
                {alarm.m_bRepeat ? QStringLiteral("بلی") : QStringLiteral("-"), alarm.m_bRepeat},
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
