// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/messages/MessageNotes.h"

#include "suite/accounting/office/CDBSetting.h"
#include "suite/accounting/office/KSecurity.h"

std::function<void(const QString &said)> MessageNotes::of(const CTblFollowUps::Subject &subject)
{
    if (!KSecurity::IsGranted(subject.form, KSecurity::Write) || GetDBSetting()->IsClosedDB())
        return {};
    return [subject](const QString &said) { CTblFollowUps::add(subject, said, {}); };
}
