// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KDialogHolder.h"

#include <QDialogButtonBox>
#include <QVBoxLayout>

#include "suite/utility/frame/KDialogTabPage.h"

KDialogHolder::KDialogHolder(KDialogTabPage *page, QWidget *parent, const QString &okCaption, const QString &cancelCaption)
    : KDialog(parent)
    , m_page(page)
{
    setWindowTitle(page->title());
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(page, 1);
    // The window's own margins are enough, and the page stands in line with the buttons.
    if (page->layout())
        page->layout()->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(createButtons(okCaption, cancelCaption));
    // What is typed here only looks for a row.
    setAsksBeforeDropping(false);
    connect(page, &KDialogTabPage::titleChanged, this, &QWidget::setWindowTitle);
    connect(page, &KDialogTabPage::okRequested, this, &KDialogHolder::accept);
    connect(page, &KDialogTabPage::closeRequested, this, &KDialogHolder::reject);
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
