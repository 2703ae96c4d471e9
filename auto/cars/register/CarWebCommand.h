// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/lists/KListCommands.h"

#include <QList>

#include <functional>

class KListPage;

// "نمایش در وب" in the menu of a car's row or card: ticks the marked cars for the office's page on the web, or takes their ticks away. In the
// table it is about all marked rows, among the cards about the selected one.
class CarWebCommand
{
public:
    // Of the list of cars, which outlives it. showsCards: whether its rows are shown as cards now.
    CarWebCommand(KListPage *page, std::function<bool()> showsCards);

    KListCommand command();

private:
    // What the user saw of which cars when the menu came up: that is what is switched, whatever another desk did since.
    struct Seen
    {
        QList<qint32> cars;
        bool areTicked = false;
    };

    QList<qint32> cars() const;
    Seen look() const;
    void run();

    KListPage *m_page;
    std::function<bool()> m_showsCards;
    Seen m_seen;
};
