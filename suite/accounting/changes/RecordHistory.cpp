// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/changes/RecordHistory.h"

#include "suite/accounting/changes/RecordSubjects.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"

using namespace Qt::StringLiterals;

namespace {

RecordHistory::Show historyWindow = nullptr;

}

bool RecordHistory::isOfSettings(const QString &table)
{
    return table.startsWith("Properties:"_L1);
}

void RecordHistory::setWindow(Show show)
{
    historyWindow = show;
}

bool RecordHistory::isOffered(const QString &table)
{
    const RecordSubject *subject = RecordSubjects::of(table);
    if (!historyWindow || !subject)
        return false;
    return subject->form.isEmpty() ? GetDBSetting()->IsAdmin() : KSecurity::IsGranted(subject->form, KSecurity::Read);
}

void RecordHistory::show(const QString &table, qint32 key, QWidget *parent)
{
    if ((key > 0 || isOfSettings(table)) && isOffered(table))
        historyWindow(table, key, parent);
}

QString RecordHistory::caption()
{
    return u"تاریخچه"_s;
}
