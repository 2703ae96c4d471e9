// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/desk/ReminderBadge.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/frame/KErrorText.h"
#include "suite/crm/reminders/CTblAlarm.h"
#include "suite/utility/look/LookIcons.h"

#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(lcReminders, "tz.host.reminders")

// A server that is away keeps every caller waiting.
constexpr int ticksAfterAnError = 10;

}

ReminderBadge::ReminderBadge(QWidget *parent)
    : QToolButton(parent)
{
    setIcon(LookIcons::icon(u":/icons/reminder.svg"_s));
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setAutoRaise(true);
    setFocusPolicy(Qt::TabFocus);
    setToolTip(u"یادآوری های سررسیده"_s);
    hide();
}

void ReminderBadge::refresh()
{
    try {
        showCount(GetDBSetting()->IsLoggedIn() ? CTblAlarm::dueCount(GetDBSetting()->GetUserID()) : 0);
        m_ticksToSkip = 0;
    } catch (const CMySQLException &) {
        qCWarning(lcReminders).noquote() << KErrorText::logText(std::current_exception());
        m_ticksToSkip = ticksAfterAnError;
        showCount(0);
    }
}

void ReminderBadge::tick()
{
    if (m_ticksToSkip > 0)
        --m_ticksToSkip;
    else
        refresh();
}

void ReminderBadge::showCount(int due)
{
    setText(QString::number(due));
    setAccessibleName(u"یادآوری : %1"_s.arg(due));
    setVisible(due > 0);
}
