// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "host/tour/CDlgTour.h"
#include "host/tour/TourPlace.h"
#include "host/tour/TourRing.h"
#include "host/tour/TourSteps.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class MainWindow;

// The tour through the real main window: each step opens its page, puts a ring around what it speaks of, and says what that is for.
// It writes nothing but that this user has been offered it.
class Tour final : public QObject
{
    Q_OBJECT

public:
    explicit Tour(MainWindow &window);
    ~Tour() override;

    // Offers it to a user who has not been offered it yet on this computer.
    void offerOnce();
    // From the first step; one that runs begins anew.
    void start();
    void end();
    bool isRunning() const { return m_card != nullptr; }
    // Counted from 1; 0: it does not run.
    int step() const { return isRunning() ? m_current + 1 : 0; }
    int count() const { return int(m_steps.size()); }
    const TourPlace &place() const { return m_place; }
    CDlgTour *card() const { return m_card; }

Q_SIGNALS:
    void manualWanted(const QString &page);

private:
    void go(int step);
    void follow();
    static QString seenKey();

    MainWindow &m_window;
    QList<TourStep> m_steps;
    int m_current = 0;
    bool m_isOpening = false;
    TourPlace m_place;
    QRect m_shown;
    QPointer<CDlgTour> m_card;
    QPointer<TourRing> m_ring;
    QTimer m_following;
};
