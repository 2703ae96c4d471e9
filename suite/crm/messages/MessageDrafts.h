// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/messages/CTblMessageTexts.h"
#include "suite/crm/messages/MessageKinds.h"
#include "suite/crm/TzCRMDataExport.h"

#include <vector>

// The messages of one window, each with what became of it: its text as it was made or changed, whether it was taken out of the window, and
// whether that was noted. One of them is current. What is kept of one stays while others are.
class TZCRMDATA_EXPORT MessageDrafts
{
public:
    // There must be a message. Reads the texts to choose from, and which one this user chose last for such a message. Throws CMySQLException.
    MessageDrafts(const MessageKind &kind, QList<PersonMessage> messages);

    const MessageKind &kind() const { return m_kind; }
    const QList<CTblMessageTexts::Entry> &entries() const { return m_entries; }
    int count() const { return static_cast<int>(m_messages.size()); }

    int current() const { return m_current; }
    // One that was not current before gets the text that was chosen last.
    void go(int index);
    const PersonMessage &message() const { return m_messages.at(m_current); }

    // Position among the entries. Choosing fills the message anew, whatever was typed, and is remembered for the user.
    int choice() const { return state().choice; }
    void choose(int choice);

    QString text() const { return state().text; }
    void setText(const QString &text) { state().text = text; }
    bool isEdited() const { return state().isEdited(); }
    // Position among the numbers of the person.
    int number() const { return state().number; }
    void setNumber(int number) { state().number = number; }

    // It was copied or passed on.
    void markTaken() { state().isTaken = true; }
    // Whether any was changed by hand and not taken.
    bool isAnyLost() const;

    bool isNoteOffered() const { return static_cast<bool>(message().note); }
    bool mayNote() const { return isNoteOffered() && state().isTaken && state().noted != Noted::Yes; }
    bool isNoted() const { return state().noted == Noted::Yes; }
    // Writes the follow-up, once: where the connection broke while it was saved, the next call finds out what became of it. Throws as
    // PersonMessage::note does.
    void writeNote();

private:
    enum class Noted {
        No,
        Unknown, // the connection broke while it was saved
        Yes
    };
    struct State
    {
        QString text;    // as it stands
        QString filled;  // as it was made
        int choice = -1; // -1: not made yet
        int number = 0;
        bool isTaken = false;
        Noted noted = Noted::No;

        bool isEdited() const { return text != filled; }
    };

    void fill(int choice);
    State &state() { return m_states[static_cast<std::size_t>(m_current)]; }
    const State &state() const { return m_states[static_cast<std::size_t>(m_current)]; }

    const MessageKind m_kind;
    const QList<PersonMessage> m_messages;
    const QList<CTblMessageTexts::Entry> m_entries;
    std::vector<State> m_states;
    int m_current = 0;
    int m_lastChoice = 0;
    bool m_noting = false;
};
