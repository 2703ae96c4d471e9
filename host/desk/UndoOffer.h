// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/bin/Bin.h"

#include <QTimer>
#include <QWidget>

class ElidedLabel;
class QPushButton;
class QShortcut;

// What was deleted last, in the status line, with the button that takes it back: for some seconds, or until its user changes anything
// else. Ctrl+Z presses it as long as no field takes that key for what was typed.
class UndoOffer final : public QWidget
{
    Q_OBJECT

public:
    explicit UndoOffer(QWidget *parent = nullptr);

    void offer(const Bin::Entry &entry);
    void withdraw();
    bool isOffered() const { return m_entry.id != 0; }
    // Withdraws it once the window's thread has changed anything since; asked twice a second.
    void look();

    QSize sizeHint() const override;

Q_SIGNALS:
    // The button was pressed; nothing is offered any more.
    void chosen(const Bin::Entry &entry);

private:
    void choose();

    Bin::Entry m_entry;
    quint64 m_changes = 0; // KConnection::changesOfThread() when it was offered
    ElidedLabel *m_sentence;
    QPushButton *m_button;
    QShortcut *m_key;
    QTimer m_over;
    QTimer m_looking;
};
