// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLayout>

#include <vector>

// The cards of the day in columns: three with ranks of 118, 112 and 100, two where there is less room, one where there is little. The columns
// end on one line.
class TodayBoard final : public QLayout
{
    Q_OBJECT

public:
    explicit TodayBoard(QWidget *page);
    ~TodayBoard() override;

    // column: of three, from the leading side; rank: within it, from above.
    void addCard(QWidget *card, int column, int rank);

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    void setGeometry(const QRect &rect) override;

private:
    struct Card
    {
        QLayoutItem *item = nullptr;
        int column = 0;
        int rank = 0;
    };

    static int columnsOf(int width);
    int lay(const QRect &rect, bool apply) const;

    std::vector<Card> m_cards;
};
