// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "suite/utility/frame/KDialogTabPage.h"

#include "suite/db/connection/KConnection.h"
#include "suite/utility/frame/KTabHost.h"

#include <QShowEvent>

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

void KDialogTabPage::showIn(KTabHost &host)
{
    host.addPage(this);
}

bool KDialogTabPage::OnOK()
{
    return true;
}

void KDialogTabPage::OnClosing() { }

void KDialogTabPage::refresh() { }

void KDialogTabPage::noteReading()
{
    m_wasRead = true;
    m_readAt = KConnection::changes();
}

void KDialogTabPage::refreshIfStale()
{
    if (isVisible() && m_wasRead && m_readAt != KConnection::changes())
        refresh();
}

void KDialogTabPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        refreshIfStale();
}
