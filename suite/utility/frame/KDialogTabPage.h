// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QWidget>

#include "suite/utility/TzUtilityExport.h"
#include "suite/utility/frame/KTabPage.h"

// Base of a page of the tabbed work area. The same page can be shown in a KDialogHolder when another window picks a row
// of it.
//
// The holder of a page asks OnAccess first, destroys a page that refuses without showing it, and calls OnClosing once
// before it destroys a page that was shown.
class TZUTILITY_EXPORT KDialogTabPage : public QWidget, public KTabPage
{
    Q_OBJECT

public:
    explicit KDialogTabPage(QWidget *parent = nullptr);

    QString title() const { return m_title; }
    void setTitle(const QString &title);

    // Everybody may see it, unless the page says otherwise.
    bool OnAccess() override;
    void showIn(KTabHost &host) override;
    // The page's OK step when a window holds it. False keeps that window open.
    virtual bool OnOK();
    // The page is about to be destroyed: the place to write its settings.
    virtual void OnClosing();
    // Reads what the page shows anew; what is selected and in sight stays so. Called when the page comes to the front after this
    // program has changed anything since noteReading, and when its holder asks for it. A page that shows nothing of the database
    // does nothing.
    virtual void refresh();
    // Refreshes the page if it is shown and anything was changed.
    void refreshIfStale();

Q_SIGNALS:
    // The page asks its holder or its tab to close it.
    void closeRequested();
    // The page has a message about one of its fields and asks to be brought to the front first.
    void frontRequested();
    // The page asks its holder to do what the OK button does (a double click in select mode).
    void okRequested();
    void titleChanged(const QString &title);

protected:
    // What the page shows is read in this moment. To be called before it is read.
    void noteReading();
    void showEvent(QShowEvent *event) override;

private:
    QString m_title;
    quint64 m_readAt = 0; // KConnection::changes() then
    bool m_wasRead = false;
};
