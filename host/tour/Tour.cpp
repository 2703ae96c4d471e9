// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#include "host/tour/Tour.h"

#include "host/desk/MainWindow.h"
#include "host/tour/TourOffer.h"
#include "suite/accounting/office/CDBSetting.h"
#include "suite/utility/values/KSettings.h"

using namespace Qt::StringLiterals;

namespace {

const QString section = u"tzhost\\Tour"_s;
// A window is moved, resized, scrolled, its page closed: the ring is where its control is, soon enough for the eye.
constexpr int followMilliseconds = 150;

}

Tour::Tour(MainWindow &window)
    : m_window(window)
{
    m_following.setInterval(followMilliseconds);
    connect(&m_following, &QTimer::timeout, this, &Tour::follow);
    connect(&window, &MainWindow::closed, this, &Tour::end);
}

Tour::~Tour()
{
    end();
}

QString Tour::seenKey()
{
    return u"offeredTo%1"_s.arg(GetDBSetting()->GetUserID());
}

void Tour::offerOnce()
{
    if (ReadSetting(section, seenKey(), 0) != 0)
        return;
    WriteSetting(section, seenKey(), 1);
    auto *offer = new TourOffer(&m_window);
    connect(offer, &TourOffer::accepted, this, &Tour::start);
    m_window.addToolBar(Qt::TopToolBarArea, offer);
    offer->show();
}

void Tour::start()
{
    WriteSetting(section, seenKey(), 1);
    if (auto *offer = m_window.findChild<TourOffer *>()) {
        offer->hide();
        offer->deleteLater();
    }
    m_steps = TourSteps::ofUser();
    m_steps.removeIf([this](const TourStep &step) { return !TourPlace::canOpen(m_window, step); });
    if (!m_card) {
        m_ring = new TourRing(&m_window);
        m_card = new CDlgTour(&m_window);
        m_card->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_card, &CDlgTour::next, this, [this] { go(m_current + 1); });
        connect(m_card, &CDlgTour::previous, this, [this] { go(m_current - 1); });
        connect(m_card, &CDlgTour::manualWanted, this, [this] { Q_EMIT manualWanted(m_steps.at(m_current).manual); });
        connect(m_card, &QDialog::finished, this, &Tour::end);
    }
    go(0);
    m_following.start();
}

void Tour::end()
{
    m_following.stop();
    m_place = {};
    m_shown = {};
    if (TourRing *ring = m_ring.data()) {
        m_ring.clear();
        ring->hide();
        ring->deleteLater();
    }
    if (CDlgTour *card = m_card.data()) {
        m_card.clear();
        card->hide();
        card->deleteLater();
        m_window.activateWindow();
    }
}

// The page reads from the database meanwhile; a second press of the button waits for the first.
void Tour::go(int step)
{
    if (m_isOpening || step < 0 || step >= count())
        return;
    m_isOpening = true;
    m_current = step;
    m_place = TourPlace::open(m_window, m_steps.at(step));
    m_isOpening = false;
    // A server that is gone may have ended the window's work in between.
    if (!m_card)
        return;
    m_card->showStep(m_steps.at(step), step + 1, count());
    m_shown = {};
    follow();
    m_card->show();
    follow();
    m_card->raise();
    m_card->activateWindow();
}

void Tour::follow()
{
    if (!m_card || !m_ring)
        return;
    // The first page shows its cards when it has read what they hold.
    if (!m_place.isControl() && !m_isOpening)
        m_place = TourPlace::find(m_window, m_steps.at(m_current));
    const QRect rect = m_place.rect();
    m_ring->showAround(rect);
    const QRect onScreen = rect.isEmpty() ? QRect() : QRect(m_window.mapToGlobal(rect.topLeft()), rect.size());
    if (onScreen == m_shown && m_card->isVisible())
        return;
    m_shown = m_card->isVisible() ? onScreen : QRect();
    m_card->standBeside(onScreen);
}
