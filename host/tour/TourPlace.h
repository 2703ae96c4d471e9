// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/tour/TourSteps.h"

#include <QPointer>
#include <QRect>

class MainWindow;
class QAction;
class QWidget;

// Where a step of the tour points, in the main window. The widget may go at any time, with the page that holds it.
class TourPlace
{
public:
    TourPlace() = default;
    // Brings the step's page to the front and finds its control there.
    static TourPlace open(MainWindow &window, const TourStep &step);
    // Finds it in the page that is in front.
    static TourPlace find(const MainWindow &window, const TourStep &step);
    // Whether the step's page can be opened at all: its entry is there and not without its module.
    static bool canOpen(const MainWindow &window, const TourStep &step);

    // Whether the control itself was found; otherwise the page stands for it.
    bool isControl() const { return m_isControl; }
    // In the coordinates of the main window; empty while it is not to be seen.
    QRect rect() const;

private:
    TourPlace(QWidget *widget, bool isControl, QAction *entry = nullptr);

    QPointer<QWidget> m_widget;
    QPointer<QAction> m_entry; // of the menu bar that the widget is
    bool m_isControl = false;
};
