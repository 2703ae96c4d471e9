// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/accounting/today/TodayCards.h"

#include <QFrame>

#include <array>

class ElidedLabel;
class KChip;
class QPushButton;
class QVBoxLayout;
class TodayRow;

// A card of the day: its title with the count, what is most urgent, and "همه". One line while nothing is due.
class TodayCardView : public QFrame
{
    Q_OBJECT

public:
    explicit TodayCardView(const TodayCard &card, QWidget *parent = nullptr);

    const TodayCard &card() const { return m_card; }
    // The rows stay where they are, so that the focus does.
    void show(const TodayContent &content, const QString &unit);
    const TodayContent &content() const { return m_content; }

Q_SIGNALS:
    void opened(const TodayLine &line);
    void allAsked(const QString &table, const KListRequest &request);

private:
    TodayCard m_card;
    TodayContent m_content;
    KChip *m_count;
    QPushButton *m_all;
    ElidedLabel *m_word; // beside the title: what was looked at, or that nothing is due
    std::array<TodayRow *, TodayContent::mostLines> m_rows{};
};
