// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QKeySequence>
#include <QPushButton>

#include "suite/utility/TzUtilityExport.h"

// The button of a command. One that the user may not run looks disabled and says why in its tip; pressed all the same, the command
// refuses by itself, so that a user at the keyboard learns the reason too.
class TZUTILITY_EXPORT KCommandButton : public QPushButton
{
    Q_OBJECT

public:
    // Its text is its accessible name as well.
    KCommandButton(const QIcon &icon, const QString &text, QWidget *parent = nullptr);

    // Shown as the tip while nothing hinders the command.
    void setShortcutTip(const QKeySequence &shortcut);
    // The one that is shown as the tip; empty without.
    const QKeySequence &shownShortcut() const { return m_shortcut; }
    // Why the user may not run the command; empty: the user may.
    void setHindrance(const QString &reason);
    bool isHindered() const { return !m_hindrance.isEmpty(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showTip();

    QKeySequence m_shortcut;
    QString m_hindrance;
};
