// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/crm/messages/MessageDrafts.h"
#include "suite/crm/TzCRMExport.h"
#include "suite/utility/frame/KDialog.h"

class KDropDown;
class KTextArea;
class QLabel;
class QPushButton;

// A message to one person, or to several one after the other: the text is filled, may be changed, and is copied or passed to the desktop's
// messenger. The program sends nothing by itself; that something was said is noted where the user wants it.
class TZCRM_EXPORT CDlgMessageToPerson final : public KDialog
{
    Q_OBJECT

public:
    CDlgMessageToPerson(const MessageKind &kind, QList<PersonMessage> messages, QWidget *parent = nullptr);
    ~CDlgMessageToPerson() override;

    // Asks the rights, reads what the records say and opens the window; says why not, and how many records are gone.
    static void run(const QString &kind, const QList<MessageAbout> &about, QWidget *parent);

    int current() const { return m_drafts.current(); }
    KDropDown *texts() const { return m_texts; }
    KDropDown *numbers() const { return m_numbers; }
    KTextArea *text() const { return m_text; }
    QString statusText() const;

    void reject() override;

public Q_SLOTS:
    // The commands behind the buttons.
    void copy();
    void openMessenger();
    void noteFollowUp();
    void showNext();
    void showPrevious();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void build();
    QWidget *buildHead();
    void buildFooter();
    void connectControls();
    void showMessage(int index);
    void showText();
    void textChosen(int choice);
    void textTyped();
    void updateButtons();
    void taken(const QString &said);

    MessageDrafts m_drafts;
    bool m_showing = false; // the window, not the user, changes its controls
    QLabel *m_person = nullptr;
    QLabel *m_place = nullptr;
    QPushButton *m_previous = nullptr;
    QPushButton *m_next = nullptr;
    KDropDown *m_texts = nullptr;
    KDropDown *m_numbers = nullptr;
    KTextArea *m_text = nullptr;
    QLabel *m_status = nullptr;
    QPushButton *m_copy = nullptr;
    QPushButton *m_open = nullptr;
    QPushButton *m_note = nullptr;
};
