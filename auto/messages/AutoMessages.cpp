// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "auto/messages/AutoMessages.h"

#include "auto/messages/CarFoundMessages.h"
#include "auto/messages/ContractMessages.h"
#include "auto/messages/InstalmentMessages.h"

AutoMessages::AutoMessages()
{
    MessageKinds::enter(InstalmentMessages::kind());
    MessageKinds::enter(CarFoundMessages::kind());
    MessageKinds::enter(ContractMessages::kind());
}

// The functions that they hold are the module's.
AutoMessages::~AutoMessages()
{
    for (const MessageKind &kind : {InstalmentMessages::kind(), CarFoundMessages::kind(), ContractMessages::kind()})
        MessageKinds::remove(kind.id);
}

void AutoMessages::enter()
{
    static const AutoMessages entered;
}
