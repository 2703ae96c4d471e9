// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KMessageDialog.h"

#include "suite/db/connection/KReadAhead.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcMessage, "tz.message")

KMessageDialog warningDialog(KMessageDialog::Kind::Warning);
KMessageDialog messageDialog(KMessageDialog::Kind::Message);
KMessageDialog questionDialog(KMessageDialog::Kind::Question);

// Constant from the beginning, so that a library may hand its box in while it is loaded.
constinit KMessageDialog::Box installedBox = nullptr;

bool hasWindows()
{
    const QCoreApplication *application = QCoreApplication::instance();
    return application && application->inherits("QApplication");
}

KMessageDialog::Answer closed(KMessageDialog::Buttons buttons)
{
    return buttons == KMessageDialog::Buttons::YesNoCancel ? KMessageDialog::Cancel : KMessageDialog::No;
}

}

KMessageDialog *const g_pDlgWarning = &warningDialog;
KMessageDialog *const g_pDlgMessage = &messageDialog;
KMessageDialog *const g_pDlgYesNo = &questionDialog;

KMessageDialog::KMessageDialog(Kind kind)
    : m_kind(kind)
{
}

void KMessageDialog::setBox(Box box)
{
    installedBox = box;
}

void KMessageDialog::Show(const QString &text, QWidget *parent)
{
    run(text, Buttons::Ok, parent);
}

bool KMessageDialog::ShowWritten(const QString &text, QWidget *parent)
{
    return run(text, Buttons::OkOrFolder, parent) == Yes;
}

bool KMessageDialog::ShowUnknown(const QString &text, QWidget *parent)
{
    return run(text, Buttons::OkOrLookAgain, parent) == Yes;
}

KMessageDialog::Answer KMessageDialog::Ask(const QString &text, QWidget *parent)
{
    return run(text, Buttons::YesNo, parent);
}

KMessageDialog::Answer KMessageDialog::AskOrCancel(const QString &text, QWidget *parent)
{
    return run(text, Buttons::YesNoCancel, parent);
}

KMessageDialog::Answer KMessageDialog::run(const QString &text, Buttons buttons, QWidget *parent)
{
    KReadAhead::endAll();
    m_shown.append(text);
    if (buttons != Buttons::Ok && !m_answers.isEmpty())
        return m_answers.dequeue();
    if (m_answerAll)
        return buttons == Buttons::OkOrFolder || buttons == Buttons::OkOrLookAgain ? No : Yes;
    if (installedBox && hasWindows())
        return installedBox(m_kind, text, buttons, parent);
    qCWarning(lcMessage).noquote() << text;
    return closed(buttons);
}

void KMessageDialog::answerNext(Answer answer)
{
    m_answers.enqueue(answer);
}

void KMessageDialog::answerAll(bool on)
{
    m_answerAll = on;
    if (!on) {
        m_answers.clear();
        m_shown.clear();
    }
}

QStringList KMessageDialog::takeShown()
{
    return std::exchange(m_shown, {});
}
