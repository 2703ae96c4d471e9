// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/CDlgMessage.h"
#include "suite/db/connection/KConnection.h"
#include "suite/utility/frame/KDialog.h"

#include <QApplication>

using namespace Qt::StringLiterals;

// The box that messages are shown in, and the question of a window that is closed with unsaved entries. Both are handed in when the
// library of the windows is loaded, which the use of any of them does, so that a program has them whatever its application object
// is.

namespace {

using Buttons = KMessageDialog::Buttons;

// A message may appear while a long operation shows the wait cursor; its buttons are to be clicked all the same.
class NormalCursor
{
public:
    NormalCursor()
        : m_set(QApplication::overrideCursor() != nullptr)
    {
        if (m_set)
            QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~NormalCursor()
    {
        if (m_set)
            QApplication::restoreOverrideCursor();
    }
    NormalCursor(const NormalCursor &) = delete;
    NormalCursor &operator=(const NormalCursor &) = delete;

private:
    bool m_set;
};

// By the buttons that the text asks for; the answer that loses nothing is preset.
QList<CDlgMessage::Choice> choicesOf(Buttons buttons)
{
    // Yes is the button beside "باشه", or the only one.
    const CDlgMessage::Choice ok{u"باشه"_s, QDialogButtonBox::AcceptRole, buttons == Buttons::Ok ? KMessageDialog::Yes : KMessageDialog::No,
                                 buttons != Buttons::OkOrLookAgain};
    const CDlgMessage::Choice yes{u"بله"_s, QDialogButtonBox::YesRole, KMessageDialog::Yes};
    const CDlgMessage::Choice no{u"خیر"_s, QDialogButtonBox::NoRole, KMessageDialog::No, true};
    switch (buttons) {
    case Buttons::Ok:
        return {ok};
    case Buttons::OkOrFolder:
        return {ok, {u"باز کردن پوشه"_s, QDialogButtonBox::ActionRole, KMessageDialog::Yes}};
    case Buttons::OkOrLookAgain:
        return {ok, {u"نگاه دوباره"_s, QDialogButtonBox::ActionRole, KMessageDialog::Yes, true}};
    case Buttons::YesNo:
        return {yes, no};
    case Buttons::YesNoCancel:
        return {yes, no, {u"انصراف"_s, QDialogButtonBox::RejectRole, KMessageDialog::Cancel}};
    }
    Q_UNREACHABLE();
}

KMessageDialog::Answer answerOfClosing(Buttons buttons)
{
    switch (buttons) {
    case Buttons::Ok:
        return KMessageDialog::Yes;
    case Buttons::YesNoCancel:
        return KMessageDialog::Cancel;
    default:
        return KMessageDialog::No;
    }
}

KMessageDialog::Answer show(KMessageDialog::Kind kind, const QString &text, Buttons buttons, QWidget *parent)
{
    // A notice that it waited would be the active window, and goes.
    KConnection::endOperation();
    const NormalCursor cursor;
    return CDlgMessage(kind, text, choicesOf(buttons), answerOfClosing(buttons), parent ? parent : QApplication::activeWindow()).ask();
}

bool mayDrop(QWidget *window)
{
    return g_pDlgYesNo->Ask(u"آنچه وارد کرده‌اید ذخیره نشده است. پنجره بدون ذخیره بسته شود؟"_s, window) != KMessageDialog::No;
}

const struct Installation
{
    Installation()
    {
        KMessageDialog::setBox(&show);
        KDialog::setDropQuestion(&mayDrop);
    }
} whenLoaded;

}
