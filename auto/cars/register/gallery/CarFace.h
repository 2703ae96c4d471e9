// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "auto/cars/register/gallery/CarCards.h"
#include "suite/utility/lists/KCardView.h"
#include "suite/utility/look/KChip.h"

#include <QPixmap>
#include <QSet>

#include <utility>

// A car's card in the gallery: its picture, or a drawn car in its paint; name and state; year, colour and mileage; price and days; plate.
class CarFace final : public KCardView::Face
{
public:
    // What all cards share.
    struct Frame
    {
        QDate today;
        int longestDays = 0; // that a car may stand
        QString moneyUnit;
    };

    // Of the rows of the car list.
    explicit CarFace(const KExtListCtrl *list);
    ~CarFace() override;

    void setFrame(const Frame &frame) { m_frame = frame; }
    const Frame &frame() const { return m_frame; }
    // What is known of cars besides their rows; a card without it shows its row alone. Those that were set last stay, up to mostCards.
    void setCards(const QHash<qint32, CarCard> &cards);
    // All of them may be others by now: they are shown until they are set anew.
    void outdate();
    void outdate(const QList<qint32> &keys);
    // Also of one that nothing is known of.
    bool isOutdated(qint32 key) const { return !m_cards.contains(key) || m_outdated.contains(key); }

    int height(int width) const override;
    int leastWidth() const override;
    void paint(QPainter &painter, const QRect &inside, int row) const override;
    QString text(int row) const override;
    QString tip(int row) const override;

    // How long the car stands, or stood until it was sold, as its card says it; empty where nobody knows.
    static QString daysText(const CarCard &card, const QDate &today);

    static constexpr int mostCards = 400;

private:
    struct Known
    {
        CarCard card;
        QPixmap picture;
    };

    QString cell(int row, QStringView column) const;
    QString title(int row) const;
    QString particulars(int row) const;
    std::pair<KChip::Kind, QString> state(const CarCard &card) const;
    bool isOnWeb(int row) const;
    void paintPicture(QPainter &painter, const QRect &room, int row) const;
    void paintPlate(QPainter &painter, const QRect &room, int row) const;

    const KExtListCtrl *m_list;
    Frame m_frame;
    QHash<qint32, Known> m_cards;
    QList<qint32> m_order; // of their keys, the longest known first
    QSet<qint32> m_outdated;
};
