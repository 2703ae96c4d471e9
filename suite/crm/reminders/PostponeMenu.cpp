// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/PostponeMenu.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/reminders/AlarmTime.h"

#include <QMenu>

std::optional<QDateTime> PostponeMenu::ask(const QDateTime &date, QWidget *button)
{
    static const std::pair<AlarmTime::Delay, QString> delays[]{
        {AlarmTime::Delay::OneHour, QStringLiteral("یک ساعت دیگر")},
        {AlarmTime::Delay::Tomorrow, QStringLiteral("فردا")},
        {AlarmTime::Delay::ThreeDays, QStringLiteral("سه روز دیگر")},
        {AlarmTime::Delay::OneWeek, QStringLiteral("یک هفته دیگر")},
    };
    const QDateTime now = GetDBSetting()->GetDBServerDate();
    QMenu menu(button);
    menu.setAccessibleName(QStringLiteral("تعویق"));
    for (const auto &[delay, caption] : delays) {
        const QDateTime until = AlarmTime::postponed(date, now, delay);
        menu.addAction(QStringLiteral("%1 (%2)").arg(caption, AlarmTime::text(until)))->setData(until);
    }
    const QAction *chosen = menu.exec(button->mapToGlobal(QPoint(0, -menu.sizeHint().height())));
    return chosen ? std::optional(chosen->data().toDateTime()) : std::nullopt;
}
