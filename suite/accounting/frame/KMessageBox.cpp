// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/KDialog.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

// The box that messages are shown in, and the question of a window that is closed with unsaved entries. Both are handed in when the
// library of the windows is loaded, which the use of any of them does, so that a program has them whatever its application object
// is.

namespace {

using Buttons = KMessageDialog::Buttons;

struct Look
{
    QMessageBox::Icon icon;
    QString title;
};

Look lookOf(KMessageDialog::Kind kind)
{
    switch (kind) {
    case KMessageDialog::Kind::Warning:
        return {QMessageBox::Warning, u"هشدار"_s};
    case KMessageDialog::Kind::Message:
        return {QMessageBox::Information, u"پیام"_s};
    case KMessageDialog::Kind::Question:
        return {QMessageBox::Question, u"پرسش"_s};
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

// Yes when the button beside "باشه" was pressed, or when there is none.
KMessageDialog::Answer showMessage(QMessageBox &box, Buttons buttons)
{
    QPushButton *ok = addButton(box, u"باشه"_s, QMessageBox::AcceptRole);
    box.setDefaultButton(ok);
    box.setEscapeButton(ok);
    if (buttons == Buttons::OkOrFolder)
        addButton(box, u"باز کردن پوشه"_s, QMessageBox::ActionRole);
    if (buttons == Buttons::OkOrLookAgain)
        box.setDefaultButton(addButton(box, u"نگاه دوباره"_s, QMessageBox::ActionRole));
    box.exec();
    return buttons != Buttons::Ok && box.clickedButton() == ok ? KMessageDialog::No : KMessageDialog::Yes;
}

KMessageDialog::Answer show(KMessageDialog::Kind kind, const QString &text, Buttons buttons, QWidget *parent)
{
    const NormalCursor cursor;
    QMessageBox box(parent ? parent : QApplication::activeWindow());
    dress(box, kind, text);
    if (buttons == Buttons::Ok || buttons == Buttons::OkOrFolder || buttons == Buttons::OkOrLookAgain)
        return showMessage(box, buttons);
    const QPushButton *yes = addButton(box, u"بله"_s, QMessageBox::YesRole);
    QPushButton *no = addButton(box, u"خیر"_s, QMessageBox::NoRole);
    QPushButton *cancel =
        buttons == Buttons::YesNoCancel ? addButton(box, u"انصراف"_s, QMessageBox::RejectRole) : nullptr;
    box.setDefaultButton(no);
    box.setEscapeButton(cancel ? cancel : no);
    box.exec();
    if (box.clickedButton() == yes)
        return KMessageDialog::Yes;
    return cancel && box.clickedButton() == cancel ? KMessageDialog::Cancel : KMessageDialog::No;
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
