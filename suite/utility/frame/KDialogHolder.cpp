// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KDialogHolder.h"

#include <QDialogButtonBox>
#include <QPushButton>

#include "suite/utility/frame/KDialogTabPage.h"
#include "suite/utility/look/LookMarks.h"

KDialogHolder::KDialogHolder(KDialogTabPage *page, QWidget *parent, const QString &okCaption, const QString &cancelCaption)
    : KDialog(parent)
    , m_page(page)
    , m_buttons(createButtons(okCaption, cancelCaption))
{
    setWindowTitle(page->title());
    setContent(page, m_buttons, Content::Fills);
    // What is typed here only looks for a row.
    setAsksBeforeDropping(false);
    connect(page, &KDialogTabPage::titleChanged, this, &QWidget::setWindowTitle);
    connect(page, &KDialogTabPage::okRequested, this, &KDialogHolder::accept);
    connect(page, &KDialogTabPage::closeRequested, this, &KDialogHolder::reject);
}

void KDialogHolder::okOnlyCloses()
{
    for (QAbstractButton *button : m_buttons->buttons()) {
        if (m_buttons->buttonRole(button) == QDialogButtonBox::AcceptRole)
            LookMarks::setButton(button, LookMarks::Button::Normal);
    }
}

int KDialogHolder::exec()
{
    if (!m_page->OnAccess())
        return Rejected;
    m_closed = false;
    return KDialog::exec();
}

void KDialogHolder::done(int result)
{
    if (!m_closed) {
        m_closed = true;
        m_page->OnClosing();
    }
    KDialog::done(result);
}

bool KDialogHolder::OnOK()
{
    return m_page->OnOK();
}
