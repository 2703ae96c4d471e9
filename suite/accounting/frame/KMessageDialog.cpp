// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KMessageDialog.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QMessageBox>
#include <QPushButton>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcMessage, "tz.message")

KMessageDialog warningDialog(KMessageDialog::Kind::Warning);
KMessageDialog messageDialog(KMessageDialog::Kind::Message);
KMessageDialog questionDialog(KMessageDialog::Kind::Question);

struct Look
{
    QMessageBox::Icon icon;
    QString title;
};

Look lookOf(KMessageDialog::Kind kind)
{
    switch (kind) {
    case KMessageDialog::Kind::Warning:
        return {QMessageBox::Warning, QStringLiteral("هشدار")};
    case KMessageDialog::Kind::Message:
        return {QMessageBox::Information, QStringLiteral("پیام")};
    case KMessageDialog::Kind::Question:
        return {QMessageBox::Question, QStringLiteral("پرسش")};
    }
    Q_UNREACHABLE();
}

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

void dress(QMessageBox &box, KMessageDialog::Kind kind, const QString &text)
{
    const Look look = lookOf(kind);
    box.setLayoutDirection(Qt::RightToLeft);
    box.setIcon(look.icon);
    box.setWindowTitle(look.title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
}

QPushButton *addButton(QMessageBox &box, const QString &caption, QMessageBox::ButtonRole role)
{
    QPushButton *button = box.addButton(caption, role);
    button->setAccessibleName(caption);
    return button;
}

QWidget *parentOr(QWidget *parent)
{
    return parent ? parent : QApplication::activeWindow();
}

}

KMessageDialog *const g_pDlgWarning = &warningDialog;
KMessageDialog *const g_pDlgMessage = &messageDialog;
KMessageDialog *const g_pDlgYesNo = &questionDialog;

KMessageDialog::KMessageDialog(Kind kind)
    : m_kind(kind)
{
}

void KMessageDialog::Show(const QString &text, QWidget *parent)
{
    m_shown.append(text);
    if (m_answerAll)
        return;
    if (!qobject_cast<QApplication *>(QCoreApplication::instance())) {
        qCWarning(lcMessage).noquote() << text;
        return;
    }
    const NormalCursor cursor;
    QMessageBox box(parentOr(parent));
    dress(box, m_kind, text);
    QPushButton *ok = addButton(box, QStringLiteral("باشه"), QMessageBox::AcceptRole);
    box.setDefaultButton(ok);
    box.setEscapeButton(ok);
    box.exec();
}

KMessageDialog::Answer KMessageDialog::Ask(const QString &text, QWidget *parent)
{
    return run(text, parent, false);
}

KMessageDialog::Answer KMessageDialog::AskOrCancel(const QString &text, QWidget *parent)
{
    return run(text, parent, true);
}

KMessageDialog::Answer KMessageDialog::run(const QString &text, QWidget *parent, bool withCancel)
{
    m_shown.append(text);
    if (!m_answers.isEmpty())
        return m_answers.dequeue();
    if (m_answerAll)
        return Yes;
    const NormalCursor cursor;
    QMessageBox box(parentOr(parent));
    dress(box, m_kind, text);
    const QPushButton *yes = addButton(box, QStringLiteral("بله"), QMessageBox::YesRole);
    QPushButton *no = addButton(box, QStringLiteral("خیر"), QMessageBox::NoRole);
    QPushButton *cancel =
        withCancel ? addButton(box, QStringLiteral("انصراف"), QMessageBox::RejectRole) : nullptr;
    box.setDefaultButton(no);
    box.setEscapeButton(cancel ? cancel : no);
    box.exec();
    if (box.clickedButton() == yes)
        return Yes;
    return cancel && box.clickedButton() == cancel ? Cancel : No;
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
