// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QWidget>

#include <array>
#include <utility>

class QGridLayout;
class QLabel;

// The fields that two users changed at once, a row each, as a list shows its rows: the field's label, and its value as the window
// opened it, as the other saved it, as it stands in the window. Inside the library only.
class ConflictTable : public QWidget
{
    Q_OBJECT

public:
    static constexpr int sides = 3;

    struct Line
    {
        QString caption;
        std::array<QString, sides> texts;       // as opened, theirs, mine
        std::array<QByteArray, sides> pictures; // of a picture's column; otherwise empty
    };

    explicit ConflictTable(const QList<Line> &lines, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QLabel *title(const QString &text);
    QLabel *caption(const QString &text);
    QLabel *value(const Line &line, int side, const QString &title);
    // From the upper to the lower edge of a row of the table.
    std::pair<int, int> edgesOf(int row) const;

    QGridLayout *m_grid;
};
