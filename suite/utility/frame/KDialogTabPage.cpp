// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KDialogTabPage.h"

KDialogTabPage::KDialogTabPage(QWidget *parent)
    : QWidget(parent)
{
    setLayoutDirection(Qt::RightToLeft);
}

void KDialogTabPage::setTitle(const QString &title)
{
    if (title == m_title)
        return;
    m_title = title;
    Q_EMIT titleChanged(m_title);
}

bool KDialogTabPage::OnAccess()
{
    return true;
}

bool KDialogTabPage::OnOK()
{
    return true;
}

void KDialogTabPage::OnClosing() { }
