// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QPointer>
#include <QVariant>
#include <QWidget>

// What the entries of a window held at a moment, and whether a user has entered anything since. An entry is every control with
// a value of its own (Qt's user property: a line, a text, a tick, a choice, a picture) and every cell of a grid that can be
// edited or ticked. Inside the library only.
class TypedWork
{
public:
    // A control with this property set is left out, with its parts: what it shows follows a selection. What is typed into such a
    // line counts.
    static constexpr char followsSelection[] = "followsSelection";

    // Begins anew with what the window holds now.
    void remember(const QWidget *window);
    // Entries below the part that came into the window later, as they are now.
    void add(const QWidget *part);
    // Whether an entry holds something else than it did. A line that came later, such as the editor of a cell, counts once it has
    // been typed into.
    bool differs(const QWidget *window) const;
    // Those that are remembered and still there.
    QList<const QWidget *> controls() const;

private:
    struct Entry
    {
        QPointer<const QWidget> widget;
        QVariant held;
    };

    QList<Entry> m_entries;
};
