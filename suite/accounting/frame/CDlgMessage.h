// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/TzAccountingExport.h"
#include "suite/accounting/frame/KMessageDialog.h"
#include "suite/utility/frame/KDialog.h"

#include <QDialogButtonBox>
#include <QList>

class QLabel;
class QPushButton;
class QScrollArea;

// The window of a message or a question: a sign, the text, the buttons. A text longer than the screen has room for scrolls, by the
// keys as well; Ctrl+C copies it.
class TZACCOUNTING_EXPORT CDlgMessage : public KDialog
{
    Q_OBJECT

public:
    using Answer = KMessageDialog::Answer;

    struct Choice
    {
        QString caption;
        QDialogButtonBox::ButtonRole role; // which decides its place
        Answer answer;
        bool isPreset = false; // the button that Enter presses, and the only filled one
    };

    // closed: the answer of whoever closes the window without a button.
    CDlgMessage(KMessageDialog::Kind kind, const QString &text, const QList<Choice> &choices, Answer closed, QWidget *parent = nullptr);

    QString text() const;
    QList<QPushButton *> buttons() const;

    // Shows it until a button is pressed.
    Answer ask();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QWidget *buildPage(KMessageDialog::Kind kind, const QString &text);
    QDialogButtonBox *buildButtons(const QList<Choice> &choices);
    void fitText();

    Answer m_answer;
    QLabel *m_text = nullptr;
    QScrollArea *m_scroll = nullptr;
};
