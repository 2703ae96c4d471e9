// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingDataExport.h"

#include <QQueue>
#include <QString>
#include <QStringList>

class QWidget;

// A modal message to the user, right to left, with Persian buttons. It can be answered in advance: then no box appears, what
// would have been shown is kept, and questions get the answers laid out for them. The box itself is passed in, so that records
// and rights may warn and yet know no window.
class TZACCOUNTINGDATA_EXPORT KMessageDialog
{
public:
    enum class Kind {
        Warning,
        Message,
        Question
    };
    enum Answer {
        Yes,
        No,
        Cancel
    };

    enum class Buttons {
        Ok,
        OkOrFolder,
        OkOrLookAgain,
        YesNo,
        YesNoCancel
    };
    // Shows the text until the user has pressed one of the buttons; closing the box is the last of them.
    using Box = Answer (*)(Kind kind, const QString &text, Buttons buttons, QWidget *parent);
    // The box that shows all messages of the program. Without one, and in a program without windows, a message goes to the log
    // and a question is answered as if its box had been closed.
    static void setBox(Box box);

    explicit KMessageDialog(Kind kind);
    KMessageDialog(const KMessageDialog &) = delete;
    KMessageDialog &operator=(const KMessageDialog &) = delete;

    // Shows the text with the one button "باشه" and waits. Without a parent, the active window is used.
    void Show(const QString &text, QWidget *parent = nullptr);
    // The same about a file that was written, with "باز کردن پوشه" beside the button; true when that was pressed.
    [[nodiscard]] bool ShowWritten(const QString &text, QWidget *parent = nullptr);
    // The same about something whose end is not known yet, with "نگاه دوباره", which is the preset button; true when that was pressed.
    [[nodiscard]] bool ShowUnknown(const QString &text, QWidget *parent = nullptr);
    // Asks with "بله" and "خیر"; closing the box or Esc is No, which is also the preset button.
    [[nodiscard]] Answer Ask(const QString &text, QWidget *parent = nullptr);
    // Asks with "بله", "خیر" and "انصراف"; closing the box or Esc is Cancel.
    [[nodiscard]] Answer AskOrCancel(const QString &text, QWidget *parent = nullptr);

    // Answers the next question with this, in the order of the calls; no box appears for it.
    void answerNext(Answer answer);
    // While on, no box appears at all: questions without a prepared answer are answered Yes, no folder is opened, and nothing is looked at again. Off also drops the prepared
    // answers and what was kept.
    void answerAll(bool on);
    // Returns the texts that would have been shown since the last call, oldest first.
    QStringList takeShown();

private:
    Answer run(const QString &text, Buttons buttons, QWidget *parent);

    Kind m_kind;
    bool m_answerAll = false;
    QQueue<Answer> m_answers;
    QStringList m_shown;
};

TZACCOUNTINGDATA_EXPORT extern KMessageDialog *const g_pDlgWarning;
TZACCOUNTINGDATA_EXPORT extern KMessageDialog *const g_pDlgMessage;
TZACCOUNTINGDATA_EXPORT extern KMessageDialog *const g_pDlgYesNo;
