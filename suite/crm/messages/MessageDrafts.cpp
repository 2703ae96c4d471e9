// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/crm/messages/MessageDrafts.h"

#include "suite/crm/messages/MessageFilling.h"
#include "suite/db/connection/CMySQLException.h"
#include "suite/utility/values/KSettings.h"

#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString settingSection = u"Messages"_s;
constexpr int longestNote = 500; // as follow-ups have room for

}

MessageDrafts::MessageDrafts(const MessageKind &kind, QList<PersonMessage> messages)
    : m_kind(kind)
    , m_messages(std::move(messages))
    , m_entries(CTblMessageTexts::entries(kind.id))
    , m_states(static_cast<std::size_t>(m_messages.size()))
{
    // One that is gone leaves the office's first.
    const int last = ReadSetting(settingSection, m_kind.id, -1);
    const auto chosen = std::ranges::find_if(m_entries, [last](const CTblMessageTexts::Entry &entry) { return entry.key == last; });
    m_lastChoice = chosen == m_entries.cend() ? 0 : static_cast<int>(chosen - m_entries.cbegin());
    go(0);
}

void MessageDrafts::go(int index)
{
    m_current = index;
    if (state().choice < 0)
        fill(m_lastChoice);
}

void MessageDrafts::choose(int choice)
{
    fill(choice);
    m_lastChoice = choice;
    WriteSetting(settingSection, m_kind.id, int(m_entries.at(choice).key));
}

void MessageDrafts::fill(int choice)
{
    state().choice = choice;
    state().filled = MessageFilling::filled(m_entries.value(choice).text, message().values);
    state().text = state().filled;
}

bool MessageDrafts::isAnyLost() const
{
    return std::ranges::any_of(m_states, [](const State &one) { return one.isEdited() && !one.isTaken; });
}

void MessageDrafts::writeNote()
{
    if (!mayNote() || m_noting)
        return;
    m_noting = true;
    const auto done = qScopeGuard([this] { m_noting = false; });
    try {
        message().note(u"پیام «%1»: %2"_s.arg(m_kind.title, text().simplified()).left(longestNote));
    } catch (const CMySQLException &error) {
        const bool wasSaved = error.category() == CMySQLException::Category::SavedAfterAll && state().noted == Noted::Unknown;
        if (error.category() == CMySQLException::Category::OutcomeUnknown)
            state().noted = Noted::Unknown;
        if (!wasSaved)
            throw;
    }
    state().noted = Noted::Yes;
}
