// SPDX-FileCopyrightText: 2026 The TzAuto team
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "suite/utility/TzUtilityExport.h"
#include "suite/utility/values/PlateText.h"

#include <QWidget>

#include <optional>

// A car's number plate as it looks on the car: always from left to right, and light in a dark look too. While one is typed,
// its parts fill in. Where its text is no plate of that form it shows nothing and keeps its room, so that nothing moves.
class TZUTILITY_EXPORT PlatePicture : public QWidget
{
    Q_OBJECT

public:
    explicit PlatePicture(QWidget *parent = nullptr);

    // In any way of writing (PlateText). A whole plate is the picture's accessible name.
    void setText(const QString &text);
    bool isPlate() const { return m_plate && m_plate->isWhole(); }

    // Paints it at the left end of the room, for a view that has no widget for each plate.
    static void paint(QPainter &painter, const QRectF &room, const PlateText &plate);

    // In less room the picture is smaller, never cut; in more it stands at the leading edge.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::optional<PlateText> m_plate;
};
