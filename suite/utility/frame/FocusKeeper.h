// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class QWidget;

// Gives the keys back to the window behind a dialog that has closed. Window managers do so by themselves, but some now and then lose the
// window that is next when much happens at once; whoever works by keys then sits before a program that hears none.
class TZUTILITY_EXPORT FocusKeeper : public QObject
{
    Q_OBJECT

public:
    // Watches the application's dialogs as long as it lives.
    explicit FocusKeeper(QObject *application);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void giveBack();

    QPointer<QWidget> m_behind;
    QTimer m_patience;
};
