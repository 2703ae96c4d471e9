// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/reminders/PostponeMenu.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/crm/reminders/AlarmTime.h"

#include <QMenu>

using namespace Qt::StringLiterals;

std::optional<QDateTime> PostponeMenu::ask(const QDateTime &date, QWidget *button)
{
    static const std::pair<AlarmTime::Delay, QString> delays[]{
        {AlarmTime::Delay::OneHour, u"یک ساعت دیگر"_s},
        {AlarmTime::Delay::Tomorrow, u"فردا"_s},
        {AlarmTime::Delay::ThreeDays, u"سه روز دیگر"_s},
        {AlarmTime::Delay::OneWeek, u"یک هفته دیگر"_s},
    };
    const QDateTime now = GetDBSetting()->GetDBServerDate();
    QMenu menu(button);
    menu.setAccessibleName(u"تعویق"_s);
    for (const auto &[delay, caption] : delays) {
        const QDateTime until = AlarmTime::postponed(date, now, delay);
        menu.addAction(u"%1 (%2)"_s.arg(caption, AlarmTime::text(until)))->setData(until);
    }
    const QAction *chosen = menu.exec(button->mapToGlobal(QPoint(0, -menu.sizeHint().height())));
    return chosen ? std::optional(chosen->data().toDateTime()) : std::nullopt;
}
