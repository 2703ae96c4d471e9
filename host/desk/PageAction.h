// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAction>

// A menu entry that opens a page of the work area. Chosen with Ctrl held, or by its shortcut with Shift added (Ctrl is part of the
// shortcut itself), it asks for another page beside one that is open.
class PageAction final : public QAction
{
    Q_OBJECT

public:
    PageAction(const QIcon &icon, const QString &text, QObject *parent);

    // An empty one leaves the entry without a shortcut.
    void setKey(const QKeySequence &key);

Q_SIGNALS:
    void chosen(bool another);

protected:
    bool event(QEvent *event) override;

private:
    QKeySequence m_anotherKey;
    bool m_byShortcut = false;
    bool m_shortcutAsksForAnother = false;
};
